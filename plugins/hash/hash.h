#pragma once

#include <windows.h>
#include <wincrypt.h>

#include "tarvik/owners.h"
#include "script/dispatch.h"

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

// A digest in the making. A failure of the system's provider is reported by Finish.
class CHashBase : public SmallDispatch<CHashBase, SmallRules> {
  public:
    static std::span<const Member<CHashBase>> Members();

    // Takes the UTF-8 form of one text, and answers the object itself. With another number of arguments it
    // does nothing; that is by design. After Finish the digest stays what it is.
    HRESULT AddData(const Call& call);
    // The digest in upper-case hexadecimal digits, the same each time. If it cannot be computed, the status
    // of the failure: an empty text would look like a digest.
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
