#pragma once

// A plug-in library consists of a class with a member table, and a line that exports the class:
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
#include "tarvik/script_object.h"

namespace tarvik {

// The rules (tarvik/dispatch.h) for objects of a library: names are case-sensitive, there is no type
// information, and unknown members give DISP_E_UNKNOWNNAME and DISP_E_MEMBERNOTFOUND. For an object that is
// no plug-in:
//     class Player : public Dispatch<Player, LibraryRules, ComObject<IDispatch>> { ... };
struct LibraryRules {
    static HRESULT GetTypeInfoCount(UINT* count) { return count ? (*count = 0, S_OK) : E_POINTER; }
    static HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }
    static bool SameName(std::wstring_view given, std::wstring_view member) { return given == member; }
    static HRESULT UnknownName(const wchar_t*) { return DISP_E_UNKNOWNNAME; }
    template <class Self>
    static HRESULT Invoke(const Member<Self>* row, Self& self, WORD flags, const Call& call) {
        if (!row) return DISP_E_MEMBERNOTFOUND;
        // Engines assign an object by reference.
        if (flags & DISPATCH_PROPERTYPUTREF) flags |= DISPATCH_PROPERTYPUT;
        return InvokeMember(*row, self, flags, call);
    }
};

// An entry in the list of ComObject: IPlugin with default methods.
template <class Self>
using PluginInterface = As<TVK::IPluginImpl<Self>, TVK::IPlugin>;

// Resolves a URL or a path against the page of a window, as TVK::ICore::ResolveUrl does. Empty on failure,
// and for a null `core`. On the main thread. Throws std::bad_alloc.
std::wstring ResolveUrl(TVK::ICore* core, const std::wstring& url);

// The same, except that a file URL becomes a path.
std::wstring ResolvePath(TVK::ICore* core, const std::wstring& path);

// The base of a plug-in. Every call comes on the main thread. The constructor and the members may throw:
// script gets the status, as the `number` of an Error.
template <class Self>
class Plugin : public Dispatch<Self, LibraryRules, ComObject<PluginInterface<Self>, IDispatch>> {
  public:
    // Stores the services of the window, for Core(). An override calls this first. The host ignores the
    // status.
    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown*) override {
        core_ = core;
        return S_OK;
    }

  protected:
    // The services of the window, valid as long as the plug-in. Throws E_ABORT if there are none: in the
    // constructor, and in a plug-in that script requested while its window was being destroyed.
    TVK::ICore& Core() const {
        if (!core_) throw StatusError(E_ABORT);
        return *core_.Get();
    }

    // Resolves a path or URL against the current page; a file URL becomes a path, any other URL stays a URL.
    // Empty if that fails, and for a relative path on an http or https page. Throws as Core() does.
    std::wstring ResolvePath(const std::wstring& path) const { return tarvik::ResolvePath(&Core(), path); }

    // A new, empty script object or array. Throws as Core() does, and the host's status if it fails.
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

// Creates an object and returns one of its interfaces, as TVK::PluginFactory: E_POINTER for a null `out`,
// E_NOINTERFACE with a null `*out` if the object does not have it. An exception becomes the status.
template <class Class, class... Args>
HRESULT CreateInstance(REFIID iid, void** out, Args&&... args) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] { return MakeCom<Class>(std::forward<Args>(args)...)->QueryInterface(iid, out); });
}

namespace detail {

// Describes the plug-in of a library; TARVIK_PLUGIN creates it. `name` is a literal.
class PluginDescriptor : public ComObject<TVK::IPluginDescriptor> {
  public:
    PluginDescriptor(const wchar_t* name, TVK::PluginFlags flags) : name_(name), flags_(flags) {}
    STDMETHODIMP GetKind(int* kind, int) override { return Store(TVK::kPluginKind, kind); }
    STDMETHODIMP GetName(BSTR* name) override {
        if (!name) return E_POINTER;
        *name = SysAllocString(name_);
        return *name ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP GetFlags(int* flags) override { return Store(flags_, flags); }

  private:
    static HRESULT Store(int value, int* out) { return out ? (*out = value, S_OK) : E_POINTER; }

    const wchar_t* name_;
    TVK::PluginFlags flags_;
};

}  // namespace detail

}  // namespace tarvik

// Exports the plug-in of a library; use it once, outside of any namespace. `Class` derives from
// Plugin<Class> and has a default constructor, `name` is the wide literal under which script finds the
// plug-in, and `flags` is one of TVK::PluginFlags.
#define TARVIK_PLUGIN(Class, name, flags)                                                            \
    extern "C" __declspec(dllexport) HRESULT __stdcall CreateInterface(REFIID iid, void** out) {     \
        return iid == __uuidof(TVK::IPluginDescriptor)                                               \
                   ? tarvik::CreateInstance<tarvik::detail::PluginDescriptor>(iid, out, name, flags) \
                   : tarvik::CreateInstance<Class>(iid, out);                                        \
    }
