#include "base/private_security.h"

#include <aclapi.h>
#include <sddl.h>

#include <string>
#include <vector>

#include "tarvik/status.h"

namespace tarvik {

namespace {

void ThrowLastErrorUnless(BOOL succeeded) {
    if (!succeeded) ThrowLastError();
}

class CurrentUser {
  public:
    CurrentUser() {
        UniqueHandle token;
        ThrowLastErrorUnless(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive()));
        DWORD size = 0;
        GetTokenInformation(token.Get(), TokenUser, nullptr, 0, &size);
        data_.resize(size);
        ThrowLastErrorUnless(GetTokenInformation(token.Get(), TokenUser, data_.data(), size, &size));
    }
    PSID Sid() const { return reinterpret_cast<const TOKEN_USER*>(data_.data())->User.Sid; }

  private:
    std::vector<char> data_;
};

}  // namespace

PrivateSecurity::PrivateSecurity() {
    UniqueLocal sid;
    ThrowLastErrorUnless(
        ConvertSidToStringSidW(CurrentUser().Sid(), reinterpret_cast<wchar_t**>(sid.Receive())));
    const std::wstring user = static_cast<const wchar_t*>(sid.Get());
    const std::wstring text = L"O:" + user + L"D:P(A;OICI;FA;;;" + user + L")";
    ThrowLastErrorUnless(ConvertStringSecurityDescriptorToSecurityDescriptorW(
        text.c_str(), SDDL_REVISION_1, descriptor_.Receive(), nullptr));
    attributes_ = {sizeof attributes_, descriptor_.Get(), FALSE};
}

bool IsOwnedByCurrentUser(const UniqueHandle& file) {
    PSID owner = nullptr;
    UniqueLocal descriptor;
    return GetSecurityInfo(file.Get(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr,
                           nullptr, descriptor.Receive()) == ERROR_SUCCESS &&
           owner && EqualSid(owner, CurrentUser().Sid());
}

}  // namespace tarvik
