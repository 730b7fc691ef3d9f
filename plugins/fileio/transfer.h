#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>

#include "tarvik/stream.h"
#include "plugins/fileio/shared_file.h"

// How bytes go between a file and streams: in pieces, through one buffer. Failures throw.
namespace tarvik {

inline constexpr DWORD kPieceSize = 0x10000;

// Reads `length` bytes, or up to the end of the file.
void ReadPieces(SharedFile& file, ULONG length,
                const std::function<void(const std::uint8_t* piece, DWORD count)>& take);

// Takes `length` bytes from the stream's position on, or up to its end. `wanted` is what a full piece would
// have, and the buffer has that many; behind the `count` bytes of this piece it holds older ones, or zeros.
void TakePieces(TVK::IStream& stream, ULONG length,
                const std::function<void(const std::uint8_t* piece, DWORD count, DWORD wanted)>& write);

}  // namespace tarvik
