// The windows of pages, their owners, and addresses that open outside of the program.

#include "tests/page/program.h"

namespace tarvik {
namespace {

class Windows : public ProgramTest {
  protected:
    void OpenFirst(const std::string& script) {
        Open("external.window.title = 'First';" + script);
        ASSERT_TRUE(program_.WindowTitled(L"First"));
    }
};

TEST_F(Windows, AreOwnedByTheirCreatorOnlyWithInherit) {
    Write(L"child.html",
          "external.window.title = windowContext; external.window.show(true);"
          "setInterval(function () { if (external.window.title === 'bye') window.close(); }, 20)");
    OpenFirst(
        "external.window.show(true); createWindow({url: 'child.html', inherit: true, context: 'Owned'});"
        "createWindow({url: 'child.html', inherit: 1, context: 'Alone'});");
    const HWND first = program_.WindowTitled(L"First");
    const HWND alone = program_.WindowTitled(L"Alone");
    EXPECT_EQ(GetWindow(program_.WindowTitled(L"Owned"), GW_OWNER), first);
    EXPECT_EQ(GetWindow(alone, GW_OWNER), nullptr);
    PostMessageW(first, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitFor([&] { return program_.Windows() == std::vector{alone}; }));
    EXPECT_TRUE(WaitFor([&] { return IsWindowVisible(alone) != FALSE; }));
    SendMessageW(alone, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"bye"));
    EXPECT_TRUE(WaitFor([&] { return program_.Windows().empty(); })) << "a page closes its window";
    EXPECT_TRUE(program_.IsRunning());
}

TEST_F(Windows, OpenTheFirstPageWithoutAnAddress) {
    OpenFirst(
        "if (typeof windowContext === 'undefined') createWindow({url: 5, context: 'second'});"
        "else external.window.title = 'Second ' + windowContext;");
    EXPECT_TRUE(program_.WindowTitled(L"Second second"));
    EXPECT_EQ(program_.Windows().size(), 2u);
}

// The page is still paused in the call of `show` when the host learns of the new state.
TEST_F(Windows, GetEventsWhenTheirOwnPageHidesAndShowsThem) {
    OpenFirst(R"(var win = external.window, events = [];
        var expected = {false: 'blur,hidden', true: 'focus,visible'};
        onfocus = onblur = function (event) { events.push(event.type); };
        document.onvisibilitychange = function () { events.push(document.visibilityState); };
        async function change(shown) {
            events = [];
            win.show(shown);
            for (var i = 0; i < 100 && events.length < 2; ++i)
                await new Promise(function (resolve) { setTimeout(resolve, 50); });
            if (events.sort().join() !== expected[shown]) console.log('show ' + shown + ': ' + events);
        }
        onclick = async function () {
            for (var i = 0; i < 4; ++i) {
                await change(false);
                await change(true);
            }
            console.log('done');
        };
        win.show(true);)");
    Click(program_.WindowTitled(L"First"));
    EXPECT_TRUE(program_.WaitForLine("done"));
    EXPECT_EQ(program_.Lines(), std::vector<std::string>{"done"});
}

// Registers a program for a file type during a test: a command that writes the name of the file to `output`.
class Opener {
  public:
    explicit Opener(const std::wstring& output) {
        const std::wstring command = L"cmd /c echo %1>> \"" + output + L"\"";
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

// The system opens the address, and the page gets no new window of the engine. The page opens the second
// address after the first, so that the commands do not write at once.
TEST_F(Windows, OfThePageAreOpenedByTheSystem) {
    const std::wstring output = program_.Work() + L"\\resource\\opened.txt";
    const Opener opener(output);
    for (const wchar_t* name : {L"link.tarviktest", L"call.tarviktest"})
        Write(name, "");
    OpenFirst(
        "document.write('<a id=link target=_blank href=link.tarviktest>x</a>');"
        "setTimeout(function () { document.getElementById('link').click(); }, 100);"
        "var wait = setInterval(function () { if (!external.file.getSize('opened.txt')) return;"
        "  clearInterval(wait); console.log('' + window.open('call.tarviktest', 'name')); }, 20);");
    EXPECT_TRUE(program_.WaitForLine("null"));
    EXPECT_TRUE(WaitFor([&] {
        return FileExists(output) && ReadFileBytes(output).find("call.tarviktest") != std::string::npos;
    }));
    EXPECT_THAT(ReadFileBytes(output), HasSubstr("link.tarviktest"));
    EXPECT_EQ(program_.Windows().size(), 1u);
}

}  // namespace
}  // namespace tarvik
