// Pages on a monitor that the user has set to 150 %.

#include "tests/page/program.h"

namespace tarvik {
namespace {

// Programs that start meanwhile find this DPI.
class MonitorSetting {
  public:
    explicit MonitorSetting(DWORD dpi) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kName, REG_DWORD, &dpi, sizeof dpi),
                  ERROR_SUCCESS);
    }
    ~MonitorSetting() { RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, kName); }
    MonitorSetting(const MonitorSetting&) = delete;
    MonitorSetting& operator=(const MonitorSetting&) = delete;

  private:
    static constexpr wchar_t kKey[] = L"Control Panel\\Desktop";
    static constexpr wchar_t kName[] = L"LogPixels";
};

class Scale : public ProgramTest {
  protected:
    // A blue spot in the middle of a red page.
    void OpenScaled(const std::string& script) {
        program_.Folder().Write(
            L"work\\resource\\index.html",
            "<!doctype html><style>body { margin: 0; background: red; }"
            "div { position: fixed; left: calc(50% - 10px); top: calc(50% - 10px); width: 20px; height: 20px;"
            "  background: rgb(10, 20, 200); }</style><div></div><script>" +
                script + "</script>");
        const MonitorSetting setting(144);
        program_.Start();
        ASSERT_TRUE(program_.WaitForLine("shown"));
    }
};

// The host and its plug-ins measure in pixels of the screen. The engine's window may be two units off.
TEST_F(Scale, OfTheMonitorAppliesToPages) {
    OpenScaled(
        "var w = external.window; w.title = 'Scale'; w.setWindowPos(150, 120, 900, 420); w.show(true);"
        "function log(text) { console.log(text); }"
        "function isNear(css, pixels) { return Math.abs(css * 1.5 - pixels) <= 3; }"
        "var wait = setInterval(function () {"
        "  if (!isNear(outerWidth, w.width) || !isNear(outerHeight, w.height)) return;"
        "  clearInterval(wait);"
        "  log('shown');"
        "  log([devicePixelRatio, w.width, isNear(innerWidth, 890), screenX, screenY,"
        "    isNear(screen.width, w.workAreaWidth)].join(' '));"
        "}, 20);"
        "document.querySelector('div').onmousedown = function (e) {"
        "  log('pressed ' + isNear(e.screenX, external.mouse.x) + ' ' + isNear(e.screenY, "
        "external.mouse.y)); };"
        "document.onmouseup = function () { w.quit(5); };");
    const HWND window = program_.WindowTitled(L"Scale");
    ASSERT_TRUE(WaitForColour(window, kBlue));
    Click(window);
    EXPECT_EQ(program_.Wait(), 5u);
    EXPECT_THAT(program_.Lines(), ElementsAre("shown", "1.5 900 true 100 80 true", "pressed true true"));
}

}  // namespace
}  // namespace tarvik
