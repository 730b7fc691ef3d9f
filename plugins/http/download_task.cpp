#include "plugins/http/download_task.h"

#include <algorithm>
#include <span>
#include <vector>

#include "tarvik/owners.h"
#include "base/write_file.h"
#include "plugins/http/web_response.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

constexpr std::uint32_t kPiece = 65536;

// A file that is removed again unless it is kept.
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
    // Closes it: from here on it belongs to script.
    void Keep() { file_.Reset(); }

  private:
    const std::wstring& path_;
    UniqueHandle file_;
};

// Whether a call failed because there is nobody any more to take it. An engine that has been closed answers
// E_UNEXPECTED to calls of its functions, the old ones 0x800A1393; an error in a function that runs is
// neither of them, whatever its number: 0x80020101 or DISP_E_EXCEPTION.
bool HasGone(HRESULT status) {
    constexpr auto kFreedScript = static_cast<HRESULT>(0x800A1393);
    return IsDisconnected(status) || status == E_UNEXPECTED || status == kFreedScript;
}

}  // namespace

DownloadTask::DownloadTask(std::wstring url, std::wstring path, const Options& options)
    : AsyncTask(options), url_(std::move(url)), path_(std::move(path)) {}

HRESULT DownloadTask::Work() {
    const WebResponse response(url_);
    const std::uint32_t total = response.ContentLength();
    NewFile file(path_);
    std::vector<std::uint8_t> buffer(kPiece);
    for (std::uint32_t done = 0; done < total;) {
        const auto piece = std::span(buffer).first(std::min(total - done, kPiece));
        const std::uint32_t count = response.Read(piece);
        if (count == 0) return E_FAIL;
        file.Write(piece.first(count));
        done += count;
        // Before the last call: script may use the file in it, and a stop there comes too late.
        if (done == total) file.Keep();
        Tell(done, total);
    }
    return S_OK;
}

void DownloadTask::Tell(std::uint32_t done, std::uint32_t total) {
    if (!Progress()) return;
    const Variant bytes = Variant::UI4(done);
    const Variant all = Variant::UI4(total);
    Variant answer;
    const HRESULT status = CallScriptFunction(Progress(), {&bytes, &all, &Context()}, &answer);
    // The page's end is not that of its downloads.
    if (HasGone(status)) return;
    if (status != S_OK) throw StatusError(status);
    if (IsFalse(answer)) throw StatusError(E_ABORT);
}

}  // namespace tarvik
