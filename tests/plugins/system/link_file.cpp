#include "tests/plugins/system/link_file.h"

#include <cstdint>
#include <cstring>

#include "tarvik/text.h"
#include "tests/support/temp_folder.h"

namespace tarvik {

namespace {

enum Flags : uint32_t {
    kHasItemList = 1,
    kHasLinkInfo = 2,
    kHasName = 4,
    kHasRelativePath = 8,
    kHasFolder = 16,
    kHasArguments = 32,
    kHasIcon = 64,
    kIsUnicode = 128,
    kHasVariable = 512,
};
constexpr size_t kHeaderSize = 0x4C;

class Reader {
  public:
    explicit Reader(std::string bytes) : bytes_(std::move(bytes)) {}

    // Zero beyond the end.
    template <class T>
    T At(size_t offset) const {
        T value = 0;
        if (offset + sizeof value <= bytes_.size()) std::memcpy(&value, &bytes_[offset], sizeof value);
        return value;
    }
    std::string TextAt(size_t offset) const {
        return offset < bytes_.size() ? std::string(bytes_.c_str() + offset) : std::string();
    }

    size_t place = kHeaderSize;
    std::wstring NextText() {
        std::wstring text(At<uint16_t>(place), L'\0');
        place += 2;
        for (wchar_t& character : text) {
            character = static_cast<wchar_t>(At<uint16_t>(place));
            place += 2;
        }
        return text.c_str();  // Wine counts the terminator, too
    }

  private:
    const std::string bytes_;
};

using u16 = uint16_t;
using u32 = uint32_t;

template <class... Numbers>
std::string Bytes(Numbers... numbers) {
    std::string bytes;
    (bytes.append(reinterpret_cast<const char*>(&numbers), sizeof numbers), ...);
    return bytes;
}
std::string WideBytes(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}
std::string Padded(std::string bytes, size_t size) {
    bytes.resize(size);
    return bytes;
}
// Prefixed with their size, which includes the prefix.
template <class Size>
std::string Sized(const std::string& bytes) {
    return Bytes(static_cast<Size>(sizeof(Size) + bytes.size())) + bytes;
}

// A folder or a file, with its long name in an extension.
std::string ShellItem(u16 type, const std::string& name) {
    const std::string shortName = Padded(name, (name.size() / 2 + 1) * 2);
    const std::string extension =
        Bytes(u16{3}, 0xBEEF0004, u32{}, u32{}, u16{20}, u16{}) + WideBytes(Widen(name) + L'\0');
    return Sized<u16>(Bytes(type, u32{}, u32{}, u16{}) + shortName +
                      Sized<u16>(extension + Bytes(static_cast<u16>(14 + shortName.size()))));
}

}  // namespace

FullLink WriteFullLink(const std::wstring& arguments) {
    const u32 flags = kHasItemList | kHasLinkInfo | kHasRelativePath | kHasFolder | kHasArguments |
                      kIsUnicode | kHasVariable;
    const std::string linkClass("\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 16);
    const std::string computer("\x1F\x50\xE0\x4F\xD0\x20\xEA\x3A\x69\x10\xA2\xD8\x08\0\x2B\x30\x30\x9D", 18);
    const std::string items = Sized<u16>(computer) + Sized<u16>(Padded("/C:\\", 23)) +
                              ShellItem(0x31, "windows") + ShellItem(0x32, "notepad.exe") + Bytes(u16{});
    const std::string volume = Sized<u32>(Bytes(u32{3}, 0x1234ABCD, u32{16}) + Padded("System", 7));
    const std::string target = Padded("C:\\windows\\notepad.exe", 23);
    const u32 place = 28 + static_cast<u32>(volume.size()), suffix = place + 22;
    FullLink link;
    link.upToTexts = Padded(Bytes(u32{kHeaderSize}) + linkClass + Bytes(flags), kHeaderSize) +
                     Bytes(static_cast<u16>(items.size())) + items +
                     Sized<u32>(Bytes(u32{28}, u32{1}, u32{28}, place, u32{}, suffix) + volume + target);
    for (const std::wstring_view text : {std::wstring_view(L".\\notepad.exe"),
                                         std::wstring_view(L"C:\\windows"), std::wstring_view(arguments)})
        link.upToTexts += Bytes(static_cast<u16>(text.size())) + WideBytes(text);
    link.blocks = Sized<u32>(Bytes(0xA0000001) + Padded("%windir%\\notepad.exe", 260) +
                             Padded(WideBytes(L"%windir%\\notepad.exe"), 520)) +
                  Bytes(u32{});
    return link;
}

LinkFile ReadLink(const std::wstring& path) {
    Reader reader(ReadFileBytes(path));
    LinkFile link;
    const auto flags = reader.At<uint32_t>(0x14);
    link.isLink =
        reader.At<uint32_t>(0) == kHeaderSize && reader.At<uint32_t>(4) == 0x00021401 && (flags & kIsUnicode);
    link.iconIndex = reader.At<int32_t>(0x38);
    if (flags & kHasItemList) reader.place += 2 + reader.At<uint16_t>(reader.place);
    if (flags & kHasLinkInfo) {
        link.target = reader.TextAt(reader.place + reader.At<uint32_t>(reader.place + 16));
        reader.place += reader.At<uint32_t>(reader.place);
    }
    std::wstring ignored;
    const struct {
        uint32_t flag;
        std::wstring& text;
    } texts[] = {{kHasName, ignored},
                 {kHasRelativePath, ignored},
                 {kHasFolder, link.folder},
                 {kHasArguments, link.arguments},
                 {kHasIcon, link.icon}};
    for (const auto& next : texts) {
        if (flags & next.flag) next.text = reader.NextText();
    }
    return link;
}

}  // namespace tarvik
