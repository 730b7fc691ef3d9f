#include "archive/member_name.h"

#include "tarvik/text.h"

namespace tarvik {

std::wstring MemberName(const MemberEntry& member) {
    return Widen(member.rawName, member.isNameUtf8 ? CP_UTF8 : CP_ACP);
}

}  // namespace tarvik
