// The page as a client of Active Accessibility finds it, with the real engine.

#include <windows.h>
#include <oleacc.h>

#include "page_control/accessibility/page_accessibility.h"
#include "tarvik/text.h"
#include "tests/page_control/view/hosted_page.h"

namespace tarvik {
namespace {

using Object = ComPtr<IAccessible>;

Variant Self() {
    return Variant::I4(CHILDID_SELF);
}

Object ObjectOf(HWND window) {
    Object object;
    AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_PPV_ARGS(object.GetAddressOf()));
    return object;
}

using TextGetter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

std::wstring Get(const Object& object, TextGetter getter) {
    Bstr text;
    const HRESULT status = object ? (object.Get()->*getter)(Self(), text.Receive()) : E_POINTER;
    return SUCCEEDED(status) ? std::wstring(text.View()) : Widen(StatusText(status));
}
std::wstring NameOf(const Object& object) {
    return Get(object, &IAccessible::get_accName);
}
std::wstring ValueOf(const Object& object) {
    return Get(object, &IAccessible::get_accValue);
}

LONG RoleOf(const Object& object) {
    Variant role;
    object->get_accRole(Self(), role.Receive());
    return role.lVal;
}
LONG StateOf(const Object& object) {
    Variant state;
    object->get_accState(Self(), state.Receive());
    return state.lVal;
}

Object ChildOf(const Object& object, LONG number) {
    ComPtr<IDispatch> child;
    object->get_accChild(Variant::I4(number), child.GetAddressOf());
    return Query<IAccessible>(child.Get());
}

Object Find(const Object& object, const std::wstring& name, LONG role) {
    if (!object || (NameOf(object) == name && RoleOf(object) == role)) return object;
    LONG count = 0;
    object->get_accChildCount(&count);
    for (LONG i = 1; i <= count; ++i) {
        if (const Object found = Find(ChildOf(object, i), name, role)) return found;
    }
    return nullptr;
}

// The events of this process, and the names of their objects when they arrive.
class EventLog {
  public:
    explicit EventLog(HWND window) {
        window_ = window;
        events_.clear();
        hook_ = SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, OnEvent, GetCurrentProcessId(), 0, 0);
    }
    ~EventLog() { UnhookWinEvent(hook_); }
    static bool Has(DWORD event, const std::wstring& name) {
        return PumpUntil([&] { return std::ranges::find(events_, std::pair(event, name)) != events_.end(); });
    }

  private:
    static void CALLBACK OnEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD,
                                 DWORD) {
        if (window != window_ || object != OBJID_CLIENT) return;
        const Object client = ObjectOf(window);
        events_.emplace_back(event, NameOf(child == CHILDID_SELF ? client : ChildOf(client, child)));
    }

    static inline HWND window_;
    static inline std::vector<std::pair<DWORD, std::wstring>> events_;
    HWINEVENTHOOK hook_;
};

