#include "pack/version_info.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "cli/failure.h"

namespace tarvik {

namespace {

// The resource is a tree of blocks. Each begins with its length, that of its value, the kind of that, and its
// name; the value and each block inside begin at a multiple of four.
class ResourceWriter {
  public:
    enum class Kind : WORD { kBinary, kText };

    // `inside` writes the blocks within.
    template <class Inside>
    void Block(std::wstring_view name, Kind kind, const void* value, size_t size, Inside&& inside) {
        Align();
        const size_t start = bytes_.size();
        Number(0);
        // The length of a text is told in letters.
        Number(static_cast<WORD>(kind == Kind::kText ? size / sizeof(wchar_t) : size));
        Number(static_cast<WORD>(kind));
        Put(name.data(), name.size() * sizeof(wchar_t));
        Number(0);
        Align();
        Put(value, size);
        inside();
        const auto length = static_cast<WORD>(bytes_.size() - start);
        std::memcpy(bytes_.data() + start, &length, sizeof length);
    }

    void Text(std::wstring_view name, const std::wstring& text) {
        if (text.empty()) return;
        Block(name, Kind::kText, text.c_str(), (text.size() + 1) * sizeof(wchar_t), [] {});
    }

    std::vector<std::uint8_t> Result() && { return std::move(bytes_); }

  private:
    void Put(const void* data, size_t size) {
        const auto* const first = static_cast<const std::uint8_t*>(data);
        bytes_.insert(bytes_.end(), first, first + size);
    }
    void Number(WORD number) { Put(&number, sizeof number); }
    void Align() { bytes_.resize((bytes_.size() + 3) / 4 * 4); }

    std::vector<std::uint8_t> bytes_;
};

VS_FIXEDFILEINFO FixedInfo(const VersionInfo& info) {
    VS_FIXEDFILEINFO fixed = {};
    fixed.dwSignature = VS_FFI_SIGNATURE;
    fixed.dwStrucVersion = VS_FFI_STRUCVERSION;
    fixed.dwFileVersionMS = fixed.dwProductVersionMS = MAKELONG(info.version[1], info.version[0]);
    fixed.dwFileVersionLS = fixed.dwProductVersionLS = MAKELONG(info.version[3], info.version[2]);
    fixed.dwFileFlagsMask = VS_FFI_FILEFLAGSMASK;
    fixed.dwFileOS = VOS_NT_WINDOWS32;
    fixed.dwFileType = VFT_APP;
    return fixed;
}

std::wstring Dotted(const VersionInfo& info) {
    std::wstring text;
    for (const auto number : info.version)
        text += (text.empty() ? L"" : L".") + std::to_wstring(number);
    return text;
}

}  // namespace

std::array<std::uint16_t, 4> ParseVersion(std::wstring_view text) {
    const auto refuse = [&] {
        throw UsageError(L"\"" + std::wstring(text) +
                         L"\" is no version: that is one to four numbers of 0 to 65535, as 1.2.3.");
    };
    std::array<std::uint16_t, 4> version = {};
    std::wstring_view rest = text;
    for (size_t index = 0;; ++index) {
        const std::wstring_view digits = rest.substr(0, rest.find(L'.'));
        if (index == version.size() || digits.empty() || digits.size() > 5 ||
            digits.find_first_not_of(L"0123456789") != std::wstring_view::npos)
            refuse();
        const unsigned long number = std::stoul(std::wstring(digits));
        if (number > 0xFFFF) refuse();
        version[index] = static_cast<std::uint16_t>(number);
        if (digits.size() == rest.size()) return version;
        rest.remove_prefix(digits.size() + 1);
    }
}

std::vector<std::uint8_t> VersionResource(const VersionInfo& info) {
    using Kind = ResourceWriter::Kind;
    // English, in UTF-16: the strings have no language of their own.
    constexpr WORD kTranslation[] = {MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), 1200};
    const VS_FIXEDFILEINFO fixed = FixedInfo(info);
    const std::wstring version = Dotted(info);
    ResourceWriter writer;
    writer.Block(L"VS_VERSION_INFO", Kind::kBinary, &fixed, sizeof fixed, [&] {
        writer.Block(L"StringFileInfo", Kind::kText, nullptr, 0, [&] {
            writer.Block(L"040904B0", Kind::kText, nullptr, 0, [&] {
                writer.Text(L"CompanyName", info.company);
                writer.Text(L"FileDescription", info.name);
                writer.Text(L"FileVersion", version);
                writer.Text(L"LegalCopyright", info.copyright);
                writer.Text(L"ProductName", info.name);
                writer.Text(L"ProductVersion", version);
            });
        });
        writer.Block(L"VarFileInfo", Kind::kText, nullptr, 0, [&] {
            writer.Block(L"Translation", Kind::kBinary, kTranslation, sizeof kTranslation, [] {});
        });
    });
    return std::move(writer).Result();
}

}  // namespace tarvik
