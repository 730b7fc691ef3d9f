// Files between pages and the user's folders: the dialog of <input type=file>, and downloads.

#include <algorithm>
#include <atomic>
#include <filesystem>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

constexpr const char* kWindow =
    "var w = external.window; w.title = 'Files'; w.setWindowPos(100, 80, 500, 400); w.show(true);";

class Files : public ProgramTest {
  protected:
    Files() { fs::create_directories(Folder()); }

    // Of the user.
    std::wstring Folder() const { return program_.Folder() / L"user"; }
    std::wstring WriteFile(const std::wstring& name) const {
        return program_.Folder().Write(L"user\\" + name, Narrow(name));
    }

    // Opens a page of these elements, which logs how they are used.
    void OpenWith(const std::string& html, const std::string& script = "") {
        Open(kWindow + std::string("document.body.style.margin = 0; document.body.innerHTML = '") + html +
             "<style>body > * { position: absolute; left: 0; width: 300px; height: 60px; }</style>';"
             "document.querySelectorAll('input').forEach(function (field) {"
             "  ['change', 'cancel'].forEach(function (type) { field.addEventListener(type, function (e) {"
             "    Promise.all([...field.files].map(async function (file) {"
             "      return (file.webkitRelativePath || file.name) + '=' + await file.text(); }))"
             "    .then(function (texts) { console.log(type + ' ' + e.isTrusted + ' ' + "
             "encodeURI(texts.sort())); });"
             "  }); }); });" +
             script);
        ASSERT_TRUE(WaitForColour(program_.WindowTitled(L"Files"), kBlue));
    }

    // Clicks the element at this height of the page.
    void ClickElement(int y) {
        POINT point = {100, y};
        ClientToScreen(InnermostWindow(program_.WindowTitled(L"Files")), &point);
        ClickAt(point);
    }
    HWND ClickForDialog(int y) {
        ClickElement(y);
        return program_.Dialog();
    }

    HWND DialogBeside(HWND other) const {
        HWND found = nullptr;
        EXPECT_TRUE(WaitFor([&] {
            for (const HWND window : program_.Windows(L"#32770"))
                if (window != other && IsWindowVisible(window)) found = window;
            return found != nullptr;
        }));
        return found;
    }

    HWND WindowNamed(const std::wstring& title) const {
        HWND found = nullptr;
        EXPECT_TRUE(WaitFor([&] {
            for (const HWND window : program_.Windows(L"#32770"))
                if (TextOf(window) == title && IsWindowVisible(window)) found = window;
            return found != nullptr;
        }));
        return found;
    }

    testing::AssertionResult Logs(std::string_view line) {
        if (WaitFor([&] { return program_.HasLine(line); }, 5000)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << testing::PrintToString(program_.Lines());
    }

    void Choose(HWND dialog, const std::wstring& name) {
        EnterFileName(dialog, name);
        EXPECT_TRUE(WaitFor([&] { return !IsWindow(dialog); }));
    }
};

TEST_F(Files, AreChosenInADialog) {
    const std::wstring bean = WriteFile(L"b\u00e4an.txt"), pea = WriteFile(L"pea.txt");
    WriteFile(L"sub\\leaf.txt");
    OpenWith(
        "<input type=file accept=\".txt, image/*\" style=top:0>"
        "<input type=file multiple style=top:80px>"
        "<input type=file webkitdirectory style=top:160px>");
    Choose(ClickForDialog(30), bean);
    EXPECT_TRUE(Logs("change true b%C3%A4an.txt=b%C3%A4an.txt"));
    Choose(ClickForDialog(110), L"\"" + bean + L"\" \"" + pea + L"\"");
    EXPECT_TRUE(Logs("change true b%C3%A4an.txt=b%C3%A4an.txt,pea.txt=pea.txt"));
    Choose(ClickForDialog(190), Folder() + L"\\sub");
    EXPECT_TRUE(Logs("change true sub/leaf.txt=sub%5Cleaf.txt"));
    // A field keeps its files when the user cancels, and its dialog can be opened again.
    for (int times = 0; times < 2; ++times)
        EXPECT_TRUE(Press(ClickForDialog(110), IDCANCEL));
    EXPECT_TRUE(WaitFor([&] {
        return std::ranges::count(program_.Lines(),
                                  "cancel true b%C3%A4an.txt=b%C3%A4an.txt,pea.txt=pea.txt") == 2;
    }));
}

// The engine cannot show their dialogs, so they end as if the user had cancelled.
TEST_F(Files, PickersOfHandlesReject) {
    OpenWith("<button>ask</button>",
             "document.querySelector('button').onclick = async function () {"
             "  for (var name of ['showOpenFilePicker', 'showSaveFilePicker', 'showDirectoryPicker'])"
             "    await window[name]().catch(function (error) { console.log(name + ' ' + error.name); });"
             "};");
    ClickElement(30);
    for (const char* line :
         {"showOpenFilePicker AbortError", "showSaveFilePicker AbortError", "showDirectoryPicker AbortError"})
        EXPECT_TRUE(Logs(line));
}

// Sends half of a file, and disconnects or sends the rest when the test says so. The engine notices a
// download after the first thousand bytes.
class HalfFile {
  public:
    HalfFile()
        : server([this](const WebExchange& exchange) {
              exchange.Send(
                  "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\n"
                  "Content-Disposition: attachment; filename=half.bin\r\nContent-Length: 40000\r\n\r\n" +
                  std::string(20000, 'a'));
              WaitFor([this] { return ends.load(); });
              if (isWhole) exchange.Send(std::string(20000, 'b'));
          }) {}
    ~HalfFile() { ends = true; }

