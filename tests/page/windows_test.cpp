// Windows of pages, seen from outside: which there are, whose they are, and what is not one of them.

#include <gmock/gmock.h>

#include <filesystem>

#include "base/text.h"
#include "tests/page/program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

class Windows : public testing::Test {
  protected:
    void Write(const std::wstring& name, const std::string& html) {
        program_.Folder().Write(L"work\\resource\\" + name, "<!doctype html>" + html);
    }
    void Open(const std::string& script) {
        Write(L"index.html", "<script>external.window.title = 'First';" + script + "</script>");
        program_.Start();
        ASSERT_TRUE(program_.WindowTitled(L"First"));
    }

    Program program_;
};

constexpr const char* kChild =
    "<script>external.window.title = 'Child'; external.window.show(true);</script>";

TEST_F(Windows, AnInheritingWindowBelongsToItsMaker) {
    Write(L"child.html", kChild);
    Open("external.window.show(true); createWindow({url: 'child.html', inherit: true});");
    const HWND child = program_.WindowTitled(L"Child");
    ASSERT_TRUE(child);
    const HWND first = program_.WindowTitled(L"First");
    EXPECT_EQ(GetWindow(child, GW_OWNER), first);
    PostMessageW(first, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitFor([&] { return program_.Windows().empty(); }));
    EXPECT_TRUE(program_.IsRunning());
    EXPECT_EQ(program_.Quit(3), 3u);
}

TEST_F(Windows, AnyOtherStandsAlone) {
    Write(L"child.html", kChild);
    Open("createWindow({url: 'child.html', inherit: 1});");
    const HWND child = program_.WindowTitled(L"Child");
    ASSERT_TRUE(child);
    EXPECT_EQ(GetWindow(child, GW_OWNER), nullptr);
    PostMessageW(program_.WindowTitled(L"First"), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitFor([&] { return program_.Windows().size() == 1; }));
    EXPECT_TRUE(WaitFor([&] { return IsWindowVisible(child) != FALSE; }));
    EXPECT_EQ(program_.Quit(3), 3u);
}

TEST_F(Windows, WithoutAnAddressTheFirstPageIsOpened) {
    Open(
        "if (typeof windowContext === 'undefined') createWindow({url: 5, context: 'second'});"
        "else external.window.title = 'Second ' + windowContext;");
    EXPECT_TRUE(program_.WindowTitled(L"Second second"));
    EXPECT_EQ(program_.Windows().size(), 2u);
    EXPECT_EQ(program_.Quit(3), 3u);
}

TEST_F(Windows, APageClosesItsWindow) {
    Write(L"child.html",
          "<script>external.window.title = 'Child';"
          "windowContext.close = function () { window.close(); };</script>");
    Open(
        "var context = {}; createWindow({url: 'child.html', context: context});"
        "setInterval(function () { if (context.close) { context.close(); console.log('closed'); context = "
        "{}; } }, 20);");
    ASSERT_TRUE(program_.WaitForLine("closed"));
    EXPECT_TRUE(WaitFor([&] { return program_.Windows().size() == 1; }));
    EXPECT_EQ(program_.Quit(3), 3u);
}

// What the system opens a kind of file with, for the time of a test: a command that copies the file's name.
class Opener {
  public:
    explicit Opener(const std::wstring& output) {
        const std::wstring command = L"cmd /c echo %1> \"" + output + L"\"";
        Set(L".tarviktest", L"tarvik.test");
        Set(L"tarvik.test\\shell\\open\\command", command);
    }
    ~Opener() {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, L".tarviktest");
        RegDeleteTreeW(HKEY_CLASSES_ROOT, L"tarvik.test");
    }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;

  private:
    static void Set(const wchar_t* key, const std::wstring& value) {
        RegSetKeyValueW(HKEY_CLASSES_ROOT, key, nullptr, REG_SZ, value.c_str(),
                        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }
};

struct Way {
    std::string name;
    std::string script;
};

class NewWindow : public Windows, public testing::WithParamInterface<Way> {};

// The system gets the address, and the page none of the engine's windows.
TEST_P(NewWindow, IsTheSystems) {
    const std::wstring output = program_.Folder() / L"opened.txt";
    const Opener opener(output);
    Write(L"note.tarviktest", "a note");
    Open(
        "document.write('<a id=link target=_blank href=note.tarviktest>x</a>');"
        "setTimeout(function () { " +
        GetParam().script +
        "; setTimeout(function () {"
        "console.log('on ' + typeof external.window.title); }, 100); }, 100);");
    EXPECT_TRUE(program_.WaitForLine("on string"));
    EXPECT_TRUE(WaitFor([&] { return FileExists(output) && !ReadFileBytes(output).empty(); }));
    EXPECT_THAT(ReadFileBytes(output), testing::HasSubstr("note.tarviktest"));
    EXPECT_EQ(program_.Windows().size(), 1u);
    EXPECT_EQ(program_.Quit(3), 3u);
}

const Way kWays[] = {
    {"Open", "if (window.open('note.tarviktest', 'name') !== null) console.log('no')"},
    {"Link", "document.getElementById('link').click()"},
};

INSTANTIATE_TEST_SUITE_P(By, NewWindow, testing::ValuesIn(kWays),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace tarvik
