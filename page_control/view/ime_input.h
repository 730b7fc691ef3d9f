#pragma once

#include <windows.h>
#include <imm.h>

#include <memory>
#include <string>

#include "page_control/view/input_queue.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Shows in a page the text that an input method composes, in place of the system's composition window, and
// places the windows of the input method at the page's caret.
class ImeInput {
  public:
    ImeInput(HWND window, ViewScript& script, InputQueue& queue)
        : window_(window), script_(script), queue_(queue) {}
    ~ImeInput();
    ImeInput(const ImeInput&) = delete;
    ImeInput& operator=(const ImeInput&) = delete;

    // False for other messages, and for those that the system must process, too.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Whether the page has a use for composed text. If not, the input method gets no keys.
    void Enable(bool enabled);

    // Ends a composition, as the user would: the text stays.
    void Complete();

  private:
    void OnComposition(LPARAM changes);
    void CancelLater();
    void SetComposition(const std::wstring& text, int caret);
    void Commit(const std::wstring& text);
    void PlaceWindows();
    void OnCaret(const Json& caret);
    bool DescribeCaret(IMECHARPOSITION& position) const;

    HWND window_;
    ViewScript& script_;
    InputQueue& queue_;
    bool enabled_ = true;
    bool composing_ = false;   // the page shows a composition
    bool cancelling_ = false;  // unless a result comes
    RECT caret_ = {};          // in the window
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
