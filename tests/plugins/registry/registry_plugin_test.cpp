#include "plugins/registry/registry_plugin.h"

#include <atomic>
#include <cmath>
#include <thread>

#include "base/module_function.h"
#include "script/properties.h"
#include "tests/plugins/support/test_key.h"

namespace tarvik {
namespace {

using namespace std::string_literals;

constexpr char kTrue[] = "BOOL true", kFalse[] = "BOOL false";

class Registry : public testing::Test {
  protected:
    template <class... Args>
    std::string Call(const wchar_t* name, Args&&... args) {
        return ResultText(CallMember(plugin_.Get(), name, std::forward<Args>(args)...));
    }
    std::wstring At(const std::wstring& below, const std::wstring& root = L"HKEY_CURRENT_USER\\") const {
        return root + key_.Path() + L"\\" + below;
    }
    std::string Query(const std::wstring& below) { return Call(L"queryValue", At(below).c_str()); }

    const ObjectCheck noneIsLeft_;
    const ComPtr<CRegistryPlugin> plugin_ = MakeCom<CRegistryPlugin>();
    const TestKey key_;
};

TEST_F(Registry, KeepsNumbersAndBooleans) {
    const struct {
        Argument value;
        const char* stored;
        std::string read;
    } cases[] = {
        {7, "4:07000000", "UI4 7"},
        {-1, "4:ffffffff", "UI4 4294967295"},
        {true, "4:01000000", "UI4 1"},
        {false, "4:00000000", "UI4 0"},
        {2.9, "11:0200000000000000", "R8 2.000000"},
        {-3.5, "11:fdffffffffffffff", "R8 18446744073709551616.000000"},
        {1e19, "11:0000e8890423c78a", "R8 10000000000000000000.000000"},
        {Variant::I8(1LL << 40), "11:0000000000010000", "R8 1099511627776.000000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.stored);
        EXPECT_EQ(Call(L"setValue", At(L"v").c_str(), Variant::Copy(c.value)), kTrue);
        EXPECT_EQ(key_.Raw(L"v"), c.stored);
        EXPECT_EQ(Query(L"v"), c.read);
    }
    Argument refused[] = {1e20, -1e19, NAN, nullptr, Variant(), Variant::UI4(1), plugin_};
    for (auto& value : refused)
        EXPECT_EQ(Call(L"setValue", At(L"refused").c_str(), std::move(value)), kFalse);
    EXPECT_EQ(Call(L"isValueExist", At(L"refused").c_str()), kFalse);
}

TEST_F(Registry, KeepsTextsOfAllLengths) {
    std::wstring texts[] = {L"",
                            L"\u00e9\u6f22\xD83D\xDE00",
                            L"a\0b"s,
                            std::wstring(519, L'x'),
                            std::wstring(520, L'x'),
                            std::wstring(521, L'x'),
                            std::wstring(100'000, L'\u6f22')};
    for (const std::wstring& text : texts) {
        EXPECT_EQ(Call(L"setValue", At(L"text").c_str(), Variant::Text(text)), kTrue) << text.size();
        EXPECT_EQ(Query(L"text"), "BSTR " + Narrow(text));
    }
    Variant none = Variant::Text(L"");
    SysFreeString(std::exchange(none.bstrVal, nullptr));
    EXPECT_EQ(Call(L"setValue", At(L"none").c_str(), std::move(none)), kFalse);
    EXPECT_EQ(Query(L"none"), "NULL");
}

TEST_F(Registry, ReadsWhatOthersWrote) {
    const struct {
        DWORD type;
        std::string bytes;
        std::string read;
    } cases[] = {
        {REG_SZ, "", "BSTR "},
        {REG_SZ, "\0\0"s, "BSTR "},
        {REG_SZ, "a\0b\0\0\0\0\0"s, "BSTR ab"},
        {REG_SZ, "a\0b\0"s, "NULL"},  // no terminator
        {REG_SZ, "a\0\0\0\0"s, "NULL"},
        {REG_EXPAND_SZ, "%\0T\0%\0\0\0"s, "BSTR %T%"},
        {REG_DWORD, "\1\2"s, "NULL"},
        {REG_DWORD, "\1\2\3\4\5\6\7\x8"s, "NULL"},
        {REG_QWORD, "\1\2\3\4"s, "NULL"},
        {REG_QWORD, "\xff\xff\xff\xff\xff\xff\xff\xff"s, "R8 18446744073709551616.000000"},
        {REG_BINARY, "\1\2\3\4"s, "NULL"},
        {REG_BINARY, std::string(5000, 'x'), "NULL"},
        {REG_NONE, "", "NULL"},
        {REG_MULTI_SZ, "a\0\0\0\0\0"s, "NULL"},
    };
    for (const auto& c : cases) {
        key_.Write(L"v", c.type, c.bytes);
        EXPECT_EQ(Query(L"v"), c.read) << c.type << " of " << c.bytes.size() << " bytes";
        EXPECT_EQ(Call(L"isValueExist", At(L"v").c_str()), kTrue);
    }
}

TEST_F(Registry, ReadsWholeTextsWhileTheyChange) {
    key_.WriteText(L"v", L"-");
    std::atomic<bool> isOver = false;
    std::thread other([&] {
        for (size_t turn = 0; !isOver; ++turn)
            key_.WriteText(L"v", std::wstring(turn % 7 * 900, static_cast<wchar_t>(L'a' + turn % 7)));
    });
    std::string torn;
    for (int i = 0; i < 2000 && torn.empty(); ++i) {
        const std::string read = Query(L"v");
        const size_t length = read.size() - 5;
        const bool isWhole =
            length == 1 || (length % 900 == 0 && read.find_first_not_of(static_cast<char>('a' + length / 900),
                                                                        5) == std::string::npos);
        if (!isWhole) torn = read;
    }
    isOver = true;
    other.join();
    EXPECT_EQ(torn, "");
}

TEST_F(Registry, ReadsPaths) {
    const auto isKey = [&](const std::wstring& path) { return Call(L"isKeyExist", Variant::Text(path)); };
    EXPECT_EQ(isKey(At(L"")), kTrue);
    EXPECT_EQ(isKey(At(L"", L"hkey_current_USER\\")), kTrue);
    EXPECT_EQ(isKey(At(L"", L"HKEY_CURRENT_USERX")), kTrue);
    EXPECT_EQ(isKey(L"HKEY_LOCAL_MACHINE"), kTrue);
    EXPECT_EQ(isKey(At(L"none")), kFalse);
    for (const wchar_t* path : {L"", L"HKEY_CURRENT", L"HKCU\\Software", L"\\HKEY_CURRENT_USER"})
        EXPECT_EQ(isKey(path), kFalse) << Narrow(path);
    EXPECT_EQ(Call(L"createKey", L"HKEY_LOCAL_MACHINE"), kTrue);

    EXPECT_EQ(Call(L"setValue", At(L"none\\v").c_str(), 1), kFalse);
    EXPECT_FALSE(key_.Has(L"none"));
    EXPECT_EQ(Call(L"createKey", At(L"a\\\u6f22\\c").c_str()), kTrue);
    EXPECT_EQ(Call(L"createKey", At(L"a").c_str()), kTrue);
    EXPECT_EQ(Call(L"setValue", At(L"a\\\u6f22\\").c_str(), L"the default"), kTrue);
    EXPECT_EQ(Query(L"a\\\u6f22\\"), "BSTR the default");
    EXPECT_EQ(Call(L"deleteValue", At(L"a\\\u6f22\\").c_str()), kTrue);
    EXPECT_EQ(Call(L"deleteValue", At(L"a\\\u6f22\\").c_str()), kFalse);
    EXPECT_EQ(Query(L"a\\\u6f22\\"), "NULL");
}

// The system would take the name before the zero.
TEST_F(Registry, RefusesNamesWithZeros) {
    key_.WriteText(L"v", L"kept");
    const auto with = [&](const wchar_t* below) { return Variant::Text(At(below + L"\0more"s)); };
    EXPECT_EQ(Call(L"createKey", with(L"made")), kFalse);
    EXPECT_EQ(Call(L"setValue", with(L"v"), 1), kFalse);
    EXPECT_EQ(Call(L"deleteValue", with(L"v")), kFalse);
    EXPECT_EQ(Call(L"isValueExist", with(L"v")), kFalse);
    EXPECT_EQ(Call(L"queryValue", with(L"v")), "NULL");
    EXPECT_EQ(Query(L"v"), "BSTR kept");
    EXPECT_EQ(Call(L"createKey", At(L"tree").c_str()), kTrue);
    EXPECT_EQ(Call(L"isKeyExist", with(L"tree")), kFalse);
    EXPECT_EQ(Call(L"deleteKey", with(L"tree")), kFalse);
    EXPECT_TRUE(key_.Has(L"tree"));
    EXPECT_FALSE(key_.Has(L"made"));
}

TEST_F(Registry, DeletesTrees) {
    for (const wchar_t* path : {L"tree\\a\\x", L"tree\\a\\y", L"tree\\b", L"other"})
        Call(L"createKey", At(path).c_str());
    EXPECT_EQ(Call(L"deleteKey", At(L"tree\\").c_str()), kFalse) << "no name is no key";
    EXPECT_TRUE(key_.Has(L"tree\\a\\x"));
    EXPECT_EQ(Call(L"deleteKey", At(L"none").c_str()), kFalse);
    EXPECT_EQ(Call(L"deleteKey", At(L"tree").c_str()), kTrue);
    EXPECT_FALSE(key_.Has(L"tree"));
    EXPECT_TRUE(key_.Has(L"other"));
}

TEST_F(Registry, DeletesDeepTrees) {
    std::wstring deep = L"deep";
    for (int level = 0; level < 400; ++level) {
        deep += L"\\k";
        ASSERT_EQ(Call(L"createKey", At(deep).c_str()), kTrue) << level;
    }
    EXPECT_EQ(Call(L"deleteKey", At(L"deep").c_str()), kTrue);
    EXPECT_FALSE(key_.Has(L"deep"));
}

// As links need it.
std::wstring FullName(HKEY key) {
    using QueryKey = LONG WINAPI(HANDLE, int, void*, ULONG, ULONG*);
    constexpr int kNameInformation = 3;
    struct {
        ULONG bytes;
        wchar_t name[200];
    } full = {};
    ULONG size = 0;
    FindFunction<QueryKey>(L"ntdll.dll", "NtQueryKey")(key, kNameInformation, &full, sizeof full, &size);
    return {full.name, full.bytes / sizeof(wchar_t)};
}

// A key that leads to the one above it: all ways down are endless.
TEST_F(Registry, EndsInTreesWithoutAnEnd) {
    Call(L"createKey", At(L"loop").c_str());
    UniqueKey link;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, key_.Path(L"loop\\up").c_str(), 0, nullptr, REG_OPTION_CREATE_LINK,
                        KEY_ALL_ACCESS | KEY_CREATE_LINK, nullptr, link.Receive(), nullptr) != ERROR_SUCCESS)
        GTEST_SKIP() << "the user may make no links";
    const struct RemoveLink {
        HKEY link;
        ~RemoveLink() {
            using DeleteKey = LONG WINAPI(HANDLE);
            FindFunction<DeleteKey>(L"ntdll.dll", "NtDeleteKey")(link);
        }
    } removed{link.Get()};
    UniqueKey loop;
    RegOpenKeyExW(HKEY_CURRENT_USER, key_.Path(L"loop").c_str(), 0, KEY_READ, loop.Receive());
    const std::wstring target = FullName(loop.Get());
    ASSERT_EQ(RegSetValueExW(link.Get(), L"SymbolicLinkValue", 0, REG_LINK,
                             reinterpret_cast<const BYTE*>(target.data()),
                             static_cast<DWORD>(target.size() * sizeof(wchar_t))),
              ERROR_SUCCESS);
    ASSERT_TRUE(key_.Has(L"loop\\up\\up\\up"));
    EXPECT_EQ(Call(L"deleteKey", At(L"loop").c_str()), kFalse);
}

TEST_F(Registry, KeepsAModeForEachObject) {
    const auto mode = [&] { return ResultText(GetMember(plugin_.Get(), L"mode")); };
    const auto put = [&](Argument word) { return PutMember(plugin_.Get(), L"mode", std::move(word)).status; };
    EXPECT_EQ(mode(), "BSTR default");
    EXPECT_THAT(put(L"FORCE32"), HasStatus(S_OK));
    for (const wchar_t* word : {L"", L"force", L"force322"})
        EXPECT_THAT(put(word), HasStatus(E_INVALIDARG));
    EXPECT_THAT(put(32), HasStatus(E_INVALIDARG));
    EXPECT_EQ(mode(), "BSTR force32");
    EXPECT_EQ(ResultText(GetMember(MakeCom<CRegistryPlugin>().Get(), L"mode")), "BSTR default");
}

TEST_F(Registry, SeesTheViewOfItsMode) {
    const TestKey machine(HKEY_LOCAL_MACHINE);
    if (!machine.IsThere()) GTEST_SKIP() << "the user may not write there";
    const std::wstring path = L"HKEY_LOCAL_MACHINE\\" + machine.Path(L"views");
    const auto in = [&](const wchar_t* mode, const wchar_t* member) {
        PutMember(plugin_.Get(), L"mode", mode);
        return Call(member, path.c_str());
    };
    EXPECT_EQ(in(L"force32", L"createKey"), kTrue);
    EXPECT_EQ(in(L"default", L"isKeyExist"), kFalse);
    EXPECT_EQ(in(L"force64", L"createKey"), kTrue);
    EXPECT_EQ(in(L"force32", L"deleteKey"), kTrue);
    EXPECT_EQ(in(L"force32", L"isKeyExist"), kFalse);
    EXPECT_EQ(in(L"default", L"isKeyExist"), kTrue);
    Call(L"deleteKey", (L"HKEY_LOCAL_MACHINE\\" + machine.Path()).c_str());
    PutMember(plugin_.Get(), L"mode", L"force32");
    Call(L"deleteKey", (L"HKEY_LOCAL_MACHINE\\" + machine.Path()).c_str());
}

TEST_F(Registry, IsAskedForValuesOnlyWithAPlaceForThem) {
    const std::wstring path = At(L"v");
    Variant argument = Variant::Text(path);
    DISPPARAMS parameters = {&argument, nullptr, 1, 0};
    EXPECT_THAT(plugin_->Invoke(-9996, IID_NULL, kScriptLocale, DISPATCH_METHOD, &parameters, nullptr,
                                nullptr, nullptr),
                HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(plugin_.Get(), L"queryValue", 5).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(CallMember(plugin_.Get(), L"setValue", path.c_str()).status, HasStatus(E_NOTIMPL));
    EXPECT_THAT(CallMember(plugin_.Get(), L"mode").status, HasStatus(E_NOTIMPL));
}

}  // namespace
}  // namespace tarvik
