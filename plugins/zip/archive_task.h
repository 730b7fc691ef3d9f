#pragma once

#include <optional>

#include "plugins/zip/zip_plugin.h"
#include "tarvik/async_task.h"

namespace tarvik {

// A task of `minizip`. Only functions and objects are marshaled when it is created; the worker reads all
// other options from the script object itself, so scripts may change them after the call.
class ArchiveTask : public AsyncTask {
  public:
    ArchiveTask(IDispatch* plugin, const ScriptObject& options)
        : AsyncTask(options), plugin_(plugin), options_(options) {}

  protected:
    CZipPlugin& Plugin() const;
    const ScriptObject& Given() { return options_.Get(); }
    const VARIANT& Context() override;

  private:
    ComPtr<IDispatch> plugin_;  // used directly, without a proxy
    MarshaledObject options_;
    std::optional<Variant> plainContext_;
};

}  // namespace tarvik
