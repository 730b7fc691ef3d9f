#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// The dialogs that pages open by script: "alert", "confirm", "prompt" and "beforeunload".
struct ScriptDialog {
    std::string type;
    std::wstring message;
    std::wstring proposal;  // of a prompt
};

struct ScriptDialogAnswer {
    bool accepted = false;
    std::wstring text;
};

// Modal to `owner`; returns when it is closed.
ScriptDialogAnswer ShowScriptDialog(HWND owner, const ScriptDialog& dialog);

}  // namespace tarvik
