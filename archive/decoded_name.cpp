#include "archive/decoded_name.h"

#include "tarvik/text.h"

namespace tarvik {

std::wstring DecodedName(const ArchiveEntry& entry) {
    return Widen(entry.rawName, entry.isNameUtf8 ? CP_UTF8 : CP_ACP);
}

}  // namespace tarvik
