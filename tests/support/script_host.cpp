#include "tests/support/script_host.h"

#include <gtest/gtest.h>

#include "tarvik/bstr.h"
#include "tarvik/com_object.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr CLSID kJScript = {0xf414c260, 0x6ac0, 0x11cf, {0xb6, 0xd1, 0x00, 0xaa, 0x00, 0xbb, 0xbb, 0x58}};
constexpr DWORD kInvokeVersioning = 0x4000;  // SCRIPTPROP_INVOKEVERSIONING
constexpr LONG kWithJson = 2;

}  // namespace

class ScriptHost::Site : public ComObject<IActiveScriptSite> {
  public:
    explicit Site(IDispatch* external) : external_(external) {}

    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR, DWORD mask, IUnknown** item, ITypeInfo**) override {
        return mask & SCRIPTINFO_IUNKNOWN ? CopyTo(external_, item) : S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override {
        EXCEPINFO info = {};
        DWORD context = 0;
        ULONG line = 0;
        LONG column = 0;
        error->GetExceptionInfo(&info);
        error->GetSourcePosition(&context, &line, &column);
        Bstr source, description, help;
        source.Attach(info.bstrSource);
        description.Attach(info.bstrDescription);
        help.Attach(info.bstrHelpFile);
        lastError = "line " + std::to_string(line + 1) + ": " + Narrow(description.View());
        ++errors;
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

    std::string lastError;
    int errors = 0;

  private:
    ComPtr<IDispatch> external_;
};

ScriptHost::ScriptHost(IDispatch* external) : site_(MakeCom<Site>(external)) {
    if (FAILED(CoCreateInstance(kJScript, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                                reinterpret_cast<void**>(engine_.GetAddressOf())))) {
        ADD_FAILURE() << "the script engine cannot be created";
        return;
    }
    if (const auto properties = Query<IActiveScriptProperty>(engine_.Get())) {
        Variant version = Variant::I4(kWithJson);
        properties->SetProperty(kInvokeVersioning, nullptr, &version);
    }
    const auto parser = Query<IActiveScriptParse>(engine_.Get());
    parser->InitNew();
    engine_->SetScriptSite(site_.Get());
    engine_->AddNamedItem(L"external", SCRIPTITEM_ISVISIBLE);
    engine_->SetScriptState(SCRIPTSTATE_CONNECTED);
}

ScriptHost::~ScriptHost() {
    if (engine_) engine_->Close();
}

HRESULT ScriptHost::Parse(const wchar_t* text, DWORD flags, VARIANT* result) {
    const auto parser = Query<IActiveScriptParse>(engine_.Get());
    return parser ? parser->ParseScriptText(text, nullptr, nullptr, nullptr, 0, 0, flags, result, nullptr)
                  : E_NOINTERFACE;
}

bool ScriptHost::Run(const wchar_t* text) {
    const HRESULT status = Parse(text, SCRIPTTEXT_ISVISIBLE, nullptr);
    EXPECT_GE(status, 0) << "script error, " << site_->lastError;
    return SUCCEEDED(status);
}

Variant ScriptHost::Evaluate(const wchar_t* expression) {
    Variant value;
    if (FAILED(Parse(expression, SCRIPTTEXT_ISEXPRESSION, &value))) value.Clear();
    return value;
}

int ScriptHost::Errors() const {
    return site_->errors;
}

}  // namespace tarvik
