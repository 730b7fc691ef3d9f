#include "page_control/clipboard/bitmap_file.h"

#include <cstddef>

namespace tarvik {

namespace {

constexpr size_t kFileHeader = 14;
constexpr size_t kSmallestHeader = 40;  // BITMAPINFOHEADER; its successors begin with the same fields
constexpr std::uint32_t kMaxColors = 256;
constexpr std::uint32_t kRgb = 0, kBitFields = 3, kAlphaBitFields = 6;  // BI_RGB and so on

std::uint32_t Field(std::span<const std::uint8_t> bytes, size_t offset, size_t size = 4) {
    std::uint32_t value = 0;
    for (size_t i = 0; i < size; ++i)
        value |= std::uint32_t{bytes[offset + i]} << 8 * i;
    return value;
}

// Of the pixels without compression. Rows have a multiple of 4 bytes; a negative height means the top row
// first.
std::uint64_t SizeOfPixels(std::uint64_t width, std::int32_t height, std::uint32_t depth) {
    const std::int64_t rows = height;
    return (width * depth + 31) / 32 * 4 * static_cast<std::uint64_t>(rows < 0 ? -rows : rows);
}

// Later headers contain the masks.
size_t SizeOfMasks(size_t header, std::uint32_t compression) {
    if (header != kSmallestHeader) return 0;
    return compression == kBitFields ? 12 : compression == kAlphaBitFields ? 16 : 0;
}

}  // namespace

std::vector<std::uint8_t> BitmapFileOf(std::span<const std::uint8_t> bitmap) {
    if (bitmap.size() < kSmallestHeader || bitmap.size() > UINT32_MAX - kFileHeader) return {};
    const size_t header = Field(bitmap, 0);
    const std::uint32_t width = Field(bitmap, 4);
    const auto height = static_cast<std::int32_t>(Field(bitmap, 8));
    const std::uint32_t depth = Field(bitmap, 14, 2);
    const std::uint32_t compression = Field(bitmap, 16);
    std::uint32_t colors = Field(bitmap, 32);
    if (colors == 0 && depth <= 8) colors = 1u << depth;
    const bool isCompressed =
        compression != kRgb && compression != kBitFields && compression != kAlphaBitFields;
    if (header < kSmallestHeader || header > bitmap.size() || colors > kMaxColors || isCompressed) return {};
    if (width > INT32_MAX || depth > 32) return {};
    const size_t pixels = header + SizeOfMasks(header, compression) + size_t{colors} * 4;
    // Otherwise a short bitmap could demand gigabytes.
    if (pixels + SizeOfPixels(width, height, depth) > bitmap.size()) return {};
    std::vector<std::uint8_t> file = {'B', 'M'};
    const auto append = [&](size_t value) {
        for (int shift = 0; shift < 32; shift += 8)
            file.push_back(static_cast<std::uint8_t>(value >> shift));
    };
    file.reserve(kFileHeader + bitmap.size());
    append(kFileHeader + bitmap.size());
    append(0);  // reserved
    append(kFileHeader + pixels);
    file.insert(file.end(), bitmap.begin(), bitmap.end());
    return file;
}

}  // namespace tarvik
