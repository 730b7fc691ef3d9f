#include "plugins/window/image_region.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "base/owners.h"

namespace tarvik {

namespace {

constexpr uint32_t kColorMask = 0xFFFFFF;
constexpr uint32_t kWhite = 0xFFFFFF;

// The pixels as 0x__RRGGBB, row by row from the top. All are black if the system fails, so that the window
// stays visible.
std::vector<uint32_t> PixelsOf(HGDIOBJ bitmap, SIZE size) {
    std::vector<uint32_t> pixels(static_cast<size_t>(size.cx) * size.cy);
    BITMAPINFO format = {};
    format.bmiHeader = {sizeof format.bmiHeader, size.cx, -size.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const UniqueMemoryDc context(CreateCompatibleDC(nullptr));
    GetDIBits(context.Get(), static_cast<HBITMAP>(bitmap), 0, static_cast<UINT>(size.cy), pixels.data(),
              &format, DIB_RGB_COLORS);
    return pixels;
}

// Adds one rectangle for each run of non-white pixels.
void AddRuns(std::span<const uint32_t> row, LONG y, std::vector<RECT>& runs) {
    const auto width = static_cast<LONG>(row.size());
    LONG start = 0;
    for (LONG x = 0; x <= width; ++x) {
        if (x < width && (row[x] & kColorMask) != kWhite) continue;
        if (start != x) runs.push_back({start, y, x, y + 1});
        start = x + 1;
    }
}

// Creates the region in one call: combining rectangles one by one takes quadratic time.
UniqueGdi RegionOf(const std::vector<RECT>& rectangles, SIZE bound) {
    if (rectangles.empty()) return UniqueGdi(CreateRectRgn(0, 0, 0, 0));
    const DWORD bytes = static_cast<DWORD>(rectangles.size() * sizeof(RECT));
    std::vector<std::byte> memory(sizeof(RGNDATAHEADER) + bytes);
    const RGNDATAHEADER header = {sizeof header,
                                  RDH_RECTANGLES,
                                  static_cast<DWORD>(rectangles.size()),
                                  bytes,
                                  {0, 0, bound.cx, bound.cy}};
    std::memcpy(memory.data(), &header, sizeof header);
    std::memcpy(memory.data() + sizeof header, rectangles.data(), bytes);
    return UniqueGdi(ExtCreateRegion(nullptr, static_cast<DWORD>(memory.size()),
                                     reinterpret_cast<const RGNDATA*>(memory.data())));
}

}  // namespace

UniqueGdi LoadBitmapFile(const wchar_t* path) {
    return UniqueGdi(LoadImageW(nullptr, path, IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
}

SIZE SizeOf(HGDIOBJ bitmap) {
    BITMAP info = {};
    GetObjectW(bitmap, sizeof info, &info);
    return {info.bmWidth, info.bmHeight};
}

UniqueGdi RegionFromImage(HGDIOBJ bitmap) {
    const SIZE size = SizeOf(bitmap);
    const std::vector<uint32_t> pixels = PixelsOf(bitmap, size);
    std::vector<RECT> runs;
    for (LONG y = 0; y < size.cy; ++y)
        AddRuns(std::span(pixels).subspan(static_cast<size_t>(y) * size.cx, size.cx), y, runs);
    return RegionOf(runs, size);
}

}  // namespace tarvik
