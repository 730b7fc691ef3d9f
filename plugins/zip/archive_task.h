#pragma once

#include <optional>

#include "plugins/zip/zip_plugin.h"
#include "tarvik/async_task.h"

namespace tarvik {

// A run of `minizip`. Only its functions and objects are taken along; all other options are read by the
// worker, from the script object itself. So script may still change them after the call.
class ArchiveTask : public AsyncTask {
  public:
    ArchiveTask(IDispatch* plugin, const Options& options)
        : AsyncTask(options), plugin_(plugin), options_(options.Given()) {}

  protected:
    CZipPlugin& Plugin() const;
    Options Given() { return Options(options_.Get()); }
    const VARIANT& Context() override;

  private:
    ComPtr<IDispatch> plugin_;  // itself, with no proxy; it lives at least as long as the run
    MarshaledObject options_;
    std::optional<Variant> plainContext_;
};

}  // namespace tarvik
