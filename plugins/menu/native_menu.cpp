#include "plugins/menu/native_menu.h"

#include <algorithm>
#include <set>
#include <vector>

namespace tarvik {

namespace {

// Moves a point outside all monitors to the nearest one, horizontally only.
POINT OnMonitor(POINT point) {
    if (MonitorFromPoint(point, MONITOR_DEFAULTTONULL)) return point;
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &monitor))
        point.x = std::clamp(point.x, monitor.rcWork.left, monitor.rcWork.right);
    return point;
}

}  // namespace

// Searches each menu once and without recursion: menus may share submenus and nest deeply.
bool ContainsMenu(HMENU menu, HMENU wanted) {
    std::vector<HMENU> pending{menu};
    std::set<HMENU> known{menu};
    while (!pending.empty()) {
        const HMENU next = pending.back();
        pending.pop_back();
        if (next == wanted) return true;
        for (int i = GetMenuItemCount(next); i-- > 0;) {
            const HMENU inner = GetSubMenu(next, i);
            if (inner && known.insert(inner).second) pending.push_back(inner);
        }
    }
    return false;
}

void RemoveAllItems(HMENU menu) {
    for (int i = GetMenuItemCount(menu); i-- > 0;)
        RemoveMenu(menu, static_cast<UINT>(i), MF_BYPOSITION);
}

UINT TrackMenu(HMENU menu, POINT point, HWND owner) {
    const POINT place = OnMonitor(point);
    return static_cast<UINT>(
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, place.x, place.y, 0, owner, nullptr));
}

}  // namespace tarvik
