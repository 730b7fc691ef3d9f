#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace tarvik {

using Bytes = std::span<const std::uint8_t>;

// Finds an archive in a file by walking back from the file's end: index 0 is the last archive, 1 the one
// before it. Handles a plain archive, archives attached to a program whose offsets count from their own first
// byte, and an archive whose offsets count from the start of the file. In the last case the walk reaches the
// start of the file, the result is the whole file, and the next step starts at the file's end again. Empty if
// there is no such archive or its end record is inconsistent. The result is a part of `file`.
std::optional<Bytes> FindArchive(Bytes file, std::uint32_t indexFromEnd);

}  // namespace tarvik
