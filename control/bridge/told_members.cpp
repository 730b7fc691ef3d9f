#include "control/bridge/told_members.h"

#include <utility>

namespace tarvik {

namespace {

constexpr ULONGLONG kFresh = 16;  // milliseconds

}  // namespace

void ToldMembers::Tell(int object, Members members, bool all) {
    if (objects_.empty()) since_ = GetTickCount64();
    Told& told = objects_[object];
    if (all) told = {};
    told.all |= all;
    for (auto& [name, value] : members)
        told.members.insert_or_assign(name, std::move(value));
}

ToldMembers::Answer ToldMembers::Ask(int object, const std::wstring& name) const {
    const auto found = objects_.find(object);
    if (found == objects_.end()) return Answer::kUnknown;
    if (found->second.members.contains(name)) return Answer::kThere;
    return found->second.all && !IsCommon(name) ? Answer::kAbsent : Answer::kUnknown;
}

const Variant* ToldMembers::Value(int object, const std::wstring& name) const {
    const auto found = objects_.find(object);
    if (found == objects_.end()) return nullptr;
    const auto member = found->second.members.find(name);
    return member == found->second.members.end() || !member->second ? nullptr : &*member->second;
}

// Values that go may be the last of their objects, which tell the owner so.
void ToldMembers::Clear() {
    const auto ended = std::exchange(objects_, {});
}

void ToldMembers::ClearStale() {
    if (!objects_.empty() && GetTickCount64() - since_ >= kFresh) Clear();
}

}  // namespace tarvik
