#include "archive/archive_finder.h"

#include "fuzz/input.h"

// A byte that says which archive from the end is wanted, and the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    if (size == 0) return 0;
    // Most walks end after few steps; one in 16 is long, and repeats itself.
    const std::uint32_t fromEnd = data[0] < 0xF0 ? data[0] % 8 : 0xFFFF'FF00u + data[0];
    const Bytes file(data + 1, size - 1);
    if (const auto found = FindArchive(file, fromEnd)) {
        Require(found->data() >= file.data() && found->data() + found->size() <= file.data() + file.size());
        Require(found->size() >= 4);
    }
    return 0;
}
