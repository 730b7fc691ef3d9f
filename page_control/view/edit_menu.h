#pragma once

#include <windows.h>

namespace tarvik {

enum class EditCommand { kNone, kUndo, kCut, kCopy, kPaste, kDelete, kSelectAll };

// The engine's name for a command.
const char* EditCommandName(EditCommand command);

// Shows the menu of a text field and returns the command that was chosen.
EditCommand ShowEditMenu(HWND window, POINT screen, bool hasSelection);

}  // namespace tarvik
