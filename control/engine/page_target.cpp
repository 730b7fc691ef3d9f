#include "control/engine/devtools.h"

namespace tarvik {

PageTarget::PageTarget(std::shared_ptr<DevTools> devtools) : devtools_(std::move(devtools)) {
    id_ = devtools_->OpenPage();
    session_ =
        devtools_->Call("", "Target.attachToTarget", {{"targetId", id_}, {"flatten", true}}).at("sessionId");
}

PageTarget::~PageTarget() {
    devtools_->Listen(session_, nullptr);
    devtools_->ListenToFrames(session_, nullptr);
    devtools_->ClosePage(id_);
}

}  // namespace tarvik
