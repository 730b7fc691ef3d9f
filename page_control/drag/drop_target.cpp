#include "page_control/drag/drop_target.h"

#include <utility>

#include "page_control/drag/drag_data.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

POINT PointOf(POINTL point) {
    return {point.x, point.y};
}

}  // namespace

DropTarget::DropTarget(ComPtr<IDropTarget> site, std::function<DropReceiver*()> page)
    : site_(std::move(site)), page_(std::move(page)) {}

STDMETHODIMP DropTarget::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    if (!data || !effect) return E_POINTER;
    return Guard([&] {
        isOverSite_ = isOverPage_ = false;
        asksSite_ = site_ && !IsPageData(data);
        data_ = FromDataObject(data, *effect);
        const DWORD allowed = *effect;
        if (asksSite_) site_->DragEnter(data, keys, point, effect);
        *effect = allowed;
        return DragOver(keys, point, effect);
    });
}

STDMETHODIMP DropTarget::DragOver(DWORD keys, POINTL point, DWORD* effect) {
    if (!effect) return E_POINTER;
    const ComPtr<IUnknown> keepAlive(AsUnknown());  // calls into the page may destroy its window
    return Guard([&] {
        const DWORD allowed = *effect;
        isOverSite_ =
            asksSite_ && SUCCEEDED(site_->DragOver(keys, point, effect)) && *effect != DROPEFFECT_NONE;
        if (isOverSite_) return LeavePage();
        *effect = OverPage(point, allowed);
    });
}

DWORD DropTarget::OverPage(POINTL point, DWORD allowed) {
    auto* const page = page_();
    const bool isEmpty = data_.at("items").empty() && data_.at("files").empty();
    if (!page || isEmpty) return DROPEFFECT_NONE;
    if (!std::exchange(isOverPage_, true)) page->OnDragEnter(data_, PointOf(point));
    return page->OnDragOver(PointOf(point)) & allowed;
}

void DropTarget::LeavePage() {
    auto* const page = page_();
    if (std::exchange(isOverPage_, false) && page) page->OnDragLeave();
}

STDMETHODIMP DropTarget::DragLeave() {
    return Guard([&] {
        LeavePage();
        if (asksSite_) site_->DragLeave();
    });
}

STDMETHODIMP DropTarget::Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    if (!data || !effect) return E_POINTER;
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    if (isOverSite_) return site_->Drop(data, keys, point, effect);
    return Guard([&] {
        *effect = OverPage(point, *effect);
        if (*effect == DROPEFFECT_NONE) return LeavePage();
        isOverPage_ = false;
        if (auto* const page = page_()) page->OnDrop(PointOf(point));
    });
}

}  // namespace tarvik
