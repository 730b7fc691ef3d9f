#pragma once

#include <windows.h>
#include <docobj.h>
#include <mshtml.h>
#include <ocidl.h>

#include <memory>

#include "page_control/bridge/remote_object.h"
#include "page_control/page/connection_point.h"
#include "page_control/page/html_members.h"
#include "page_control/page/page.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/status.h"

// Published interfaces of a page's objects. All calls go through the page's script; late-bound callers reach
// every member of the script objects themselves.
namespace tarvik {

// DIID_HTMLElementEvents2, which not every SDK's libraries contain.
inline constexpr IID kElementEvents = {
    0x3050F60F, 0x98B5, 0x11CF, {0xBB, 0x82, 0x00, 0xAA, 0x00, 0xBD, 0xCE, 0x0B}};

// The IDispatch implementation of an object that wraps a script object. Passed to the page, it is that
// object.
template <class... Entries>
class ScriptDispatch : public ComObject<Entries...> {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        if (!out || iid != __uuidof(IRemoteObject)) return ComObject<Entries...>::QueryInterface(iid, out);
        *out = nullptr;
        return Guard([&] {
            const auto script = Script();
            return script ? script->QueryInterface(iid, out) : E_NOINTERFACE;
        });
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return Guard([&] {
            const auto script = Script();
            return script ? script->GetIDsOfNames(iid, names, count, locale, ids) : DISP_E_UNKNOWNNAME;
        });
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
        return Guard([&] {
            const auto script = Script();
            return script ? script->Invoke(id, iid, locale, flags, parameters, result, exception, argument)
                          : DISP_E_MEMBERNOTFOUND;
        });
    }

  protected:
    virtual ComPtr<IDispatch> Script() = 0;  // null without a document
};

// The current document of a control.
class HtmlDocument : public ScriptDispatch<As<DocumentMembers, IHTMLDocument2, IHTMLDocument, IDispatch>,
                                           IOleCommandTarget> {
  public:
    HtmlDocument(std::shared_ptr<Page> page, ComPtr<ConnectionPoint> mouse)
        : page_(std::move(page)), mouse_(std::move(mouse)) {}

    STDMETHODIMP get_Script(IDispatch** out) override;
    STDMETHODIMP get_parentWindow(IHTMLWindow2** out) override;
    STDMETHODIMP get_body(IHTMLElement** out) override;
    STDMETHODIMP elementFromPoint(LONG x, LONG y, IHTMLElement** out) override;
    STDMETHODIMP get_activeElement(IHTMLElement** out) override;
    STDMETHODIMP get_readyState(BSTR* out) override;
    STDMETHODIMP get_title(BSTR* out) override;
    STDMETHODIMP get_URL(BSTR* out) override;

    // IOleCommandTarget: OLECMDID_ONUNLOAD asks the page's `beforeunload` handlers and returns whether the
    // window may close.
    STDMETHODIMP QueryStatus(const GUID*, ULONG, OLECMD*, OLECMDTEXT*) override { return E_NOTIMPL; }
    STDMETHODIMP Exec(const GUID* group, DWORD command, DWORD options, VARIANT* in, VARIANT* out) override;

  protected:
    ComPtr<IDispatch> Script() override;

  private:
    HRESULT ElementOf(const wchar_t* name, IHTMLElement** out);
    HRESULT TextOf(const wchar_t* name, BSTR* out);

    std::shared_ptr<Page> page_;
    ComPtr<ConnectionPoint> mouse_;
    std::weak_ptr<ScriptContext> context_;  // of script_
    ComPtr<IDispatch> script_;
};

class HtmlWindow : public ScriptDispatch<As<WindowMembers, IHTMLWindow2, IHTMLFramesCollection2, IDispatch>> {
  public:
    HtmlWindow(std::shared_ptr<Page> page, ComPtr<IHTMLDocument2> document)
        : page_(std::move(page)), document_(std::move(document)) {}

    STDMETHODIMP get_document(IHTMLDocument2** out) override { return CopyTo(document_, out); }
    // Runs the text as a global script. An exception is one of the page's script errors.
    STDMETHODIMP execScript(BSTR code, BSTR language, VARIANT* result) override;

  protected:
    ComPtr<IDispatch> Script() override { return page_->Globals(); }

  private:
    std::shared_ptr<Page> page_;
    ComPtr<IHTMLDocument2> document_;
};

// An element. Its events are those of the page's body: mouse presses anywhere in it.
class HtmlElement
    : public ScriptDispatch<As<ElementMembers, IHTMLElement, IDispatch>, IConnectionPointContainer,
                            As<IProvideClassInfo2, IProvideClassInfo, IProvideClassInfo2>> {
  public:
    HtmlElement(std::shared_ptr<Page> page, ComPtr<IDispatch> script, ComPtr<ConnectionPoint> mouse)
        : page_(std::move(page)), script_(std::move(script)), mouse_(std::move(mouse)) {}

    STDMETHODIMP get_tagName(BSTR* out) override { return Text(L"tagName", out); }
    STDMETHODIMP get_id(BSTR* out) override { return Text(L"id", out); }
    STDMETHODIMP get_className(BSTR* out) override { return Text(L"className", out); }
    STDMETHODIMP get_innerText(BSTR* out) override { return Text(L"innerText", out); }
    STDMETHODIMP get_parentElement(IHTMLElement** out) override;
    STDMETHODIMP getAttribute(BSTR name, LONG flags, VARIANT* out) override;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** out) override;
    STDMETHODIMP GetClassInfo(ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;

  protected:
    ComPtr<IDispatch> Script() override { return script_; }

  private:
    HRESULT Text(const wchar_t* name, BSTR* out);

    std::shared_ptr<Page> page_;
    ComPtr<IDispatch> script_;
    ComPtr<ConnectionPoint> mouse_;
};

}  // namespace tarvik
