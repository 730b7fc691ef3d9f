#include "plugins/fileio/transfer.h"

#include <algorithm>
#include <memory>

#include "tarvik/status.h"

namespace tarvik {

void ReadFileChunks(SharedFile& file, ULONG length,
                    const std::function<void(const std::uint8_t* chunk, DWORD count)>& take) {
    const auto buffer = std::make_unique<std::uint8_t[]>(kChunkSize);
    while (length > 0) {
        const DWORD count = file.Read(buffer.get(), std::min(length, kChunkSize));
        if (count == 0) return;
        take(buffer.get(), count);
        length -= count;
    }
}

void ReadStreamChunks(
    TVK::IStream& stream, ULONG length,
    const std::function<void(const std::uint8_t* chunk, DWORD count, DWORD wanted)>& write) {
    const auto buffer = std::make_unique<std::uint8_t[]>(kChunkSize);
    while (length > 0) {
        const DWORD wanted = std::min(length, kChunkSize);
        std::uint32_t count = 0;
        ThrowIfFailed(stream.Read(buffer.get(), wanted, &count));
        if (count == 0) return;
        if (count > wanted) throw StatusError(E_FAIL);  // a faulty stream of a library
        write(buffer.get(), count, wanted);
        length -= count;
    }
}

}  // namespace tarvik
