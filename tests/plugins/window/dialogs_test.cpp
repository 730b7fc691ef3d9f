// The plug-in's dialogs, driven through the system's dialog windows.

#include <windows.h>
#include <commctrl.h>
#include <dlgs.h>

#include "page_control/page/register.h"
#include "tarvik/text.h"
#include "tests/plugins/window/window_fixture.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/loaded_page.h"

namespace tarvik {
namespace {

using testing::UnorderedElementsAreArray;

constexpr int kBoxText = 0xFFFF;
constexpr int kFolderTitle = 0x3742;
constexpr int kNewFolder = 0x3746;

bool Shows(HWND dialog, int item) {
    const HWND control = GetDlgItem(dialog, item);
    return control && IsWindowVisible(control);
}

class Dialogs : public WindowPluginTest {
  protected:
    void SetUp() override {
        WindowPluginTest::SetUp();
        CallMember(plugin_.Get(), L"show", true);
    }

    // Calls a member while `user` drives its dialogs.
    std::string RunDialog(const wchar_t* member, IDispatch* options, const std::function<void(HWND)>& user) {
        InvokeResult answer{};
        AnswerDialogs([&] { answer = CallMember(plugin_.Get(), member, options); }, user);
        EXPECT_THAT(answer.status, HasStatus(S_OK));
        answer_ = std::move(answer.value);
        return ValueText(answer_);
    }
    std::string PathText(const std::wstring& name) const { return ValueText(Variant::Text(folder_ / name)); }

    Variant answer_;
};

TEST_F(Dialogs, MessageBoxesShowButtonsAndCallBack) {
    const struct {
        const wchar_t* type;
        const wchar_t* icon;
        std::vector<int> buttons;
        LPCWSTR shown;
        int press;
        const char* called;
    } boxes[] = {{L"", L"", {IDOK}, IDI_INFORMATION, IDOK, "BSTR onOk"},
                 {L"retry", L"ERROR", {IDOK}, IDI_ERROR, IDOK, "BSTR onOk"},
                 {L"okcancel", L"warning", {IDOK, IDCANCEL}, IDI_WARNING, IDCANCEL, "BSTR onCancel"},
                 {L"YESNO", L"nothing", {IDYES, IDNO}, IDI_QUESTION, IDNO, "BSTR onNo"},
                 {L"yesNo", L"information", {IDYES, IDNO}, IDI_INFORMATION, IDYES, "BSTR onYes"}};
    for (const auto& box : boxes) {
        SCOPED_TRACE(Narrow(box.type));
        std::vector<std::string> called;
        OptionObject options;
        options.Set(L"text", L"What now?").Set(L"type", box.type).Set(L"icon", box.icon);
        for (const wchar_t* name : {L"onOk", L"onCancel", L"onYes", L"onNo"}) {
            options.Set(name, MakeCom<Recorder>([&called, name](const Recorder::Record& call) {
                            called.push_back(ValueText(Variant::Text(name)) + Recorder::Text(call));
                            return Variant();
                        }));
        }
        const auto user = [&](HWND dialog) {
            EXPECT_EQ(TextOf(dialog, kBoxText), L"What now?");
            EXPECT_EQ(GetWindow(dialog, GW_OWNER), window_);
            EXPECT_FALSE(IsWindowEnabled(window_));
            std::vector<int> buttons;
            for (int id = IDOK; id <= IDNO; ++id) {
                if (Shows(dialog, id)) buttons.push_back(id);
            }
            EXPECT_EQ(buttons, box.buttons);
            const HWND icon = FindWindowExW(dialog, nullptr, L"Static", nullptr);
            EXPECT_EQ(SendMessageW(icon, STM_GETICON, 0, 0),
                      reinterpret_cast<LRESULT>(LoadIconW(nullptr, box.shown)));
            EXPECT_TRUE(Press(dialog, box.press));
        };
        EXPECT_EQ(RunDialog(L"messageBox", options, user), "BOOL true");
        EXPECT_THAT(called, ElementsAre(box.called));
    }
    EXPECT_EQ(CallText(plugin_.Get(), L"messageBox", Variant::Object(nullptr)), "BOOL false");
}

TEST_F(Dialogs, FlagsDecideWhichFilesAreAccepted) {
    const struct {
        std::vector<const wchar_t*> flags;
        const wchar_t* typed;
        const wchar_t* button;  // of the dialog
        int press;              // in the message box that opens; 0 if none opens
        bool isChosen;
    } files[] = {
        {{}, L"new.txt", L"&Open", 0, true},
        {{}, L"none\\new.txt", L"&Open", IDOK, false},
        {{L"fileMustExist"}, L"old.txt", L"&Open", 0, true},
        {{L"fileMustExist"}, L"new.txt", L"&Open", IDOK, false},
        {{L"saveMode"}, L"old.txt", L"&Save", 0, true},
        {{L"saveMode", L"overwritePrompt"}, L"old.txt", L"&Save", IDYES, true},
        {{L"saveMode", L"overwritePrompt"}, L"old.txt", L"&Save", IDNO, false},
        {{L"saveMode", L"overwritePrompt", L"fileMustExist"}, L"new.txt", L"&Save", 0, true},
    };
    folder_.Write(L"old.txt", "1");
    for (const auto& file : files) {
        SCOPED_TRACE(&file - files);
        OptionObject options;
        options.Set(L"initDir", folder_.Path().c_str()).Set(L"multi", 1).Set(L"title", L"Which one?");
        options.Set(L"filter", Variant::Text(std::wstring_view(L"Text files\0*.txt\0All files\0*.*", 31)));
        for (const wchar_t* flag : file.flags)
            options.Set(flag, true);
        const std::string answer = RunDialog(L"selectFile", options, [&](HWND dialog) {
            wchar_t title[20] = {};
            GetWindowTextW(dialog, title, 20);
            EXPECT_STREQ(title, L"Which one?");
            EXPECT_EQ(TextOf(dialog, IDOK), file.button);
            EXPECT_EQ(GetWindow(dialog, GW_OWNER), window_);
            EXPECT_FALSE(Shows(dialog, chx1)) << "the read-only check box";
            EXPECT_EQ(SendDlgItemMessageW(dialog, cmb1, CB_GETCOUNT, 0, 0), 2) << "filters";
            EXPECT_EQ(TextOf(dialog, cmb1), L"Text files");
            EnterFileName(dialog, file.typed);
            EXPECT_TRUE(!file.press || Press(NextDialog(dialog), file.press));
            EXPECT_TRUE(file.isChosen || Press(dialog, IDCANCEL));
        });
        EXPECT_EQ(answer, file.isChosen ? PathText(file.typed) : "NULL");
    }
}

// The page control must be registered before the window is created.
struct RegisteredControl {
    const PageControlClass control;
};

// With a loaded page, which resolves relative paths and creates the arrays.
class PageDialogs : RegisteredControl, public Dialogs {
  protected:
    void SetUp() override {
        Dialogs::SetUp();
        ASSERT_TRUE(PumpUntil([&] { return HasLoadedPage(window_); }));
    }

