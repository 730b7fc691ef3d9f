#include "control/bridge/script_source.h"

#include <oleauto.h>

#include <cmath>
#include <cstdio>

#include "base/bstr.h"
#include "base/text.h"
#include "base/variant.h"

namespace tarvik {

namespace {

constexpr const char* kUndefined = "void 0";
constexpr double kMillisecondsPerDay = 86400000.0;
constexpr double kScriptEpoch = 25569.0;  // 1970-01-01 as an automation date

void AppendEscaped(std::string& out, wchar_t unit) {
    char text[8];
    std::snprintf(text, sizeof text, "\\u%04x", static_cast<unsigned>(unit));
    out += text;
}

// How many units from here on can stand as they are: a pair of surrogates, one plain unit, or none.
size_t PlainUnits(std::wstring_view text, size_t at) {
    const wchar_t unit = text[at];
    const bool pair = at + 1 < text.size() && IS_SURROGATE_PAIR(unit, text[at + 1]);
    if (pair) return 2;
    const bool escaped = unit < L' ' || unit == L'"' || unit == L'\\' || unit == 0x2028 || unit == 0x2029 ||
                         (unit >= 0xD800 && unit <= 0xDFFF);
    return escaped ? 0 : 1;
}

// Automation dates are local time in days; script counts milliseconds of universal time.
std::string ScriptDate(double days) {
    SYSTEMTIME local = {}, universal = {};
    double date = 0;
    if (!VariantTimeToSystemTime(days, &local) ||
        !TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal) ||
        !SystemTimeToVariantTime(&universal, &date)) {
        date = days;
    }
    return R"(["d",)" + ScriptNumber(std::round((date - kScriptEpoch) * kMillisecondsPerDay)) + "]";
}

std::string ScriptArray(SAFEARRAY* array, VARTYPE kind, ObjectWriter writeObject, void* context) {
    LONG low = 0, high = -1;
    if (!array || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &low)) ||
        FAILED(SafeArrayGetUBound(array, 1, &high))) {
        return kUndefined;
    }
    std::string text = R"(["a",[)";
    for (LONG i = low; i <= high; ++i) {
        Variant element;
        element.vt = kind;
        void* const slot = kind == VT_VARIANT ? static_cast<void*>(&element) : &element.byref;
        if (FAILED(SafeArrayGetElement(array, &i, slot))) element.vt = VT_EMPTY;
        if (i > low) text += ',';
        text += ScriptValue(element, writeObject, context);
    }
    return text + "]]";
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
