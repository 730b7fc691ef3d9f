#include "tests/support/recorder.h"

#include "tarvik/arguments.h"
#include "tarvik/bstr.h"
#include "tarvik/text.h"

namespace tarvik {

STDMETHODIMP Recorder::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                              EXCEPINFO*, UINT*) {
    if (id != DISPID_VALUE || !(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
    const Call call(parameters, result);
    Record record;
    record.thread = GetCurrentThreadId();
    for (size_t i = 0; i < call.Count(); ++i)
        record.arguments.push_back(Variant::Copy(call.At(i)));
    calls.push_back(std::move(record));
    Variant returned = handler_ ? handler_(calls.back()) : Variant();
    if (result) returned.MoveInto(result);
    return S_OK;
}

std::string Recorder::Text(const Record& call) {
    std::string text;
    for (const Variant& argument : call.arguments)
        text += (text.empty() ? "" : ", ") + ValueText(argument);
    return text;
}

std::vector<std::string> Recorder::Texts() const {
    std::vector<std::string> texts;
    for (const Record& call : calls)
        texts.push_back(Text(call));
    return texts;
}

std::string ValueText(const VARIANT& value) {
    const auto number = [](const char* type, auto amount) { return type + std::to_string(amount); };
    if (value.vt == VT_EMPTY) return "EMPTY";
    if (value.vt == VT_NULL) return "NULL";
    if (value.vt == VT_UI1) return number("UI1 ", value.bVal);
    if (value.vt == VT_UI2) return number("UI2 ", value.uiVal);
    if (value.vt == VT_I4) return number("I4 ", value.lVal);
    if (value.vt == VT_UI4) return number("UI4 ", value.ulVal);
    if (value.vt == VT_I8) return number("I8 ", value.llVal);
    if (value.vt == VT_UI8) return number("UI8 ", value.ullVal);
    if (value.vt == VT_R8) return number("R8 ", value.dblVal);
    if (value.vt == VT_BOOL) return value.boolVal ? "BOOL true" : "BOOL false";
    if (value.vt == VT_BSTR) return "BSTR " + Narrow(Bstr::View(value.bstrVal));
    if (value.vt == VT_DISPATCH) return value.pdispVal ? "DISPATCH" : "DISPATCH null";
    if (value.vt == VT_UNKNOWN) return value.punkVal ? "UNKNOWN" : "UNKNOWN null";
    return number("type ", value.vt);
}

}  // namespace tarvik
