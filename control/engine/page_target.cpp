#include "control/engine/devtools.h"

namespace tarvik {

// The first control takes the page that the engine started with. Later ones need windows of their own: pages
// that share one get no frames while they are behind.
PageTarget::PageTarget(std::shared_ptr<DevTools> devtools) : devtools_(std::move(devtools)) {
    id_ = devtools_->TakeFirstPage();
    if (id_.empty()) {
        id_ = devtools_->Call("", "Target.createTarget", {{"url", "about:blank"}, {"newWindow", true}})
                  .at("targetId");
    }
    session_ =
        devtools_->Call("", "Target.attachToTarget", {{"targetId", id_}, {"flatten", true}}).at("sessionId");
}

PageTarget::~PageTarget() {
    devtools_->Listen(session_, nullptr);
    devtools_->ListenToFrames(session_, nullptr);
    devtools_->Post("", "Target.closeTarget", {{"targetId", id_}});
}

}  // namespace tarvik
