#include "page_control/dialogs/dialog_template.h"

namespace tarvik {

DialogTemplate::DialogTemplate(const std::wstring& caption, SIZE units) {
    const DLGTEMPLATE head = {DS_MODALFRAME | DS_CENTER | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU,
                              0,
                              0,
                              0,
                              0,
                              static_cast<short>(units.cx),
                              static_cast<short>(units.cy)};
    Append(&head, sizeof head);
    Append(L"\0", 2 * sizeof(wchar_t));  // no menu, the default class
    Append(caption);
    const WORD points = 9;
    Append(&points, sizeof points);
    Append(std::wstring(L"Segoe UI"));
}

void DialogTemplate::Add(WORD controlClass, WORD id, DWORD style, RECT units, const std::wstring& text) {
    AddHead(id, style, units);
    const WORD classId[] = {0xFFFF, controlClass};
    Append(classId, sizeof classId);
    AddTail(text);
}

void DialogTemplate::Add(const std::wstring& controlClass, WORD id, DWORD style, RECT units) {
    AddHead(id, style, units);
    Append(controlClass);
    AddTail({});
}

void DialogTemplate::AddHead(WORD id, DWORD style, RECT units) {
    words_.resize((words_.size() + 1) & ~size_t{1});  // items are aligned to doublewords
    const DLGITEMTEMPLATE item = {WS_CHILD | WS_VISIBLE | style,
                                  0,
                                  static_cast<short>(units.left),
                                  static_cast<short>(units.top),
                                  static_cast<short>(units.right - units.left),
                                  static_cast<short>(units.bottom - units.top),
                                  id};
    Append(&item, sizeof item);
}

void DialogTemplate::AddTail(const std::wstring& text) {
    Append(text);
    const WORD noData = 0;
    Append(&noData, sizeof noData);
    ++Head()->cdit;
}

void DialogTemplate::Append(const void* bytes, size_t size) {
    const auto* from = static_cast<const WORD*>(bytes);
    words_.insert(words_.end(), from, from + size / sizeof(WORD));
}

}  // namespace tarvik
