#include "page_control/accessibility/accessible_object.h"

#include <algorithm>
#include <cmath>

#include "base/module_function.h"
#include "page_control/accessibility/node_actions.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr int kNone = AccessibilityTree::kNone;
constexpr int kRoot = AccessibilityTree::kRoot;

static_assert(static_cast<int>(RoleNumber::kTabList) == ROLE_SYSTEM_PAGETABLIST);
static_assert(static_cast<int>(RoleNumber::kButton) == ROLE_SYSTEM_PUSHBUTTON);
static_assert(kProtected == STATE_SYSTEM_PROTECTED && kOffScreen == STATE_SYSTEM_OFFSCREEN);
static_assert(kMixed == STATE_SYSTEM_MIXED && kLinked == STATE_SYSTEM_LINKED);

// The window's frame, title bar and so on.
ComPtr<IDispatch> WindowObject(HWND window) {
    ComPtr<IDispatch> object;
    const auto find =
        FindFunction<decltype(AccessibleObjectFromWindow)>(L"oleacc.dll", "AccessibleObjectFromWindow");
    if (find) {
        find(window, static_cast<DWORD>(OBJID_WINDOW), __uuidof(IDispatch),
             reinterpret_cast<void**>(object.GetAddressOf()));
    }
    return object;
}

HRESULT Answer(std::wstring_view text, BSTR* out) {
    *out = text.empty() ? nullptr : Bstr(text).Detach();
    return text.empty() ? S_FALSE : S_OK;
}

// Pixels per pixel of the page.
double Scale(HWND window, const PageBox& view) {
    RECT area = {};
    GetClientRect(window, &area);
    return view.right > 0 && area.right > 0 ? area.right / view.right : 1;
}

LONG ToPixel(double value) {
    return static_cast<LONG>(std::lround(std::clamp(value, -1e6, 1e6)));
}

std::string_view ActionOf(const AccessibleNode& node) {
    if (node.states & kUnavailable) return {};
    if (node.role->number == RoleNumber::kCheckBox && (node.states & kChecked)) return "uncheck";
    if (node.role->number == RoleNumber::kComboBox && (node.states & kExpanded)) return "close";
    if (*node.role->action) return node.role->action;
    if (node.hasText) return "activate";
    return node.states & kFocusable && node.role->number != RoleNumber::kDocument ? "click"
                                                                                  : std::string_view();
}

}  // namespace

ComPtr<AccessibleObject> AccessibleObject::Of(const std::shared_ptr<AccessiblePage>& page, int node) {
    const auto found = page->objects.find(node);
    return found == page->objects.end() ? MakeCom<AccessibleObject>(page, node)
                                        : ComPtr<AccessibleObject>(found->second);
}

AccessibleObject::AccessibleObject(std::shared_ptr<AccessiblePage> page, int node)
    : page_(std::move(page)), node_(node) {
    page_->objects.emplace(node, this);
}

AccessibleObject::~AccessibleObject() {
    page_->objects.erase(node_);
}

const AccessibleNode& AccessibleObject::Node(int node) const {
    const AccessibleNode* const found = page_->actions ? page_->tree.Find(node) : nullptr;
    if (!found) throw StatusError(CO_E_OBJNOTCONNECTED);
    return *found;
}

int AccessibleObject::NumberOf(const VARIANT& child) const {
    const AccessibleNode& self = Self();
    if (V_VT(&child) == VT_EMPTY) return node_;
    if (V_VT(&child) != VT_I4) throw StatusError(E_INVALIDARG);
    const LONG number = V_I4(&child);
    if (number == CHILDID_SELF) return node_;
    if (number > 0) {
        if (static_cast<size_t>(number) > self.children.size()) throw StatusError(E_INVALIDARG);
        return self.children[static_cast<size_t>(number) - 1];
    }
    if (!page_->tree.Find(-number)) throw StatusError(E_INVALIDARG);
    return -number;
}

std::int64_t AccessibleObject::ElementOf(const VARIANT& child) const {
    const std::int64_t element = Child(child).element;
    if (element == 0) throw StatusError(DISP_E_MEMBERNOTFOUND);
    return element;
}

