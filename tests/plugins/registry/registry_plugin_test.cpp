#include "plugins/registry/registry_plugin.h"

#include <sddl.h>

#include <array>
#include <cmath>

#include "base/owners.h"
#include "tarvik/text.h"
#include "tests/plugins/support/test_key.h"

namespace tarvik {
namespace {

using namespace std::string_literals;

constexpr char kTrue[] = "BOOL true", kFalse[] = "BOOL false";

class Registry : public testing::Test {
  protected:
    Registry() { EXPECT_EQ(Call(L"createKey", L""), kTrue); }

    // Calls a member with a path below the test key.
    std::string Call(const wchar_t* member, const std::wstring& below, auto&&... value) {
        return ResultText(CallMember(plugin_.Get(), member, Variant::Text(At(below)),
                                     std::forward<decltype(value)>(value)...));
    }
    std::wstring At(const std::wstring& below) const {
        return L"HKEY_CURRENT_USER\\" + key_.Path() + (below.empty() ? L"" : L"\\" + below);
    }

    const TestKey key_;
    const ObjectCheck objectCheck_;
    const ComPtr<CRegistryPlugin> plugin_ = MakeCom<CRegistryPlugin>();
};

TEST_F(Registry, StoresNumbersAndBooleans) {
    const struct {
        Argument value;
        DWORD type;
        std::string bytes;
        std::string read;
    } cases[] = {
        {-2, REG_DWORD, "\xfe\xff\xff\xff", "UI4 4294967294"},
        {true, REG_DWORD, "\1\0\0\0"s, "UI4 1"},
        {false, REG_DWORD, "\0\0\0\0"s, "UI4 0"},
        {2.9, REG_QWORD, "\2\0\0\0\0\0\0\0"s, "R8 2.000000"},
        {-3.5, REG_QWORD, "\xfd\xff\xff\xff\xff\xff\xff\xff", "R8 18446744073709551616.000000"},
        {1e19, REG_QWORD, "\0\0\xe8\x89\4\x23\xc7\x8a"s, "R8 10000000000000000000.000000"},
        {Variant::I8(1LL << 40), REG_QWORD, "\0\0\0\0\0\1\0\0"s, "R8 1099511627776.000000"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Call(L"setValue", L"v", Variant::Copy(c.value)), kTrue) << c.read;
        EXPECT_EQ(key_.Read(L"v"), std::pair(c.type, c.bytes));
        EXPECT_EQ(Call(L"queryValue", L"v"), c.read);
    }
    Variant noText;
    noText.vt = VT_BSTR;
    for (Argument& value : std::to_array<Argument>(
             {1e20, -1e19, NAN, nullptr, Variant(), Variant::UI4(1), plugin_, std::move(noText)}))
        EXPECT_EQ(Call(L"setValue", L"refused", std::move(value)), kFalse);
    EXPECT_EQ(Call(L"isValueExist", L"refused"), kFalse);
}

TEST_F(Registry, StoresTextsOfAnyLength) {
    for (const size_t length : {0, 511, 512, 100'000}) {
        const std::wstring text = std::wstring(length, L'\u6f22') + L"\0\xD83D\xDE00"s;
        EXPECT_EQ(Call(L"setValue", L"text", Variant::Text(text)), kTrue) << length;
        EXPECT_EQ(Call(L"queryValue", L"text"), "BSTR " + Narrow(text));
    }
}

TEST_F(Registry, ReadsValuesOfOtherPrograms) {
    const struct {
        DWORD type;
        std::string bytes;
        std::string read;
    } cases[] = {
        {REG_SZ, "", "BSTR "},
        {REG_SZ, "a\0b\0\0\0\0\0"s, "BSTR ab"},
        {REG_SZ, "a\0b\0"s, "NULL"},  // no terminator
        {REG_EXPAND_SZ, "%\0T\0%\0\0\0"s, "BSTR %T%"},
        {REG_DWORD, "\1\2"s, "NULL"},
        {REG_QWORD, "\1\2\3\4"s, "NULL"},
        {REG_QWORD, std::string(8, '\xff'), "R8 18446744073709551616.000000"},
        {REG_BINARY, std::string(5000, 'x'), "NULL"},
        {REG_MULTI_SZ, "a\0\0\0\0\0"s, "NULL"},
    };
    for (const auto& c : cases) {
        key_.Write(L"v", c.type, c.bytes);
        EXPECT_EQ(Call(L"queryValue", L"v"), c.read) << c.type << " of " << c.bytes.size() << " bytes";
        EXPECT_EQ(Call(L"isValueExist", L"v"), kTrue);
    }
}

TEST_F(Registry, ParsesPaths) {
    const auto isKey = [&](const std::wstring& path) {
        return ResultText(CallMember(plugin_.Get(), L"isKeyExist", path.c_str()));
    };
    for (const std::wstring root : {L"hkey_current_USER\\", L"HKEY_CURRENT_USERX"})
        EXPECT_EQ(isKey(root + key_.Path()), kTrue);
    EXPECT_EQ(isKey(L"HKEY_LOCAL_MACHINE"), kTrue);
    for (const wchar_t* path : {L"", L"HKEY_CURRENT", L"HKCU\\Software", L"\\HKEY_CURRENT_USER"})
        EXPECT_EQ(isKey(path), kFalse) << Narrow(path);

    EXPECT_EQ(Call(L"setValue", L"none\\v", 1), kFalse);
    EXPECT_EQ(Call(L"isKeyExist", L"none"), kFalse);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Call(L"createKey", L"a\\\u6f22\\c"), kTrue);
    EXPECT_EQ(Call(L"setValue", L"a\\\u6f22\\", L"the default"), kTrue);
    EXPECT_EQ(Call(L"queryValue", L"a\\\u6f22\\"), "BSTR the default");
    for (const bool exists : {true, false})
        EXPECT_EQ(Call(L"deleteValue", L"a\\\u6f22\\"), exists ? kTrue : kFalse);
}

// The system would cut the name at the NUL.
TEST_F(Registry, RejectsNamesWithNuls) {
    Call(L"setValue", L"v", L"kept");
    Call(L"createKey", L"v");
    EXPECT_EQ(Call(L"setValue", L"v\0x"s, 1), kFalse);
    for (const wchar_t* member : {L"createKey", L"deleteKey", L"deleteValue", L"isKeyExist", L"isValueExist"})
        EXPECT_EQ(Call(member, L"v\0x"s), kFalse) << Narrow(member);
    EXPECT_EQ(Call(L"queryValue", L"v\0x"s), "NULL");
    EXPECT_EQ(Call(L"queryValue", L"v"), "BSTR kept");
    EXPECT_TRUE(key_.Has(L"v"));
}

TEST_F(Registry, DeletesTrees) {
    std::wstring deep = L"tree";
    for (int level = 0; level < 400; ++level)
        ASSERT_EQ(Call(L"createKey", deep += L"\\k"), kTrue) << level;
    for (const wchar_t* path : {L"tree\\k\\x", L"tree\\k\\y", L"tree\\b", L"other"})
        Call(L"createKey", path);
    EXPECT_EQ(Call(L"deleteKey", L"tree\\"), kFalse) << "an empty name";
    EXPECT_TRUE(key_.Has(L"tree\\b"));
    for (const bool exists : {true, false})
        EXPECT_EQ(Call(L"deleteKey", L"tree"), exists ? kTrue : kFalse);
    EXPECT_FALSE(key_.Has(L"tree"));
    EXPECT_TRUE(key_.Has(L"other"));
}

TEST_F(Registry, StopsWhereAccessIsDenied) {
    Call(L"createKey", L"tree\\locked\\in");
    Call(L"setValue", L"tree\\locked\\v", L"kept");
    const UniqueKey locked = OpenKey(HKEY_CURRENT_USER, key_.Path() + L"\\tree\\locked", WRITE_DAC);
    const auto allow = [&](const wchar_t* rights) {
        UniqueLocal descriptor;
        ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, descriptor.Receive(),
                                                             nullptr);
        EXPECT_EQ(RegSetKeySecurity(locked.Get(), DACL_SECURITY_INFORMATION, descriptor.Get()), 0);
    };
    allow(L"D:(A;;KR;;;WD)");
    EXPECT_EQ(Call(L"setValue", L"tree\\locked\\v", L"lost"), kFalse);
    EXPECT_EQ(Call(L"deleteValue", L"tree\\locked\\v"), kFalse);
    EXPECT_EQ(Call(L"deleteKey", L"tree\\locked\\in"), kFalse);
    EXPECT_EQ(Call(L"deleteKey", L"tree"), kFalse);
    EXPECT_EQ(Call(L"queryValue", L"tree\\locked\\v"), "BSTR kept");
    EXPECT_TRUE(key_.Has(L"tree\\locked\\in"));
    allow(L"D:");
    EXPECT_EQ(Call(L"queryValue", L"tree\\locked\\v"), "NULL");
    EXPECT_EQ(Call(L"isKeyExist", L"tree\\locked"), kFalse);
    allow(L"D:(A;;KA;;;WD)");
}

TEST_F(Registry, UsesTheViewOfItsMode) {
    const auto mode = [&] { return ResultText(GetMember(plugin_.Get(), L"mode")); };
    const auto put = [&](Argument name) { return PutMember(plugin_.Get(), L"mode", std::move(name)).status; };
    EXPECT_EQ(mode(), "BSTR default");
    EXPECT_THAT(put(L"FORCE32"), HasStatus(S_OK));
    for (const wchar_t* unknown : {L"", L"force", L"force322"})
        EXPECT_THAT(put(unknown), HasStatus(E_INVALIDARG));
    EXPECT_EQ(mode(), "BSTR force32");

    const TestKey machine(HKEY_LOCAL_MACHINE);
    const auto call = [&](const wchar_t* member) {
        const std::wstring path = L"HKEY_LOCAL_MACHINE\\" + machine.Path();
        return ResultText(CallMember(plugin_.Get(), member, path.c_str()));
    };
    if (call(L"createKey") != kTrue) GTEST_SKIP() << "access denied";
    put(L"default");
    EXPECT_EQ(call(L"isKeyExist"), kFalse);
    EXPECT_EQ(call(L"createKey"), kTrue);
    put(L"force32");
    EXPECT_EQ(call(L"deleteKey"), kTrue);
    EXPECT_EQ(call(L"isKeyExist"), kFalse);
    put(L"force64");
    EXPECT_EQ(call(L"isKeyExist"), kTrue);
}

}  // namespace
}  // namespace tarvik
