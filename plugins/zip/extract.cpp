#include "plugins/zip/archive_reader.h"
#include "plugins/zip/mapped_file.h"
#include "plugins/zip/member_output.h"
#include "plugins/zip/member_path.h"
#include "plugins/zip/progress.h"
#include "plugins/zip/zip_plugin.h"

namespace tarvik {

namespace {

struct MemberWriteContext {
    HANDLE file;
    Progress& progress;
};

// Anything but `count` makes the reader give up. Its offset is that of the file's pointer.
size_t OnMemberData(void* target, mz_uint64, const void* data, size_t count) noexcept {
    DWORD written = 0;
    const HRESULT status = Guard([&] {
        const auto& member = *static_cast<const MemberWriteContext*>(target);
        if (!WriteFile(member.file, data, static_cast<DWORD>(count), &written, nullptr)) ThrowLastError();
        return member.progress.DataWritten(count) ? S_OK : E_ABORT;
    });
    return status == S_OK ? written : 0;
}

ULONGLONG TotalSize(ArchiveReader& archive) {
    ULONGLONG total = 0;
    for (mz_uint index = 0; index < archive.Count(); ++index) {
        const auto& member = archive.Statistics(index);
        if (!IsMarkedAsFolder(member)) total += member.m_uncomp_size;
    }
    return total;
}

void ExtractMember(ArchiveReader& archive, mz_uint index, MemberOutput& output, Progress& progress) {
    const auto& member = archive.Statistics(index);
    const std::wstring name = archive.Name(member);
    if (!StaysInside(name)) throw StatusError(E_FAIL);
    const std::wstring path = output.Place(name);
    switch (progress.MemberStarts(name)) {
        case Progress::Answer::kStop:
            throw StatusError(E_ABORT);
        case Progress::Answer::kSkip:
            return;
        case Progress::Answer::kGoOn:
            break;
    }
    const UniqueHandle file = output.Open(path);
    if (!IsFolderPath(path) && member.m_uncomp_size > 0) {
        MemberWriteContext context{file.Get(), progress};
        archive.Extract(member, OnMemberData, &context);
        SetEndOfFile(file.Get());
    }
    SetTimes(file.Get(), member.m_time);
}

}  // namespace

void CZipPlugin::ExtractFile(const std::wstring& src, ULONG index, const ExtractOptions& options) {
    DestinationFolder folder(options.dest);
    const MappedFile file(src);
    const auto archive = FindArchive(file.Content(), index);
    if (!archive) throw StatusError(E_FAIL);
    ExtractMemory(*archive, options);
    folder.Keep();
}

void CZipPlugin::ExtractMemory(Bytes bytes, const ExtractOptions& options) {
    DestinationFolder folder(options.dest);
    ArchiveReader archive(bytes);
    Progress progress(options.progress, *options.context);
    progress.SetTotal(TotalSize(archive));
    MemberOutput output(options.dest, options.overWrite);
    for (mz_uint index = 0; index < archive.Count(); ++index)
        ExtractMember(archive, index, output, progress);
    folder.Keep();
}

}  // namespace tarvik
