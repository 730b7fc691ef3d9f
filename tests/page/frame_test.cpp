// The window of a page, moved, resized and closed with the mouse.

#include <array>

#include "tests/page/program.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

class WindowFrame : public ProgramTest {
  protected:
    // Opens a page of three strips of 60 pixels: a handle, no handle, and a handle that contains an input
    // field and an element that is excluded. It logs presses, drags and releases.
    void OpenStrips(const std::string& script) {
        program_.Folder().Write(
            L"work\\resource\\index.html",
            "<!doctype html><body style='margin:0'>"
            "<div dragWindow=True style='height:60px;background:#0a0'>drag</div>"
            "<div style='height:60px'>stay</div>"
            "<div dragWindow=true style='height:60px'><input style='width:200px;height:50px'>"
            "<b dragWindow=FALSE style='position:absolute;left:220px;width:60px;height:50px'>stay</b></div>"
            "<script>var w = external.window; w.title = 'Desk';"
            "w.setWindowPos(200, 150, 400, 300);"
            "function logMouse(target, y) { ['mousedown', 'mousemove', 'mouseup'].forEach(function (type) {"
            "  target.addEventListener(type, function (e) { if (type !== 'mousemove' || e.buttons)"
            "    console.log(type + ' ' + e.clientX + ', ' + (e.clientY + y)); }, true); }); }"
            "logMouse(window, 0);" +
                script + "w.show(true); window.onload = function () { console.log('ready'); };</script>");
        program_.Start();
        window_ = program_.WindowTitled(L"Desk");
        ASSERT_TRUE(window_);
        ASSERT_TRUE(program_.WaitForLine("ready"));
        // Waits until the page is on the screen.
        ASSERT_TRUE(WaitFor([&] {
            return PixelOnScreen(InnermostWindow(window_), {300, 30}) == RGB(0, 0xaa, 0);
        }));
    }
    POINT InPage(LONG x, LONG y) const {
        POINT point = {x, y};
        ClientToScreen(InnermostWindow(window_), &point);
        return point;
    }
    std::array<LONG, 4> Sides() const {
        RECT place = {};
        GetWindowRect(window_, &place);
        return {place.left, place.top, place.right - place.left, place.bottom - place.top};
    }
    // Drags a handle or an edge by this offset until the window has these sides.
    void DragUntil(std::array<LONG, 4> sides, POINT from, LONG x, LONG y) {
        EXPECT_TRUE(Drag(
            {from.x, from.y}, {from.x + x, from.y + y}, [&] { return IsInMoveLoop(window_); },
            [&] { return Sides() == sides; }));
        EXPECT_TRUE(WaitFor([&] { return !IsInMoveLoop(window_); }));
        EXPECT_EQ(Sides(), sides);
    }
    // The page gets the press, the move and the release; a move of the window would precede the release.
    void DragWithoutAMove(LONG x, LONG y) {
        const auto before = Sides();
        const auto gets = [&](const char* type, LONG atX, LONG atY) {
            return [=, this] { return program_.HasLine(MouseLine(type, atX, atY)); };
        };
        EXPECT_TRUE(Drag(InPage(x, y), InPage(x + 50, y + 40), gets("mousedown", x, y),
                         gets("mousemove", x + 50, y + 40)));
        EXPECT_TRUE(WaitFor(gets("mouseup", x + 50, y + 40)));
        EXPECT_EQ(Sides(), before);
    }
    static std::string MouseLine(const std::string& type, LONG x, LONG y) {
        return type + " " + std::to_string(x) + ", " + std::to_string(y);
    }
    // Clicks a button of the caption, counted from the right, and waits until the page logs the line.
    void ClickBox(int box, std::string_view line) {
        const auto [left, top, width, height] = Sides();
        const int size = GetSystemMetrics(SM_CXSIZE);
        ClickAt({left + width - GetSystemMetrics(SM_CXFRAME) - size * box - size / 2 - 2 * (box > 0),
                 top + GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2});
        EXPECT_TRUE(program_.WaitForLine(line)) << line;
    }

