#include "plugins/http/download_task.h"

#include <algorithm>
#include <span>
#include <vector>

#include "base/status.h"
#include "base/write_file.h"
#include "plugins/http/web_response.h"
#include "tarvik/owners.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

constexpr std::uint32_t kChunkSize = 65536;

// A new file, deleted by the destructor unless Commit has been called.
class NewFile {
  public:
    explicit NewFile(const std::wstring& path)
        : path_(path),
          file_(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                            CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (!file_) ThrowLastError();
    }
    ~NewFile() {
        if (!file_) return;
        file_.Reset();
        DeleteFileW(path_.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(std::span<const std::uint8_t> bytes) { WriteAll(file_.Get(), bytes.data(), bytes.size()); }
    void Commit() { file_.Reset(); }  // closes the file

  private:
    const std::wstring& path_;
    UniqueHandle file_;
};

// Whether a call failed because the function's page has been destroyed. A closed JavaScript engine returns
// E_UNEXPECTED for calls of its functions, older ones 0x800A1393. A function that throws returns 0x80020101
// or DISP_E_EXCEPTION.
bool IsCallbackDestroyed(HRESULT status) {
    constexpr auto kFreedScript = static_cast<HRESULT>(0x800A1393);
    return IsDisconnected(status) || status == E_UNEXPECTED || status == kFreedScript;
}

}  // namespace

DownloadTask::DownloadTask(std::wstring url, std::wstring path, const ScriptObject& options)
    : AsyncTask(options), url_(std::move(url)), path_(std::move(path)) {}

HRESULT DownloadTask::Work() {
    const WebResponse response(url_);
    const std::uint32_t total = response.ContentLength();
    NewFile file(path_);
    std::vector<std::uint8_t> buffer(kChunkSize);
    for (std::uint32_t done = 0; done < total;) {
        const auto chunk = std::span(buffer).first(std::min(total - done, kChunkSize));
        const std::uint32_t count = response.Read(chunk);
        if (count == 0) return E_FAIL;
        file.Write(chunk.first(count));
        done += count;
        // Before the last report: the function may open the file, and it is too late to cancel.
        if (done == total) file.Commit();
        ReportProgress(done, total);
    }
    return S_OK;
}

void DownloadTask::ReportProgress(std::uint32_t done, std::uint32_t total) {
    if (!Progress()) return;
    const Variant processed = Variant::UI4(done);
    const Variant all = Variant::UI4(total);
    Variant result;
    const HRESULT status =
        CallScriptFunction(Progress().AsDispatch(), {&processed, &all, &Context()}, &result);
    // A download continues after its page has been destroyed.
    if (IsCallbackDestroyed(status)) return;
    if (status != S_OK) throw StatusError(status);
    if (IsFalse(result)) throw StatusError(E_ABORT);
}

}  // namespace tarvik
