#include "pack/application.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "archive/archive_writer.h"
#include "archive/entry_path.h"
#include "base/folder_reader.h"
#include "base/path.h"
#include "base/text.h"
#include "cli/failure.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

// The host unpacks into a folder with a name of ten characters in the user's temporary folder, whose path may
// have this length: C:\Users, a name of 20 characters followed by that of a domain, AppData\Local\Temp.
constexpr size_t kTempPathLength = 64;
constexpr size_t kUnpackPathLength = kTempPathLength + std::size(L"\\TV........\\") - 1;
// Windows does not create a folder whose path leaves no space for an 8.3 file name.
constexpr size_t kMaxFilePath = kPathLength - 1 - kUnpackPathLength;
constexpr size_t kMaxFolderPath = kMaxFilePath - (std::size(L"8LETTERS.EXT") - 1);

struct CaseInsensitiveLess {
    bool operator()(const std::wstring& left, const std::wstring& right) const {
        return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_LESS_THAN;
    }
};

class ApplicationReader {
  public:
    // Each prefix ends in a separator.
    void Read(const std::wstring& pathPrefix, const std::wstring& namePrefix) {
        FolderReader reader(pathPrefix + L'*');
        while (reader.Next()) {
            const WIN32_FIND_DATAW& found = reader.Entry();
            const std::wstring path = pathPrefix + found.cFileName;
            const ULARGE_INTEGER size = {{found.nFileSizeLow, found.nFileSizeHigh}};
            Entry entry{namePrefix + found.cFileName, path, size.QuadPart};
            if (IsFolder(found)) {
                entry.name += L'/';
                entry.size = 0;
                Check(entry);
                Read(path + L'\\', entry.name);
            } else {
                Check(entry);
            }
            entries_.push_back(std::move(entry));
        }
        if (FAILED(reader.Status()))
            FailAs(L"The folder \"" + pathPrefix + L"\" cannot be read", reader.Status());
    }

    std::vector<Entry> Result() && { return std::move(entries_); }

  private:
    void Check(const Entry& entry) {
        const auto reject = [&](const std::wstring& why) {
            throw Failure(L"\"" + entry.path + L"\" " + why);
        };
        const size_t limit = entry.name.back() == L'/' ? kMaxFolderPath : kMaxFilePath;
        if (entry.name.size() > limit) {
            reject(L"has a path of " + std::to_wstring(entry.name.size()) +
                   L" characters inside the application's folder, and only " + std::to_wstring(limit) +
                   L" can be unpacked for every user. Shorten its names.");
        }
        if (!IsSafeEntryPath(entry.name))
            reject(L"has a name that Windows reserves for a device. Rename it.");
        if (Widen(Narrow(entry.name)) != entry.name)
            reject(L"has a name that is not valid Unicode. Rename it.");
        if (entry.size >= MZ_UINT32_MAX) reject(L"is 4 GiB or larger. Ship it beside the program.");
        if (!names_.insert(entry.name).second)
            reject(L"differs from another name only in case. Rename one of them.");
        if (names_.size() > ArchiveWriter::kMaxEntries)
            reject(L"is one too many: an application can have 65,535 files and folders.");
    }

    std::vector<Entry> entries_;
    std::set<std::wstring, CaseInsensitiveLess> names_;
};

std::wstring WithBackslash(std::wstring folder) {
    if (folder.back() != L'\\') folder += L'\\';
    return folder;
}

}  // namespace

std::vector<Entry> ReadApplication(const std::wstring& folder) {
    const std::wstring path = FullPath(folder);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        FailWithLastError(L"The folder \"" + path + L"\" cannot be read");
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) throw Failure(L"\"" + path + L"\" is not a folder.");
    ApplicationReader reader;
    reader.Read(WithBackslash(path), L"");
    auto entries = std::move(reader).Result();
    if (std::ranges::none_of(entries,
                             [](const Entry& entry) { return EqualsIgnoreCase(entry.name, kFirstPage); }))
        throw Failure(L"\"" + path + L"\" has no resource\\index.html, the first page of an application.");
    return entries;
}

ULONGLONG TotalSize(const std::vector<Entry>& entries) {
    return std::accumulate(entries.begin(), entries.end(), 0ULL,
                           [](ULONGLONG sum, const Entry& entry) { return sum + entry.size; });
}

}  // namespace tarvik
