#include "plugins/fileio/transfer.h"

#include <algorithm>
#include <memory>

#include "tarvik/status.h"

namespace tarvik {

void ReadPieces(SharedFile& file, ULONG length,
                const std::function<void(const std::uint8_t* piece, DWORD count)>& take) {
    const auto buffer = std::make_unique<std::uint8_t[]>(kPieceSize);
    while (length > 0) {
        const DWORD count = file.Read(buffer.get(), std::min(length, kPieceSize));
        if (count == 0) return;
        take(buffer.get(), count);
        length -= count;
    }
}

void TakePieces(TVK::IStream& stream, ULONG length,
                const std::function<void(const std::uint8_t* piece, DWORD count, DWORD wanted)>& write) {
    const auto buffer = std::make_unique<std::uint8_t[]>(kPieceSize);
    while (length > 0) {
        const DWORD wanted = std::min(length, kPieceSize);
        std::uint32_t count = 0;
        ThrowIfFailed(stream.Read(buffer.get(), wanted, &count));
        if (count == 0) return;
        if (count > wanted) throw StatusError(E_FAIL);  // nonsense of a library's stream
        write(buffer.get(), count, wanted);
        length -= count;
    }
}

}  // namespace tarvik
