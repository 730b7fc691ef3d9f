// window.external.search: searches files for a text, on another thread.
//
//     find(options)            searches a folder and its subfolders; returns immediately. It stops the search
//                              that this object started before. The options:
//       folder, text           the folder, relative to the page, and the text; both are required
//       hit(path, line, text)  called for each line that contains the text
//       progress(path, files)  called before each file, with the number of files before it; false stops
//       success(files, hits)   called at the end
//       fail(status, context)  called instead after a failure; after a stop, neither is called
//       context                any value, passed to fail
//     stop()                   stops the search
//     lines(stream, text)      searches a stream: returns an array of { line, text }
//
// A transient plug-in: each read of window.external.search returns a new object, so that searches are
// independent.

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>

#include <tarvik/core.h>

namespace {

namespace fs = std::filesystem;

// Calls found(number, line) for each line that contains the text. The first line has the number 1.
void FindLines(std::istream& input, const std::string& text,
               const std::function<void(int, const std::wstring&)>& found) {
    constexpr size_t kMaxShown = 200;  // bytes of a line; lines of binary files may be very long
    std::string line;
    for (int number = 1; std::getline(input, line); ++number) {
        if (line.find(text) == std::string::npos) continue;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        found(number, tarvik::Widen(std::string_view(line).substr(0, kMaxShown)));
    }
}

std::wstring RequiredText(const tarvik::ScriptObject& options, const wchar_t* name) {
    const auto value = options.Get<std::wstring>(name);
    if (!value || value->empty()) throw tarvik::StatusError(E_INVALIDARG);
    return *value;
}

// One search. The main thread creates it and reads the options; it runs on its own thread. The base class
// marshals progress, success, fail and context. A call of a function that fails throws, which ends the search
// after the page has been left or the window has been destroyed.
class SearchTask : public tarvik::AsyncTask {
  public:
    SearchTask(std::wstring folder, const tarvik::ScriptObject& options,
               std::shared_ptr<const std::atomic<bool>> stopped)
        : AsyncTask(options),
          folder_(std::move(folder)),
          text_(tarvik::Narrow(RequiredText(options, L"text"))),
          hit_(options.Function(L"hit")),
          stopped_(std::move(stopped)) {}

  private:
    HRESULT Work() override {
        const tarvik::ScriptObject& hit = hit_.Get();
        const tarvik::ScriptObject& progress = Progress();
        if (GetFileAttributesW(folder_.c_str()) == INVALID_FILE_ATTRIBUTES) tarvik::ThrowLastError();
        const auto options = fs::directory_options::skip_permission_denied;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder_, options)) {
            if (!entry.is_regular_file()) continue;
            const std::wstring path = entry.path().wstring();
            if (progress && tarvik::IsFalse(progress(path, files_))) return E_ABORT;
            std::ifstream file(entry.path(), std::ios::binary);
            FindLines(file, text_, [&](int line, const std::wstring& text) {
                ThrowIfStopped();
                ++hits_;
                if (hit) hit(path, line, text);
            });
            ++files_;
            ThrowIfStopped();
        }
        return S_OK;
    }

    void Succeed() override {
        if (Success()) Success()(files_, hits_);
    }

    // After E_ABORT, neither success nor fail is called.
    void ThrowIfStopped() const {
        if (*stopped_) throw tarvik::StatusError(E_ABORT);
    }

    std::wstring folder_;
    std::string text_;
    tarvik::MarshaledObject hit_;
    std::shared_ptr<const std::atomic<bool>> stopped_;
    int files_ = 0;
    int hits_ = 0;
};

class Search : public tarvik::Plugin<Search> {
  public:
    static std::span<const tarvik::Member<Search>> Members() {
        static constexpr auto members = tarvik::NumberedMembers({
            tarvik::Method<&Search::Find>(L"find"),
            tarvik::Method<&Search::Stop>(L"stop"),
            tarvik::Method<&Search::Lines>(L"lines"),
        });
        return members;
    }

    // A search may outlive this object, so both share the flag.
    void Find(const tarvik::ScriptObject& options) {
        Stop();
        stopped_ = std::make_shared<std::atomic<bool>>(false);
        tarvik::ThrowIfFailed(tarvik::StartWorker(
            std::make_unique<SearchTask>(ResolvePath(RequiredText(options, L"folder")), options, stopped_)));
    }

    void Stop() {
        if (stopped_) *stopped_ = true;
    }

    // The stream may be the host's or another plug-in's. Nothing else uses it during this call.
    tarvik::ScriptObject Lines(const tarvik::ScriptObject& object, const std::wstring& text) {
        const auto stream = object.As<TVK::IStream>();
        if (!stream || text.empty()) throw tarvik::StatusError(E_INVALIDARG);
        std::istringstream input(std::string(reinterpret_cast<const char*>(stream->GetBuffer()),
                                             static_cast<size_t>(stream->GetSize())));
        tarvik::ScriptObject hits = NewArray();
        FindLines(input, tarvik::Narrow(text), [&](int line, const std::wstring& found) {
            const tarvik::ScriptObject hit = NewObject();
            hit.Set(L"line", line);
            hit.Set(L"text", found);
            hits.Push(hit);
        });
        return hits;
    }

  private:
    std::shared_ptr<std::atomic<bool>> stopped_;
};

}  // namespace

TARVIK_PLUGIN(Search, L"search", TVK::kTransientPlugin)
