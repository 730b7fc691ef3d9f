#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>

#include "plugins/fileio/shared_file.h"
#include "tarvik/stream.h"

// Transfers between files and streams, in chunks through one buffer. Failures are thrown.
namespace tarvik {

inline constexpr DWORD kChunkSize = 0x10000;

// Reads `length` bytes, or up to the end of the file, and calls `take` for each chunk.
void ReadFileChunks(SharedFile& file, ULONG length,
                    const std::function<void(const std::uint8_t* chunk, DWORD count)>& take);

// Reads `length` bytes, or up to the end of the stream, and calls `write` for each chunk. `wanted` is the
// number of bytes requested; the buffer has that many, and those after the first `count` are zero or left
// from an earlier chunk.
void ReadStreamChunks(TVK::IStream& stream, ULONG length,
                      const std::function<void(const std::uint8_t* chunk, DWORD count, DWORD wanted)>& write);

}  // namespace tarvik
