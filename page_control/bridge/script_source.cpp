#include "page_control/bridge/script_source.h"

#include <oleauto.h>

#include <cmath>
#include <cstdio>

#include "tarvik/bstr.h"
#include "tarvik/text.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

constexpr const char* kUndefined = "void 0";
constexpr double kMillisecondsPerDay = 86400000.0;
constexpr double kDateLimit = 3000000;                // days; beyond the range of automation
constexpr LONGLONG kTicksPerMillisecond = 10000;      // of a FILETIME
constexpr LONGLONG kAutomationEpoch = 9435312000000;  // 1899-12-30 in milliseconds of a FILETIME
constexpr LONGLONG kScriptEpoch = 11644473600000;     // 1970-01-01

void AppendEscaped(std::string& out, wchar_t unit) {
    char text[8];
    std::snprintf(text, sizeof text, "\\u%04x", static_cast<unsigned>(unit));
    out += text;
}

// The number of units at `at` that need no escape: a pair of surrogates, one plain unit, or none.
size_t PlainUnits(std::wstring_view text, size_t at) {
    const wchar_t unit = text[at];
    const bool pair = at + 1 < text.size() && IS_SURROGATE_PAIR(unit, text[at + 1]);
    if (pair) return 2;
    const bool escaped = unit < L' ' || unit == L'"' || unit == L'\\' || unit == 0x2028 || unit == 0x2029 ||
                         (unit >= 0xD800 && unit <= 0xDFFF);
    return escaped ? 0 : 1;
}

// Converts local to universal time, both in milliseconds of a FILETIME. Returns it unchanged where the system
// has no rule for it.
LONGLONG Universal(LONGLONG moment) {
    const ULARGE_INTEGER ticks = {.QuadPart = static_cast<ULONGLONG>(moment * kTicksPerMillisecond)};
    FILETIME time = {ticks.LowPart, ticks.HighPart};
    SYSTEMTIME local = {}, universal = {};
    if (moment < 0 || !FileTimeToSystemTime(&time, &local) ||
        !TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal) ||
        !SystemTimeToFileTime(&universal, &time)) {
        return moment;
    }
    const ULARGE_INTEGER result = {{time.dwLowDateTime, time.dwHighDateTime}};
    return static_cast<LONGLONG>(result.QuadPart) / kTicksPerMillisecond;
}

// Automation dates are local time in days, whose fraction counts forwards even before the epoch. Script
// counts milliseconds of universal time.
std::string ScriptDate(double date) {
    if (!(std::abs(date) < kDateLimit)) return TaggedValue("d", "0/0");
    const double day = std::trunc(date);
    const double milliseconds =
        day * kMillisecondsPerDay + std::round(std::abs(date - day) * kMillisecondsPerDay);
    const LONGLONG moment = Universal(kAutomationEpoch + static_cast<LONGLONG>(milliseconds));
    return TaggedValue("d", std::to_string(moment - kScriptEpoch));
}

// Whether a VARIANT can hold the elements of an array.
bool FitsVariant(SAFEARRAY* array, VARTYPE type) {
    return type == VT_VARIANT || type == VT_DECIMAL || SafeArrayGetElemsize(array) <= sizeof(LONGLONG);
}

std::string ScriptArray(SAFEARRAY* array, VARTYPE type, ObjectWriter writeObject, void* context) {
    LONG low = 0, high = -1;
    if (!array || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &low)) ||
        FAILED(SafeArrayGetUBound(array, 1, &high)) || !FitsVariant(array, type)) {
        return kUndefined;
    }
    std::string text = "[";
    for (LONG i = low; i <= high; ++i) {
        Variant element;
        const bool isWhole = type == VT_VARIANT || type == VT_DECIMAL;  // fills the whole VARIANT
        void* const slot = isWhole ? static_cast<void*>(&element) : &element.byref;
        const HRESULT status = SafeArrayGetElement(array, &i, slot);
        if (type != VT_VARIANT) element.vt = type;
        if (FAILED(status)) element.vt = VT_EMPTY;
        if (i > low) text += ',';
        text += ScriptValue(element, writeObject, context);
    }
    return TaggedValue("a", text + "]");
}

}  // namespace

std::string ScriptText(std::wstring_view text) {
    std::string out = "\"";
    for (size_t i = 0; i < text.size();) {
        const size_t start = i;
        size_t units = 0;
        while (i < text.size() && (units = PlainUnits(text, i)) > 0)
            i += units;
        if (i > start) out += Narrow(text.substr(start, i - start));
        if (i < text.size()) AppendEscaped(out, text[i++]);
    }
    return out + '"';
}

std::string ScriptNumber(double value) {
    if (std::isnan(value)) return "0/0";
    if (std::isinf(value)) return value > 0 ? "1/0" : "-1/0";
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

std::string TaggedValue(protocol::Name<protocol::Kind::kHostValue> tag, std::string_view fields) {
    return ("[\"" + std::string(tag) + "\",").append(fields) + "]";
}

std::string ScriptValue(const VARIANT& given, ObjectWriter writeObject, void* context) {
    const Variant value = Variant::Copy(given);
    if (value.vt & VT_ARRAY) {
        return ScriptArray(value.parray, value.vt & VT_TYPEMASK, writeObject, context);
    }
    switch (value.vt) {
        case VT_NULL:
            return "null";
        case VT_BOOL:
            return value.boolVal ? "true" : "false";
        case VT_BSTR:
            return ScriptText(Bstr::View(value.bstrVal));
        case VT_DATE:
            return ScriptDate(value.date);
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return value.punkVal ? writeObject(context, value.punkVal) : "null";
        default:
            break;
    }
    Variant number = Variant::Copy(value);
    const bool isNumber = value.vt != VT_EMPTY && value.vt != VT_ERROR && number.ChangeType(VT_R8);
    return isNumber ? ScriptNumber(number.dblVal) : kUndefined;
}

}  // namespace tarvik
