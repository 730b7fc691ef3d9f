#include "page_control/engine/devtools.h"

namespace tarvik {

PageTarget::PageTarget(std::shared_ptr<DevTools> devtools) : devtools_(std::move(devtools)) {
    id_ = devtools_->OpenPage();
    try {
        session_ = devtools_->Call("", "Target.attachToTarget", {{"targetId", id_}, {"flatten", true}})
                       .at("sessionId");
    } catch (...) {
        devtools_->ClosePage(id_);
        throw;
    }
    devtools_->Listen(session_, [events = events_](std::string_view method, const Json& params) {
        events->Dispatch(method, params);
    });
}

PageTarget::~PageTarget() {
    devtools_->Listen(session_, nullptr);
    devtools_->ListenToFrames(session_, nullptr);
    // A page that is paused by the debugger would not close.
    devtools_->Post("", "Target.detachFromTarget", {{"sessionId", session_}});
    devtools_->ClosePage(id_);
}

}  // namespace tarvik