HRESULT AccessibleObject::Answer(const VARIANT& child, const std::string AccessibleNode::*member,
                                 BSTR* out) const {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] { return tarvik::Answer(Widen(Child(child).*member), out); });
}

Variant AccessibleObject::Reference(int node) const {
    if (node == kNone) return Variant();
    if (node == node_) return Variant::I4(CHILDID_SELF);
    return Variant::Object(Of(page_, node).Get());
}

RECT AccessibleObject::OnScreen(const PageBox& box) const {
    const double scale = Scale(page_->window, page_->tree.View());
    POINT origin = {};
    ClientToScreen(page_->window, &origin);
    return {origin.x + ToPixel(box.left * scale), origin.y + ToPixel(box.top * scale),
            origin.x + ToPixel(box.right * scale), origin.y + ToPixel(box.bottom * scale)};
}

// The element that has the focus in its page has it on the desktop only while the window has it.
unsigned AccessibleObject::StateOf(const AccessibleNode& node) const {
    unsigned states = node.states;
    if (GetFocus() != page_->window) states &= ~static_cast<unsigned>(kFocused);
    if (!IsWindowVisible(page_->window)) states |= kInvisible;
    return states;
}

STDMETHODIMP AccessibleObject::get_accParent(IDispatch** parent) {
    if (!parent) return E_POINTER;
    *parent = nullptr;
    return Guard([&] {
        const int node = Self().parent;
        if (node != kNone) return CopyTo(Of(page_, node), parent);
        CopyTo(WindowObject(page_->window), parent);
        return *parent ? S_OK : S_FALSE;
    });
}

STDMETHODIMP AccessibleObject::get_accChildCount(LONG* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return Guard([&] { *count = static_cast<LONG>(Self().children.size()); });
}

STDMETHODIMP AccessibleObject::get_accChild(VARIANT child, IDispatch** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] { return CopyTo(Of(page_, NumberOf(child)), out); });
}

STDMETHODIMP AccessibleObject::get_accName(VARIANT child, BSTR* name) {
    return Answer(child, &AccessibleNode::name, name);
}

STDMETHODIMP AccessibleObject::get_accValue(VARIANT child, BSTR* value) {
    return Answer(child, &AccessibleNode::value, value);
}

STDMETHODIMP AccessibleObject::get_accDescription(VARIANT child, BSTR* description) {
    return Answer(child, &AccessibleNode::description, description);
}

STDMETHODIMP AccessibleObject::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) {
    return Answer(child, &AccessibleNode::shortcut, shortcut);
}

STDMETHODIMP AccessibleObject::get_accRole(VARIANT child, VARIANT* role) {
    if (!role) return E_POINTER;
    *role = Variant();
    return Guard([&] { *role = Variant::I4(static_cast<LONG>(Child(child).role->number)); });
}

STDMETHODIMP AccessibleObject::get_accState(VARIANT child, VARIANT* state) {
    if (!state) return E_POINTER;
    *state = Variant();
    return Guard([&] { *state = Variant::I4(static_cast<LONG>(StateOf(Child(child)))); });
}

STDMETHODIMP AccessibleObject::get_accHelp(VARIANT, BSTR* help) {
    if (!help) return E_POINTER;
    *help = nullptr;
    return S_FALSE;
}

STDMETHODIMP AccessibleObject::get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) {
    if (!file || !topic) return E_POINTER;
    *file = nullptr;
    *topic = 0;
    return S_FALSE;
}

// Only of this object and the nodes in it.
STDMETHODIMP AccessibleObject::get_accFocus(VARIANT* child) {
    if (!child) return E_POINTER;
    *child = Variant();
    return Guard([&] {
        Self();
        if (GetFocus() != page_->window) return S_FALSE;
        const int node = page_->tree.Focus();
        for (int above = node; above != node_; above = Node(above).parent) {
            if (above == kRoot) return S_FALSE;
        }
        Reference(node).MoveInto(child);
        return S_OK;
    });
}

