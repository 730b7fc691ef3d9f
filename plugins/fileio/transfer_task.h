#pragma once

#include <memory>

#include "plugins/fileio/shared_file.h"
#include "tarvik/async_task.h"
#include "tarvik/stream.h"

namespace tarvik {

// `readAsync` or `writeAsync`. It shares only the file with the plug-in object, which belongs to the main
// thread.
class TransferTask : public AsyncTask {
  protected:
    // Throws E_INVALIDARG if `len` is absent, 0 or not VT_UI4.
    TransferTask(const ScriptObject& options, std::shared_ptr<SharedFile> file);

    SharedFile& File() { return *file_; }
    ULONG Length() const { return length_; }

    // Throws E_ABORT if `progress` returned false.
    static void CancelIfFalse(const Variant& result);

  private:
    std::shared_ptr<SharedFile> file_;
    ULONG length_;
};

// Passes each chunk to `progress` as a new stream. Without the function the bytes are read and discarded.
class ReadTask : public TransferTask {
  public:
    ReadTask(const ScriptObject& options, std::shared_ptr<SharedFile> file);

  private:
    HRESULT Work() override;

    MarshaledObject chunkNotifier_;  // calls `progress`
};

// Writes from the stream `src`, which must not be used elsewhere until the task has ended.
class WriteTask : public TransferTask {
  public:
    WriteTask(const ScriptObject& options, std::shared_ptr<SharedFile> file);

  private:
    HRESULT Work() override;

    ComPtr<TVK::IStream> source_;
};

}  // namespace tarvik
