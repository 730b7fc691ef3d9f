#include <shlobj.h>

#include "plugins/system/shell_object.h"
#include "tarvik/text.h"
#include "tests/plugins/system/system_fixture.h"

namespace tarvik {
namespace {

class Shortcuts : public System {
  protected:
    std::string Create(const OptionObject& options) const {
        return Call(L"createShortcut", static_cast<IDispatch*>(options));
    }
    static std::wstring Desktop() {
        return ReadPath(
            [](wchar_t* buffer) { SHGetSpecialFolderPathW(nullptr, buffer, CSIDL_DESKTOPDIRECTORY, FALSE); });
    }
    // The target, the working folder, the arguments, the icon and its index.
    std::vector<std::wstring> ReadLink(const wchar_t* name) const {
        const auto link = CreateShellObject<IShellLinkW>(CLSID_ShellLink);
        EXPECT_EQ(Query<IPersistFile>(link.Get())->Load((folder_ / name).c_str(), STGM_READ), S_OK);
        wchar_t texts[4][kPathLength] = {};
        int index = 0;
        link->GetPath(texts[0], kPathLength, nullptr, 0);
        link->GetWorkingDirectory(texts[1], kPathLength);
        link->GetArguments(texts[2], kPathLength);
        link->GetIconLocation(texts[3], kPathLength, &index);
        return {texts[0], texts[1], texts[2], texts[3], std::to_wstring(index)};
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
        {L"b.exe", L"b.LNK", nullptr, false, L"b.LNK"},
        {L"b.exe", L"c.url", nullptr, false, L"c.url.lnk"},
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
    EXPECT_EQ(Call(L"createShortcut", static_cast<IDispatch*>(nullptr)), "BOOL false");
}

TEST_F(Shortcuts, ContainTheGivenOptions) {
    const std::wstring target = folder_.Write(L"inner\\app.exe", "");
    OptionObject options;
    options.Set(L"src", L"inner\\app.exe").Set(L"dest", L"link").Set(L"iconIndex", 3);
    EXPECT_EQ(Create(options), "BOOL true");
    EXPECT_THAT(ReadLink(L"link.lnk"), ElementsAre(target, folder_ / L"inner", L"", L"", L"0"))
        << "an index without an icon is ignored";
    options.Set(L"arg", L"-a \"b \u6f22\"").Set(L"icon", L"inner\\some.ico");
    EXPECT_EQ(Create(options), "BOOL true");
    EXPECT_THAT(ReadLink(L"link.lnk"), ElementsAre(target, folder_ / L"inner", L"-a \"b \u6f22\"",
                                                   folder_ / L"inner\\some.ico", L"3"));
    const InvokeResult parsed = CallMember(plugin_.Get(), L"parseShortcut", (folder_ / L"link.lnk").c_str());
    ASSERT_TRUE(parsed.value.Is(VT_DISPATCH));
    EXPECT_EQ(GetText(parsed.value.pdispVal, L"path"), "BSTR " + Narrow(target));
    EXPECT_EQ(GetText(parsed.value.pdispVal, L"args"), "BSTR -a \"b \xe6\xbc\xa2\"");
}

TEST_F(Shortcuts, AreParsedOnlyByTheirFullPath) {
    const OptionObject options;
    options.Set(L"src", L"app.exe").Set(L"dest", L"link");
    EXPECT_EQ(Create(options), "BOOL true");
    const std::wstring text = folder_.Write(L"text.lnk", "no link");
    for (const wchar_t* path : {L"link.lnk", L"", text.c_str(), folder_.Path().c_str()})
        EXPECT_EQ(Call(L"parseShortcut", path), "NULL") << Narrow(path);
}

TEST_F(Shortcuts, ContainAUrlOnly) {
    OptionObject options;
    options.Set(L"src", kUrl).Set(L"dest", L"link").Set(L"destName", L"unused");
    EXPECT_EQ(Create(options.Set(L"arg", L"unused").Set(L"iconIndex", 3)), "BOOL true");
    const std::string text = ReadFileBytes(folder_ / L"link.url");
    EXPECT_THAT(text, HasSubstr("[InternetShortcut]\r\nURL=" + Narrow(kUrl) + "\r\n"));
    EXPECT_THAT(text, testing::Not(testing::AnyOf(HasSubstr("Icon"), HasSubstr("unused"))));
}

}  // namespace
}  // namespace tarvik
