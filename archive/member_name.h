#pragma once

#include <string>

#include "archive/archive_reader.h"

namespace tarvik {

// The name of a member, decoded. Bytes that its code page does not have become replacement characters.
std::wstring MemberName(const MemberEntry& member);

}  // namespace tarvik
