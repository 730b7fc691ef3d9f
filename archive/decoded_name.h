#pragma once

#include <string>

#include "archive/archive_reader.h"

namespace tarvik {

// The name of an entry, converted from its code page. Invalid bytes become replacement characters.
std::wstring DecodedName(const ArchiveEntry& entry);

}  // namespace tarvik
