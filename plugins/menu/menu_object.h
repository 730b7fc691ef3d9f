#pragma once

#include <map>
#include <string>
#include <vector>

#include "tarvik/owners.h"
#include "tarvik/variant.h"
#include "tarvik/menu.h"
#include "script/dispatch.h"
#include "tarvik/options.h"

namespace tarvik {

// A menu that script builds. It lives as long as script, a window or a menu that it is in holds it; items
// stay for its life. No menu is ever in itself.
class CMenuDispatch : public TableDispatch<CMenuDispatch, As<TVK::IMenu, IDispatch, TVK::IMenu>> {
  public:
    ~CMenuDispatch() override;

    static constexpr char kClassName[] = "CMenuDispatch";
    static std::span<const Member<CMenuDispatch>> Members();

    STDMETHODIMP Init(HWND serverWindow, HWND mainWindow, int menuType) override;
    STDMETHODIMP_(HMENU) GetMenu() override { return menu_.Get(); }
    STDMETHODIMP_(int) Exec(UINT commandId) override;

    // False is success; that is intended.
    bool AppendMenu(IDispatch* options);
    // At a point of the page, or where the pointer is. Returns when the menu has gone, and the item's
    // function has come to its end.
    bool Popup();
    bool PopupAt(AnyInt32 x, AnyInt32 y);
    Variant GetSubMenu(BSTR name);
    bool Enable(BSTR name, bool on);
    Integer GetItemCount();

  protected:
    void* Find(REFIID iid) override;

  private:
    struct Item {
        std::wstring name;         // a separator needs none
        UINT flags = 0;            // MF_GRAYED, MF_POPUP, MF_SEPARATOR
        ComPtr<IDispatch> target;  // the function, or the submenu's object
        Variant context;           // empty: the function gets no argument
        int position = -1;
    };

    static ComPtr<CMenuDispatch> OwnMenu(IDispatch* object);

    void Append(UINT id, const Options& options);
    HMENU HandleOf(IDispatch* subMenu) const;
    bool Show(POINT point);
    bool RunItem(UINT commandId);
    void ListSubMenus(std::vector<ComPtr<TVK::IMenu>>& menus) const;
    Item* FindItem(BSTR name, UINT flags);

    HWND serverWindow_ = nullptr;
    HWND mainWindow_ = nullptr;
    int type_ = TVK::kPopupMenu;
    UniqueMenu menu_;
    std::map<UINT, Item> items_;
};

}  // namespace tarvik
