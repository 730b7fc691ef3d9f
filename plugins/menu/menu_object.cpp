#include "plugins/menu/menu_object.h"

#include <algorithm>

#include "app/log/log.h"
#include "base/text.h"
#include "host/plugin_registry/window_numbers.h"
#include "plugins/menu/native_menu.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

constexpr Member<CMenuDispatch> kMembers[] = {
    Method<&CMenuDispatch::AppendMenu>(L"appendMenu", -10000),
    Method<&CMenuDispatch::Popup, &CMenuDispatch::PopupAt>(L"popup", -9999),
    Method<&CMenuDispatch::GetSubMenu>(L"getSubMenu", -9998),
    Method<&CMenuDispatch::Enable>(L"enable", -9997),
    ResultMethod<&CMenuDispatch::GetItemCount>(L"getItemCount", -9996),
};
static_assert(IsInOrder(kMembers));

// QueryInterface recognises objects of this class by this identifier.
constexpr GUID kClassId = {0xA27C5B0E, 0x5D0C, 0x4B1B, {0x9E, 0x43, 0x1F, 0x70, 0x2B, 0x8C, 0x66, 0xD1}};

// One sequence for all menus of the process. By design it does not stop at kLastMenuCommand.
UINT NextCommandId() {
    static UINT next = kFirstMenuCommand;
    return next++;
}

[[noreturn]] void RejectItem(const wchar_t* reason, HRESULT status) {
    TARVIK_ERROR("CMenuDispatch::AddMenu", reason);
    throw StatusError(status);
}

}  // namespace

std::span<const Member<CMenuDispatch>> CMenuDispatch::Members() {
    return kMembers;
}

// DestroyMenu would destroy the submenus, which belong to objects of their own. Releasing an item may destroy
// its submenu's object, and so on, too deep for recursion: the outermost destructor releases all items in
// turn.
CMenuDispatch::~CMenuDispatch() {
    static std::map<UINT, Item> pending;
    static bool isReleasing = false;
    RemoveAllItems(menu_.Get());
    pending.merge(items_);
    if (std::exchange(isReleasing, true)) return;
    while (!pending.empty())
        const auto item = pending.extract(pending.begin());
    isReleasing = false;
}

void* CMenuDispatch::FindInterface(REFIID iid) {
    return iid == kClassId ? this : Dispatch::FindInterface(iid);
}

ComPtr<CMenuDispatch> CMenuDispatch::AsMenuDispatch(IDispatch* object) {
    ComPtr<CMenuDispatch> menu;
    object->QueryInterface(kClassId, reinterpret_cast<void**>(menu.GetAddressOf()));
    return menu;
}

STDMETHODIMP CMenuDispatch::Init(HWND serverWindow, HWND mainWindow, int menuType) {
    serverWindow_ = serverWindow;
    mainWindow_ = mainWindow;
    type_ = menuType;
    menu_.Reset(menuType == TVK::kWindowMenu ? CreateMenu() : CreatePopupMenu());
    return menu_ ? S_OK : LastFailureStatus();
}

// Menus may share submenus and nest too deep for recursion. Each is searched once.
STDMETHODIMP_(int) CMenuDispatch::Exec(UINT commandId) {
    bool isDone = false;
    (void)Guard([&] {
        std::vector<ComPtr<TVK::IMenu>> menus{ComPtr<TVK::IMenu>(this)};
        for (size_t i = 0; i < menus.size() && !isDone; ++i) {
            const auto own = AsMenuDispatch(menus[i].Get());
            isDone = own ? own->RunItem(commandId) : menus[i]->Exec(commandId) == 0;
            if (own && !isDone) own->AddSubMenus(menus);
        }
    });
    return isDone ? 0 : 1;
}

// The function may release this menu and append items.
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

void CMenuDispatch::AddSubMenus(std::vector<ComPtr<TVK::IMenu>>& menus) const {
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
    return FAILED(Guard([&] { Append(id, options); }));
}

// Reading the options may run a script that appends to this menu, so the menu is changed last.
void CMenuDispatch::Append(UINT id, const ScriptObject& options) {
    Item item;
    if (options.Get<bool>(L"gray", false)) item.flags |= MF_GRAYED;
    if (options.Get<bool>(L"separator", false)) item.flags |= MF_SEPARATOR;
    const bool isSeparator = (item.flags & MF_SEPARATOR) != 0;
    const ComPtr<IDispatch> subMenu = ObjectIn(options.Get(L"subMenu"));
    item.name = options.Get<std::wstring>(L"name", {});
    if (item.name.empty() && !isSeparator) RejectItem(L"Menu name empty.", E_FAIL);
    UINT_PTR idOrSubMenu = id;
    if (subMenu) {
        item.flags |= MF_POPUP;
        item.target = subMenu;
        idOrSubMenu = reinterpret_cast<UINT_PTR>(SubMenuHandle(subMenu.Get()));
    } else {
        item.target = options.Function(L"callback").AsDispatch();
        if (item.target) item.context = options.Get(L"context");
        if (!item.target && !isSeparator) item.flags |= MF_GRAYED;
    }
    // By design an item that the system rejects is stored without a position.
    if (::AppendMenuW(menu_.Get(), item.flags, idOrSubMenu, item.name.c_str()))
        item.position = ::GetMenuItemCount(menu_.Get()) - 1;
    items_.emplace(id, std::move(item));
}

// The system cannot handle a menu that contains itself, and the object would never be destroyed.
HMENU CMenuDispatch::SubMenuHandle(IDispatch* subMenu) const {
    const auto menu = Query<TVK::IMenu>(subMenu);
    if (!menu) RejectItem(L"Query SubMenu failed.", E_INVALIDARG);
    const HMENU handle = menu->GetMenu();
    if (!handle) RejectItem(L"Get SubMenu handle failed.", E_FAIL);
    if (ContainsMenu(handle, menu_.Get())) RejectItem(L"SubMenu contains the menu.", E_INVALIDARG);
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
    // Without both calls the menu of a tray icon would stay open when the user clicks elsewhere.
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
    // By position: an item that opens a submenu has no command id.
    EnableMenuItem(menu_.Get(), static_cast<UINT>(item->position),
                   MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED));
    if (type_ == TVK::kWindowMenu) DrawMenuBar(mainWindow_);
    return true;
}

int CMenuDispatch::GetItemCount() {
    return ::GetMenuItemCount(menu_.Get());
}

// The first item with the name, ignoring case, and these flags.
CMenuDispatch::Item* CMenuDispatch::FindItem(BSTR name, UINT flags) {
    const auto found = std::ranges::find_if(items_, [&](const auto& entry) {
        const Item& item = entry.second;
        return (item.flags & flags) == flags && EqualsIgnoreCase(item.name, Bstr::View(name));
    });
    return found == items_.end() ? nullptr : &found->second;
}

}  // namespace tarvik
