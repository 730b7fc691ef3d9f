#pragma once

#include <map>
#include <string>
#include <vector>

#include "script/dispatch.h"
#include "tarvik/menu.h"
#include "tarvik/owners.h"
#include "tarvik/script_object.h"
#include "tarvik/variant.h"

namespace tarvik {

// A menu that a page builds. Scripts, windows and the menus that contain it hold references. Items cannot be
// removed, and no menu contains itself.
class CMenuDispatch : public TableDispatch<CMenuDispatch, As<TVK::IMenu, IDispatch, TVK::IMenu>> {
  public:
    ~CMenuDispatch() override;

    static constexpr char kClassName[] = "CMenuDispatch";
    static std::span<const Member<CMenuDispatch>> Members();

    STDMETHODIMP Init(HWND serverWindow, HWND mainWindow, int menuType) override;
    STDMETHODIMP_(HMENU) GetMenu() override { return menu_.Get(); }
    STDMETHODIMP_(int) Exec(UINT commandId) override;

    // Returns false for success; required by the contract.
    bool AppendMenu(IDispatch* options);
    // Show the menu at the pointer or at a point of the page. They return after the menu has closed and the
    // function of the chosen item has returned.
    bool Popup();
    bool PopupAt(AnyInt32 x, AnyInt32 y);
    Variant GetSubMenu(BSTR name);
    bool Enable(BSTR name, bool on);
    int GetItemCount();

  protected:
    void* FindInterface(REFIID iid) override;

  private:
    struct Item {
        std::wstring name;         // may be empty for a separator
        UINT flags = 0;            // MF_GRAYED, MF_POPUP, MF_SEPARATOR
        ComPtr<IDispatch> target;  // the function, or the submenu's object
        Variant context;           // if VT_EMPTY, the function gets no argument
        int position = -1;
    };

    static ComPtr<CMenuDispatch> AsMenuDispatch(IDispatch* object);

    void Append(UINT id, const ScriptObject& options);
    HMENU SubMenuHandle(IDispatch* subMenu) const;
    bool Show(POINT point);
    bool RunItem(UINT commandId);
    void AddSubMenus(std::vector<ComPtr<TVK::IMenu>>& menus) const;
    Item* FindItem(BSTR name, UINT flags);

    HWND serverWindow_ = nullptr;
    HWND mainWindow_ = nullptr;
    int type_ = TVK::kPopupMenu;
    UniqueMenu menu_;
    std::map<UINT, Item> items_;
};

}  // namespace tarvik
