#pragma once

#include <windows.h>
#include <oleacc.h>

#include <map>
#include <memory>

#include "page_control/accessibility/accessibility_tree.h"
#include "tarvik/bstr.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

class AccessibleObject;
class NodeActions;

// What the objects of a page share.
struct AccessiblePage {
    HWND window;
    NodeActions* actions;  // null once the page has gone
    AccessibilityTree tree;
    std::map<int, AccessibleObject*> objects;  // not owned
};

// A node of a page for screen readers. It answers from the page's tree, without waiting for the engine. Once
// the node or the page has gone, every call fails with CO_E_OBJNOTCONNECTED.
//
// Numbers of children: positive ones count an object's children, and a negative one is that of any node of
// the page, which events carry.
class AccessibleObject : public ComObject<As<IAccessible, IAccessible, IDispatch>, IOleWindow> {
  public:
    // The object of a node, which is a new one only if no client holds it.
    static ComPtr<AccessibleObject> Of(const std::shared_ptr<AccessiblePage>& page, int node);

    AccessibleObject(std::shared_ptr<AccessiblePage> page, int node);
    ~AccessibleObject() override;

    // IAccessible
    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** out) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override;
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override;
    STDMETHODIMP get_accFocus(VARIANT* child) override;
    STDMETHODIMP get_accSelection(VARIANT* children) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) override;

    // IDispatch: clients use the interface itself.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  private:
    // These throw StatusError.
    const AccessibleNode& Self() const { return Node(node_); }
    const AccessibleNode& Node(int node) const;
    int NumberOf(const VARIANT& child) const;
    const AccessibleNode& Child(const VARIANT& child) const { return Node(NumberOf(child)); }
    std::int64_t ElementOf(const VARIANT& child) const;

    HRESULT Answer(const VARIANT& child, const std::string AccessibleNode::*member, BSTR* out) const;
    Variant Reference(int node) const;
    RECT OnScreen(const PageBox& box) const;
    unsigned StateOf(const AccessibleNode& node) const;
    int Neighbour(int node, LONG direction) const;

    const std::shared_ptr<AccessiblePage> page_;
    const int node_;
};

}  // namespace tarvik
