#include "plugins/zip/archive_writer.h"

#include <algorithm>

#include "base/status.h"
#include "base/text.h"

namespace tarvik {

namespace {

// Headers that are complete are understood by more programs than sizes behind the data.
constexpr mz_uint kLevel = 6 | static_cast<mz_uint>(MZ_ZIP_FLAG_WRITE_HEADER_SET_SIZE);

// What an archive can tell, in any time zone. The writer cannot take other times.
std::time_t Archivable(std::time_t time) {
    constexpr std::time_t kDay = 24 * 60 * 60;
    constexpr std::time_t kStartOf1980 = 315'532'800;
    constexpr std::time_t kStartOf2108 = 4'354'819'200;
    return std::clamp(time, kStartOf1980 + kDay, kStartOf2108 - 2 * kDay);
}

size_t OnFileRead(void* file, mz_uint64, void* buffer, size_t count) {
    return static_cast<SourceFile*>(file)->Read(buffer, count);
}

}  // namespace

ArchiveWriter::ArchiveWriter(Write write, void* target) {
    zip_.m_pWrite = write;
    zip_.m_pIO_opaque = target;
    Check(mz_zip_writer_init_v2(&zip_, 0, 0));
}

void ArchiveWriter::AddFile(const std::wstring& name, SourceFile& file) {
    Check(file.Size() < MZ_UINT32_MAX);
    const std::time_t modified = Archivable(file.Modified());
    Check(mz_zip_writer_add_read_buf_callback(&zip_, Narrow(name).c_str(), OnFileRead, &file, file.Size(),
                                              &modified, nullptr, 0, kLevel, nullptr, 0, nullptr, 0));
}

void ArchiveWriter::AddFolder(const std::wstring& name) {
    Check(mz_zip_writer_add_mem(&zip_, Narrow(name).c_str(), nullptr, 0, kLevel));
}

void ArchiveWriter::Finish() {
    Check(mz_zip_writer_finalize_archive(&zip_));
}

// Past a limit the writer goes over to the larger format without a word.
void ArchiveWriter::Check(bool good) {
    if (!good || mz_zip_is_zip64(&zip_)) throw StatusError(E_FAIL);
}

}  // namespace tarvik
