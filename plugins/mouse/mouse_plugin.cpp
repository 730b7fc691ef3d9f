#include "plugins/mouse/mouse_plugin.h"

#include "base/status.h"

namespace tarvik {

namespace {

constexpr LONG kRight = 1;
constexpr LONG kMiddle = 2;

constexpr Member<CMousePlugin> kMembers[] = {
    Method<&CMousePlugin::IsButtonDown>(L"isBtnDown", -10000),
    Method<&CMousePlugin::Click, &CMousePlugin::ClickAt>(L"click", -9999),
    Property<&CMousePlugin::GetX, &CMousePlugin::SetX>(L"x", -9998),
    Property<&CMousePlugin::GetY, &CMousePlugin::SetY>(L"y", -9997),
    Constant<CMousePlugin, 0>(L"LBTN", -9996),
    Constant<CMousePlugin, kRight>(L"RBTN", -9995),
    Constant<CMousePlugin, kMiddle>(L"MBTN", -9994),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CMousePlugin>(L"mouse", TVK::kRetainedPlugin);

struct Button {
    int key;
    DWORD press;
    DWORD release;
};

Button ButtonOf(AnyInt32 number) {
    switch (number.value) {
        case kRight:
            return {VK_RBUTTON, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP};
        case kMiddle:
            return {VK_MBUTTON, MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP};
        default:
            return {VK_LBUTTON, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    }
}

POINT Pointer() {
    POINT point = {};
    GetCursorPos(&point);
    return point;
}

// Presses or releases the button at the pointer: without MOUSEEVENTF_MOVE the system ignores the point.
HRESULT SendButton(DWORD action, POINT point) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = point.x;
    input.mi.dy = point.y;
    input.mi.dwFlags = action;
    SetLastError(ERROR_SUCCESS);
    return SendInput(1, &input, sizeof input) == 0 ? LastErrorStatus() : S_OK;
}

HRESULT PressAndRelease(const Button& button, POINT point) {
    constexpr DWORD kPressTime = 50;  // milliseconds; some programs miss a shorter press
    if (const HRESULT status = SendButton(button.press, point); status != S_OK) return status;
    Sleep(kPressTime);
    return SendButton(button.release, point);
}

}  // namespace

std::span<const Member<CMousePlugin>> CMousePlugin::Members() {
    return kMembers;
}

bool CMousePlugin::IsButtonDown(std::optional<AnyInt32> button) {
    return GetKeyState(ButtonOf(button.value_or(AnyInt32{})).key) < 0;
}

Outcome CMousePlugin::Click(std::optional<AnyInt32> button) {
    return {PressAndRelease(ButtonOf(button.value_or(AnyInt32{})), Pointer())};
}

Outcome CMousePlugin::ClickAt(AnyInt32 button, CoercedInt x, CoercedInt y) {
    return {PressAndRelease(ButtonOf(button), {x.value, y.value})};
}

int CMousePlugin::GetX() {
    return Pointer().x;
}

bool CMousePlugin::SetX(CoercedInt x) {
    return SetCursorPos(x.value, Pointer().y);
}

int CMousePlugin::GetY() {
    return Pointer().y;
}

bool CMousePlugin::SetY(CoercedInt y) {
    return SetCursorPos(Pointer().x, y.value);
}

}  // namespace tarvik
