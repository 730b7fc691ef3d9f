#include "plugins/system/administrator.h"

#include <windows.h>

#include <cstddef>
#include <vector>

#include "tarvik/owners.h"

namespace tarvik {

namespace {

struct SidTraits : PointerTraits<PSID> {
    static void Close(PSID value) noexcept { FreeSid(value); }
};
using UniqueSid = Owner<SidTraits>;

// AccessCheck requires an impersonation token.
class SelfImpersonation {
  public:
    SelfImpersonation() : succeeded_(ImpersonateSelf(SecurityImpersonation) != FALSE) {}
    ~SelfImpersonation() {
        if (succeeded_) RevertToSelf();
    }
    SelfImpersonation(const SelfImpersonation&) = delete;
    SelfImpersonation& operator=(const SelfImpersonation&) = delete;
    explicit operator bool() const { return succeeded_; }

  private:
    const bool succeeded_;
};

UniqueHandle EffectiveToken() {
    UniqueHandle token;
    if (!OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, FALSE, token.Receive()) &&
        GetLastError() == ERROR_NO_TOKEN)
        OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive());
    return token;
}

UniqueSid Administrators() {
    SID_IDENTIFIER_AUTHORITY authority = {SECURITY_NT_AUTHORITY};
    UniqueSid sid;
    AllocateAndInitializeSid(&authority, 2, SECURITY_BUILTIN_DOMAIN_RID, DOMAIN_ALIAS_RID_ADMINS, 0, 0, 0, 0,
                             0, 0, sid.Receive());
    return sid;
}

// Checks the access to a descriptor that allows only the group.
bool IsAccessAllowed(HANDLE token, PSID group) {
    constexpr DWORD kRead = 1, kWrite = 2;
    const DWORD size = GetLengthSid(group) + sizeof(ACL) + offsetof(ACCESS_ALLOWED_ACE, SidStart);
    std::vector<std::byte> list(size);
    auto* const entries = reinterpret_cast<ACL*>(list.data());
    SECURITY_DESCRIPTOR descriptor = {};
    if (!InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) ||
        !InitializeAcl(entries, size, ACL_REVISION) ||
        !AddAccessAllowedAce(entries, ACL_REVISION, kRead | kWrite, group) ||
        !SetSecurityDescriptorDacl(&descriptor, TRUE, entries, FALSE) ||
        !SetSecurityDescriptorGroup(&descriptor, group, FALSE) ||
        !SetSecurityDescriptorOwner(&descriptor, group, FALSE) || !IsValidSecurityDescriptor(&descriptor))
        return false;
    GENERIC_MAPPING mapping = {kRead, kWrite, 0, kRead | kWrite};
    PRIVILEGE_SET privileges = {};
    DWORD length = sizeof privileges, granted = 0;
    BOOL isAllowed = FALSE;
    return AccessCheck(&descriptor, token, kRead, &mapping, &privileges, &length, &granted, &isAllowed) &&
           isAllowed;
}

}  // namespace

bool IsAdministrator() {
    const SelfImpersonation self;
    const UniqueHandle token = EffectiveToken();
    const UniqueSid group = Administrators();
    return self && token && group && IsAccessAllowed(token.Get(), group.Get());
}

}  // namespace tarvik
