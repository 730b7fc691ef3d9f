#include "page_control/engine/application_name.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/module_function.h"
#include "base/path.h"
#include "base/program_resource.h"

namespace tarvik {

namespace {

constexpr size_t kMaxLength = 80;

// The texts of a program's version resource.
class VersionTexts {
  public:
    explicit VersionTexts(HMODULE program) {
        const auto bytes = ResourceBytes(program, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION);
        block_.assign(bytes.begin(), bytes.end());
    }

    // In the resource's first language; empty if there is none.
    std::wstring operator[](const wchar_t* name) const {
        UINT size = 0;
        const auto* const language = static_cast<const WORD*>(Query(L"\\VarFileInfo\\Translation", &size));
        if (!language || size < 2 * sizeof(WORD)) return {};
        wchar_t path[100] = {};
        wsprintfW(path, L"\\StringFileInfo\\%04x%04x\\%s", language[0], language[1], name);
        const auto* const text = static_cast<const wchar_t*>(Query(path, &size));
        return text && size > 0 ? std::wstring(text, wcsnlen(text, size)) : std::wstring();
    }

  private:
    const void* Query(const wchar_t* path, UINT* size) const {
        // Not linked: the system would look for the library beside the program first.
        static auto* const query = FindFunction<decltype(VerQueryValueW)>(L"version.dll", "VerQueryValueW");
        void* value = nullptr;
        return query && !block_.empty() && query(block_.data(), path, &value, size) ? value : nullptr;
    }

    std::vector<BYTE> block_;
};

std::wstring AsFolderName(std::wstring name) {
    for (wchar_t& character : name) {
        if (character < L' ' || std::wstring_view(L"<>:\"/\\|?*").find(character) != std::wstring_view::npos)
            character = L'_';
    }
    name.resize(std::min(name.size(), kMaxLength));
    // Windows ignores dots and blanks at the end.
    name.erase(name.find_last_not_of(L" .") + 1);
    // Half a character.
    if (!name.empty() && IS_HIGH_SURROGATE(name.back())) name.pop_back();
    return name;
}

}  // namespace

std::wstring ApplicationName(const std::wstring& company, const std::wstring& product,
                             const std::wstring& program) {
    // Without a name, the folder would be the one that contains the profiles of all applications.
    const std::wstring name = AsFolderName(product);
    if (!name.empty()) return company.empty() ? name : AsFolderName(company + L" - " + product);
    const std::wstring stem = AsFolderName(program.substr(0, program.rfind(L'.')));
    return stem.empty() ? L"Application" : stem;
}

std::wstring ApplicationName() {
    const VersionTexts texts(nullptr);
    return ApplicationName(texts[L"CompanyName"], texts[L"ProductName"], FileNameOf(ExecutablePath()));
}

}  // namespace tarvik
