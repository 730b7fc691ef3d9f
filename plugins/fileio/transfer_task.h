#pragma once

#include <initializer_list>
#include <memory>

#include "tarvik/stream.h"
#include "plugins/fileio/shared_file.h"
#include "tarvik/async_task.h"

namespace tarvik {

// A run of `readAsync` or `writeAsync`. It shares the file with the plug-in object, and nothing else: that
// and its window are the main thread's.
class TransferTask : public AsyncTask {
  protected:
    // Throws E_INVALIDARG for a `len` that is absent, 0 or of another kind than VT_UI4.
    TransferTask(const Options& options, std::shared_ptr<SharedFile> file);

    SharedFile& File() { return *file_; }
    ULONG Length() const { return length_; }

    // Tells script that a piece has been moved, and ends the run (throws) if that fails or answers false.
    static void Report(IDispatch* function, std::initializer_list<const VARIANT*> arguments);

  private:
    std::shared_ptr<SharedFile> file_;
    ULONG length_;
};

// Gives each piece to `progress` as a stream of its own. Without the function the bytes are read and dropped.
class ReadTask : public TransferTask {
  public:
    ReadTask(const Options& options, std::shared_ptr<SharedFile> file);

  private:
    HRESULT Work() override;

    MarshaledObject teller_;  // in place of `progress`
};

// Writes from the stream `src`, which nobody else may use until the run has ended.
class WriteTask : public TransferTask {
  public:
    WriteTask(const Options& options, std::shared_ptr<SharedFile> file);

  private:
    HRESULT Work() override;

    ComPtr<TVK::IStream> source_;
};

}  // namespace tarvik
