#include "plugins/fileio/file_io_plugin.h"

#include "plugins/fileio/open_mode.h"
#include "plugins/fileio/transfer.h"
#include "plugins/fileio/transfer_task.h"

namespace tarvik {

namespace {

constexpr Member<CFileIOPlugin> kMembers[] = {
    Method<&CFileIOPlugin::Open>(L"open", -10000),
    Method<&CFileIOPlugin::Close>(L"close", -9999),
    Method<&CFileIOPlugin::ReadAsync>(L"readAsync", -9998),
    Method<&CFileIOPlugin::WriteAsync>(L"writeAsync", -9997),
    Method<&CFileIOPlugin::Read>(L"read", -9996),
    Method<&CFileIOPlugin::Write>(L"write", -9995),
    Method<&CFileIOPlugin::Seek>(L"seek", -9994),
    Property<&CFileIOPlugin::GetSize, &CFileIOPlugin::SetSize>(L"size", -9993),
    Constant<CFileIOPlugin, FILE_BEGIN>(L"BEGIN", -9992),
    Constant<CFileIOPlugin, FILE_CURRENT>(L"CURRENT", -9991),
    Constant<CFileIOPlugin, FILE_END>(L"END", -9990),
    Constant<CFileIOPlugin, S_OK>(L"S_OK", -9989),
    Constant<CFileIOPlugin, E_ABORT>(L"E_ABORT", -9988),
};
static_assert(IsInOrder(kMembers));

[[maybe_unused]] const bool registered = RegisterBuiltIn<CFileIOPlugin>(L"fileIO", TVK::kTransientPlugin);

// The arguments of `read` and `write`. A negative length is reinterpreted as unsigned, so -1 means
// everything.
struct TransferRequest {
    ComPtr<TVK::IStream> stream;
    ULONG length;
};

TransferRequest ParseRequest(const ComPtr<IDispatch>& stream, CoercedInt length) {
    TransferRequest request = {Query<TVK::IStream>(stream.Get()), static_cast<ULONG>(length.value)};
    if (!request.stream || request.length == 0) throw StatusError(E_INVALIDARG);
    return request;
}

void AddTo(Variant& transferred, ULONG count) {
    transferred = Variant::UI4(transferred.ulVal + count);
}

}  // namespace

std::span<const Member<CFileIOPlugin>> CFileIOPlugin::Members() {
    return kMembers;
}

bool CFileIOPlugin::Open(BSTR path, BSTR mode) {
    Close();
    const auto [access, disposition] = ParseOpenMode(Bstr::View(mode));
    file_ = std::make_shared<SharedFile>(
        UniqueHandle(CreateFileW(Resolve(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                 disposition, 0, nullptr)));
    return file_->IsOpen();
}

void CFileIOPlugin::Close() {
    file_->Close();
}

bool CFileIOPlugin::ReadAsync(IDispatch* options) {
    return StartTask(options,
                     [this](const ScriptObject& given) { return std::make_unique<ReadTask>(given, file_); });
}

bool CFileIOPlugin::WriteAsync(IDispatch* options) {
    return StartTask(options,
                     [this](const ScriptObject& given) { return std::make_unique<WriteTask>(given, file_); });
}

Variant CFileIOPlugin::Read(const ComPtr<IDispatch>& stream, CoercedInt length) {
    const TransferRequest request = ParseRequest(stream, length);
    const auto file = file_;  // a library's stream may call back and replace it
    Variant transferred = Variant::I4(0);
    (void)Guard([&] {
        ReadFileChunks(*file, request.length, [&](const std::uint8_t* chunk, DWORD count) {
            std::uint32_t written = 0;
            const HRESULT status = request.stream->Write(chunk, count, &written);
            AddTo(transferred, written);
            ThrowIfFailed(status);
        });
    });
    return transferred;
}

Variant CFileIOPlugin::Write(const ComPtr<IDispatch>& stream, CoercedInt length) {
    const TransferRequest request = ParseRequest(stream, length);
    const auto file = file_;
    Variant transferred = Variant::I4(0);
    (void)Guard([&] {
        ReadStreamChunks(*request.stream.Get(), request.length,
                         [&](const std::uint8_t* chunk, DWORD count, DWORD) {
                             const DWORD written = file->Write(chunk, count);
                             AddTo(transferred, written);
                             if (written < count) throw StatusError(E_FAIL);
                         });
    });
    return transferred;
}

Variant CFileIOPlugin::Seek(Int64 offset, StrictInt32 origin) {
    Variant position;  // empty after a failure, and the call succeeds
    if (origin.value < FILE_BEGIN || origin.value > FILE_END) return position;
    (void)Guard(
        [&] { position = Variant::R8(static_cast<double>(file_->Seek(offset.value, origin.value))); });
    return position;
}

Number CFileIOPlugin::GetSize() {
    Number size;
    (void)Guard([&] { size.value = static_cast<double>(file_->Size()); });
    return size;
}

void CFileIOPlugin::SetSize(UInt64 size) {
    (void)Guard([&] { file_->Resize(static_cast<LONGLONG>(size.value)); });
}

}  // namespace tarvik
