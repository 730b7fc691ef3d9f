#pragma once

// A plug-in library in a few lines: a class with a table of members, and the line that exports it.
//
//     class Hello : public tarvik::Plugin<Hello> {
//       public:
//         static std::span<const tarvik::Member<Hello>> Members() {
//             static constexpr auto members = tarvik::NumberedMembers({
//                 tarvik::Method<&Hello::Greet>(L"greet"),
//             });
//             return members;
//         }
//         std::wstring Greet(const std::wstring& name) { return L"Hello, " + name; }
//     };
//
//     TARVIK_PLUGIN(Hello, L"hello", TVK::kRetainedPlugin)

#include <windows.h>

#include <string>

#include "tarvik/dispatch.h"
#include "tarvik/plugin.h"
#include "tarvik/plugin_path.h"
#include "tarvik/script_object.h"

namespace tarvik {

// What script may do with the members of a library's objects.
struct LibraryRules {
    static HRESULT GetTypeInfoCount(UINT* count) { return count ? (*count = 0, S_OK) : E_POINTER; }
    static HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }
    static bool SameName(std::wstring_view given, std::wstring_view member) { return given == member; }
    static HRESULT UnknownName(const wchar_t*) { return DISP_E_UNKNOWNNAME; }
    // Engines write objects by reference.
    template <class Self>
    static HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call) {
        if (!row) return DISP_E_MEMBERNOTFOUND;
        if (flags & DISPATCH_PROPERTYPUTREF) flags |= DISPATCH_PROPERTYPUT;
        return InvokeMember(*row, self, flags, call);
    }
};

// An entry of ComObject's list: IPlugin with its default methods.
template <class Self>
using PluginInterface = As<TVK::IPluginImpl<Self>, TVK::IPlugin>;

// The base of a plug-in. The host calls all of it on the main thread. A constructor may throw: script then
// sees its status.
template <class Self>
class Plugin : public Dispatch<Self, LibraryRules, ComObject<PluginInterface<Self>, IDispatch>> {
  public:
    // A plug-in that overrides it calls this one first.
    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown*) override {
        core_ = core;
        return S_OK;
    }

  protected:
    // The services of the window. A plug-in that script asks for while its window is being destroyed has
    // none: that throws E_ABORT.
    TVK::ICore& Core() const {
        if (!core_) throw StatusError(E_ABORT);
        return *core_.Get();
    }

    // A path of script, relative to the page, as a full path. A file URL becomes its path.
    std::wstring ResolvePath(const std::wstring& path) const { return tarvik::ResolvePath(&Core(), path); }

    // New objects of script, for results.
    ScriptObject NewObject() const { return New(L"object"); }
    ScriptObject NewArray() const { return New(L"array"); }

  private:
    ScriptObject New(const wchar_t* type) const {
        ComPtr<IDispatch> made;
        ThrowIfFailed(Core().CreateScriptObject(type, made.GetAddressOf()));
        return made.Get();
    }

    ComPtr<TVK::ICore> core_;
};

// What a library reports about its plug-in.
class PluginDescriptor : public ComObject<TVK::IPluginDescriptor> {
  public:
    PluginDescriptor(const wchar_t* name, TVK::PluginFlags flags) : name_(name), flags_(flags) {}
    STDMETHODIMP GetKind(int* kind, int) override { return *kind = TVK::kPluginKind, S_OK; }
    STDMETHODIMP GetName(BSTR* name) override {
        *name = SysAllocString(name_);
        return *name ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP GetFlags(int* flags) override { return *flags = flags_, S_OK; }

  private:
    const wchar_t* name_;
    TVK::PluginFlags flags_;
};

// Makes an object and gives out one of its interfaces; a factory of plug-ins.
template <class Class, class... Args>
HRESULT CreateInstance(REFIID iid, void** out, Args&&... args) {
    return Guard([&] { return MakeCom<Class>(std::forward<Args>(args)...)->QueryInterface(iid, out); });
}

}  // namespace tarvik

// The one export of a library: its plug-in's class, its name in script, and its flags.
#define TARVIK_PLUGIN(Class, name, flags)                                                        \
    extern "C" __declspec(dllexport) HRESULT __stdcall CreateInterface(REFIID iid, void** out) { \
        if (!out) return E_POINTER;                                                              \
        *out = nullptr;                                                                          \
        return iid == __uuidof(TVK::IPluginDescriptor)                                           \
                   ? tarvik::CreateInstance<tarvik::PluginDescriptor>(iid, out, name, flags)     \
                   : tarvik::CreateInstance<Class>(iid, out);                                    \
    }
