#include "page_control/view/cursor.h"

#include <string>

#include "page_control/view/page_scale.h"
#include "page_control/view/window_numbers.h"

namespace tarvik {

namespace {

constexpr UINT kQueryInterval = 40;  // milliseconds

struct Shape {
    const char* name;
    LPWSTR cursor;
};

HCURSOR CursorByName(const std::string& name) {
    static const Shape kShapes[] = {
        {"pointer", IDC_HAND},
        {"grab", IDC_HAND},
        {"grabbing", IDC_HAND},
        {"cell", IDC_CROSS},
        {"vertical-text", IDC_IBEAM},
        {"text", IDC_IBEAM},
        {"wait", IDC_WAIT},
        {"progress", IDC_APPSTARTING},
        {"help", IDC_HELP},
        {"crosshair", IDC_CROSS},
        {"move", IDC_SIZEALL},
        {"all-scroll", IDC_SIZEALL},
        {"not-allowed", IDC_NO},
        {"no-drop", IDC_NO},
        {"ew-resize", IDC_SIZEWE},
        {"e-resize", IDC_SIZEWE},
        {"w-resize", IDC_SIZEWE},
        {"col-resize", IDC_SIZEWE},
        {"ns-resize", IDC_SIZENS},
        {"n-resize", IDC_SIZENS},
        {"s-resize", IDC_SIZENS},
        {"row-resize", IDC_SIZENS},
        {"nwse-resize", IDC_SIZENWSE},
        {"nw-resize", IDC_SIZENWSE},
        {"se-resize", IDC_SIZENWSE},
        {"nesw-resize", IDC_SIZENESW},
        {"ne-resize", IDC_SIZENESW},
        {"sw-resize", IDC_SIZENESW},
    };
    if (name == "none") return nullptr;
    for (const Shape& shape : kShapes) {
        if (name == shape.name) return LoadCursorW(nullptr, shape.cursor);
    }
    return LoadCursorW(nullptr, IDC_ARROW);
}

}  // namespace

PageCursor::~PageCursor() {
    *alive_ = false;
    if (timerRuns_) KillTimer(window_, kCursorTimer);
}

void PageCursor::SetPosition(POINT point) {
    point_ = point;
    queryWanted_ = point.x >= 0;
    if (queryWanted_ && !timerRuns_) Query();
}

void PageCursor::OnTimer() {
    if (queryPending_) return;
    if (queryWanted_) return Query();
    KillTimer(window_, kCursorTimer);
    timerRuns_ = false;
}

void PageCursor::Query() {
    queryWanted_ = false;
    queryPending_ = true;
    timerRuns_ = SetTimer(window_, kCursorTimer, kQueryInterval, nullptr) != 0;
    const double scale = PageScaleOf(window_);
    script_.Call("cursorAt", std::to_string(point_.x / scale) + "," + std::to_string(point_.y / scale),
                 [this, alive = alive_](const Json& name) {
                     if (!*alive) return;
                     queryPending_ = false;
                     if (name.is_string()) Show(name);
                 });
}

void PageCursor::Show(const std::string& name) {
    current_ = CursorByName(name);
    POINT pointer;
    if (GetCursorPos(&pointer) && WindowFromPoint(pointer) == window_) SetCursor(current_);
}

}  // namespace tarvik
