#pragma once

#include <functional>
#include <string>

#include "atl/module.h"
#include "page_control/page/register.h"
#include "tests/soak/browser_window.h"
#include "tests/soak/resource_monitor.h"
#include "tests/support/temp_folder.h"

namespace tarvik {

// The base of soak tests whose windows have the page control in this process.
class PageSoak {
  public:
    PageSoak(const PageSoak&) = delete;
    PageSoak& operator=(const PageSoak&) = delete;

  protected:
    PageSoak() { appModule.AddMessageLoop(&loop_); }
    ~PageSoak() { appModule.RemoveMessageLoop(); }

    // Calls `soak` while the page of another window, which does nothing, is watched.
    bool RunBesideAnIdlePage(const std::function<bool(const BrowserWindow& idle)>& soak);

    // Cancels the visible dialogs, and reports each.
    static void CancelDialogs(const std::function<void(HWND dialog)>& report = {});

    const TempFolder folder_;
    ResourceMonitor monitor_;
    const PageControlClass control_;

  private:
    CMessageLoop loop_;
};

}  // namespace tarvik
