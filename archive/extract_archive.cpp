#include "archive/extract_archive.h"

#include "archive/archive_reader.h"
#include "archive/member_output.h"
#include "archive/member_path.h"
#include "base/status.h"
#include "base/write_file.h"

namespace tarvik {

namespace {

struct MemberWriteContext {
    HANDLE file;
    ExtractListener& listener;
};

// Anything but `count` makes the reader give up. Its offset is that of the file's pointer.
size_t OnMemberData(void* target, mz_uint64, const void* data, size_t count) noexcept {
    const auto& member = *static_cast<const MemberWriteContext*>(target);
    if (const HRESULT status = Guard([&] { WriteAll(member.file, data, count); }); FAILED(status)) {
        member.listener.WriteFails(status);
        return 0;
    }
    return Guard([&] { return member.listener.DataWritten(count) ? S_OK : E_ABORT; }) == S_OK ? count : 0;
}

ULONGLONG TotalSize(ArchiveReader& archive) {
    ULONGLONG total = 0;
    for (mz_uint index = 0; index < archive.Count(); ++index) {
        const auto& member = archive.Statistics(index);
        if (!IsMarkedAsFolder(member)) total += member.m_uncomp_size;
    }
    return total;
}

void ExtractMember(ArchiveReader& archive, mz_uint index, MemberOutput& output, ExtractListener& listener) {
    const auto& member = archive.Statistics(index);
    const std::wstring name = archive.Name(member);
    if (!StaysInside(name)) throw StatusError(E_FAIL);
    const std::wstring path = output.Place(name);
    switch (listener.MemberStarts(name)) {
        case ExtractListener::Answer::kStop:
            throw StatusError(E_ABORT);
        case ExtractListener::Answer::kSkip:
            return;
        case ExtractListener::Answer::kGoOn:
            break;
    }
    const UniqueHandle file = output.Open(path);
    if (!IsFolderPath(path) && member.m_uncomp_size > 0) {
        MemberWriteContext context{file.Get(), listener};
        archive.Extract(member, OnMemberData, &context);
        SetEndOfFile(file.Get());
    }
    SetTimes(file.Get(), member.m_time);
}

}  // namespace

void ExtractArchive(Bytes bytes, const std::wstring& dest, bool overWrite, ExtractListener& listener) {
    DestinationFolder folder(dest);
    ArchiveReader archive(bytes);
    listener.SetTotal(TotalSize(archive));
    MemberOutput output(dest, overWrite);
    for (mz_uint index = 0; index < archive.Count(); ++index)
        ExtractMember(archive, index, output, listener);
    folder.Keep();
}

}  // namespace tarvik
