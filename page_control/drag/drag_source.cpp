#include "page_control/drag/drag_source.h"

#include <ole2.h>

#include <utility>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

namespace {

class DropSource : public ComObject<IDropSource> {
  public:
    DropSource(const DragImage& image, std::function<bool()> hasPage)
        : image_(image), hasPage_(std::move(hasPage)) {}

    STDMETHODIMP QueryContinueDrag(BOOL escape, DWORD keys) override {
        image_.Follow();
        if (escape || !hasPage_()) return DRAGDROP_S_CANCEL;
        return keys & MK_LBUTTON ? S_OK : DRAGDROP_S_DROP;
    }
    STDMETHODIMP GiveFeedback(DWORD) override {
        image_.Follow();
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }

  private:
    const DragImage& image_;
    const std::function<bool()> hasPage_;
};

}  // namespace

DWORD RunDrag(IDataObject* data, DWORD allowedEffects, const DragImage& image,
              std::function<bool()> hasPage) {
    const auto source = MakeCom<DropSource>(image, std::move(hasPage));
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT status = DoDragDrop(data, source.Get(), allowedEffects, &effect);
    return status == DRAGDROP_S_DROP ? effect : DROPEFFECT_NONE;
}

}  // namespace tarvik
