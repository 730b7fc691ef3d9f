#include "plugins/zip/archive_task.h"

namespace tarvik {

CZipPlugin& ArchiveTask::Plugin() const {
    const auto context = Query<IContext>(plugin_.Get());
    if (!context) throw StatusError(E_FAIL);
    return *static_cast<CZipPlugin*>(context->GetContext());
}

const VARIANT& ArchiveTask::Context() {
    const VARIANT& marshaled = AsyncTask::Context();
    if (marshaled.vt == VT_DISPATCH) return marshaled;
    if (!plainContext_) plainContext_ = Given().Get(L"context");
    return *plainContext_;
}

}  // namespace tarvik
