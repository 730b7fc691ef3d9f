#pragma once

#include <windows.h>
#include <wincrypt.h>

#include "script/dispatch.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace detail {

struct ProviderTraits {
    using Type = HCRYPTPROV;
    static Type Empty() noexcept { return 0; }
    static bool IsValid(Type value) noexcept { return value != 0; }
    static void Close(Type value) noexcept { CryptReleaseContext(value, 0); }
};
struct HashTraits {
    using Type = HCRYPTHASH;
    static Type Empty() noexcept { return 0; }
    static bool IsValid(Type value) noexcept { return value != 0; }
    static void Close(Type value) noexcept { CryptDestroyHash(value); }
};

}  // namespace detail

// Computes a digest. Finish reports failures of the cryptographic provider.
class CHashBase : public SmallDispatch<CHashBase, SmallRules> {
  public:
    static std::span<const Member<CHashBase>> Members();

    // Adds one text as UTF-8 and returns the object itself. By design another number of arguments does
    // nothing. After Finish the digest does not change.
    HRESULT AddData(const Call& call);
    // Returns the digest in upper-case hexadecimal digits. Fails if the digest cannot be computed: an empty
    // text would look like a digest.
    HRESULT Finish(const Call& call);

  protected:
    explicit CHashBase(ALG_ID algorithm);

  private:
    Owner<detail::ProviderTraits> provider_;  // outlives the hash
    Owner<detail::HashTraits> hash_;
    HRESULT status_ = S_OK;  // the first failure of the provider
    bool isFinished_ = false;
};

template <ALG_ID kAlgorithm>
class CHash : public CHashBase {
  public:
    CHash() : CHashBase(kAlgorithm) {}
};

}  // namespace tarvik
