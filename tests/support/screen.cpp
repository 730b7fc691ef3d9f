#include "tests/support/screen.h"

#include <exdisp.h>
#include <mshtml.h>

#include <algorithm>
#include <cstdlib>

#include "tarvik/owners.h"
#include "tests/support/waiting.h"

namespace tarvik {

namespace {

POINT Middle(HWND window) {
    RECT area = {};
    GetClientRect(window, &area);
    return {area.right / 2, area.bottom / 2};
}

}  // namespace

std::vector<HWND> TopWindows(const wchar_t* className, DWORD process) {
    std::vector<HWND> windows;
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, className, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == process) windows.push_back(window);
    }
    return windows;
}

std::wstring TextOf(HWND window) {
    wchar_t text[1000] = {};
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG,
                        1000, &ignored);
    return text;
}

HWND InnermostWindow(HWND window) {
    while (const HWND child = GetWindow(window, GW_CHILD))
        window = child;
    return window;
}

COLORREF PixelOf(HWND window, POINT point) {
    const HDC picture = GetDC(window);
    const COLORREF colour = GetPixel(picture, point.x, point.y);
    ReleaseDC(window, picture);
    return colour;
}

COLORREF PixelOnScreen(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return PixelOf(nullptr, point);
}

std::optional<POINT> FindColour(HWND window, COLORREF colour) {
    RECT area = {};
    GetClientRect(window, &area);
    POINT origin = {};
    ClientToScreen(window, &origin);
    const HDC screen = GetDC(nullptr);
    const HDC copy = CreateCompatibleDC(screen);
    BITMAPINFO format = {{sizeof(BITMAPINFOHEADER), area.right, -area.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0},
                         {}};
    void* bits = nullptr;
    const UniqueGdi bitmap(CreateDIBSection(screen, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    const HGDIOBJ before = SelectObject(copy, bitmap.Get());
    BitBlt(copy, 0, 0, area.right, area.bottom, screen, origin.x, origin.y, SRCCOPY);
    GdiFlush();
    const DWORD wanted = RGB(GetBValue(colour), GetGValue(colour), GetRValue(colour));
    const auto* const pixels = static_cast<const DWORD*>(bits);
    const auto* const end = pixels + area.right * area.bottom;
    const auto* const found =
        std::find_if(pixels, end, [&](DWORD pixel) { return (pixel & 0xFFFFFF) == wanted; });
    const auto index = static_cast<LONG>(found - pixels);
    SelectObject(copy, before);
    DeleteDC(copy);
    ReleaseDC(nullptr, screen);
    if (found == end) return std::nullopt;
    return POINT{origin.x + index % area.right, origin.y + index / area.right};
}

bool WaitForColour(HWND window, COLORREF colour) {
    return WaitFor([&] { return PixelOnScreen(window, Middle(window)) == colour; });
}

// Wine looks at the pointer of the Unix host, which reverts moves, only if its own has rested for 100
// milliseconds.
void MovePointer(POINT to) {
    constexpr ULONGLONG kRest = 150;
    ULONGLONG since = 0;
    PumpUntil([&] {
        POINT at = {};
        GetCursorPos(&at);
        if (since && std::abs(at.x - to.x) <= 1 && std::abs(at.y - to.y) <= 1)
            return GetTickCount64() - since > kRest;
        Send(MoveOf(to));
        since = GetTickCount64();
        return false;
    });
}

void ClickAt(POINT screen, DWORD press, int times) {
    MovePointer(screen);
    for (int i = 0; i < times; ++i) {
        Send(MouseInputOf(press));
        Send(MouseInputOf(press << 1));
    }
}

void Click(HWND window) {
    SetForegroundWindow(GetAncestor(window, GA_ROOT));
    POINT point = Middle(window);
    ClientToScreen(window, &point);
    ClickAt(point);
}

bool Drag(POINT from, POINT to, const std::function<bool()>& isPressed,
          const std::function<bool()>& hasArrived) {
    MovePointer(from);
    Send(MouseInputOf(MOUSEEVENTF_LEFTDOWN));
    // While a button is down, the pointer of the Unix host stays where it is, and may revert a move once
    // more, also before the release.
    const bool isDragged = WaitFor(isPressed) && WaitFor([&] {
                               Send(MoveOf(to));
                               return hasArrived();
                           });
    Send(MoveOf(to));
    Send(MouseInputOf(MOUSEEVENTF_LEFTUP));
    return isDragged;
}

bool IsInMoveLoop(HWND window) {
    GUITHREADINFO thread = {sizeof thread};
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &thread);
    return thread.hwndMoveSize == window;
}

// Moves of the pointer are sent as input, too: SetCursorPos may take effect after a press that follows it.
void Send(INPUT input) {
    SendInput(1, &input, sizeof input);
}

void PressKeys(const std::vector<WORD>& keys) {
    std::vector<INPUT> input(2 * keys.size());
    for (size_t i = 0; i < keys.size(); ++i) {
        INPUT& press = input[i];
        INPUT& release = input[input.size() - 1 - i];
        press.type = release.type = INPUT_KEYBOARD;
        press.ki.wVk = release.ki.wVk = keys[i];
        press.ki.wScan = release.ki.wScan = static_cast<WORD>(MapVirtualKeyW(keys[i], MAPVK_VK_TO_VSC));
        release.ki.dwFlags = KEYEVENTF_KEYUP;
    }
    SendInput(static_cast<UINT>(input.size()), input.data(), sizeof(INPUT));
}

INPUT MouseInputOf(DWORD action, DWORD data) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = action;
    input.mi.mouseData = data;
    return input;
}

INPUT MoveOf(POINT screen) {
    const auto scaled = [](LONG at, int measure) { return (at * 65536 + 32768) / GetSystemMetrics(measure); };
    INPUT move = MouseInputOf(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    move.mi.dx = scaled(screen.x, SM_CXSCREEN);
    move.mi.dy = scaled(screen.y, SM_CYSCREEN);
    return move;
}

ComPtr<IDispatch> ScriptOf(IUnknown* control) {
    ComPtr<IDispatch> document, script;
    Query<IWebBrowser2>(control)->get_Document(document.GetAddressOf());
    Query<IHTMLDocument2>(document.Get())->get_Script(script.GetAddressOf());
    return script;
}

}  // namespace tarvik