// Several selected children are found by their states.
STDMETHODIMP AccessibleObject::get_accSelection(VARIANT* children) {
    if (!children) return E_POINTER;
    *children = Variant();
    return Guard([&] {
        const auto isSelected = [&](int child) { return (Node(child).states & kSelected) != 0; };
        const auto& all = Self().children;
        const auto first = std::ranges::find_if(all, isSelected);
        if (first == all.end()) return S_FALSE;
        if (std::find_if(first + 1, all.end(), isSelected) != all.end()) return DISP_E_MEMBERNOTFOUND;
        Reference(*first).MoveInto(children);
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::get_accDefaultAction(VARIANT child, BSTR* action) {
    if (!action) return E_POINTER;
    *action = nullptr;
    return Guard([&] { return tarvik::Answer(Widen(ActionOf(Child(child))), action); });
}

STDMETHODIMP AccessibleObject::accDoDefaultAction(VARIANT child) {
    return Guard([&] {
        const std::int64_t element = ElementOf(child);
        if (ActionOf(Child(child)).empty()) return DISP_E_MEMBERNOTFOUND;
        page_->actions->Press(element);
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::accSelect(LONG flags, VARIANT child) {
    return Guard([&] {
        const std::int64_t element = ElementOf(child);
        const bool selects = flags & (SELFLAG_TAKESELECTION | SELFLAG_ADDSELECTION);
        if (selects && !(Child(child).states & kSelectable)) return E_INVALIDARG;
        if (!(flags & SELFLAG_TAKEFOCUS) && !selects) return E_INVALIDARG;
        if (flags & SELFLAG_TAKEFOCUS) SetFocus(page_->window);
        // A focus handler of the host may have closed the page.
        Self();
        if (selects && !(Child(child).states & kSelected)) page_->actions->Press(element);
        if (flags & SELFLAG_TAKEFOCUS) page_->actions->Focus(element);
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::put_accValue(VARIANT child, BSTR value) {
    return Guard([&] {
        const std::int64_t element = ElementOf(child);
        if (Child(child).states & (kReadOnly | kUnavailable)) return E_ACCESSDENIED;
        page_->actions->Write(element, Narrow(Bstr::View(value)));
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    if (!left || !top || !width || !height) return E_POINTER;
    *left = *top = *width = *height = 0;
    return Guard([&] {
        const RECT box = OnScreen(Child(child).box);
        *left = box.left;
        *top = box.top;
        *width = box.right - box.left;
        *height = box.bottom - box.top;
    });
}

STDMETHODIMP AccessibleObject::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (!end) return E_POINTER;
    *end = Variant();
    return Guard([&] {
        const int node = Neighbour(NumberOf(start), direction);
        if (node == kNone) return S_FALSE;
        Reference(node).MoveInto(end);
        return S_OK;
    });
}

int AccessibleObject::Neighbour(int number, LONG direction) const {
    const AccessibleNode& node = Node(number);
    const auto& children = node.children;
    switch (direction) {
        case NAVDIR_FIRSTCHILD:
            return children.empty() ? kNone : children.front();
        case NAVDIR_LASTCHILD:
            return children.empty() ? kNone : children.back();
        case NAVDIR_NEXT:
        case NAVDIR_PREVIOUS:
            break;
        default:
            throw StatusError(DISP_E_MEMBERNOTFOUND);
    }
    if (node.parent == kNone) return kNone;
    const auto& siblings = Node(node.parent).children;
    const auto self = std::ranges::find(siblings, number);
    if (direction == NAVDIR_PREVIOUS) return self == siblings.begin() ? kNone : *(self - 1);
    return self + 1 >= siblings.end() ? kNone : *(self + 1);
}

STDMETHODIMP AccessibleObject::accHitTest(LONG left, LONG top, VARIANT* child) {
    if (!child) return E_POINTER;
    *child = Variant();
    return Guard([&] {
        Self();
        POINT point = {left, top};
        ScreenToClient(page_->window, &point);
        const double scale = Scale(page_->window, page_->tree.View());
        const int node = page_->tree.NodeAt(point.x / scale, point.y / scale);
        if (node == kNone) return S_FALSE;
        Reference(node).MoveInto(child);
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP AccessibleObject::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = nullptr;
    return Guard([&] {
        Self();
        *window = page_->window;
    });
}

}  // namespace tarvik
