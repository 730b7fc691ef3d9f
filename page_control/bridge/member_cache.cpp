#include "page_control/bridge/member_cache.h"

#include <utility>

namespace tarvik {

namespace {

constexpr ULONGLONG kMaxAge = 16;  // milliseconds

}  // namespace

void MemberCache::Store(int object, Members members, bool complete) {
    if (entries_.empty()) since_ = GetTickCount64();
    Entry& entry = entries_[object];
    if (complete) entry = {};
    entry.complete |= complete;
    for (auto& member : members)
        entry.members.insert_or_assign(member.first, std::move(member.second));
}

MemberCache::Result MemberCache::Lookup(int object, const std::wstring& name) const {
    const auto found = entries_.find(object);
    if (found == entries_.end()) return Result::kUnknown;
    if (found->second.members.contains(name)) return Result::kPresent;
    return found->second.complete && !IsCommon(name) ? Result::kAbsent : Result::kUnknown;
}

const Variant* MemberCache::Value(int object, const std::wstring& name) const {
    const auto found = entries_.find(object);
    if (found == entries_.end()) return nullptr;
    const auto member = found->second.members.find(name);
    return member == found->second.members.end() || !member->second ? nullptr : &*member->second;
}

// Destroying a value may release the last reference to a script object, which calls its owner.
void MemberCache::Clear() {
    const auto destroyed = std::exchange(entries_, {});
}

void MemberCache::ClearStale() {
    if (!entries_.empty() && GetTickCount64() - since_ >= kMaxAge) Clear();
}

}  // namespace tarvik
