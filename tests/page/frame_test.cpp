// The window of a page, moved, resized and closed with the mouse.

#include <algorithm>
#include <array>

#include "tests/page/program.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

class WindowFrame : public ProgramTest {
  protected:
    // Opens a page of three strips of 60 pixels: a handle, no handle, and a handle that contains an input
    // field and an element that is excluded.
    void OpenStrips(const std::string& script) {
        program_.Folder().Write(
            L"work\\resource\\index.html",
            "<!doctype html><body style='margin:0'>"
            "<div dragWindow=True style='height:60px;background:#0a0'>drag</div>"
            "<div style='height:60px'>stay</div>"
            "<div dragWindow=true style='height:60px'><input style='width:200px;height:50px'>"
            "<b dragWindow=FALSE style='position:absolute;left:220px;width:60px;height:50px'>stay</b></div>"
            "<script>var w = external.window; w.title = 'Desk';"
            "w.setWindowPos(200, 150, 400, 300);" +
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
    RECT Place() const {
        RECT rect = {};
        GetWindowRect(window_, &rect);
        return rect;
    }
    POINT InPage(LONG x, LONG y) const {
        POINT point = {x, y};
        ClientToScreen(InnermostWindow(window_), &point);
        return point;
    }
    std::array<LONG, 4> Sides() const {
        const RECT place = Place();
        return {place.left, place.top, place.right - place.left, place.bottom - place.top};
    }
    // Drags by this offset, and repeats that if a busy machine has lost the press.
    void DragAndExpect(POINT from, LONG x, LONG y, std::array<LONG, 4> expected) {
        const auto before = Sides();
        for (int tries = 0; tries < 3 && Sides() == before; ++tries) {
            Drag(from, {from.x + x, from.y + y});
            WaitFor([&] { return Sides() == expected; }, 1500);
        }
        EXPECT_EQ(Sides(), expected);
    }
    // Presses a button of the caption, counted from the right, until the page logs the line.
    bool PressBox(int box, std::string_view line) {
        const int width = GetSystemMetrics(SM_CXSIZE);
        for (int tries = 0; tries < 3 && window_; ++tries) {
            const RECT place = Place();
            const POINT point = {
                place.right - GetSystemMetrics(SM_CXFRAME) - width * box - width / 2 - 2 * (box > 0),
                place.top + GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2};
            Drag(point, point);
            if (WaitFor([&] { return std::ranges::count(program_.Lines(), line) > 0; }, 3000)) return true;
        }
        return false;
    }

    HWND window_ = nullptr;
};

TEST_F(WindowFrame, MovesByItsHandles) {
    OpenStrips("w.caption = false;");
    DragAndExpect(InPage(100, 30), 50, 40, {250, 190, 400, 300});
    DragAndExpect(InPage(100, 90), 50, 40, {250, 190, 400, 300});
    DragAndExpect(InPage(100, 150), 50, 40, {250, 190, 400, 300});
    DragAndExpect(InPage(250, 150), 50, 40, {250, 190, 400, 300});
    DragAndExpect(InPage(300, 150), -30, 20, {220, 210, 400, 300});
}

// Only a press that bubbles to the body of the page starts a drag.
TEST_F(WindowFrame, IgnoresStoppedPressesAndPressesInFrames) {
    OpenStrips(
        "w.caption = false; document.body.insertAdjacentHTML('beforeend',"
        "  '<div dragWindow=true style=\"height:60px\"><iframe style=\"width:200px;height:50px\"></iframe>' +"
        "  '<b style=\"position:absolute;left:220px;width:60px;height:50px\">stopped</b></div>');"
        "document.querySelectorAll('b')[1].onmousedown = function (e) { e.stopPropagation(); };");
    DragAndExpect(InPage(100, 210), 50, 40, {200, 150, 400, 300});
    DragAndExpect(InPage(250, 210), 50, 40, {200, 150, 400, 300});
    DragAndExpect(InPage(320, 210), 50, 40, {250, 190, 400, 300});
}

// The page gets the press only after the button has been released.
TEST_F(WindowFrame, IgnoresClicksOnItsHandle) {
    OpenStrips("w.caption = false; document.onmousedown = function () { console.log('pressed'); };");
    const POINT handle = InPage(100, 30), aside = InPage(200, 200);
    INPUT click[] = {MoveOf(handle), MouseInputOf(MOUSEEVENTF_LEFTDOWN), MouseInputOf(MOUSEEVENTF_LEFTUP)};
    SendInput(3, click, sizeof *click);
    ASSERT_TRUE(program_.WaitForLine("pressed"));
    Send(MoveOf(aside));
    Sleep(300);
    EXPECT_THAT(Sides(), ElementsAre(200, 150, 400, 300));
}

TEST_F(WindowFrame, MovesOncePerPressAfterANavigation) {
    OpenStrips(
        "w.caption = false; window.addEventListener('load', function () { setTimeout(function () {"
        "if (location.search) console.log('again'); else location.href += '?again'; }, 200); });");
    ASSERT_TRUE(program_.WaitForLine("again"));
    DragAndExpect(InPage(100, 30), 50, 40, {250, 190, 400, 300});
    Drag({700, 500}, {600, 400});
    EXPECT_EQ(Place().left, 250) << "the drag must end with its press";
}

TEST_F(WindowFrame, IsResizedAtItsEdges) {
    OpenStrips("w.caption = false; w.minWidth = 350;");
    DragAndExpect(InPage(397, 297), 60, 30, {200, 150, 460, 330});
    DragAndExpect(InPage(2, 150), -20, 0, {180, 150, 480, 330});
    DragAndExpect(InPage(477, 150), -200, 0, {180, 150, 350, 330});
    DragAndExpect(InPage(150, 2), 0, 50, {180, 200, 350, 280});
}

TEST_F(WindowFrame, ClosesIfThePageAllowsIt) {
    OpenStrips(
        "var n = 0; w.onClose = function () { console.log('close ' + ++n); return n > 1; };"
        "w.onClosed = function () { console.log('closed'); w.quit(7); };"
        "w.onMinimize = function () { console.log('min'); return false; };"
        "w.onMaximize = function () { console.log('max'); return false; };");
    EXPECT_TRUE(PressBox(0, "close 1"));
    EXPECT_TRUE(PressBox(1, "max"));
    EXPECT_TRUE(PressBox(2, "min"));
    EXPECT_FALSE(IsIconic(window_) || IsZoomed(window_));
    EXPECT_TRUE(PressBox(0, "closed"));
    EXPECT_EQ(program_.Wait(), 7u);
    EXPECT_THAT(program_.Lines(), ElementsAre("ready", "close 1", "max", "min", "close 2", "closed"));
}

}  // namespace
}  // namespace tarvik