    // The returned Array.
    std::vector<std::wstring> Paths() const {
        std::vector<std::wstring> paths;
        if (!answer_.Is(VT_DISPATCH)) return paths;
        const LONG length = GetMember(answer_.pdispVal, L"length").value.lVal;
        for (LONG i = 0; i < length; ++i)
            paths.emplace_back(GetMember(answer_.pdispVal, std::to_wstring(i).c_str()).value.bstrVal);
        EXPECT_TRUE(CallMember(answer_.pdispVal, L"concat").value.Is(VT_DISPATCH)) << "an Array";
        return paths;
    }
};

// A relative path refers to the page's folder.
TEST_F(PageDialogs, OpenInTheInitialFolder) {
    folder_.Write(L"inner\\a.txt", "1");
    for (const std::wstring& first : {std::wstring(L"inner"), folder_ / L"inner"}) {
        OptionObject options;
        options.Set(L"initDir", first.c_str()).Set(L"title", L"Where?");
        EXPECT_EQ(RunDialog(L"selectFile", options, [](HWND dialog) { EnterFileName(dialog, L"a.txt"); }),
                  PathText(L"inner\\a.txt"));
        for (const bool button : {false, true}) {
            const auto user = [&](HWND dialog) {
                EXPECT_EQ(TextOf(dialog, kFolderTitle), L"Where?");
                EXPECT_EQ(Shows(dialog, kNewFolder), button);
                Press(dialog, button ? IDCANCEL : IDOK);
            };
            EXPECT_EQ(RunDialog(L"selectFolder", options.Set(L"newFolderButton", button), user),
                      button ? "NULL" : PathText(L"inner"));
        }
    }
}

TEST_F(PageDialogs, ReturnSeveralFilesAsAnArray) {
    folder_.Write(L"files\\a.txt", "1");
    folder_.Write(L"files\\b.txt", "1");
    const OptionObject options;
    options.Set(L"initDir", L"files").Set(L"multi", true).Set(L"saveMode", true);
    const auto enter = [&](const wchar_t* names) {
        RunDialog(L"selectFile", options, [&](HWND dialog) {
            EXPECT_EQ(TextOf(dialog, IDOK), L"&Open");
            EnterFileName(dialog, names);
        });
        return Paths();
    };
    EXPECT_THAT(enter(L"b.txt"), ElementsAre(folder_ / L"files\\b.txt"));
    EXPECT_THAT(enter(L"\"a.txt\" \"b.txt\""),
                ElementsAre(folder_ / L"files\\a.txt", folder_ / L"files\\b.txt"));
    options.Set(L"initDir", L"C:\\");
    EXPECT_THAT(enter(L"\"a.txt\" \"b.txt\""), ElementsAre(L"C:\\\\a.txt", L"C:\\\\b.txt"))
        << "two backslashes after a drive";
}

// More than the buffer's first capacity.
TEST_F(PageDialogs, ReturnAnyNumberOfFiles) {
    std::vector<std::wstring> files;
    for (int i = 100; i < 200; ++i)
        files.push_back(folder_.Write(L"files\\the file with number " + std::to_wstring(i) + L".txt", "1"));
    const OptionObject options;
    options.Set(L"initDir", L"files").Set(L"multi", true);
    RunDialog(L"selectFile", options, [&](HWND dialog) {
        const HWND view = FindWindowExW(dialog, nullptr, L"SHELLDLL_DefView", nullptr);
        const HWND list = FindWindowExW(view, nullptr, WC_LISTVIEWW, nullptr);
        ASSERT_TRUE(list);
        LVITEMW selected = {};
        selected.state = selected.stateMask = LVIS_SELECTED;
        SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&selected));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    EXPECT_THAT(Paths(), UnorderedElementsAreArray(files));
}

}  // namespace
}  // namespace tarvik
