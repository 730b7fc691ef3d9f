#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tarvik/owners.h"

namespace tarvik {

// A list below a field of a page. It never takes the focus, which stays in the field.
class SuggestionList {
  public:
    struct Row {
        std::wstring text;
        std::wstring label;  // in a second column; it may be empty
    };
    // `onClick` receives the index of a row.
    SuggestionList(HWND page, std::function<void(int)> onClick);
    SuggestionList(const SuggestionList&) = delete;
    SuggestionList& operator=(const SuggestionList&) = delete;

    // `field` is a box of the screen. `selected` is -1 for none.
    void Show(const RECT& field, const std::vector<Row>& rows, int selected);
    void Hide() { list_.Reset(); }
    bool IsShown() const { return static_cast<bool>(list_); }

    int Selected() const;  // -1 if no row is
    // Selects the next row or the previous one, in a circle, or the first or last one (VK_DOWN, VK_UP,
    // VK_PRIOR, VK_NEXT).
    void Move(WPARAM key);

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR object);
    int RowAt(LPARAM position) const;
    void OnMouseMove(LPARAM position);
    SIZE Fill(const std::vector<Row>& rows);
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(list_.Get(), message, wParam, lParam);
    }

    const HWND page_;
    const std::function<void(int)> onClick_;
    UniqueGdi font_;
    UniqueWindow list_;
    POINT pointer_ = {};  // where it was when the list came
};

}  // namespace tarvik
