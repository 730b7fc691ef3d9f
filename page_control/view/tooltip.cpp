#include "page_control/view/tooltip.h"

#include <commctrl.h>

#include "page_control/view/page_scale.h"
#include "page_control/view/window_numbers.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr UINT kDuration = 10'000;  // milliseconds
constexpr int kMaxWidth = 400;

// Below the pointer, whose picture may have any size up to that of the system's.
POINT PlaceOf(POINT pointer) {
    return {pointer.x, pointer.y + GetSystemMetrics(SM_CYCURSOR) * 2 / 3};
}

}  // namespace

Tooltip::~Tooltip() {
    KillTimer(window_, kTooltipTimer);
}

// A message of the system may repeat the position.
void Tooltip::OnInput(UINT message, POINT point) {
    const bool isMove = message == WM_MOUSEMOVE;
    if (isMove && point.x == point_.x && point.y == point_.y) return;
    Hide();
    point_ = message == WM_MOUSELEAVE ? POINT{-1, -1} : point;
    if (isMove) SetTimer(window_, kTooltipTimer, GetDoubleClickTime(), nullptr);
}

void Tooltip::OnTimer() {
    if (tip_) return Hide();
    KillTimer(window_, kTooltipTimer);
    const double scale = PageScaleOf(window_);
    script_.Call("titleAt", std::to_string(point_.x / scale) + "," + std::to_string(point_.y / scale),
                 [this, alive = std::weak_ptr(alive_), rest = rests_](const Json& title) {
                     const bool isCurrent = !alive.expired() && rest == rests_;
                     if (isCurrent && title.is_string()) Show(Widen(title.get_ref<const std::string&>()));
                 });
}

void Tooltip::Show(const std::wstring& text) {
    POINT pointer;
    if (text.empty() || !GetCursorPos(&pointer) || WindowFromPoint(pointer) != window_) return;
    tip_.Reset(CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                               WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, window_, nullptr,
                               GetModuleHandleW(nullptr), nullptr));
    TTTOOLINFOW tool = {sizeof tool, TTF_TRACK | TTF_ABSOLUTE, window_};
    tool.lpszText = const_cast<wchar_t*>(text.c_str());
    const POINT place = PlaceOf(pointer);
    SendMessageW(tip_.Get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tip_.Get(), TTM_SETMAXTIPWIDTH, 0, kMaxWidth);
    SendMessageW(tip_.Get(), TTM_TRACKPOSITION, 0, MAKELPARAM(place.x, place.y));
    SendMessageW(tip_.Get(), TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
    SetTimer(window_, kTooltipTimer, kDuration, nullptr);
}

void Tooltip::Hide() {
    ++rests_;
    KillTimer(window_, kTooltipTimer);
    tip_.Reset();
}

}  // namespace tarvik
