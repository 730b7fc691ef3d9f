#pragma once

#include <windows.h>
#include <oleidl.h>

#include <functional>

#include "page_control/engine/parameters.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// Drags that come over a page. Points are those of the screen.
class DropReceiver {
  public:
    virtual ~DropReceiver() = default;
    virtual void OnDragEnter(const Json& dragData, POINT screen) = 0;
    // The effect that the page has chosen; none if it does not accept the data.
    virtual DWORD OnDragOver(POINT screen) = 0;
    virtual void OnDragLeave() = 0;
    virtual void OnDrop(POINT screen) = 0;
};

// The drop target of a page's window. The site's target, if any, comes first, except for what pages drag: it
// knows of elements that accept files. The page gets what the site rejects.
class DropTarget : public ComObject<IDropTarget> {
  public:
    DropTarget(ComPtr<IDropTarget> site, std::function<DropReceiver*()> page);

    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragLeave() override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;

  private:
    DWORD OverPage(POINTL point, DWORD allowed);
    void LeavePage();

    const ComPtr<IDropTarget> site_;
    const std::function<DropReceiver*()> page_;  // null without one
    Json data_;
    bool asksSite_ = false;
    bool isOverSite_ = false;  // the site accepts the data where the pointer is
    bool isOverPage_ = false;  // the page has got the data, and no end of it
};

}  // namespace tarvik
