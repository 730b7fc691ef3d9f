#include "plugins/menu/native_menu.h"

#include <algorithm>
#include <set>
#include <vector>

namespace tarvik {

namespace {

// A point beside all monitors comes to the nearest one, from the side only.
POINT OnMonitor(POINT point) {
    if (MonitorFromPoint(point, MONITOR_DEFAULTTONULL)) return point;
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &monitor))
        point.x = std::clamp(point.x, monitor.rcWork.left, monitor.rcWork.right);
    return point;
}

}  // namespace

// Each menu is looked into once: they may nest as deep as script likes, and share others.
bool IsInMenu(HMENU menu, HMENU wanted) {
    std::vector<HMENU> open{menu};
    std::set<HMENU> known{menu};
    while (!open.empty()) {
        const HMENU next = open.back();
        open.pop_back();
        if (next == wanted) return true;
        for (int i = GetMenuItemCount(next); i-- > 0;) {
            const HMENU inner = GetSubMenu(next, i);
            if (inner && known.insert(inner).second) open.push_back(inner);
        }
    }
    return false;
}

void EmptyMenu(HMENU menu) {
    for (int i = GetMenuItemCount(menu); i-- > 0;)
        RemoveMenu(menu, static_cast<UINT>(i), MF_BYPOSITION);
}

UINT TrackMenu(HMENU menu, POINT point, HWND owner) {
    const POINT place = OnMonitor(point);
    return static_cast<UINT>(
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, place.x, place.y, 0, owner, nullptr));
}

}  // namespace tarvik
