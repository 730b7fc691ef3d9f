#include "plugins/hash/hash.h"

#include <string>
#include <vector>

#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr Member<CHashBase> kMembers[] = {
    Method<&CHashBase::AddData>(L"addData", -6999),
    Method<&CHashBase::Finish>(L"finish", -6998),
};
static_assert(IsInOrder(kMembers));

std::vector<BYTE> DigestOf(HCRYPTHASH hash) {
    DWORD length = 0;
    if (!CryptGetHashParam(hash, HP_HASHVAL, nullptr, &length, 0)) ThrowLastError();
    std::vector<BYTE> digest(length);
    if (!CryptGetHashParam(hash, HP_HASHVAL, digest.data(), &length, 0)) ThrowLastError();
    return digest;
}

std::wstring ToHex(const std::vector<BYTE>& bytes) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (const BYTE byte : bytes) {
        text += kDigits[byte / 16];
        text += kDigits[byte % 16];
    }
    return text;
}

}  // namespace

std::span<const Member<CHashBase>> CHashBase::Members() {
    return kMembers;
}

CHashBase::CHashBase(ALG_ID algorithm) {
    const wchar_t* const provider = MS_DEF_PROV_W;
    if (!CryptAcquireContextW(provider_.Receive(), nullptr, provider, PROV_RSA_FULL, CRYPT_VERIFYCONTEXT) ||
        !CryptCreateHash(provider_.Get(), algorithm, 0, 0, hash_.Receive()))
        status_ = LastFailureStatus();
}

HRESULT CHashBase::AddData(const Call& call) {
    if (call.Count() != 1) return S_OK;
    BSTR text = nullptr;
    if (!FromVariant(call.At(0), text)) return E_FAIL;
    const std::string bytes = Narrow(Bstr::View(text));
    if (!isFinished_ && SUCCEEDED(status_) &&
        !CryptHashData(hash_.Get(), reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size()), 0))
        status_ = LastFailureStatus();
    return SetResult(call.Result(), Variant::Object(this));
}

HRESULT CHashBase::Finish(const Call& call) {
    if (!call.Result()) return E_FAIL;
    ThrowIfFailed(status_);
    isFinished_ = true;
    return SetResult(call.Result(), Bstr(ToHex(DigestOf(hash_.Get()))));
}

}  // namespace tarvik
