#include "archive/extract_archive.h"

#include <set>

#include "archive/archive_reader.h"
#include "archive/member_name.h"
#include "archive/member_output.h"
#include "archive/member_path.h"
#include "base/write_file.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

struct MemberWriteContext {
    HANDLE file;
    ExtractListener& listener;
};

// Any result but `count` aborts the reader. It writes in order, so the offset is that of the file pointer.
size_t OnMemberData(void* target, mz_uint64, const void* data, size_t count) noexcept {
    const auto& member = *static_cast<const MemberWriteContext*>(target);
    if (const HRESULT status = Guard([&] { WriteAll(member.file, data, count); }); FAILED(status)) {
        member.listener.WriteFails(status);
        return 0;
    }
    return Guard([&] { return member.listener.DataWritten(count) ? S_OK : E_ABORT; }) == S_OK ? count : 0;
}

// Facts about all members together.
struct Summary {
    ULONGLONG totalSize = 0;
    std::set<std::wstring> names;  // those that are not refused
};

Summary Summarize(ArchiveReader& archive) {
    Summary summary;
    for (mz_uint index = 0; index < archive.Count(); ++index) {
        const MemberEntry member = archive.Lookup(index);
        std::wstring name = MemberName(member);
        if (member.statistics && !IsMarkedAsFolder(*member.statistics))
            summary.totalSize += member.statistics->m_uncomp_size;
        if (StaysInside(name)) summary.names.insert(std::move(name));
    }
    return summary;
}

class Extraction {
  public:
    Extraction(ArchiveReader& archive, MemberOutput& output, ExtractListener& listener)
        : archive_(archive), output_(output), listener_(listener), summary_(Summarize(archive)) {}

    void Run() {
        listener_.SetTotal(summary_.totalSize);
        for (mz_uint index = 0; index < archive_.Count(); ++index)
            Extract(index);
    }

  private:
    void Extract(mz_uint index) {
        const MemberEntry member = archive_.Lookup(index);
        const std::wstring name = MemberName(member);
        if (!member.statistics || !StaysInside(name)) {
            // The member is refused unless the listener skips it, and no folder is created for it.
            if (IsWanted(name)) throw ArchiveError();
            return;
        }
        const std::wstring path =
            output_.PreparePath(IsFolder(*member.statistics, name) ? name + L'/' : name);
        if (IsWanted(name)) Write(*member.statistics, path);
    }

    bool IsWanted(const std::wstring& name) {
        const auto answer = listener_.MemberStarts(name);
        if (answer == ExtractListener::Answer::kStop) throw StatusError(E_ABORT);
        return answer == ExtractListener::Answer::kContinue;
    }

    // Some programs write the entry of a folder without the slash.
    bool IsFolder(const mz_zip_archive_file_stat& member, const std::wstring& name) const {
        if (member.m_uncomp_size > 0) return false;
        const std::wstring prefix = name + L'/';
        const auto inside = summary_.names.lower_bound(prefix);
        return inside != summary_.names.end() && inside->starts_with(prefix);
    }

    void Write(const mz_zip_archive_file_stat& member, const std::wstring& path) {
        const UniqueHandle file = output_.Open(path);
        if (!IsFolderPath(path) && member.m_uncomp_size > 0) {
            MemberWriteContext context{file.Get(), listener_};
            archive_.Extract(member, OnMemberData, &context);
            SetEndOfFile(file.Get());
        }
        SetTimes(file.Get(), member.m_time);
    }

    ArchiveReader& archive_;
    MemberOutput& output_;
    ExtractListener& listener_;
    const Summary summary_;
};

}  // namespace

void ExtractArchive(Bytes bytes, const std::wstring& dest, bool overWrite, ExtractListener& listener) {
    DestinationFolder folder(dest);
    ArchiveReader archive(bytes);
    MemberOutput output(dest, overWrite);
    Extraction(archive, output, listener).Run();
    folder.Keep();
}

}  // namespace tarvik
