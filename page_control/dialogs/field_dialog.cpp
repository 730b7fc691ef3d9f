#include "page_control/dialogs/field_dialog.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <cstdlib>

#include "page_control/dialogs/dialog_template.h"

namespace tarvik {

namespace {

constexpr WORD kDate = 100;
constexpr WORD kTime = 101;
constexpr WORD kClear = 102;

COLORREF ColourOf(const std::string& value) {
    const unsigned long rgb = value.size() == 7 ? strtoul(value.c_str() + 1, nullptr, 16) : 0;
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
}

// The page's suggestions are among the user's own colours.
std::optional<std::string> ChooseColour(HWND owner, const Field& field) {
    static COLORREF custom[16] = {};
    for (size_t i = 0; i < std::min(field.suggestions.size(), std::size(custom)); ++i)
        custom[i] = ColourOf(field.suggestions[i]);
    CHOOSECOLORW dialog = {sizeof dialog, owner};
    dialog.rgbResult = ColourOf(field.value);
    dialog.lpCustColors = custom;
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    if (!ChooseColorW(&dialog)) return std::nullopt;
    char text[16];
    wsprintfA(text, "#%02x%02x%02x", GetRValue(dialog.rgbResult), GetGValue(dialog.rgbResult),
              GetBValue(dialog.rgbResult));
    return text;
}

// A calendar, and below it a field for the time or the month.
class DateDialog {
  public:
    DateDialog(FieldType type, const Field& field) : type_(type), field_(field) {
        GetLocalTime(&time_);
        time_.wSecond = time_.wMilliseconds = 0;
        time_ = ParseFieldValue(type, field.value, time_).value_or(time_);
    }

    std::optional<std::string> Show(HWND owner) {
        // The calendar has its own size, which the dialog adopts.
        const bool hasCalendar = HasCalendar();
        const short top = hasCalendar ? 120 : 8;
        const short below = static_cast<short>(HasLowerField() ? top + 22 : top);
        DialogTemplate layout(hasCalendar ? L"Date" : HasTime(type_) ? L"Time" : L"Month", {176, below + 24});
        if (hasCalendar) {
            const DWORD weeks = type_ == FieldType::kWeek ? MCS_WEEKNUMBERS : 0;
            layout.Add(MONTHCAL_CLASSW, kDate, WS_TABSTOP | weeks, {8, 4, 168, 118});
        }
        if (HasLowerField())
            layout.Add(DATETIMEPICK_CLASSW, kTime, WS_TABSTOP | DTS_UPDOWN, {8, top, 168, top + 14});
        const auto button = [&](WORD id, DWORD style, short left, const wchar_t* text) {
            layout.Add(DialogTemplate::kButton, id, WS_TABSTOP | style,
                       {left, below + 4, left + 50, below + 18}, text);
        };
        button(IDOK, BS_DEFPUSHBUTTON, 8, L"OK");
        button(kClear, 0, 63, L"Clear");
        button(IDCANCEL, 0, 118, L"Cancel");
        DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Head(), owner, Procedure,
                                reinterpret_cast<LPARAM>(this));
        return result_;
    }

  private:
    bool HasCalendar() const { return HasDate(type_) && type_ != FieldType::kMonth; }
    bool HasLowerField() const { return HasTime(type_) || type_ == FieldType::kMonth; }

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(window, DWLP_USER, lParam);
            reinterpret_cast<DateDialog*>(lParam)->Fill(window);
            return TRUE;
        }
        auto* const self = reinterpret_cast<DateDialog*>(GetWindowLongPtrW(window, DWLP_USER));
        if (!self || message != WM_COMMAND) return FALSE;
        switch (LOWORD(wParam)) {
            case IDOK:
                if (!self->Accept(window)) return TRUE;
                break;
            case kClear:
                self->result_.emplace();
                break;
            case IDCANCEL:
                break;
            default:
                return FALSE;
        }
        EndDialog(window, 0);
        return TRUE;
    }

    void Fill(HWND window) const {
        SYSTEMTIME range[2] = {};
        DWORD limits = 0;
        const auto limit = [&](const std::string& text, int index, DWORD flag) {
            const auto time = ParseFieldValue(type_, text, time_);
            if (!time) return;
            range[index] = *time;
            limits |= flag;
        };
        limit(field_.limits.least, 0, GDTR_MIN);
        limit(field_.limits.most, 1, GDTR_MAX);
        if (HasCalendar() && limits) Send(window, kDate, MCM_SETRANGE, limits, range);
        if (HasLowerField()) {
            if (limits && !HasCalendar() && !HasTime(type_)) Send(window, kTime, DTM_SETRANGE, limits, range);
            Send(window, kTime, DTM_SETFORMATW, 0, HasTime(type_) ? L"HH:mm:ss" : L"MMMM yyyy");
        }
        Display(window, time_);
    }

    static void Send(HWND window, WORD id, UINT message, WPARAM wParam, const void* lParam) {
        SendDlgItemMessageW(window, id, message, wParam, reinterpret_cast<LPARAM>(lParam));
    }

    void Display(HWND window, const SYSTEMTIME& time) const {
        if (HasCalendar()) Send(window, kDate, MCM_SETCURSEL, 0, &time);
        if (HasLowerField()) Send(window, kTime, DTM_SETSYSTEMTIME, GDT_VALID, &time);
    }

    // Displays the nearest value in place of one that the field does not accept.
    bool Accept(HWND window) {
        const SYSTEMTIME chosen = Read(window);
        const SYSTEMTIME nearest = NearestFieldValue(type_, chosen, field_.limits);
        const std::string value = FieldValueOf(type_, nearest);
        if (value == FieldValueOf(type_, chosen)) {
            result_ = value;
            return true;
        }
        MessageBeep(MB_ICONWARNING);
        Display(window, nearest);
        return false;
    }

    SYSTEMTIME Read(HWND window) const {
        SYSTEMTIME time = time_;
        if (HasCalendar())
            SendDlgItemMessageW(window, kDate, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&time));
        if (!HasLowerField()) return time;
        SYSTEMTIME lower = {};
        SendDlgItemMessageW(window, kTime, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&lower));
        if (!HasTime(type_)) return lower;
        time.wHour = lower.wHour;
        time.wMinute = lower.wMinute;
        time.wSecond = lower.wSecond;
        return time;
    }

    const FieldType type_;
    const Field& field_;
    SYSTEMTIME time_ = {};
    std::optional<std::string> result_;
};

}  // namespace

std::optional<std::string> ChooseFieldValue(HWND owner, const Field& field) {
    if (field.type == "color") return ChooseColour(owner, field);
    const auto type = FieldTypeOf(field.type);
    if (!type) return std::nullopt;
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    return DateDialog(*type, field).Show(owner);
}

}  // namespace tarvik
