#include "tests/support/recorder.h"

#include "base/bstr.h"
#include "base/text.h"
#include "script/readers.h"

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
    Variant answer = answer_ ? answer_(calls.back()) : Variant();
    if (result) answer.MoveInto(result);
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
    switch (value.vt) {
        case VT_EMPTY:
            return "EMPTY";
        case VT_NULL:
            return "NULL";
        case VT_I4:
            return "I4 " + std::to_string(value.lVal);
        case VT_UI4:
            return "UI4 " + std::to_string(value.ulVal);
        case VT_I8:
            return "I8 " + std::to_string(value.llVal);
        case VT_UI8:
            return "UI8 " + std::to_string(value.ullVal);
        case VT_R8:
            return "R8 " + std::to_string(value.dblVal);
        case VT_BOOL:
            return value.boolVal ? "BOOL true" : "BOOL false";
        case VT_BSTR:
            return "BSTR " + Narrow(Bstr::View(value.bstrVal));
        case VT_DISPATCH:
            return value.pdispVal ? "DISPATCH" : "DISPATCH null";
        case VT_UNKNOWN:
            return value.punkVal ? "UNKNOWN" : "UNKNOWN null";
        default:
            return "kind " + std::to_string(value.vt);
    }
}

}  // namespace tarvik
