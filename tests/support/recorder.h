#pragma once

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <string>
#include <vector>

#include "script/dispatch.h"
#include "tarvik/variant.h"

namespace tarvik {

// A script function that records its calls. The argument of the constructor computes what it returns.
class Recorder : public CDispatchBase {
  public:
    struct Record {
        std::vector<Variant> arguments;
        DWORD thread = 0;
    };
    using Handler = std::function<Variant(const Record& call)>;

    Recorder() = default;
    explicit Recorder(Handler handler) : handler_(std::move(handler)) {}

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

    // The arguments of a call as text, "I4 5, BSTR x, EMPTY".
    static std::string Text(const Record& call);
    std::vector<std::string> Texts() const;

    std::vector<Record> calls;

  private:
    Handler handler_;
};

// A value as text, with its type: "I4 5".
std::string ValueText(const VARIANT& value);

}  // namespace tarvik
