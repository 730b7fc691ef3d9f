#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// A dialog that script opens: "alert", "confirm", "prompt" or "beforeunload".
struct ScriptDialog {
    std::string type;
    std::wstring message;
    std::wstring proposal;  // the initial text of a prompt
};

struct ScriptDialogResult {
    bool accepted = false;
    std::wstring text;
};

// Shows a dialog, modal to `owner`, until it is closed.
ScriptDialogResult ShowScriptDialog(HWND owner, ScriptDialog dialog);

}  // namespace tarvik
