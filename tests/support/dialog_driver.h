#pragma once

#include <windows.h>

#include <functional>
#include <string>

// The system's dialogs on the testing thread, answered as a person would.
namespace tarvik {

// Does what opens dialogs on this thread, while `person` answers them from another one, beginning with the
// first. A dialog that is open when the person is done is closed, and fails the test.
void AnswerDialogs(const std::function<void()>& call, const std::function<void(HWND first)>& person);

// For the person: the dialog that is there or will come, other than that one.
HWND NextDialog(HWND other = nullptr);

// A control's text.
std::wstring TextOf(HWND dialog, int item);

// Presses a button and waits for the dialog to go.
bool Press(HWND dialog, int button);

// Types the name of a file or several, and presses the button that takes it.
void EnterFileName(HWND dialog, const std::wstring& name);

}  // namespace tarvik
