#pragma once

#include <windows.h>

#include <functional>
#include <string>

// Drives the system's dialogs on the thread of the test, as a user would.
namespace tarvik {

// Calls `call`, which opens dialogs on this thread, while `user` answers them on another thread. If a dialog
// is open after `user` has returned, it is closed and the test fails.
void AnswerDialogs(const std::function<void()>& call, const std::function<void(HWND first)>& user);

// For `user`: waits for a dialog other than `other`.
HWND NextDialog(HWND other = nullptr);

// The text of a control.
std::wstring TextOf(HWND dialog, int item);

// Presses a button and waits until the dialog is closed.
bool Press(HWND dialog, int button);

// The only field of a file dialog of the newer sort, IFileDialog.
HWND EditOf(HWND dialog);

// Types one or several file names, and presses the default button.
void EnterFileName(HWND dialog, const std::wstring& name);

}  // namespace tarvik
