#include "archive/archive_reader.h"

#include "fuzz/input.h"

namespace tarvik {

namespace {

// An archive can expand to far more than its own size.
constexpr std::size_t kMaxExtracted = 1 << 20;

struct Sink {
    mz_uint64 expectedOffset = 0;
    std::size_t left = kMaxExtracted;
};

std::size_t OnData(void* target, mz_uint64 offset, const void* data, std::size_t count) {
    auto& sink = *static_cast<Sink*>(target);
    Require(offset == sink.expectedOffset);
    for (std::size_t i = 0; i < count; i += 512)  // every byte must be readable
        (void)*(static_cast<const volatile char*>(data) + i);
    if (count > sink.left) return 0;
    sink.expectedOffset += count;
    sink.left -= count;
    return count;
}

void ReadAll(Bytes archive) {
    ArchiveReader reader(archive);
    for (mz_uint index = 0; index < reader.Count(); ++index) {
        const ArchiveEntry entry = reader.Lookup(index);
        if (!entry.stat) continue;
        Sink sink;
        try {
            reader.Extract(*entry.stat, OnData, &sink);
            Require(sink.expectedOffset == entry.stat->m_uncomp_size);
        } catch (const ArchiveError&) {
        }
    }
}

}  // namespace

}  // namespace tarvik

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        tarvik::ReadAll({data, size});
    } catch (const tarvik::ArchiveError&) {
    }
    return 0;
}
