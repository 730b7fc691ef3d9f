#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace tarvik {

using Bytes = std::span<const std::uint8_t>;

// Finds an archive in a file by walking back from the file's end: 0 is the last one, 1 the one before it.
// One rule covers a plain archive, archives attached to a program whose offsets count from their own first
// byte, and one whose offsets count from the start of the file. In the last case the walk reaches the start
// of the file, the result is the whole file, and the next step starts at the file's end again. Returns
// nothing if the file has no such archive or contradicts itself. The result is a part of `file`.
std::optional<Bytes> FindArchive(Bytes file, std::uint32_t fromEnd);

}  // namespace tarvik
