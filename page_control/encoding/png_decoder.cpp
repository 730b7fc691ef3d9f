#include "page_control/encoding/png_decoder.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include <miniz.h>

namespace tarvik {

namespace {

constexpr std::string_view kSignature("\x89PNG\r\n\x1A\n", 8);
constexpr size_t kPixelSize = 3;
constexpr size_t kChunkOverhead = 12;  // length, type, checksum
constexpr std::uint32_t kMaxSide = 1 << 15;

std::uint32_t BigEndian(const BYTE* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

std::string_view AsText(std::span<const BYTE> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool ReadHeader(std::span<const BYTE> header, Pixels& pixels) {
    // Bits for a colour, colour type RGB, compression, filters, interlacing.
    constexpr BYTE kForm[] = {8, 2, 0, 0, 0};
    if (header.size() != 13 || !std::equal(header.begin() + 8, header.end(), kForm)) return false;
    const std::uint32_t width = BigEndian(header.data()), height = BigEndian(header.data() + 4);
    if (!width || !height || width > kMaxSide || height > kMaxSide) return false;
    pixels.width = static_cast<int>(width);
    pixels.height = static_cast<int>(height);
    return true;
}

// Of the bytes to the left, above, and above to the left, the one nearest to left + above - corner.
BYTE Predict(int left, int above, int corner) {
    const int toLeft = std::abs(above - corner), toAbove = std::abs(left - corner),
              toCorner = std::abs(left + above - 2 * corner);
    if (toLeft <= toAbove && toLeft <= toCorner) return static_cast<BYTE>(left);
    return static_cast<BYTE>(toAbove <= toCorner ? above : corner);
}

// Turns the differences in a row into values.
bool RemoveFilter(BYTE filter, BYTE* row, const BYTE* above, size_t size) {
    const auto add = [&](size_t i, int value) { row[i] = static_cast<BYTE>(row[i] + value); };
    const auto left = [&](const BYTE* bytes, size_t i) { return i < kPixelSize ? 0 : bytes[i - kPixelSize]; };
    switch (filter) {
        case 0:
            return true;
        case 1:
            for (size_t i = kPixelSize; i < size; ++i)
                add(i, row[i - kPixelSize]);
            return true;
        case 2:
            for (size_t i = 0; i < size; ++i)
                add(i, above[i]);
            return true;
        case 3:
            for (size_t i = 0; i < size; ++i)
                add(i, (left(row, i) + above[i]) / 2);
            return true;
        case 4:
            for (size_t i = 0; i < size; ++i)
                add(i, Predict(left(row, i), above[i], left(above, i)));
            return true;
        default:
            return false;
    }
}

}  // namespace

struct PngDecoder::Inflater {
    tinfl_decompressor state;
};

PngDecoder::PngDecoder() : inflater_(std::make_unique<Inflater>()) {}

PngDecoder::~PngDecoder() = default;

bool PngDecoder::Inflate(std::span<const BYTE> data) {
    size_t read = data.size(), written = rows_.size() - filled_;
    const tinfl_status status = tinfl_decompress(
        &inflater_->state, data.data(), &read, rows_.data(), rows_.data() + filled_, &written,
        TINFL_FLAG_PARSE_ZLIB_HEADER | TINFL_FLAG_USING_NON_WRAPPING_OUTPUT_BUF | TINFL_FLAG_HAS_MORE_INPUT);
    filled_ += written;
    return status == TINFL_STATUS_DONE || status == TINFL_STATUS_NEEDS_MORE_INPUT;
}

bool PngDecoder::Decode(std::span<const BYTE> file, Pixels& pixels) {
    if (!AsText(file).starts_with(kSignature)) return false;
    file = file.subspan(kSignature.size());
    size_t stride = 0;
    while (file.size() >= kChunkOverhead) {
        const size_t size = BigEndian(file.data());
        if (size > file.size() - kChunkOverhead) return false;
        const std::string_view type = AsText(file.subspan(4, 4));
        const auto data = file.subspan(8, size);
        file = file.subspan(size + kChunkOverhead);
        if (type == "IEND") break;
        if (type == "IHDR") {
            if (!ReadHeader(data, pixels)) return false;
            stride = pixels.width * kPixelSize + 1;
            rows_.resize(stride * pixels.height);
            filled_ = 0;
            tinfl_init(&inflater_->state);
        } else if (type == "IDAT" && (stride == 0 || !Inflate(data))) {
            return false;
        }
    }
    if (stride == 0 || filled_ != rows_.size()) return false;
    pixels.colors.resize(static_cast<size_t>(pixels.width) * pixels.height);
    const std::vector<BYTE> none(stride - 1);
    const BYTE* above = none.data();
    std::uint32_t* color = pixels.colors.data();
    for (size_t start = 0; start < rows_.size(); start += stride) {
        BYTE* const row = rows_.data() + start + 1;
        if (!RemoveFilter(row[-1], row, above, stride - 1)) return false;
        for (const BYTE* byte = row; byte < row + stride - 1; byte += kPixelSize)
            *color++ = std::uint32_t{byte[0]} << 16 | std::uint32_t{byte[1]} << 8 | byte[2];
        above = row;
    }
    return true;
}

}  // namespace tarvik
