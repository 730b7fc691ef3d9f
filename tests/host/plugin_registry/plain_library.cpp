// A plug-in library in C++17 that uses the headers of the contract only. Script reads `answer`, which is 42.
#include <cwchar>

#include <tarvik/menu.h>
#include <tarvik/plugin.h>
#include <tarvik/stream.h>

#ifdef _MSVC_LANG
static_assert(_MSVC_LANG < 202002L, "the contract requires no more than C++17");
#else
static_assert(__cplusplus < 202002L, "the contract requires no more than C++17");
#endif

namespace {

template <class Interface>
class Counted : public Interface {
  public:
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

  protected:
    virtual ~Counted() = default;
    HRESULT Return(void* found, void** out) {
        *out = found;
        return found ? (AddRef(), S_OK) : E_NOINTERFACE;
    }

  private:
    ULONG count_ = 1;
};

struct PluginInterfaces : TVK::IPluginImpl<PluginInterfaces>, IDispatch {};

class Plain : public Counted<PluginInterfaces> {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        const bool isPlugin = iid == __uuidof(IUnknown) || iid == __uuidof(TVK::IPlugin);
        return Return(isPlugin               ? static_cast<TVK::IPlugin*>(this)
                      : iid == IID_IDispatch ? static_cast<void*>(static_cast<IDispatch*>(this))
                                             : nullptr,
                      out);
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        if (std::wcscmp(names[0], L"answer") != 0) return DISP_E_UNKNOWNNAME;
        return ids[0] = 1, S_OK;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (!(flags & DISPATCH_PROPERTYGET)) return E_NOTIMPL;
        result->vt = VT_I4;
        result->lVal = 42;
        return S_OK;
    }
};

class Descriptor : public Counted<TVK::IPluginDescriptor> {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        return Return(iid == __uuidof(TVK::IPluginDescriptor) ? this : nullptr, out);
    }
    STDMETHODIMP GetKind(int* kind, int) override { return *kind = TVK::kPluginKind, S_OK; }
    STDMETHODIMP GetName(BSTR* name) override { return *name = SysAllocString(L"plain"), S_OK; }
    STDMETHODIMP GetFlags(int* flags) override { return *flags = TVK::kTransientPlugin, S_OK; }
};

}  // namespace

extern "C" __declspec(dllexport) HRESULT __stdcall CreateInterface(REFIID iid, void** out) {
    if (iid == __uuidof(TVK::IPluginDescriptor)) return *out = new Descriptor, S_OK;
    return *out = static_cast<TVK::IPlugin*>(new Plain), S_OK;
}
