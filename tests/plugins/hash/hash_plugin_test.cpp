#include "plugins/hash/hash_plugin.h"

#include "plugins/hash/hash.h"
#include "tarvik/properties.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class Hash : public testing::Test {
  protected:
    ComPtr<IDispatch> Make(const wchar_t* algorithm) {
        const InvokeResult made = CallMember(plugin_.Get(), algorithm);
        EXPECT_THAT(made.status, HasStatus(S_OK));
        return made.value.pdispVal;
    }
    static std::string Finish(IDispatch* hash) { return CallText(hash, L"finish"); }

    const ObjectCheck objectCheck_;
    const ComPtr<CHashPlugin> plugin_ = MakeCom<CHashPlugin>();
};

// The texts and digests that RFC 1320, RFC 1321 and FIPS 180 publish.
TEST_F(Hash, ReturnsThePublishedDigests) {
    const struct {
        const wchar_t* text;
        const char* md4;
        const char* md5;
        const char* sha1;
    } published[] = {
        {L"", "31D6CFE0D16AE931B73C59D7E0C089C0", "D41D8CD98F00B204E9800998ECF8427E",
         "DA39A3EE5E6B4B0D3255BFEF95601890AFD80709"},
        {L"abc", "A448017AAF21D8525FC10AE87AA6729D", "900150983CD24FB0D6963F7D28E17F72",
         "A9993E364706816ABA3E25717850C26C9CD0D89D"},
        {L"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq", "4691A9EC81B1A6BD1AB8557240B245C5",
         "8215EF0796A20BCAAAE116D3876C664A", "84983E441C3BD26EBAAE4AA1F95129E5E54670F1"},
    };
    const auto digest = [&](const wchar_t* algorithm, const wchar_t* text) {
        const auto hash = Make(algorithm);
        CallMember(hash.Get(), L"addData", text);
        return Finish(hash.Get());
    };
    for (const auto& c : published) {
        EXPECT_EQ(digest(L"md4", c.text), std::string("BSTR ") + c.md4);
        EXPECT_EQ(digest(L"md5", c.text), std::string("BSTR ") + c.md5);
        EXPECT_EQ(digest(L"sha1", c.text), std::string("BSTR ") + c.sha1);
    }
}

TEST_F(Hash, IgnoresTextsAfterFinish) {
    const auto hash = Make(L"md5");
    const InvokeResult added = CallMember(hash.Get(), L"addData", L"a");
    EXPECT_EQ(added.value.pdispVal, hash.Get());
    CallMember(hash.Get(), L"addData", L"bc");
    EXPECT_EQ(GetText(hash.Get(), L"finish"), StatusText(E_NOTIMPL)) << "finish is no property";
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
