// A plug-in library as its author writes it: with the contract's headers and nothing else of the host.
// SAMPLE_MODULE is its own name, which it tells the debugger when it is freed; SAMPLE_NAME the name of its
// plug-in; SAMPLE_FAULT what is wrong with it.
#include "host/contract/plugin.h"

#include <stdexcept>

#define FAULT_NONE 0
#define FAULT_NO_EXPORT 1
#define FAULT_KIND 2
#define FAULT_NO_DESCRIPTOR 3
#define FAULT_FAILING_KIND 4
#define FAULT_THROWING 5

#if SAMPLE_FAULT == FAULT_NO_EXPORT
#define CreateInterface CreateNothing
#endif

namespace {

template <class Interface>
class Counted : public Interface {
  public:
    virtual ~Counted() = default;
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

  private:
    ULONG count_ = 1;
};

class Descriptor : public Counted<TVK::IPluginDescriptor> {
  public:
    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP GetKind(int* kind, int) override {
        if (SAMPLE_FAULT == FAULT_THROWING) throw std::runtime_error("thrown by a library");
        *kind = SAMPLE_FAULT == FAULT_KIND ? TVK::kPluginKind + 1 : TVK::kPluginKind;
        return SAMPLE_FAULT == FAULT_FAILING_KIND ? E_ABORT : S_OK;
    }
    STDMETHODIMP GetName(BSTR* name) override { return *name = SysAllocString(SAMPLE_NAME), S_OK; }
    STDMETHODIMP GetFlags(int* flags) override { return *flags = TVK::kTransientPlugin, S_OK; }
};

class SampleFaces : public TVK::IPluginImpl<SampleFaces>, public IDispatch {};

// Script reads `answer`, which is 42.
class Sample : public Counted<SampleFaces> {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        *out = nullptr;
        if (iid == __uuidof(TVK::IPlugin) || iid == IID_IUnknown) *out = static_cast<TVK::IPlugin*>(this);
        if (iid == IID_IDispatch) *out = static_cast<IDispatch*>(this);
        if (!*out) return E_NOINTERFACE;
        return AddRef(), S_OK;
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        return lstrcmpW(names[0], L"answer") == 0 ? (ids[0] = 1, S_OK) : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        V_VT(result) = VT_I4;
        V_I4(result) = 42;
        return S_OK;
    }
};

}  // namespace

extern "C" __declspec(dllexport) HRESULT __stdcall CreateInterface(REFIID iid, void** out) {
    *out = nullptr;
    if (iid == __uuidof(TVK::IPluginDescriptor)) {
        if (SAMPLE_FAULT == FAULT_NO_DESCRIPTOR) return E_OUTOFMEMORY;
        *out = new Descriptor;
        return S_OK;
    }
    auto* const plugin = new Sample;
    const HRESULT status = plugin->QueryInterface(iid, out);
    plugin->Release();
    return status;
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_PROCESS_DETACH) OutputDebugStringW(SAMPLE_MODULE);
    return TRUE;
}
