#include "control/view/edit_menu.h"

#include <iterator>

#include "base/owners.h"
#include "control/view/clipboard.h"

namespace tarvik {

namespace {

struct Command {
    const wchar_t* label;  // null: a line
    const char* name;      // of the engine's editing command
};

constexpr Command kCommands[] = {
    {L"&Undo", "undo"},   {nullptr, nullptr},     {L"Cu&t", "cut"},   {L"&Copy", "copy"},
    {L"&Paste", "paste"}, {L"&Delete", "delete"}, {nullptr, nullptr}, {L"Select &all", "selectAll"},
};
constexpr size_t kCut = 2;
constexpr size_t kCopy = 3;
constexpr size_t kPaste = 4;

UniqueMenu MakeMenu() {
    UniqueMenu menu(CreatePopupMenu());
    for (size_t i = 0; i < std::size(kCommands); ++i) {
        const UINT off = i == kPaste && !ClipboardHasText() ? MF_GRAYED : 0;
        AppendMenuW(menu.Get(), kCommands[i].label ? MF_STRING | off : MF_SEPARATOR, i + 1,
                    kCommands[i].label);
    }
    return menu;
}

// The engine runs editing commands with a key event that means nothing else.
void Run(PageTarget& target, const char* command) {
    target.Post("Input.dispatchKeyEvent", {{"type", "rawKeyDown"}, {"commands", {command}}});
}

}  // namespace

void ShowEditMenu(HWND window, POINT screen, PageTarget& target) {
    const UniqueMenu menu = MakeMenu();
    const int chosen =
        TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, window, nullptr);
    if (chosen <= 0) return;
    const size_t index = static_cast<size_t>(chosen) - 1;
    if (index == kPaste) return PasteIntoPage(window, target);
    if (index == kCut || index == kCopy) CopyFromPage(window, target);
    if (index != kCopy) Run(target, kCommands[index].name);
}

}  // namespace tarvik