    HWND window_ = nullptr;
};

TEST_F(WindowFrame, MovesByItsHandles) {
    OpenStrips("w.caption = false;");
    DragUntil({250, 190, 400, 300}, InPage(100, 30), 50, 40);
    DragWithoutAMove(100, 90);
    DragWithoutAMove(100, 150);
    DragWithoutAMove(250, 150);
    DragUntil({220, 210, 400, 300}, InPage(300, 150), -30, 20);
}

// Only a press that bubbles to the body of the page starts a drag.
TEST_F(WindowFrame, IgnoresStoppedPressesAndPressesInFrames) {
    OpenStrips(
        "w.caption = false; document.body.insertAdjacentHTML('beforeend',"
        "  '<div dragWindow=true style=\"height:60px\"><iframe style=\"width:200px;height:50px;border:0\">'"
        "  + '</iframe><b style=\"position:absolute;left:220px;width:60px;height:50px\">stopped</b></div>');"
        "document.querySelectorAll('b')[1].onmousedown = function (e) { e.stopPropagation(); };"
        "logMouse(frames[0], 180);");
    DragWithoutAMove(100, 210);
    DragWithoutAMove(250, 210);
    DragUntil({250, 190, 400, 300}, InPage(320, 210), 50, 40);
}

// The page mostly gets the press only after the button has been released. On a busy machine a move loop may
// start, which takes the release from the page, but ends with it.
TEST_F(WindowFrame, IgnoresClicksOnItsHandle) {
    OpenStrips("w.caption = false;");
    const auto before = Sides();
    MovePointer(InPage(100, 30));
    INPUT click[] = {MouseInputOf(MOUSEEVENTF_LEFTDOWN), MouseInputOf(MOUSEEVENTF_LEFTUP)};
    SendInput(2, click, sizeof *click);
    EXPECT_TRUE(program_.WaitForLine(MouseLine("mousedown", 100, 30)));
    DragWithoutAMove(200, 90);
    EXPECT_EQ(Sides(), before);
}

TEST_F(WindowFrame, MovesOncePerPressAfterANavigation) {
    OpenStrips(
        "w.caption = false; window.addEventListener('load', function () { setTimeout(function () {"
        "if (location.search) console.log('again'); else location.href += '?again'; }, 200); });");
    ASSERT_TRUE(program_.WaitForLine("again"));
    DragUntil({250, 190, 400, 300}, InPage(100, 30), 50, 40);
    DragWithoutAMove(100, 90);  // a second move loop would end with this press
    EXPECT_THAT(Sides(), ElementsAre(250, 190, 400, 300));
}

TEST_F(WindowFrame, IsResizedAtItsEdges) {
    OpenStrips("w.caption = false; w.minWidth = 350;");
    DragUntil({200, 150, 460, 330}, InPage(397, 297), 60, 30);
    DragUntil({180, 150, 480, 330}, InPage(2, 150), -20, 0);
    DragUntil({180, 150, 350, 330}, InPage(477, 150), -200, 0);
    DragUntil({180, 200, 350, 280}, InPage(150, 2), 0, 50);
}

TEST_F(WindowFrame, ClosesIfThePageAllowsIt) {
    OpenStrips(
        "var n = 0; w.onClose = function () { console.log('close ' + ++n); return n > 1; };"
        "w.onClosed = function () { console.log('closed'); w.quit(7); };"
        "w.onMinimize = function () { console.log('min'); return false; };"
        "w.onMaximize = function () { console.log('max'); return false; };");
    ClickBox(0, "close 1");
    ClickBox(1, "max");
    ClickBox(2, "min");
    EXPECT_FALSE(IsIconic(window_) || IsZoomed(window_));
    ClickBox(0, "closed");
    EXPECT_EQ(program_.Wait(), 7u);
    EXPECT_THAT(program_.Lines(), ElementsAre("ready", "close 1", "max", "min", "close 2", "closed"));
}

}  // namespace
}  // namespace tarvik
