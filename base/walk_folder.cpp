#include "base/walk_folder.h"

#include <optional>

#include "base/owners.h"
#include "base/pattern.h"
#include "base/status.h"

namespace tarvik {

namespace {

class Walk {
  public:
    Walk(const wchar_t* pattern, bool recursive, const WalkCallback& callback)
        : pattern_(pattern ? Pattern::Compile(pattern) : std::nullopt),
          recursive_(recursive),
          callback_(callback) {}

    HRESULT Run(std::wstring folder) const {
        if (folder.empty() || folder.back() != L'\\') folder += L'\\';
        WIN32_FIND_DATAW entry;
        const UniqueFind find(FindFirstFileW((folder + L'*').c_str(), &entry));
        if (!find) return LastErrorStatus();
        HRESULT status = E_FAIL;
        do {
            Visit(folder, entry, status);
        } while (status != E_ABORT && FindNextFileW(find.Get(), &entry));
        return status;
    }

  private:
    // `status` changes only if a callback or a nested walk was run.
    void Visit(const std::wstring& folder, const WIN32_FIND_DATAW& entry, HRESULT& status) const {
        const std::wstring path = folder + entry.cFileName;
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder) {
            const std::wstring_view name = entry.cFileName;
            if (name == L"." || name == L"..") return;
            if (recursive_) status = Run(path);
            if (status == E_ABORT) return;
        }
        if (pattern_ && !pattern_->Search(path)) return;
        const ULARGE_INTEGER size = {{entry.nFileSizeLow, entry.nFileSizeHigh}};
        status = callback_(path, entry.dwFileAttributes, isFolder ? 0 : size.QuadPart);
    }

    std::optional<Pattern> pattern_;
    bool recursive_;
    const WalkCallback& callback_;
};

}  // namespace

HRESULT WalkFolder(const std::wstring& folder, const wchar_t* pattern, bool recursive,
                   const WalkCallback& callback) {
    return Walk(pattern, recursive, callback).Run(folder);
}

}  // namespace tarvik
