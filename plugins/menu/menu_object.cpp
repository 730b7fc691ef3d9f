#include "plugins/menu/menu_object.h"

#include <algorithm>

#include "app/log/log.h"
#include "base/text.h"
#include "plugins/menu/native_menu.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

constexpr Member<CMenuDispatch> kMembers[] = {
    Method<&CMenuDispatch::AppendMenu>(-10000, L"appendMenu"),
    Method<&CMenuDispatch::Popup, &CMenuDispatch::PopupAt>(-9999, L"popup"),
    Method<&CMenuDispatch::GetSubMenu>(-9998, L"getSubMenu"),
    Method<&CMenuDispatch::Enable>(-9997, L"enable"),
    ResultMethod<&CMenuDispatch::GetItemCount>(-9996, L"getItemCount"),
};
static_assert(IsInOrder(kMembers));

// By this a menu is known to be one of this class.
constexpr GUID kOwnClass = {0xA27C5B0E, 0x5D0C, 0x4B1B, {0x9E, 0x43, 0x1F, 0x70, 0x2B, 0x8C, 0x66, 0xD1}};

// One sequence for all menus of the process. A window passes on commands of its menu bar up to 3000; that is
// intended.
UINT NextCommandId() {
    static UINT next = 2000;
    return next++;
}

[[noreturn]] void RefuseItem(const wchar_t* reason, HRESULT status) {
    TARVIK_ERROR("CMenuDispatch::AddMenu", reason);
    throw StatusError(status);
}

}  // namespace

std::span<const Member<CMenuDispatch>> CMenuDispatch::Members() {
    return kMembers;
}

// The system destroys submenus with a menu, but here they belong to objects of their own. Those may end with
// it, and theirs with them, deeper than the stack is: so all that ends is let go of one after the other.
CMenuDispatch::~CMenuDispatch() {
    static std::map<UINT, Item> ending;
    static bool isEnding = false;
    EmptyMenu(menu_.Get());
    ending.merge(items_);
    if (std::exchange(isEnding, true)) return;
    while (!ending.empty())
        const auto item = ending.extract(ending.begin());
    isEnding = false;
}

void* CMenuDispatch::Find(REFIID iid) {
    return iid == kOwnClass ? this : Dispatch::Find(iid);
}

ComPtr<CMenuDispatch> CMenuDispatch::OwnMenu(IDispatch* object) {
    ComPtr<CMenuDispatch> menu;
    object->QueryInterface(kOwnClass, reinterpret_cast<void**>(menu.GetAddressOf()));
    return menu;
}

STDMETHODIMP CMenuDispatch::Init(HWND serverWindow, HWND mainWindow, int menuType) {
    serverWindow_ = serverWindow;
    mainWindow_ = mainWindow;
    type_ = menuType;
    menu_.Reset(menuType == TVK::kWindowMenu ? CreateMenu() : CreatePopupMenu());
    return menu_ ? S_OK : LastFailureStatus();
}

// Menus may nest as deep as script likes and share submenus: each is asked once, and without recursion.
STDMETHODIMP_(int) CMenuDispatch::Exec(UINT commandId) {
    bool isDone = false;
    (void)Guard([&] {
        std::vector<ComPtr<TVK::IMenu>> menus{ComPtr<TVK::IMenu>(this)};
        for (size_t i = 0; i < menus.size() && !isDone; ++i) {
            const auto own = OwnMenu(menus[i].Get());
            isDone = own ? own->RunItem(commandId) : menus[i]->Exec(commandId) == 0;
            if (own && !isDone) own->ListSubMenus(menus);
        }
    });
    return isDone ? 0 : 1;
}

// The function may drop script's last references, and append items.
bool CMenuDispatch::RunItem(UINT commandId) {
    const auto found = items_.find(commandId);
    if (found == items_.end()) return false;
    const ComPtr<IDispatch> function = found->second.target;
    const Variant context = Variant::Copy(found->second.context);
    if (context.Is(VT_EMPTY)) {
        CallScriptFunction(function.Get());
    } else {
        CallScriptFunction(function.Get(), {&context});
    }
    return true;
}

void CMenuDispatch::ListSubMenus(std::vector<ComPtr<TVK::IMenu>>& menus) const {
    for (const auto& [id, item] : items_) {
        if (!(item.flags & MF_POPUP)) continue;
        const auto menu = Query<TVK::IMenu>(item.target.Get());
        if (!menu) {
            TARVIK_ERROR("CMenuDispatch::Exec", L"Query SubMenu failed.");
        } else if (std::ranges::find(menus, menu.Get(), &ComPtr<TVK::IMenu>::Get) == menus.end()) {
            menus.push_back(menu);
        }
    }
}