    std::atomic<bool> ends = false;
    std::atomic<bool> isWhole = false;
    const WebServer server;
};

TEST_F(Files, AreDownloadedToAPlaceOfTheUser) {
    OpenWith("<a id=blob download=bean.txt style=top:0>blob</a>",
             "blob.href = URL.createObjectURL(new Blob(['from a blob']));");
    const std::wstring place = WriteFile(L"bean.txt");
    const HWND dialog = ClickForDialog(30);
    EXPECT_EQ(TextOf(EditOf(dialog)), L"bean.txt");
    EnterFileName(dialog, place);
    EXPECT_TRUE(Press(DialogBeside(dialog), IDYES));  // the file exists already
    EXPECT_TRUE(Logs("The download of \"bean.txt\" is saved as \"" + Narrow(place) + "\"."));
    EXPECT_TRUE(Press(ClickForDialog(30), IDCANCEL));
    EXPECT_TRUE(Logs("The download of \"bean.txt\" was cancelled."));
    using File = std::pair<std::u8string, std::string>;
    EXPECT_THAT(ReadTree(Folder()), ElementsAre(File(u8"bean.txt", "from a blob")));
}

TEST_F(Files, OfADownloadAppearWhenItIsComplete) {
    HalfFile file;
    OpenWith("<a id=half style=top:0>half</a>", "half.href = '" + Narrow(file.server.Url()) + "';");
    Choose(ClickForDialog(30), Folder() + L"\\whole.bin");
    EXPECT_TRUE(WindowNamed(L"Download"));
    EXPECT_THAT(ReadTree(Folder()), testing::IsEmpty());
    file.isWhole = true;
    file.ends = true;
    const std::wstring whole = Folder() + L"\\whole.bin";
    EXPECT_TRUE(WaitFor([&] { return FileExists(whole); }));
    EXPECT_EQ(ReadFileBytes(whole), std::string(20000, 'a') + std::string(20000, 'b'));
}

// The user hears of a download that fails, not of one that he cancels or closes with its page.
TEST_F(Files, AreNotLeftBehindByDownloadsThatEndEarly) {
    HalfFile file;
    OpenWith("<a id=half style=top:0>half</a>", "half.href = '" + Narrow(file.server.Url()) + "';");
    Choose(ClickForDialog(30), Folder() + L"\\cancelled.bin");
    const HWND progress = WindowNamed(L"Download");
    PostMessageW(progress, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(Logs("The download of \"half.bin\" was cancelled."));
    Choose(ClickForDialog(30), Folder() + L"\\failed.bin");
    EXPECT_TRUE(WindowNamed(L"Download"));
    file.ends = true;
    EXPECT_TRUE(Logs("The download of \"half.bin\" failed."));
    EXPECT_TRUE(Press(program_.Dialog(), IDOK));
    EXPECT_THAT(ReadTree(Folder()), testing::IsEmpty());
}

}  // namespace
}  // namespace tarvik
