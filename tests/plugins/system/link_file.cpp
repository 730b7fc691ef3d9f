#include "tests/plugins/system/link_file.h"

#include <cstdint>
#include <cstring>

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

}  // namespace

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