bool CMenuDispatch::AppendMenu(IDispatch* options) {
    const UINT id = NextCommandId();
    return FAILED(Guard([&] { Append(id, Options(options)); }));
}

// Reading the options may run script, which may append to this menu, too: the menu itself comes last.
void CMenuDispatch::Append(UINT id, const Options& options) {
    Item item;
    if (options.Flag(L"gray")) item.flags |= MF_GRAYED;
    if (options.Flag(L"separator")) item.flags |= MF_SEPARATOR;
    const bool isSeparator = (item.flags & MF_SEPARATOR) != 0;
    const auto subMenu = options.Object(L"subMenu");
    item.name = options.Text(L"name").value_or(L"");
    if (item.name.empty() && !isSeparator) RefuseItem(L"Menu name empty.", E_FAIL);
    UINT_PTR opens = id;
    if (subMenu) {
        item.flags |= MF_POPUP;
        item.target = subMenu;
        opens = reinterpret_cast<UINT_PTR>(HandleOf(subMenu.Get()));
    } else {
        item.target = options.Function(L"callback");
        if (item.target) item.context = options.Value(L"context");
        if (!item.target && !isSeparator) item.flags |= MF_GRAYED;
    }
    // What the system refuses is an item all the same, at no position; that is intended.
    if (::AppendMenuW(menu_.Get(), item.flags, opens, item.name.c_str()))
        item.position = ::GetMenuItemCount(menu_.Get()) - 1;
    items_.emplace(id, std::move(item));
}

// The system cannot bear a menu that is in itself, and its object would never end.
HMENU CMenuDispatch::HandleOf(IDispatch* subMenu) const {
    const auto menu = Query<TVK::IMenu>(subMenu);
    if (!menu) RefuseItem(L"Query SubMenu failed.", E_INVALIDARG);
    const HMENU handle = menu->GetMenu();
    if (!handle) RefuseItem(L"Get SubMenu handle failed.", E_FAIL);
    if (IsInMenu(handle, menu_.Get())) RefuseItem(L"SubMenu contains the menu.", E_INVALIDARG);
    return handle;
}

bool CMenuDispatch::Popup() {
    POINT point = {};
    GetCursorPos(&point);
    return Show(point);
}

bool CMenuDispatch::PopupAt(AnyInt32 x, AnyInt32 y) {
    POINT point = {x.value, y.value};
    ClientToScreen(serverWindow_, &point);
    return Show(point);
}

bool CMenuDispatch::Show(POINT point) {
    if (type_ == TVK::kWindowMenu || ::GetMenuItemCount(menu_.Get()) <= 0) return false;
    // Without both a menu of a tray icon would not go when the user clicks elsewhere.
    if (type_ == TVK::kTrayMenu) SetForegroundWindow(mainWindow_);
    const UINT chosen = TrackMenu(menu_.Get(), point, serverWindow_);
    if (type_ == TVK::kTrayMenu) PostMessageW(nullptr, WM_NULL, 0, 0);
    if (chosen) Exec(chosen);
    return true;
}

Variant CMenuDispatch::GetSubMenu(BSTR name) {
    if (Bstr::View(name).empty()) throw StatusError(E_INVALIDARG);
    const Item* const item = FindItem(name, MF_POPUP);
    return item ? Variant::Object(item->target.Get()) : Variant();
}

bool CMenuDispatch::Enable(BSTR name, bool on) {
    Item* const item = Bstr::View(name).empty() ? nullptr : FindItem(name, 0);
    if (!item) return false;
    item->flags = on ? item->flags & ~MF_GRAYED : item->flags | MF_GRAYED;
    // By position, because the system does not know an item that opens a menu by its command.
    EnableMenuItem(menu_.Get(), static_cast<UINT>(item->position),
                   MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
    if (type_ == TVK::kWindowMenu) DrawMenuBar(mainWindow_);
    return true;
}

Integer CMenuDispatch::GetItemCount() {
    return {::GetMenuItemCount(menu_.Get())};
}

// The first one appended that has the name, in any case of letters, and these flags.
CMenuDispatch::Item* CMenuDispatch::FindItem(BSTR name, UINT flags) {
    const auto found = std::ranges::find_if(items_, [&](const auto& entry) {
        const Item& item = entry.second;
        return (item.flags & flags) == flags && SameIgnoringCase(item.name, Bstr::View(name));
    });
    return found == items_.end() ? nullptr : &found->second;
}

}  // namespace tarvik
