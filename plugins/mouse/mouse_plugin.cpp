#include "plugins/mouse/mouse_plugin.h"

namespace tarvik {

namespace {

constexpr LONG kRight = 1;
constexpr LONG kMiddle = 2;

constexpr Member<CMousePlugin> kMembers[] = {
    Method<&CMousePlugin::IsButtonDown>(-10000, L"isBtnDown"),
    RawMethod<&CMousePlugin::Click, 0, 3>(-9999, L"click"),
    Property<&CMousePlugin::GetX, &CMousePlugin::SetX>(-9998, L"x"),
    Property<&CMousePlugin::GetY, &CMousePlugin::SetY>(-9997, L"y"),
    Constant<CMousePlugin, 0>(-9996, L"LBTN"),
    Constant<CMousePlugin, kRight>(-9995, L"RBTN"),
    Constant<CMousePlugin, kMiddle>(-9994, L"MBTN"),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CMousePlugin>(L"mouse", TVK::kRetainedPlugin);

struct Button {
    int key;
    DWORD press;
    DWORD release;
};

Button ButtonOf(ExactInt number) {
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

// Input that does not move: the system looks at the place only with MOUSEEVENTF_MOVE.
HRESULT SendButton(DWORD action) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = action;
    SetLastError(ERROR_SUCCESS);
    return SendInput(1, &input, sizeof input) == 0 ? LastErrorStatus() : S_OK;
}

HRESULT PressAndRelease(const Button& button) {
    constexpr DWORD kHeld = 50;  // milliseconds; some programs take no notice of a shorter press
    if (const HRESULT status = SendButton(button.press); status != S_OK) return status;
    Sleep(kHeld);
    return SendButton(button.release);
}

}  // namespace

std::span<const Member<CMousePlugin>> CMousePlugin::Members() {
    return kMembers;
}

bool CMousePlugin::IsButtonDown(std::optional<ExactInt> button) {
    return GetKeyState(ButtonOf(button.value_or(ExactInt{})).key) < 0;
}

HRESULT CMousePlugin::Click(const Call& call) {
    ExactInt button;
    if (call.Count() == 2) return E_NOTIMPL;
    if (call.Count() > 0 && !Read(call.At(0), button)) return E_INVALIDARG;
    LooseInt x, y;
    if (call.Count() == 3 && !(Read(call.At(1), x) && Read(call.At(2), y))) return E_INVALIDARG;
    return Give(call.Result(), Outcome{PressAndRelease(ButtonOf(button))});
}

Integer CMousePlugin::GetX() {
    return {Pointer().x};
}

bool CMousePlugin::SetX(LooseInt x) {
    return SetCursorPos(x.value, Pointer().y);
}

Integer CMousePlugin::GetY() {
    return {Pointer().y};
}

bool CMousePlugin::SetY(LooseInt y) {
    return SetCursorPos(Pointer().x, y.value);
}

}  // namespace tarvik