TEST_F(HostedPage, IsReadByAScreenReader) {
    Open(R"(<style>p, input { margin: 10px; }</style>
        <button id="save" onclick="external.window.title = this.textContent = 'Saved'">Save</button>
        <label>City <input id="city" value="Bern"></label>
        <input id="secret" type="password" aria-label="Secret"><input type="checkbox" id="box" aria-label="Box">
        <p id="gone">Gone</p><iframe srcdoc="<h1>Inside</h1>"></iframe>
        <script>city.oninput = function () { log.push(city.value); };
        if (location.search) document.title = 'Next';</script>)");
    const Object page = ObjectOf(PageWindow());
    ASSERT_TRUE(page);
    ASSERT_TRUE(PumpUntil([&] { return NameOf(page) == L"Page"; }));
    EXPECT_EQ(RoleOf(page), ROLE_SYSTEM_DOCUMENT);
    EXPECT_THAT(ValueOf(page), EndsWith(L"page.html"));
    HWND window = nullptr;
    EXPECT_EQ(WindowFromAccessibleObject(page.Get(), &window), S_OK);
    EXPECT_EQ(window, PageWindow());
    EXPECT_TRUE(Find(page, L"Inside", ROLE_SYSTEM_STATICTEXT));

    const EventLog events(PageWindow());
    const Object save = Find(page, L"Save", ROLE_SYSTEM_PUSHBUTTON);
    ASSERT_TRUE(save);
    const POINT middle = MiddleOf(L"save");
    Variant hit;
    EXPECT_EQ(page->accHitTest(middle.x, middle.y, hit.Receive()), S_OK);
    ASSERT_TRUE(hit.Is(VT_DISPATCH));
    EXPECT_EQ(Query<IAccessible>(hit.pdispVal), save);
    LONG left = 0, top = 0, width = 0, height = 0;
    EXPECT_EQ(save->accLocation(&left, &top, &width, &height, Self()), S_OK);
    EXPECT_LE(std::abs(left + width / 2 - middle.x) + std::abs(top + height / 2 - middle.y), 2);
    EXPECT_EQ(Get(save, &IAccessible::get_accDefaultAction), L"press");
    EXPECT_EQ(save->accDoDefaultAction(Self()), S_OK);
    EXPECT_TRUE(EventLog::Has(EVENT_OBJECT_NAMECHANGE, L"Saved"));
    EXPECT_EQ(NameOf(save), L"Saved");
    EXPECT_EQ(TextOf(Frame()), L"Saved");

    const Object city = Find(page, L"City", ROLE_SYSTEM_TEXT);
    ASSERT_TRUE(city);
    ClickAt(MiddleOf(L"city"));
    EXPECT_TRUE(EventLog::Has(EVENT_OBJECT_FOCUS, L"City"));
    PressKeys({VK_END});
    Type(L"e");
    EXPECT_TRUE(PumpUntil([&] { return ValueOf(city) == L"Berne"; }));
    EXPECT_TRUE(EventLog::Has(EVENT_OBJECT_VALUECHANGE, L"City"));
    Variant focus;
    EXPECT_EQ(page->get_accFocus(focus.Receive()), S_OK);
    ASSERT_TRUE(focus.Is(VT_DISPATCH));
    EXPECT_EQ(Query<IAccessible>(focus.pdispVal), city);
    EXPECT_EQ(city->put_accValue(Self(), Bstr(L"Basel").Get()), S_OK);
    EXPECT_TRUE(Becomes(L"log.join()", L"Berne,Basel"));

    const Object secret = Find(page, L"Secret", ROLE_SYSTEM_TEXT);
    ASSERT_TRUE(secret);
    EXPECT_EQ(secret->accSelect(SELFLAG_TAKEFOCUS, Self()), S_OK);
    EXPECT_TRUE(EventLog::Has(EVENT_OBJECT_FOCUS, L"Secret"));
    EXPECT_EQ(StateOf(secret) & (STATE_SYSTEM_PROTECTED | STATE_SYSTEM_FOCUSED),
              STATE_SYSTEM_PROTECTED | STATE_SYSTEM_FOCUSED);
    ClickAt(MiddleOf(L"box"));
    EXPECT_TRUE(EventLog::Has(EVENT_OBJECT_STATECHANGE, L"Box"));
    EXPECT_TRUE(StateOf(Find(page, L"Box", ROLE_SYSTEM_CHECKBUTTON)) & STATE_SYSTEM_CHECKED);

    const Object gone = Find(page, L"Gone", ROLE_SYSTEM_STATICTEXT);
    ASSERT_TRUE(gone);
    Evaluate(L"document.getElementById('gone').remove()");
    EXPECT_TRUE(EventLog::Has(EVENT_OBJECT_REORDER, L"Page"));
    EXPECT_EQ(gone->accDoDefaultAction(Self()), CO_E_OBJNOTCONNECTED);
    Evaluate(L"location = '?next'");
    EXPECT_TRUE(EventLog::Has(EVENT_OBJECT_REORDER, L"Next"));
    EXPECT_EQ(save->accDoDefaultAction(Self()), CO_E_OBJNOTCONNECTED);
}

// From another apartment, as screen readers call; also while a native call of the page waits for the user.
TEST_F(HostedPage, IsReadWhileItsScriptWaits) {
    Open(R"(<button onclick="alert('Wait'); this.textContent = 'Answered'">Ask</button>)");
    OnWorker([&] {
        const Object page = ObjectOf(PageWindow());
        Object ask;
        ASSERT_TRUE(WaitFor([&] { return (ask = Find(page, L"Ask", ROLE_SYSTEM_PUSHBUTTON)) != nullptr; }));
        EXPECT_EQ(ask->accDoDefaultAction(Self()), S_OK);
        ASSERT_TRUE(WaitFor([] { return !TopWindows(L"#32770").empty(); }));
        EXPECT_EQ(NameOf(ask), L"Ask");
        EXPECT_EQ(NameOf(page), L"Page");
        EXPECT_TRUE(Find(ObjectOf(PageWindow()), L"Ask", ROLE_SYSTEM_PUSHBUTTON));
        PostMessageW(TopWindows(L"#32770").front(), WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(WaitFor([&] { return NameOf(ask) == L"Answered"; }));
    });
}

TEST_F(HostedPage, LeavesNoObjectsToScreenReaders) {
    Open("<button>Press</button>");
    const long before = detail::liveComObjects;
    Object page = ObjectOf(PageWindow()), button;
    ASSERT_TRUE(
        PumpUntil([&] { return (button = Find(page, L"Press", ROLE_SYSTEM_PUSHBUTTON)) != nullptr; }));
    EXPECT_EQ(ObjectOf(PageWindow()), page) << "a node has one object";
    EXPECT_EQ(detail::liveComObjects - before, 2);
    DestroyWindow(Frame());
    EXPECT_EQ(NameOf(button), Widen(StatusText(CO_E_OBJNOTCONNECTED)));
    Variant state;
    EXPECT_EQ(page->get_accState(Self(), state.Receive()), CO_E_OBJNOTCONNECTED);
    const long held = detail::liveComObjects;
    button.Reset();
    page.Reset();
    EXPECT_EQ(held - detail::liveComObjects, 2);
}

}  // namespace
}  // namespace tarvik
