#pragma once

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <string>
#include <vector>

#include "tarvik/variant.h"
#include "script/dispatch.h"

namespace tarvik {

// A script function of the tests: keeps the arguments of each call, in script order, and answers what it is
// told. Calls are expected to be counted by the test: `calls`.
class Recorder : public CDispatchBase {
  public:
    struct Record {
        std::vector<Variant> arguments;
        DWORD thread = 0;
    };
    using Answer = std::function<Variant(const Record& call)>;

    Recorder() = default;
    explicit Recorder(Answer answer) : answer_(std::move(answer)) {}

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

    // "I4 5, BSTR x, EMPTY": what came, for one comparison.
    static std::string Text(const Record& call);
    std::vector<std::string> Texts() const;

    std::vector<Record> calls;

  private:
    Answer answer_;
};

// One value as text, with its kind.
std::string ValueText(const VARIANT& value);

}  // namespace tarvik
