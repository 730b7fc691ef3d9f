#include "base/walk_folder.h"

#include <optional>
#include <vector>

#include "base/folder_reader.h"
#include "base/pattern.h"

namespace tarvik {

namespace {

class Walk {
  public:
    Walk(const wchar_t* pattern, bool recursive, const WalkCallback& callback, LinkPolicy links)
        : pattern_(pattern ? Pattern::Compile(pattern) : std::nullopt),
          recursive_(recursive),
          links_(links),
          callback_(callback) {}

    // Keeps the open folders in a vector: recursion could overflow the stack on deeply nested ones.
    HRESULT Run(const std::wstring& top) const {
        std::vector<Level> levels;
        levels.emplace_back(top);
        for (;;) {
            if (levels.back().reader.Next()) {
                const WIN32_FIND_DATAW& entry = levels.back().reader.Entry();
                if (ShouldEnter(entry)) {
                    levels.emplace_back(levels.back().folder + entry.cFileName);
                    continue;
                }
            } else {
                const HRESULT status = levels.back().Status();
                levels.pop_back();
                if (levels.empty()) return status;
                levels.back().status = status;
            }
            Report(levels.back());
            if (levels.back().status == E_ABORT) return E_ABORT;
        }
    }

  private:
    struct Level {
        explicit Level(std::wstring path) : folder(WithBackslash(std::move(path))), reader(folder + L'*') {}

        HRESULT Status() const { return FAILED(reader.Status()) ? reader.Status() : status; }

        std::wstring folder;
        FolderReader reader;
        HRESULT status = E_FAIL;  // of the last callback or folder
    };

    static std::wstring WithBackslash(std::wstring folder) {
        if (folder.empty() || folder.back() != L'\\') folder += L'\\';
        return folder;
    }

    bool ShouldEnter(const WIN32_FIND_DATAW& entry) const {
        return recursive_ && IsFolder(entry) && (links_ == LinkPolicy::kFollow || !IsLink(entry));
    }

    void Report(Level& level) const {
        const WIN32_FIND_DATAW& entry = level.reader.Entry();
        const std::wstring path = level.folder + entry.cFileName;
        if (pattern_ && !pattern_->Search(path)) return;
        const ULARGE_INTEGER size = {{entry.nFileSizeLow, entry.nFileSizeHigh}};
        level.status = callback_(path, entry.dwFileAttributes, IsFolder(entry) ? 0 : size.QuadPart);
    }

    std::optional<Pattern> pattern_;
    bool recursive_;
    LinkPolicy links_;
    const WalkCallback& callback_;
};

}  // namespace

HRESULT WalkFolder(const std::wstring& folder, const wchar_t* pattern, bool recursive,
                   const WalkCallback& callback, LinkPolicy links) {
    return Walk(pattern, recursive, callback, links).Run(folder);
}

}  // namespace tarvik
