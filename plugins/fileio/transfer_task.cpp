#include "plugins/fileio/transfer_task.h"

#include "plugins/fileio/chunk_teller.h"
#include "plugins/fileio/transfer.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

// A number of any other type is refused by design. A page passes a BigInt, or on the system's control a
// number from a native source, such as readUInt32 of a stream.
ULONG LengthIn(const Options& options) {
    const Variant length = options.Value(L"len");
    if (!length.Is(VT_UI4) || length.ulVal == 0) throw StatusError(E_INVALIDARG);
    return length.ulVal;
}

ComPtr<TVK::IStream> SourceIn(const Options& options) {
    return Query<TVK::IStream>(options.Object(L"src").Get());
}

}  // namespace

TransferTask::TransferTask(const Options& options, std::shared_ptr<SharedFile> file)
    : AsyncTask(options), file_(std::move(file)), length_(LengthIn(options)) {}

void TransferTask::Report(IDispatch* function, std::initializer_list<const VARIANT*> arguments) {
    Variant answer;
    ThrowIfFailed(CallScriptFunction(function, arguments, &answer));
    if (IsFalse(answer)) throw StatusError(E_ABORT);
}

ReadTask::ReadTask(const Options& options, std::shared_ptr<SharedFile> file)
    : TransferTask(options, std::move(file)) {
    if (SourceIn(options)) throw StatusError(E_INVALIDARG);
    if (auto progress = options.Function(L"progress"))
        teller_ = MarshaledObject(MakeCom<ChunkTeller>(std::move(progress), options.Value(L"context")).Get());
}

HRESULT ReadTask::Work() {
    IDispatch* const teller = teller_.Get();
    ReadPieces(File(), Length(), [&](const std::uint8_t* piece, DWORD count) {
        if (!teller) return;
        const Variant address = Variant::I8(reinterpret_cast<LONGLONG>(piece));
        const Variant size = Variant::UI4(count);
        Report(teller, {&address, &size});
    });
    return S_OK;
}

WriteTask::WriteTask(const Options& options, std::shared_ptr<SharedFile> file)
    : TransferTask(options, std::move(file)), source_(SourceIn(options)) {
    if (!source_) throw StatusError(E_INVALIDARG);
}

HRESULT WriteTask::Work() {
    TakePieces(*source_.Get(), Length(), [this](const std::uint8_t* piece, DWORD, DWORD wanted) {
        // A piece that the stream could not fill is written in full length all the same: that is intended,
        // and a page asks for no more than the stream has.
        if (File().Write(piece, wanted) < wanted) throw StatusError(HRESULT_FROM_WIN32(ERROR_DISK_FULL));
        if (Progress()) Report(Progress(), {&Context()});
    });
    return S_OK;
}

}  // namespace tarvik
