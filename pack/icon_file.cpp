#include "pack/icon_file.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "cli/failure.h"

namespace tarvik {

namespace {

#pragma pack(push, 2)
struct Directory {
    WORD reserved;
    WORD type;
    WORD count;
};
// Common to an entry in a file, which ends with the offset of the image, and in a resource, which ends with
// its id.
struct DirectoryEntry {
    BYTE width, height, colors, reserved;
    WORD planes, bits;
    DWORD size;
};
struct FileEntry {
    DirectoryEntry entry;
    DWORD offset;
};
struct GroupEntry {
    DirectoryEntry entry;
    WORD id;
};
#pragma pack(pop)

constexpr WORD kIcons = 1;

template <class Value>
Value ReadAt(Bytes file, size_t offset) {
    Value value;
    std::memcpy(&value, file.data() + offset, sizeof value);
    return value;
}

FileEntry EntryOf(Bytes file, size_t index) {
    return ReadAt<FileEntry>(file, sizeof(Directory) + index * sizeof(FileEntry));
}

// Whether the pixels are complete. Some files lack the mask that follows them, which the system accepts.
bool IsBitmap(Bytes image) {
    const auto header = ReadAt<BITMAPINFOHEADER>(image, 0);
    constexpr LONG kMaxSize = 0x10000;
    constexpr WORD kDepths[] = {1, 4, 8, 16, 24, 32};
    if (header.biSize != sizeof header || header.biWidth <= 0 || header.biWidth > kMaxSize ||
        header.biHeight <= 0 || header.biHeight > kMaxSize ||
        std::ranges::find(kDepths, header.biBitCount) == std::end(kDepths))
        return false;
    const size_t colors = header.biClrUsed         ? header.biClrUsed
                          : header.biBitCount <= 8 ? 1U << header.biBitCount
                                                   : 0;
    const size_t row = (static_cast<size_t>(header.biWidth) * header.biBitCount + 31) / 32 * 4;
    const size_t rows =
        static_cast<size_t>(header.biHeight) / 2;  // biHeight also counts the rows of the mask
    return sizeof header + colors * sizeof(RGBQUAD) + row * rows <= image.size();
}

// An image is a bitmap without its file header, or a whole PNG file.
bool IsImage(Bytes image) {
    constexpr std::uint8_t kPng[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    if (image.size() < sizeof(BITMAPINFOHEADER)) return false;
    return std::ranges::equal(image.first(std::size(kPng)), kPng) || IsBitmap(image);
}

bool IsValid(Bytes file) {
    if (file.size() < sizeof(Directory)) return false;
    const auto directory = ReadAt<Directory>(file, 0);
    const size_t start = sizeof(Directory) + directory.count * sizeof(FileEntry);
    if (directory.reserved != 0 || directory.type != kIcons || directory.count == 0 || start > file.size())
        return false;
    for (size_t index = 0; index < directory.count; ++index) {
        const FileEntry entry = EntryOf(file, index);
        if (entry.offset < start || entry.offset > file.size() ||
            entry.entry.size > file.size() - entry.offset ||
            !IsImage(file.subspan(entry.offset, entry.entry.size)))
            return false;
    }
    return true;
}

template <class Value>
void Append(std::vector<std::uint8_t>& bytes, const Value& value) {
    const auto* const first = reinterpret_cast<const std::uint8_t*>(&value);
    bytes.insert(bytes.end(), first, first + sizeof value);
}

// Removes the images of the group and returns the first id for new ones. If the program has further groups,
// keeps all, because groups may share images.
WORD RemoveImages(ResourceUpdate& update, WORD group) {
    const auto groups = update.Ids(RT_GROUP_ICON);
    const auto images = update.Ids(RT_ICON);
    if (images.empty() || std::ranges::all_of(groups, [&](WORD id) { return id == group; })) {
        for (const WORD id : images)
            update.Remove(RT_ICON, id);
        return 1;
    }
    return static_cast<WORD>(std::ranges::max(images) + 1);
}

}  // namespace

IconFile::IconFile(const std::wstring& path)
    : file_(WithContext(L"The icon \"" + path + L"\" cannot be read", [&] { return MappedFile(path); })) {
    if (!IsValid(file_.Content()))
        throw Failure(L"\"" + path + L"\" is not an icon file, or is damaged. Use an .ico file.");
}

void IconFile::AddTo(ResourceUpdate& update, WORD group) const {
    const Bytes file = file_.Content();
    const auto directory = ReadAt<Directory>(file, 0);
    WORD id = RemoveImages(update, group);
    std::vector<std::uint8_t> resource;
    Append(resource, directory);
    for (size_t index = 0; index < directory.count; ++index, ++id) {
        const FileEntry entry = EntryOf(file, index);
        update.Set(RT_ICON, id, file.subspan(entry.offset, entry.entry.size));
        Append(resource, GroupEntry{entry.entry, id});
    }
    update.Set(RT_GROUP_ICON, group, resource);
}

}  // namespace tarvik
