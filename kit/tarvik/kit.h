#pragma once

// A plug-in library in a few lines: a class with a table of members, and the line that exports it.
//
//     class Hello : public TVK::Plugin<Hello> {
//       public:
//         static TVK::Members<Hello> Members() {
//             static constexpr TVK::Member<Hello> members[] = {TVK::Method<&Hello::Greet>(L"greet")};
//             return members;
//         }
//         std::wstring Greet(const std::wstring& name) { return L"Hello, " + name; }
//     };
//
//     TARVIK_PLUGIN(Hello, L"hello", TVK::kRetainedPlugin)
//
// All of the kit is in headers, over the contract (tarvik/plugin.h) and the headers of Windows.

#include <windows.h>
#include <shlwapi.h>

#include <atomic>
#include <string>

#include "tarvik/members.h"
#include "tarvik/plugin.h"
#include "tarvik/stream.h"
#include "tarvik/worker.h"

namespace TVK {

// Reference count and QueryInterface over Base, which derives from the interfaces; the first of them is the
// identity. Objects start with a count of 1.
template <class Base, class First, class... More>
class Counted : public Base {
  public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (iid == __uuidof(IUnknown) || iid == __uuidof(First)) *out = static_cast<First*>(this);
        ((iid == __uuidof(More) ? void(*out = static_cast<More*>(this)) : void()), ...);
        if (!*out) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++count_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --count_;
        if (left == 0) delete this;
        return left;
    }

  protected:
    virtual ~Counted() = default;

  private:
    std::atomic<ULONG> count_{1};
};

template <class Self>
struct PluginFaces : IPluginImpl<Self>, IDispatch {};

// The base of a plug-in. Self has a static function Members. The host calls all of it on the main thread.
template <class Self>
class Plugin : public Counted<PluginFaces<Self>, IPlugin, IDispatch> {
  public:
    // A plug-in that overrides it calls this one first. A constructor may throw: script then sees its status.
    STDMETHODIMP Initialize(ICore* core, IUnknown*) override {
        core_ = core;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return count ? (*count = 0, S_OK) : E_POINTER; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (!names || count == 0 || !ids) return E_INVALIDARG;
        return Self::Members().Find(names[0], ids[0]);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        if (!parameters) return E_INVALIDARG;
        // A callback made by the member may drop script's last reference.
        const Ptr<IUnknown> alive(static_cast<IPlugin*>(this));
        return Guard([&] {
            Value answer;
            Self::Members().Invoke(static_cast<Self&>(*this), id, flags, *parameters, answer);
            if (result) *result = std::exchange(static_cast<VARIANT&>(answer), VARIANT{});
        });
    }

  protected:
    // The services of the window. A plug-in that script asks for while its window goes has none: a failure.
    ICore& Core() const {
        if (!core_) throw Failure(E_ABORT);
        return *core_.Get();
    }

    // A path of script, which counts from the page, as a full one. A file URL becomes its path.
    std::wstring ResolvePath(const std::wstring& path) const {
        Value resolved;
        resolved.vt = VT_BSTR;
        Check(Core().ResolveUrl(path.c_str(), &resolved.bstrVal));
        const std::wstring url = resolved.As<std::wstring>().value_or(L"");
        if (!UrlIsFileUrlW(url.c_str())) return url;
        DWORD length = static_cast<DWORD>(url.size() + 1);  // a path is shorter than its URL
        std::wstring found(length, L'\0');
        Check(PathCreateFromUrlW(url.c_str(), found.data(), &length, 0));
        found.resize(length);
        return found;
    }

    // New objects of script, for answers.
    Object NewObject() const { return New(L"object"); }
    Object NewArray() const { return New(L"array"); }

  private:
    Object New(const wchar_t* type) const {
        Ptr<IDispatch> made;
        Check(Core().CreateScriptObject(type, made.GetAddressOf()));
        return Object(made.Get());
    }

    Ptr<ICore> core_;
};

// What a library tells of its plug-in.
class Descriptor : public Counted<IPluginDescriptor, IPluginDescriptor> {
  public:
    Descriptor(const wchar_t* name, PluginFlags flags) : name_(name), flags_(flags) {}
    STDMETHODIMP GetKind(int* kind, int) override { return *kind = kPluginKind, S_OK; }
    STDMETHODIMP GetName(BSTR* name) override {
        *name = SysAllocString(name_);
        return *name ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP GetFlags(int* flags) override { return *flags = flags_, S_OK; }

  private:
    const wchar_t* name_;
    PluginFlags flags_;
};

// The work of CreateInterface.
template <class Self>
HRESULT CreateInterfaceOf(const wchar_t* name, PluginFlags flags, REFIID iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] {
        Ptr<IUnknown> made;
        // Not Attach, which takes a further reference in the headers of mingw-w64.
        if (iid == __uuidof(IPluginDescriptor)) {
            *made.GetAddressOf() = new Descriptor(name, flags);
        } else {
            *made.GetAddressOf() = static_cast<IPlugin*>(new Self);
        }
        Check(made->QueryInterface(iid, out));
    });
}

}  // namespace TVK

// The one export of a library: its plug-in's class, its name in script, and its flags.
#define TARVIK_PLUGIN(Class, name, flags)                                                        \
    extern "C" __declspec(dllexport) HRESULT __stdcall CreateInterface(REFIID iid, void** out) { \
        return TVK::CreateInterfaceOf<Class>(name, flags, iid, out);                             \
    }
