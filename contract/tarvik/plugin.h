#pragma once

// The contract between the host and a plug-in. A plug-in library is a 64-bit module with the export
//
//     extern "C" HRESULT __stdcall CreateInterface(REFIID iid, void** out);
//
// which answers the id of TVK::IPluginDescriptor with an object that describes the library's plug-in, and the
// id of TVK::IPlugin with a new plug-in object each time it is asked. The module stays loaded until the
// process ends.
//
// Everything here is used on the main thread, the thread of the windows. A plug-in that works on another
// thread takes script objects there by marshalling (CoMarshalInterThreadInterfaceInStream).
//
// Arguments are borrowed for the call: who keeps an interface takes a reference. What an out parameter
// receives belongs to the caller, an interface with one reference, a string to be freed (SysFreeString);
// after a failure it is null. No C++ exception may leave a library.

#include <windows.h>
#include <oaidl.h>
#include <unknwn.h>

namespace TVK {

// The services that a browser window gives to its plug-ins. A plug-in may keep it as long as it lives itself.
struct ICore : public IUnknown {
    // Opens a further browser window, hidden, at `url`, resolved as below; null means the page that a first
    // window would open. `inherit` makes it owned by this one. `callback` and `context` become the globals
    // windowCallback and windowContext of its script; null leaves the global out. `out` may be null; it
    // receives the `window` plug-in of the new window. Without a window it is null, and the status may be a
    // success all the same.
    STDMETHOD(CreateBrowserWindow)
    (const wchar_t* url, BOOL inherit, const VARIANT* callback, const VARIANT* context, IDispatch** out) = 0;

    // The top-level window. It is valid as long as the browser window lives, and stays the host's.
    STDMETHOD_(HWND, GetWindowHandle)() = 0;

    // A plug-in of this same window by its script name, which is made if it is not there yet. Fails for a
    // name that there is not, and when the window is going.
    STDMETHOD(GetPlugin)(const wchar_t* name, IDispatch** out) = 0;

    // Makes a URL or path absolute against the current page: URLs and full paths stay as they are. Relative
    // paths on a page of a file give a full path, not a URL. Relative addresses on http pages give an empty
    // string; that is by design. E_POINTER without `out`.
    STDMETHOD(ResolveUrl)(const wchar_t* url, BSTR* out) = 0;

    // Makes a new script object: "object" or "array", in any case of letters; E_NOINTERFACE for other names,
    // E_INVALIDARG for a null pointer.
    STDMETHOD(CreateScriptObject)(const wchar_t* typeName, IDispatch** out) = 0;
};

// What a plug-in object answers besides IDispatch, which is its face to script.
MIDL_INTERFACE("111EE8F2-9143-42CC-83D2-9F23C3D84412")
IPlugin : public IUnknown {
  public:
    // Called once, right after creation. `browser` answers IWebBrowser2. Either may be null for a plug-in
    // that script asks for while its window is being destroyed. The status is not looked at.
    STDMETHOD(Initialize)(ICore * core, IUnknown * browser) = 0;
    // The window, or a frame in it, has a new document. The argument is always null, and the status is
    // ignored. This call and the next one go to retained plug-ins. A retained plug-in that is created later
    // gets the calls that it missed right after Initialize. A transient plug-in gets neither, except the
    // object that the host creates to look up its name and releases at once: it gets the missed calls.
    STDMETHOD(OnNavigateComplete)(void* reserved) = 0;
    // The document, or that of a frame, finished loading; the argument is always null.
    STDMETHOD(OnDocumentComplete)(void* reserved) = 0;
};

inline constexpr int kPluginKind = 3;

enum PluginFlags : int {
    kRetainedPlugin = 0,   // one object per browser window, from its first use until the window goes
    kTransientPlugin = 1,  // a new object at every read of window.external[name]
};

// What a library answers about its plug-in. It is asked once, when the library is loaded, and released then.
MIDL_INTERFACE("5DC680BA-377B-4E7C-A737-5FEDD763A63A")
IPluginDescriptor : public IUnknown {
  public:
    // `kind` must come back as kPluginKind; another one, or a status other than 0, refuses the library.
    // `reserved` is 0.
    STDMETHOD(GetKind)(int* kind, int reserved) = 0;
    // The name under which script reaches the plug-in, case and all; the host frees it.
    STDMETHOD(GetName)(BSTR * name) = 0;
    // PluginFlags; the other bits have no meaning yet.
    STDMETHOD(GetFlags)(int* flags) = 0;
};

// A factory makes an object and answers the interface asked for, with one reference. A failure goes to the
// script that asked for the plug-in. CreateInterface is a factory.
using PluginFactory = HRESULT(STDAPICALLTYPE*)(REFIID iid, void** out);

// The three operations of IPlugin for a plug-in that needs none of them: derive as
// class CMyPlugin : public TVK::IPluginImpl<CMyPlugin>, public IDispatch, and override what is wanted.
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
