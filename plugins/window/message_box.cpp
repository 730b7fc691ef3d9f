#include "plugins/window/message_box.h"

#include <array>
#include <cwchar>
#include <iterator>
#include <span>
#include <string>

#include "tarvik/properties.h"

namespace tarvik {

namespace {

struct Style {
    const wchar_t* name;
    UINT bits;
};
constexpr Style kButtonSets[] = {{L"ok", MB_OK}, {L"okCancel", MB_OKCANCEL}, {L"yesNo", MB_YESNO}};
constexpr Style kIcons[] = {{L"information", MB_ICONINFORMATION},
                            {L"error", MB_ICONERROR},
                            {L"warning", MB_ICONWARNING},
                            {L"question", MB_ICONQUESTION}};

struct Button {
    int button;
    const wchar_t* callback;
};
constexpr Button kButtons[] = {{IDOK, L"onOk"}, {IDCANCEL, L"onCancel"}, {IDYES, L"onYes"}, {IDNO, L"onNo"}};

UINT BitsOf(std::span<const Style> styles, const std::wstring& name, UINT fallback) {
    for (const Style& style : styles) {
        if (_wcsicmp(style.name, name.c_str()) == 0) return style.bits;
    }
    return fallback;
}

UINT StyleOf(const ScriptObject& options) {
    const UINT buttons = BitsOf(kButtonSets, options.Get<std::wstring>(L"type", {}), MB_OK);
    const UINT icon = buttons == MB_YESNO ? MB_ICONQUESTION : MB_ICONINFORMATION;
    return buttons | BitsOf(kIcons, options.Get<std::wstring>(L"icon", {}), icon);
}

}  // namespace

bool ShowMessageBox(HWND owner, const ScriptObject& options) {
    const std::wstring caption = options.Get<std::wstring>(L"caption", {});
    const std::wstring text = options.Get<std::wstring>(L"text", {});
    const UINT style = StyleOf(options);
    // Read before the box opens: scripts may change the options while it is open.
    std::array<ComPtr<IDispatch>, std::size(kButtons)> callbacks;
    for (size_t i = 0; i < callbacks.size(); ++i)
        callbacks[i] = ObjectIn(options.Get(kButtons[i].callback));
    const int button = MessageBoxW(owner, text.c_str(), caption.c_str(), style);
    for (size_t i = 0; i < callbacks.size(); ++i) {
        if (kButtons[i].button == button) CallScriptFunction(callbacks[i].Get());
    }
    return button != 0;
}

}  // namespace tarvik
