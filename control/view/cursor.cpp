#include "control/view/cursor.h"

#include <string>

namespace tarvik {

namespace {

constexpr ULONGLONG kPause = 40;  // milliseconds between two questions

// `auto` means a text cursor over text that can be selected, and a hand over links.
std::string CursorQuestion(POINT point) {
    const std::string at = std::to_string(point.x) + "," + std::to_string(point.y);
    return R"(((x, y) => {
  const element = document.elementFromPoint(x, y);
  if (!element) return 'default';
  const style = getComputedStyle(element);
  if (style.cursor !== 'auto') return style.cursor;
  if (element.closest('a[href]')) return 'pointer';
  if (element.isContentEditable || element.matches('textarea,input:not([type=button],[type=submit],[type=reset],[type=checkbox],[type=radio],[type=range],[type=color],[type=file],[type=image])')) return 'text';
  if (style.userSelect === 'none') return 'default';
  const caret = document.caretRangeFromPoint(x, y);
  if (!caret || caret.startContainer.nodeType !== 3 || caret.startContainer.parentNode !== element) return 'default';
  const range = document.createRange();
  range.selectNodeContents(caret.startContainer);
  return [...range.getClientRects()].some(r => x >= r.left && x <= r.right && y >= r.top && y <= r.bottom) ? 'text' : 'default';
})()" + at +
           ")";
}

struct Shape {
    const char* name;
    LPWSTR cursor;
};

HCURSOR CursorByName(const std::string& name) {
    static const Shape kShapes[] = {
        {"pointer", IDC_HAND},         {"text", IDC_IBEAM},         {"wait", IDC_WAIT},
        {"progress", IDC_APPSTARTING}, {"help", IDC_HELP},          {"crosshair", IDC_CROSS},
        {"move", IDC_SIZEALL},         {"all-scroll", IDC_SIZEALL}, {"not-allowed", IDC_NO},
        {"no-drop", IDC_NO},           {"ew-resize", IDC_SIZEWE},   {"e-resize", IDC_SIZEWE},
        {"w-resize", IDC_SIZEWE},      {"col-resize", IDC_SIZEWE},  {"ns-resize", IDC_SIZENS},
        {"n-resize", IDC_SIZENS},      {"s-resize", IDC_SIZENS},    {"row-resize", IDC_SIZENS},
        {"nwse-resize", IDC_SIZENWSE}, {"nw-resize", IDC_SIZENWSE}, {"se-resize", IDC_SIZENWSE},
        {"nesw-resize", IDC_SIZENESW}, {"ne-resize", IDC_SIZENESW}, {"sw-resize", IDC_SIZENESW},
    };
    if (name == "none") return nullptr;
    for (const Shape& shape : kShapes) {
        if (name == shape.name) return LoadCursorW(nullptr, shape.cursor);
    }
    return LoadCursorW(nullptr, IDC_ARROW);
}

}  // namespace

void PageCursor::Ask(POINT point) {
    const ULONGLONG now = GetTickCount64();
    if (asking_ || now - lastAsked_ < kPause || point.x < 0) return;
    asking_ = true;
    lastAsked_ = now;
    target_.Post("Runtime.evaluate", {{"expression", CursorQuestion(point)}, {"returnByValue", true}},
                 [this, alive = alive_](const Json* result) {
                     if (!*alive) return;
                     asking_ = false;
                     if (!result || !result->contains("result")) return;
                     current_ = CursorByName((*result)["result"].value("value", std::string()));
                     POINT now;
                     if (GetCursorPos(&now) && WindowFromPoint(now) == window_) SetCursor(current_);
                 });
}

}  // namespace tarvik
