#include "page_control/clipboard/bitmap_file.h"

#include <algorithm>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const Input bitmap(data, size);
    const std::vector<std::uint8_t> file = BitmapFileOf(bitmap);
    if (file.empty()) return 0;
    constexpr size_t kHeader = 14;
    Require(file.size() == kHeader + size &&
            std::equal(bitmap.begin(), bitmap.end(), file.begin() + kHeader));
    const size_t pixels = file[10] | file[11] << 8 | file[12] << 16 | size_t{file[13]} << 24;
    Require(pixels > kHeader && pixels <= file.size());
    return 0;
}
