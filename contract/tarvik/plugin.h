#pragma once

// The contract between the host and a plug-in. A plug-in library is a 64-bit module with the export
//
//     extern "C" HRESULT __stdcall CreateInterface(REFIID iid, void** out);
//
// For the id of TVK::IPluginDescriptor it returns an object that describes the library's plug-in, and for the
// id of TVK::IPlugin a new plug-in object at each call. The module stays loaded until the process ends.
//
// Threads: every call in either direction is made on the main thread, which owns the windows. A plug-in that
// works on another thread marshals the script objects that it uses there
// (CoMarshalInterThreadInterfaceInStream).
//
// Ownership: arguments are borrowed for the call; to keep an interface, take a reference. The caller owns
// what an out parameter receives: one reference to an interface, or a string to free by SysFreeString. After
// a failure the out parameter is null.
//
// Errors: methods return a status. No C++ exception may leave a library.

#include <windows.h>
#include <oaidl.h>
#include <unknwn.h>

namespace TVK {

// The services of one browser window. A plug-in may hold a reference for its lifetime.
struct ICore : public IUnknown {
    // Opens another browser window, hidden, on the page `url`, which is resolved as ResolveUrl does. A null
    // `url` means the page that the first window opens. With `inherit` this window owns the new one. The
    // script of the new window gets `callback` and `context` as its globals windowCallback and windowContext;
    // for null it gets no such global. `out`, which may be null, receives the new window's plug-in `window`.
    // If no window was opened, `out` is null, while the status may still be S_OK.
    STDMETHOD(CreateBrowserWindow)
    (const wchar_t* url, BOOL inherit, const VARIANT* callback, const VARIANT* context, IDispatch** out) = 0;

    // The top-level window, which the host owns; null once it has been destroyed.
    STDMETHOD_(HWND, GetWindowHandle)() = 0;

    // The plug-in of this window with the script name `name`. A retained plug-in is created at its first use,
    // a transient one at every call. Fails for an unknown name, and once the window is being destroyed.
    STDMETHOD(GetPlugin)(const wchar_t* name, IDispatch** out) = 0;

    // Resolves a URL or a path against the current page. URLs and full paths are returned unchanged. On a
    // page from a file, a relative path becomes a full path, not a URL. On an http or https page, a relative
    // address gives an empty string, by design. A null `url` counts as empty. E_POINTER for a null `out`.
    STDMETHOD(ResolveUrl)(const wchar_t* url, BSTR* out) = 0;

    // Creates an empty script object. `typeName` is "object" or "array", in upper or lower case; any other
    // gives E_NOINTERFACE. E_INVALIDARG for a null `out`.
    STDMETHOD(CreateScriptObject)(const wchar_t* typeName, IDispatch** out) = 0;
};

// A plug-in object implements this, and IDispatch for its members in script.
MIDL_INTERFACE("111EE8F2-9143-42CC-83D2-9F23C3D84412")
IPlugin : public IUnknown {
  public:
    // Called once, right after the object was created. `browser` implements IWebBrowser2. Either argument may
    // be null if script requests the plug-in while its window is being destroyed. The host ignores the
    // status.
    STDMETHOD(Initialize)(ICore * core, IUnknown * browser) = 0;

    // The window, or a frame in it, has a new document. `reserved` is null. The host ignores the status.
    //
    // This call and the next one go to retained plug-ins. A retained plug-in that is created later gets the
    // calls that it missed right after Initialize. A transient plug-in gets neither, except the object that
    // the host creates to look up its name and releases immediately: that object gets the missed calls.
    STDMETHOD(OnNavigateComplete)(void* reserved) = 0;

    // The document of the window, or of a frame in it, has been loaded. `reserved` is null. The host ignores
    // the status.
    STDMETHOD(OnDocumentComplete)(void* reserved) = 0;
};

inline constexpr int kPluginKind = 3;

enum PluginFlags : int {
    kRetainedPlugin = 0,   // one object per browser window, from its first use until the window is destroyed
    kTransientPlugin = 1,  // a new object for every read of window.external[name]
};

// Describes the plug-in of a library. The host queries it once, when it loads the library, and releases it.
MIDL_INTERFACE("5DC680BA-377B-4E7C-A737-5FEDD763A63A")
IPluginDescriptor : public IUnknown {
  public:
    // `kind` receives kPluginKind. The host rejects the library for any other value, and for any status but
    // S_OK. `reserved` is 0.
    STDMETHOD(GetKind)(int* kind, int reserved) = 0;

    // `name` receives the plug-in's name in script, which is case-sensitive.
    STDMETHOD(GetName)(BSTR * name) = 0;

    // `flags` receives PluginFlags; the other bits are reserved and 0.
    STDMETHOD(GetFlags)(int* flags) = 0;
};

// Creates an object and returns the requested interface. Script that requested the plug-in gets the status of
// a failure. CreateInterface is such a factory.
using PluginFactory = HRESULT(STDAPICALLTYPE*)(REFIID iid, void** out);

// IPlugin for a plug-in that needs none of its methods, or overrides only some:
//     class MyPlugin : public TVK::IPluginImpl<MyPlugin>, public IDispatch { ... };
template <class T>
class IPluginImpl : public IPlugin {
  public:
    STDMETHODIMP Initialize(ICore*, IUnknown*) override { return E_NOTIMPL; }
    STDMETHODIMP OnNavigateComplete(void*) override { return E_NOTIMPL; }
    STDMETHODIMP OnDocumentComplete(void*) override { return E_NOTIMPL; }
};

}  // namespace TVK

#ifdef __CRT_UUID_DECL  // compilers that cannot read the id from the declaration
__CRT_UUID_DECL(TVK::IPlugin, 0x111EE8F2, 0x9143, 0x42CC, 0x83, 0xD2, 0x9F, 0x23, 0xC3, 0xD8, 0x44, 0x12)
__CRT_UUID_DECL(TVK::IPluginDescriptor, 0x5DC680BA, 0x377B, 0x4E7C, 0xA7, 0x37, 0x5F, 0xED, 0xD7, 0x63, 0xA6,
                0x3A)
#endif
