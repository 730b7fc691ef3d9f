#include "plugins/hash/hash_plugin.h"

#include "plugins/hash/hash.h"
#include "tarvik/properties.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class Hash : public testing::Test {
  protected:
    ComPtr<IDispatch> Make(const wchar_t* algorithm) {
        return CallMember(plugin_.Get(), algorithm).value.pdispVal;
    }
    static std::string Finish(IDispatch* hash) { return CallText(hash, L"finish"); }

    const ObjectCheck objectCheck_;
    const ComPtr<CHashPlugin> plugin_ = MakeCom<CHashPlugin>();
};

// Digests that RFC 1320, RFC 1321 and FIPS 180 publish.
TEST_F(Hash, ReturnsThePublishedDigests) {
    const struct {
        const wchar_t* algorithm;
        const wchar_t* text;
        std::string digest;
    } published[] = {
        {L"md4", L"abc", "A448017AAF21D8525FC10AE87AA6729D"},
        {L"md5", L"abc", "900150983CD24FB0D6963F7D28E17F72"},
        {L"sha1", L"abc", "A9993E364706816ABA3E25717850C26C9CD0D89D"},
        {L"sha1", L"", "DA39A3EE5E6B4B0D3255BFEF95601890AFD80709"},
    };
    for (const auto& c : published) {
        const auto hash = Make(c.algorithm);
        CallMember(hash.Get(), L"addData", c.text);
        EXPECT_EQ(Finish(hash.Get()), "BSTR " + c.digest);
    }
}

TEST_F(Hash, IgnoresTextsAfterFinish) {
    const auto hash = Make(L"md5");
    const InvokeResult added = CallMember(hash.Get(), L"addData", L"a");
    EXPECT_EQ(added.value.pdispVal, hash.Get());
    CallMember(hash.Get(), L"addData", L"bc");
    CallMember(hash.Get(), L"addData", Variant::Text(std::wstring_view(L"\0\u00E9", 2)));
    const std::string digest = Finish(hash.Get());
    EXPECT_EQ(digest, "BSTR 442BEDDEFCF1FF203E57C218E2537606") << "of 61 62 63 00 C3 A9";
    EXPECT_EQ(CallMember(hash.Get(), L"addData", L"more").value.pdispVal, hash.Get());
    EXPECT_EQ(Finish(hash.Get()), digest);
}

TEST_F(Hash, ReportsADigestThatCannotBeComputed) {
    constexpr ALG_ID kUnknown = 0x80FF;
    const auto hash = MakeCom<CHash<kUnknown>>();
    EXPECT_EQ(CallMember(hash.Get(), L"addData", L"a").value.pdispVal, hash.Get());
    EXPECT_THAT(CallMember(hash.Get(), L"finish").status, HasStatus(NTE_BAD_ALGID));
}

}  // namespace
}  // namespace tarvik
