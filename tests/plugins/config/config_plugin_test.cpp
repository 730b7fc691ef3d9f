#include "tarvik/text.h"
#include "tests/plugins/support/page_core.h"
#include "tests/plugins/support/test_key.h"

namespace tarvik {
namespace {

using namespace std::string_literals;

constexpr char kTrue[] = "BOOL true", kFalse[] = "BOOL false";

class Config : public PluginOfPage {
  protected:
    Config() : PluginOfPage(L"config") {}
};

class ConfigKey : public Config {
  protected:
    ConfigKey() { Use(L"store"); }

    // Selects a key below the test key.
    void Use(const std::wstring& name) {
        EXPECT_EQ(Call(L"init", (key_.Name() + L"\\" + name).c_str()), kTrue);
    }
    void Write(const std::wstring& name) {
        EXPECT_EQ(Call(L"setValue", name.c_str(), L"x"), kTrue) << Narrow(name);
    }

    const TestKey key_;
};

class ConfigFile : public Config {
  protected:
    ConfigFile() { EXPECT_EQ(Call(L"init", L"settings.ini", true), kTrue); }

    const std::wstring path_ = folder_ / L"settings.ini";
};

TEST_F(Config, DoesNothingBeforeInit) {
    for (const auto& name : {L""s, L"\\\\"s, L"a\0b"s})
        EXPECT_EQ(Call(L"init", Variant::Text(name)), kFalse) << Narrow(name);
    EXPECT_EQ(Call(L"init", L"", true), kFalse);
    EXPECT_EQ(Call(L"clear"), kFalse);
    EXPECT_EQ(Call(L"deleteValue", L"a"), kFalse);
    EXPECT_EQ(Call(L"setValue", L"a", L"b"), kFalse);
    EXPECT_EQ(Call(L"queryValue", L"a"), "NULL");
}

TEST_F(ConfigKey, StoresValues) {
    EXPECT_EQ(Call(L"setValue", L"number", -1), kTrue);
    EXPECT_EQ(Call(L"setValue", L"text", L"\u6f22"), kTrue);
    EXPECT_EQ(Call(L"setValue", L"a\\b\\large", Variant::I8(-1)), kTrue);
    EXPECT_EQ(Call(L"setValue", L"refused", true), kFalse);
    EXPECT_EQ(Call(L"setValue", L"refused", 1.5), kFalse);
    EXPECT_EQ(Call(L"setValue", Variant::Text(L"refused\0x"s), 1), kFalse);

    plugin_ = Plugin(L"config");
    EXPECT_EQ(Call(L"queryValue", L"number"), "NULL") << "a new object has no store";
    Use(L"store");
    EXPECT_EQ(Call(L"queryValue", L"number"), "UI4 4294967295");
    EXPECT_EQ(Call(L"queryValue", L"text"), "BSTR " + Narrow(L"\u6f22"));
    EXPECT_EQ(Call(L"queryValue", L"a\\b\\large"), "UI8 18446744073709551615");
    EXPECT_EQ(Call(L"queryValue", L"refused"), "NULL");
    for (const wchar_t* name : {L"a\\b\\large", L"a\\b\\large", L"a\\none\\large"})
        EXPECT_EQ(Call(L"deleteValue", name), kTrue) << Narrow(name);
    EXPECT_EQ(Call(L"queryValue", L"a\\b\\large"), "NULL");
}

TEST_F(ConfigKey, CreatesItsKeyOnlyToWrite) {
    EXPECT_EQ(Call(L"queryValue", L"a"), "NULL");
    EXPECT_EQ(Call(L"deleteValue", L"a"), kTrue);
    EXPECT_EQ(Call(L"clear"), kFalse);
    EXPECT_FALSE(key_.Has(L"store"));
    for (const wchar_t* name : {L"", L"\\a", L"a\\"}) {
        EXPECT_EQ(Call(L"setValue", name, 1), kFalse) << Narrow(name);
        EXPECT_EQ(Call(L"deleteValue", name), kFalse) << Narrow(name);
        EXPECT_EQ(Call(L"queryValue", name), "NULL") << Narrow(name);
    }
    EXPECT_TRUE(key_.Has(L"store")) << "even for a bad name";
}

TEST_F(ConfigKey, ClearsKeys) {
    for (const wchar_t* name : {L"v", L"a\\v", L"a\\b\\c\\v"})
        Write(name);
    for (const auto& name : {L""s, L"v"s, L"\\a"s, L"a\\"s, L"none"s, L"none\\a"s, L"a\0b"s})
        EXPECT_EQ(Call(L"clear", Variant::Text(name)), kFalse) << Narrow(name);
    EXPECT_EQ(Call(L"clear", 5), kFalse);
    EXPECT_TRUE(key_.Has(L"store\\a\\b\\c"));
    EXPECT_EQ(Call(L"clear", L"a\\b"), kTrue);
    EXPECT_TRUE(key_.Has(L"store\\a"));
    EXPECT_FALSE(key_.Has(L"store\\a\\b"));
    EXPECT_EQ(Call(L"queryValue", L"v"), "BSTR x");
    EXPECT_EQ(Call(L"clear"), kTrue);
    EXPECT_FALSE(key_.Has(L"store"));
    Write(L"v");
    EXPECT_TRUE(key_.Has(L"store"));
}

TEST_F(ConfigKey, KeepsItsKeyOpenAcrossInit) {
    Write(L"v");
    Use(L"other");
    Write(L"w");
    EXPECT_EQ(Call(L"queryValue", L"v"), "BSTR x");
    EXPECT_EQ(Call(L"clear"), kFalse) << "no key of that name";
    Write(L"v");
    EXPECT_TRUE(key_.Has(L"other"));
    EXPECT_EQ(Call(L"queryValue", L"w"), "NULL");
}

TEST_F(ConfigFile, StoresTexts) {
    EXPECT_EQ(Call(L"queryValue", L"s", L"text"), "NULL");
    EXPECT_EQ(Call(L"deleteValue", L"s", L"text"), kTrue);
    EXPECT_FALSE(FileExists(path_));
    const std::pair<Argument, std::string> cases[] = {
        {5, "BSTR 5"},
        {true, "BSTR -1"},
        {Variant(), "EMPTY"},  // an empty text
        {L" 'a' \"b\" ", "BSTR 'a' \"b\""},
        {L"\" a \"", "BSTR  a "},
        {std::wstring(10'239, L'x').c_str(), "BSTR " + std::string(10'239, 'x')},
        {std::wstring(10'240, L'x').c_str(), "BSTR " + std::string(10'239, 'x')},
    };
    for (const auto& [value, read] : cases) {
        EXPECT_EQ(Call(L"setValue", L"s", L"key", Variant::Copy(value)), kTrue) << read;
        EXPECT_EQ(Call(L"queryValue", L"S", L"KEY"), read);
    }
    EXPECT_EQ(Call(L"queryValue", L"none", L"key"), "NULL");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Call(L"deleteValue", L"s", L"key"), kTrue);
    EXPECT_EQ(Call(L"queryValue", L"s", L"key"), "NULL");
}

TEST_F(ConfigFile, IsAnIniFile) {
    for (const wchar_t* section : {L"one", L"two"})
        EXPECT_EQ(Call(L"setValue", section, L"Key", L"Caf\u00e9 = 100 % [open]; all"), kTrue);
    EXPECT_THAT(ReadFileBytes(path_), HasSubstr("[one]\r\nKey=Caf\xe9 = 100 % [open]; all\r\n"));
    EXPECT_EQ(Call(L"clear", L"one"), kTrue);
    const std::string before = ReadFileBytes(path_);
    EXPECT_THAT(before, testing::Not(HasSubstr("one")));
    EXPECT_THAT(before, HasSubstr("[two]\r\nKey="));
    EXPECT_EQ(Call(L"setValue", L"s", L"", 1), kFalse);
    EXPECT_EQ(Call(L"setValue", L"", L"k", 1), kFalse);
    EXPECT_EQ(Call(L"setValue", L"two", L"Key", nullptr), kFalse);
    EXPECT_EQ(Call(L"deleteValue", L"two", L""), kFalse);
    EXPECT_EQ(Call(L"clear", L""), kFalse);
    EXPECT_EQ(ReadFileBytes(path_), before);
    EXPECT_EQ(Call(L"clear"), kTrue);
    EXPECT_FALSE(FileExists(path_));
    EXPECT_EQ(Call(L"clear"), kFalse);
}

TEST_F(ConfigFile, IsSelectedByTheLastSuccessfulInit) {
    EXPECT_EQ(Call(L"init", L"", true), kFalse);
    EXPECT_EQ(Call(L"setValue", L"s", L"k", 1), kTrue) << "a failed init changes nothing";
    EXPECT_EQ(Call(L"init", L"\u00e9\u6f22.ini", true), kTrue);
    EXPECT_EQ(Call(L"setValue", L"s", L"k", 2), kTrue);
    EXPECT_TRUE(FileExists(folder_ / L"\u00e9\u6f22.ini"));
    EXPECT_EQ(Call(L"init", L"no\\such\\folder.ini", true), kTrue);
    EXPECT_EQ(Call(L"setValue", L"s", L"k", 1), kFalse);
    EXPECT_EQ(Call(L"init", L"a key"), kTrue);
    EXPECT_EQ(Call(L"setValue", L"s", L"k", 1), kFalse);
}

}  // namespace
}  // namespace tarvik
