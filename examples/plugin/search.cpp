// window.external.search: looks for a text in files, on a thread of its own.
//
//     find(options)            looks through a folder and the folders in it; returns at once. A run that this
//                              object has under way ends. The options:
//       folder, text           where, counted from the page, and for what; both are needed
//       hit(path, line, text)  called for each line that has the text
//       progress(path, files)  called before each file, with the number of those before it; false is a stop
//       success(files, hits)   called at the end
//       fail(status)           called instead where it fails; after a stop neither is called
//     stop()                   ends the run
//     lines(stream, text)      the same for what is in a stream: an array of { line, text }, at once
//
// A transient plug-in: each read of window.external.search is a new object, so two searches are not in each
// other's way.

#include <tarvik/kit.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>

namespace {

namespace fs = std::filesystem;

std::wstring FromUtf8(std::string_view text) {
    const int bytes = static_cast<int>(text.size());
    std::wstring wide(MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string ToUtf8(std::wstring_view text) {
    const int units = static_cast<int>(text.size());
    std::string narrow(WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr),
                       '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(), static_cast<int>(narrow.size()),
                        nullptr, nullptr);
    return narrow;
}

// Calls found(number, line) for each line with the text; numbers begin at 1.
void FindLines(std::istream& input, const std::string& text,
               const std::function<void(int, const std::wstring&)>& found) {
    constexpr size_t kShown = 200;  // of a line; what is no text at all may have very long ones
    std::string line;
    for (int number = 1; std::getline(input, line); ++number) {
        if (line.find(text) == std::string::npos) continue;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        found(number, FromUtf8(std::string_view(line).substr(0, kShown)));
    }
}

std::wstring Needed(const TVK::Object& options, const wchar_t* name) {
    const auto value = options.Get<std::wstring>(name);
    if (!value || value->empty()) throw TVK::Failure(E_INVALIDARG);
    return *value;
}

// One run of find. It is made on the main thread, where the options are read, and then moved to a thread of
// its own. There the functions are redeemed, and each call of one waits for the page.
//
// When the page or the window goes, the next call fails; its failure ends the run, as it would end any
// function.
class Run {
  public:
    Run(std::wstring folder, const TVK::Object& options, std::shared_ptr<const std::atomic<bool>> stopped)
        : folder_(std::move(folder)),
          text_(ToUtf8(Needed(options, L"text"))),
          hit_(FunctionIn(options, L"hit")),
          progress_(FunctionIn(options, L"progress")),
          success_(FunctionIn(options, L"success")),
          fail_(FunctionIn(options, L"fail")),
          stopped_(std::move(stopped)) {}

    void operator()() {
        const TVK::Object success = success_.Redeem();
        const TVK::Object fail = fail_.Redeem();
        const HRESULT status = TVK::Guard([&] { Search(); });
        if (status == E_ABORT) return;
        if (FAILED(status) && fail) fail(static_cast<int>(status));
        if (SUCCEEDED(status) && success) success(files_, hits_);
    }

  private:
    static TVK::Ticket FunctionIn(const TVK::Object& options, const wchar_t* name) {
        return TVK::Ticket(options.Get<TVK::Object>(name).value_or(TVK::Object()));
    }

    void Search() {
        const TVK::Object hit = hit_.Redeem();
        const TVK::Object progress = progress_.Redeem();
        if (GetFileAttributesW(folder_.c_str()) == INVALID_FILE_ATTRIBUTES) TVK::ThrowLastError();
        const auto options = fs::directory_options::skip_permission_denied;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder_, options)) {
            if (!entry.is_regular_file()) continue;
            const std::wstring path = entry.path().wstring();
            if (progress && progress(path, files_).As<bool>() == false) throw TVK::Failure(E_ABORT);
            std::ifstream file(entry.path(), std::ios::binary);
            FindLines(file, text_, [&](int line, const std::wstring& text) {
                StopIfAsked();
                ++hits_;
                if (hit) hit(path, line, text);
            });
            ++files_;
            StopIfAsked();
        }
    }

    void StopIfAsked() const {
        if (*stopped_) throw TVK::Failure(E_ABORT);
    }

    std::wstring folder_;
    std::string text_;
    TVK::Ticket hit_;
    TVK::Ticket progress_;
    TVK::Ticket success_;
    TVK::Ticket fail_;
    std::shared_ptr<const std::atomic<bool>> stopped_;
    int files_ = 0;
    int hits_ = 0;
};

class Search : public TVK::Plugin<Search> {
  public:
    static TVK::Members<Search> Members() {
        static constexpr TVK::Member<Search> members[] = {
            TVK::Method<&Search::Find>(L"find"),
            TVK::Method<&Search::Stop>(L"stop"),
            TVK::Method<&Search::Lines>(L"lines"),
        };
        return members;
    }

    // A run outlives this object, which script may let go of at once; so what both need is shared.
    void Find(const TVK::Object& options) {
        Stop();
        stopped_ = std::make_shared<std::atomic<bool>>(false);
        TVK::StartWorker(Run(ResolvePath(Needed(options, L"folder")), options, stopped_));
    }

    void Stop() {
        if (stopped_) *stopped_ = true;
    }

    // A stream of the host's, or of any other plug-in. Nobody else uses it during this call.
    TVK::Object Lines(const TVK::Object& object, const std::wstring& text) {
        const auto stream = object.As<TVK::IStream>();
        if (!stream || text.empty()) throw TVK::Failure(E_INVALIDARG);
        std::istringstream input(std::string(reinterpret_cast<const char*>(stream->GetBuffer()),
                                             static_cast<size_t>(stream->GetSize())));
        const TVK::Object hits = NewArray();
        FindLines(input, ToUtf8(text), [&](int line, const std::wstring& found) {
            const TVK::Object hit = NewObject();
            hit.Set(L"line", line);
            hit.Set(L"text", found);
            hits.Call(L"push", hit);
        });
        return hits;
    }

  private:
    std::shared_ptr<std::atomic<bool>> stopped_;
};

}  // namespace

TARVIK_PLUGIN(Search, L"search", TVK::kTransientPlugin)
