#pragma once

#include <windows.h>
#include <wincrypt.h>

#include "base/owners.h"
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

// A digest in the making. Where the system has no such algorithm the digest is the empty text; script sees no
// other failure.
class CHashBase : public SmallDispatch<CHashBase, SameCharacters> {
  public:
    static std::span<const SmallMember<CHashBase>> Members();

    // Takes the UTF-8 form of one text, and answers the object itself. With another number of arguments it
    // does nothing, and that is intended. After Finish the digest stays what it is.
    HRESULT AddData(WORD flags, const Call& call);
    // The digest in upper-case hexadecimal digits, the same each time.
    HRESULT Finish(WORD flags, const Call& call);

  protected:
    explicit CHashBase(ALG_ID algorithm);

  private:
    Owner<detail::ProviderTraits> provider_;  // outlives the hash
    Owner<detail::HashTraits> hash_;
};

template <ALG_ID kAlgorithm>
class CHash : public CHashBase {
  public:
    CHash() : CHashBase(kAlgorithm) {}
};

}  // namespace tarvik
