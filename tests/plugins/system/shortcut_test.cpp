#include <shlobj.h>

#include "tarvik/text.h"
#include "tests/plugins/system/link_file.h"
#include "tests/plugins/system/system_fixture.h"

namespace tarvik {
namespace {

class Shortcuts : public System {
  protected:
    std::string Create(const OptionObject& options) const {
        return CallSystem(L"createShortcut", static_cast<IDispatch*>(options));
    }
    static std::wstring Desktop() {
        return ReadPath(
            [](wchar_t* buffer) { SHGetSpecialFolderPathW(nullptr, buffer, CSIDL_DESKTOPDIRECTORY, FALSE); });
    }
};

constexpr wchar_t kUrl[] = L"http://localhost/page";

TEST_F(Shortcuts, AreSavedUnderTheExpectedName) {
    const struct {
        const wchar_t* src;
        const wchar_t* dest;
        const wchar_t* destName;
        bool desktop;
        const wchar_t* made;  // in the page's folder or on the desktop; null if none
    } rows[] = {
        {L"b.exe", L"a", nullptr, false, L"a.lnk"},
        {L"b.exe", L"b.LNK", nullptr, false, L"b.LNK"},
        {L"b.exe", L"c.url", nullptr, false, L"c.url.lnk"},
        {kUrl, L"d", L"ignored", false, L"d.url"},
        {kUrl, L"e.URL", nullptr, false, L"e.URL"},
        {kUrl, L"f.lnk", nullptr, false, L"f.lnk.url"},
        {L"tarvik test.exe", nullptr, nullptr, true, L"tarvik test.exe.lnk"},
        {L"b.exe", nullptr, L"tarvik test name", true, L"tarvik test name.lnk"},
        {kUrl, nullptr, L"tarvik test url", true, L"tarvik test url.lnk.url"},
        {kUrl, nullptr, nullptr, true, nullptr},
        {L"b.exe", L"g", nullptr, true, nullptr},
        {L"b.exe", nullptr, L"name", false, nullptr},
        {L"", L"h", nullptr, false, nullptr},
        {nullptr, L"i", nullptr, false, nullptr},
        {L"b.exe", L"no\\folder\\j", nullptr, false, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.made ? Narrow(row.made) : "none");
        OptionObject options;
        if (row.src) options.Set(L"src", row.src);
        if (row.dest) options.Set(L"dest", row.dest);
        if (row.destName) options.Set(L"destName", row.destName);
        options.Set(L"desktop", row.desktop);
        EXPECT_EQ(Create(options), row.made ? "BOOL true" : "BOOL false");
        if (!row.made) continue;
        const std::wstring path = (row.desktop ? Desktop() : folder_.Path()) + L"\\" + row.made;
        EXPECT_TRUE(FileExists(path));
        DeleteFileW(path.c_str());
    }
    EXPECT_THAT(ReadTree(folder_.Path()), IsEmpty()) << "no other file";
    EXPECT_EQ(CallSystem(L"createShortcut", static_cast<IDispatch*>(nullptr)), "BOOL false");
    EXPECT_EQ(CallSystem(L"createShortcut", L"b.exe"), StatusText(E_INVALIDARG));
}

TEST_F(Shortcuts, ContainTheGivenOptions) {
    const std::wstring target = folder_.Write(L"inner\\app.exe", "");
    const OptionObject options;
    options.Set(L"src", L"inner\\app.exe").Set(L"dest", L"link").Set(L"iconIndex", 3);
    EXPECT_EQ(Create(options), "BOOL true");
    const LinkFile plain = ReadLink(folder_ / L"link.lnk");
    EXPECT_TRUE(plain.isLink);
    EXPECT_EQ(plain.target, Narrow(target));
    EXPECT_EQ(plain.folder, folder_ / L"inner");
    EXPECT_EQ(plain.arguments, L"");
    EXPECT_EQ(plain.icon, L"");
    EXPECT_EQ(plain.iconIndex, 0) << "ignored without an icon";

    const OptionObject full;
    full.Set(L"src", target.c_str()).Set(L"dest", L"full").Set(L"iconIndex", 3);
    full.Set(L"arg", L"-a \"b \u6f22\"").Set(L"icon", L"inner\\some.ico");
    EXPECT_EQ(Create(full), "BOOL true");
    const LinkFile link = ReadLink(folder_ / L"full.lnk");
    EXPECT_EQ(link.target, Narrow(target));
    EXPECT_EQ(link.arguments, L"-a \"b \u6f22\"");
    EXPECT_EQ(link.icon, folder_ / L"inner\\some.ico");
    EXPECT_EQ(link.iconIndex, 3);

    const InvokeResult parsed = CallMember(plugin_.Get(), L"parseShortcut", (folder_ / L"full.lnk").c_str());
    ASSERT_TRUE(parsed.value.Is(VT_DISPATCH));
    EXPECT_EQ(ResultText(GetMember(parsed.value.pdispVal, L"path")), "BSTR " + Narrow(target));
    EXPECT_EQ(ResultText(GetMember(parsed.value.pdispVal, L"args")), "BSTR -a \"b \xe6\xbc\xa2\"");
}

TEST_F(Shortcuts, AreParsedOnlyByTheirFullPath) {
    const OptionObject options;
    options.Set(L"src", L"app.exe").Set(L"dest", L"link");
    EXPECT_EQ(Create(options), "BOOL true");
    const std::wstring text = folder_.Write(L"text.lnk", "no link");
    for (const wchar_t* path : {L"link.lnk", L"", L"missing.lnk", text.c_str(), folder_.Path().c_str()})
        EXPECT_EQ(CallSystem(L"parseShortcut", path), "NULL") << Narrow(path);
    EXPECT_EQ(CallSystem(L"parseShortcut", nullptr), StatusText(E_INVALIDARG));
}

TEST_F(Shortcuts, OfOtherProgramsAreParsed) {
    const FullLink link = WriteFullLink(L"-a \u6f22");
    const auto parse = [&](const std::string& bytes) {
        return CallMember(plugin_.Get(), L"parseShortcut", folder_.Write(L"link", bytes).c_str());
    };
    for (const std::string& whole : {link.upToTexts + link.blocks, link.upToTexts}) {
        const InvokeResult parsed = parse(whole);
        ASSERT_EQ(ResultText(parsed), "DISPATCH");
        EXPECT_EQ(GetText(parsed.value.pdispVal, L"path"), "BSTR C:\\windows\\notepad.exe");
        EXPECT_EQ(GetText(parsed.value.pdispVal, L"args"), "BSTR -a \xe6\xbc\xa2");
    }
    for (size_t length = 0; length < link.upToTexts.size(); length += 13)
        EXPECT_EQ(ResultText(parse(link.upToTexts.substr(0, length))), "NULL") << length;
}

TEST_F(Shortcuts, AreIniFilesForUrls) {
    const OptionObject options;
    options.Set(L"src", kUrl).Set(L"dest", L"link").Set(L"arg", L"unused").Set(L"iconIndex", 3);
    EXPECT_EQ(Create(options), "BOOL true");
    const std::string text = ReadFileBytes(folder_ / L"link.url");
    EXPECT_THAT(text, HasSubstr("[InternetShortcut]\r\n"));
    EXPECT_THAT(text, HasSubstr("URL=" + Narrow(kUrl) + "\r\n"));
    EXPECT_EQ(text.find("Icon"), std::string::npos);
    EXPECT_EQ(text.find("unused"), std::string::npos);
}

}  // namespace
}  // namespace tarvik
