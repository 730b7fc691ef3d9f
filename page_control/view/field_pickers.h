#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "page_control/view/input_queue.h"
#include "page_control/view/suggestion_list.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Shows a list or a dialog where the engine has opened its own for a field of a page, outside of its frames.
class FieldPickers {
  public:
    // Shows a dialog for a field, described in JSON. `onChoice` takes the value; null if the user cancels.
    using ChoiceHandler = std::function<void(const Json& value)>;
    using DialogHandler = std::function<void(const Json& field, ChoiceHandler onChoice)>;

    FieldPickers(HWND window, PageTarget& target, ViewScript& script, InputQueue& queue,
                 DialogHandler showDialog);
    ~FieldPickers();
    FieldPickers(const FieldPickers&) = delete;
    FieldPickers& operator=(const FieldPickers&) = delete;

    // What the script has posted.
    void OnPicker(const Json& field);
    void OnSuggestions(const Json& list);
    void Press(const std::string& key) const;

    // Whether a message of the keyboard is for the list.
    bool HandleKey(UINT message, WPARAM key);
    void HideList() { list_.Hide(); }
    void OnTimer();  // kChoiceTimer

  private:
    bool UseKey(WPARAM key);
    void ChooseRow(int row);
    void Choose(const std::string& arguments);

    HWND window_;
    PageTarget& target_;
    ViewScript& script_;
    InputQueue& queue_;
    const DialogHandler showDialog_;
    SuggestionList list_;
    Json suggestions_;
    std::string choice_;    // of a dialog: the arguments of the script but the last
    int focusWaits_ = 0;    // for the focus to return from the dialog
    bool usesKey_ = false;  // the last one that was pressed
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
