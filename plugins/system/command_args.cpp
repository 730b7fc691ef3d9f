#include "plugins/system/command_args.h"

namespace tarvik {

namespace {

constexpr Member<CCmdArgs> kMembers[] = {
    Method<&CCmdArgs::GetOrgArgsCount>(L"getOrgArgsCount", -9000),
    Method<&CCmdArgs::GetOrgArg>(L"getOrgArg", -8999),
    Method<&CCmdArgs::IsSwitchExist>(L"isSwitchExist", -8998),
    Method<&CCmdArgs::GetArgPair>(L"getArgPair", -8997),
};
static_assert(IsInOrder(kMembers));

std::optional<Bstr> TextOrNone(const wchar_t* text) {
    if (!text) return std::nullopt;
    return Bstr(text);
}

}  // namespace

std::span<const Member<CCmdArgs>> CCmdArgs::Members() {
    return kMembers;
}

int CCmdArgs::GetOrgArgsCount() {
    return line_.argc;
}

std::optional<Bstr> CCmdArgs::GetOrgArg(AnyInt32 index) {
    const bool isInside = index.value >= 0 && index.value < line_.argc;
    return TextOrNone(isInside ? line_.argv[index.value] : nullptr);
}

bool CCmdArgs::IsSwitchExist(BSTR name) {
    return line_.HasSwitch(name);
}

std::optional<Bstr> CCmdArgs::GetArgPair(BSTR name) {
    return TextOrNone(line_.GetValue(name));
}

}  // namespace tarvik
