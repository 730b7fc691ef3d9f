#include "page_control/view/edit_menu.h"

#include <iterator>

#include "page_control/clipboard/system_clipboard.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

struct Row {
    EditCommand command;
    const wchar_t* label;
    const char* name;
};

constexpr Row kRows[] = {
    {EditCommand::kUndo, L"&Undo", "undo"},    {EditCommand::kNone, nullptr, nullptr},
    {EditCommand::kCut, L"Cu&t", "cut"},       {EditCommand::kCopy, L"&Copy", "copy"},
    {EditCommand::kPaste, L"&Paste", "paste"}, {EditCommand::kDelete, L"&Delete", "delete"},
    {EditCommand::kNone, nullptr, nullptr},    {EditCommand::kSelectAll, L"Select &all", "selectAll"},
};

bool IsEnabled(EditCommand command, bool hasSelection) {
    switch (command) {
        case EditCommand::kCut:
        case EditCommand::kCopy:
        case EditCommand::kDelete:
            return hasSelection;
        case EditCommand::kPaste:
            return SystemClipboardHasContent();
        default:
            return true;
    }
}

}  // namespace

const char* EditCommandName(EditCommand command) {
    for (const Row& row : kRows) {
        if (row.command == command) return row.name;
    }
    return nullptr;
}

EditCommand ShowEditMenu(HWND window, POINT screen, bool hasSelection) {
    const UniqueMenu menu(CreatePopupMenu());
    for (const Row& row : kRows) {
        const UINT state = IsEnabled(row.command, hasSelection) ? MF_ENABLED : MF_GRAYED;
        AppendMenuW(menu.Get(), row.label ? MF_STRING | state : MF_SEPARATOR,
                    static_cast<UINT_PTR>(row.command), row.label);
    }
    return static_cast<EditCommand>(
        TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, window, nullptr));
}

}  // namespace tarvik
