#include "page_control/view/field_pickers.h"

#include <cmath>
#include <utility>

#include "page_control/view/mouse_input.h"
#include "page_control/view/page_scale.h"
#include "page_control/view/window_numbers.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

struct Key {
    std::string_view name;
    WORD code;
};

constexpr Key kKeys[] = {{"Enter", VK_RETURN},
                         {"Escape", VK_ESCAPE},
                         {"Tab", VK_TAB},
                         {"ArrowDown", VK_DOWN},
                         {"PageUp", VK_PRIOR}};

constexpr UINT kFocusInterval = 30;  // milliseconds
constexpr int kMostFocusWaits = 100;

std::wstring TextIn(const Json& texts, size_t index) {
    return Widen(texts.at(index).get_ref<const std::string&>());
}

}  // namespace

FieldPickers::FieldPickers(HWND window, PageTarget& target, ViewScript& script, InputQueue& queue,
                           DialogHandler showDialog)
    : window_(window),
      target_(target),
      script_(script),
      queue_(queue),
      showDialog_(std::move(showDialog)),
      list_(window, [this](int row) { ChooseRow(row); }) {}

FieldPickers::~FieldPickers() {
    *alive_ = false;
    KillTimer(window_, kChoiceTimer);
}

// The engine's invisible picker takes the Escape that closes it; the page gets no key.
void FieldPickers::OnPicker(const Json& field) {
    Press("Escape");
    showDialog_(field, [this, alive = alive_, id = field.at("id").dump()](const Json& value) {
        if (!*alive) return;
        choice_ = id + "," + value.dump() + ",0,";
        focusWaits_ = 0;
        SetTimer(window_, kChoiceTimer, kFocusInterval, nullptr);
    });
}

// The engine opens a picker only for a page with the focus.
void FieldPickers::OnTimer() {
    const bool isLast = ++focusWaits_ == kMostFocusWaits;
    if (GetFocus() != window_ && !isLast) return;
    KillTimer(window_, kChoiceTimer);
    Choose(choice_ + (isLast ? "false" : "true"));
}

void FieldPickers::OnSuggestions(const Json& list) {
    suggestions_ = list;
    if (list.is_null()) return list_.Hide();
    const double scale = PageScaleOf(window_);
    const auto number = [&](const char* name) {
        return std::lround(static_cast<LONG>(list.at(name)) * scale);
    };
    POINT place = {number("left"), number("above")};
    ClientToScreen(window_, &place);
    std::vector<SuggestionList::Row> rows;
    for (const Json& item : list.at("items"))
        rows.push_back({TextIn(item, 0), TextIn(item, 1)});
    list_.Show({place.x, place.y, place.x + number("width"), place.y + number("height")}, rows,
               static_cast<LONG>(list.at("selected")));
}

// The engine's list ignores keys without a native code, and its picker of colours text without a key.
void FieldPickers::Press(const std::string& key) const {
    int code = static_cast<unsigned char>(key.front());
    for (const Key& entry : kKeys) {
        if (entry.name == key) code = entry.code;
    }
    const bool isText = key.size() == 1;
    const auto send = [&](const char* type, const std::string& text) {
        target_.Post("Input.dispatchKeyEvent", {{"type", type},
                                                {"key", key},
                                                {"code", isText ? "Digit" + key : key},
                                                {"text", text},
                                                {"windowsVirtualKeyCode", code},
                                                {"nativeVirtualKeyCode", code}});
    };
    send("rawKeyDown", "");
    if (!isText) return;
    send("char", key);
    send("keyUp", "");
}

// Like the engine, which also drops what follows a key that its list has used.
bool FieldPickers::HandleKey(UINT message, WPARAM key) {
    if (message == WM_KEYDOWN) return usesKey_ = list_.IsShown() && !KeyModifiers() && UseKey(key);
    return usesKey_ && (message == WM_CHAR || message == WM_KEYUP);
}

bool FieldPickers::UseKey(WPARAM key) {
    switch (key) {
        case VK_DOWN:
        case VK_UP:
        case VK_NEXT:
        case VK_PRIOR:
            list_.Move(key);
            return true;
        case VK_RETURN:
        case VK_TAB:
            if (const int row = list_.Selected(); row >= 0) {
                ChooseRow(row);
                return key == VK_RETURN;
            }
            list_.Hide();
            return false;
        case VK_ESCAPE:
            list_.Hide();  // and closes the engine's list
            return false;
        default:
            return false;
    }
}

void FieldPickers::ChooseRow(int row) {
    list_.Hide();
    const Json& item = suggestions_.at("items").at(static_cast<size_t>(row));
    Choose(suggestions_.at("id").dump() + "," + item.at(0).dump() + "," + item.at(2).dump() + ",false");
}

// Input waits until the page has got the value.
void FieldPickers::Choose(const std::string& arguments) {
    queue_.AddTask([this, alive = alive_, arguments](const std::function<void()>& done) {
        if (!*alive) return;
        script_.CallAsync("pick", arguments, [this, alive, done](const Json& delay) {
            if (*alive && delay.is_number()) SetTimer(window_, kChoiceTimer, kFocusInterval, nullptr);
            done();
        });
    });
}

}  // namespace tarvik
