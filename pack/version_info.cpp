#include "pack/version_info.h"

#include <windows.h>

#include <charconv>
#include <cstring>
#include <string>

namespace tarvik {

namespace {

// The resource is a tree of blocks. Each begins with its length, the length and the type of its value, and
// its name. Values and inner blocks are aligned to four bytes.
class ResourceWriter {
  public:
    enum class Type : WORD { kBinary, kText };

    // `writeInner` writes the inner blocks.
    template <class WriteInner>
    void Block(std::wstring_view name, Type type, const void* value, size_t size, WriteInner&& writeInner) {
        Align();
        const size_t start = bytes_.size();
        Number(0);
        // The length of a text counts characters.
        Number(static_cast<WORD>(type == Type::kText ? size / sizeof(wchar_t) : size));
        Number(static_cast<WORD>(type));
        Put(name.data(), name.size() * sizeof(wchar_t));
        Number(0);
        Align();
        Put(value, size);
        writeInner();
        const auto length = static_cast<WORD>(bytes_.size() - start);
        std::memcpy(bytes_.data() + start, &length, sizeof length);
    }

    void Text(std::wstring_view name, const std::wstring& text) {
        if (text.empty()) return;
        Block(name, Type::kText, text.c_str(), (text.size() + 1) * sizeof(wchar_t), [] {});
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

std::optional<Version> ParseVersion(std::string_view text) {
    Version version = {};
    for (size_t index = 0; index < version.size(); ++index) {
        const std::string_view digits = text.substr(0, text.find('.'));
        const char* const end = digits.data() + digits.size();
        const auto [parsedTo, error] = std::from_chars(digits.data(), end, version[index]);
        if (error != std::errc() || parsedTo != end) return std::nullopt;
        if (digits.size() == text.size()) return version;
        text.remove_prefix(digits.size() + 1);
    }
    return std::nullopt;
}

std::vector<std::uint8_t> VersionResource(const VersionInfo& info) {
    using Type = ResourceWriter::Type;
    // English, in UTF-16: the strings have no particular language.
    constexpr WORD kTranslation[] = {MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), 1200};
    const VS_FIXEDFILEINFO fixed = FixedInfo(info);
    const std::wstring version = Dotted(info);
    ResourceWriter writer;
    writer.Block(L"VS_VERSION_INFO", Type::kBinary, &fixed, sizeof fixed, [&] {
        writer.Block(L"StringFileInfo", Type::kText, nullptr, 0, [&] {
            writer.Block(L"040904B0", Type::kText, nullptr, 0, [&] {
                writer.Text(L"CompanyName", info.company);
                writer.Text(L"FileDescription", info.name);
                writer.Text(L"FileVersion", version);
                writer.Text(L"LegalCopyright", info.copyright);
                writer.Text(L"ProductName", info.name);
                writer.Text(L"ProductVersion", version);
            });
        });
        writer.Block(L"VarFileInfo", Type::kText, nullptr, 0, [&] {
            writer.Block(L"Translation", Type::kBinary, kTranslation, sizeof kTranslation, [] {});
        });
    });
    return std::move(writer).Result();
}

}  // namespace tarvik
