#include "plugins/fileio/transfer_task.h"

#include "plugins/fileio/chunk_notifier.h"
#include "plugins/fileio/transfer.h"
#include "tarvik/script_object.h"

namespace tarvik {

namespace {

// By design only VT_UI4 is accepted. A page passes a BigInt or, in the system's control, a number from a
// native object, such as the result of a stream's readUInt32.
ULONG LengthIn(const ScriptObject& options) {
    const Variant length = options.Get(L"len");
    if (!length.Is(VT_UI4) || length.ulVal == 0) throw StatusError(E_INVALIDARG);
    return length.ulVal;
}

ComPtr<TVK::IStream> SourceIn(const ScriptObject& options) {
    return Query<TVK::IStream>(ObjectIn(options.Get(L"src")).Get());
}

}  // namespace

TransferTask::TransferTask(const ScriptObject& options, std::shared_ptr<SharedFile> file)
    : AsyncTask(options), file_(std::move(file)), length_(LengthIn(options)) {}

void TransferTask::CancelIfFalse(const Variant& result) {
    if (IsFalse(result)) throw StatusError(E_ABORT);
}

ReadTask::ReadTask(const ScriptObject& options, std::shared_ptr<SharedFile> file)
    : TransferTask(options, std::move(file)) {
    if (SourceIn(options)) throw StatusError(E_INVALIDARG);
    if (const ScriptObject progress = options.Function(L"progress"))
        chunkNotifier_ = MarshaledObject(MakeCom<ChunkNotifier>(progress, options.Get(L"context")).Get());
}

HRESULT ReadTask::Work() {
    const ScriptObject& notify = chunkNotifier_.Get();
    ReadFileChunks(File(), Length(), [&](const std::uint8_t* chunk, DWORD count) {
        if (!notify) return;
        CancelIfFalse(notify(Variant::I8(reinterpret_cast<LONGLONG>(chunk)), Variant::UI4(count)));
    });
    return S_OK;
}

WriteTask::WriteTask(const ScriptObject& options, std::shared_ptr<SharedFile> file)
    : TransferTask(options, std::move(file)), source_(SourceIn(options)) {
    if (!source_) throw StatusError(E_INVALIDARG);
}

HRESULT WriteTask::Work() {
    const ScriptObject& progress = Progress();
    ReadStreamChunks(*source_.Get(), Length(), [&](const std::uint8_t* chunk, DWORD, DWORD wanted) {
        // By design a chunk is written in full even if the stream has fewer bytes.
        if (File().Write(chunk, wanted) < wanted) throw StatusError(HRESULT_FROM_WIN32(ERROR_DISK_FULL));
        if (progress) CancelIfFalse(progress(Context()));
    });
    return S_OK;
}

}  // namespace tarvik
