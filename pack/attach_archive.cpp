#include <exception>
#include <utility>

#include "archive/archive_writer.h"
#include "base/write_file.h"
#include "cli/failure.h"
#include "cli/progress_line.h"
#include "pack/attached_archive.h"

namespace tarvik {

namespace {

// The program that the archive is appended to.
class Target {
  public:
    explicit Target(const std::wstring& program, ProgressLine& progress)
        : program_(program),
          progress_(progress),
          file_(CreateFileW(program.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {
        if (!file_) FailWithLastError(L"\"" + program + L"\" cannot be written");
    }

    ULONGLONG Size() const {
        LARGE_INTEGER size = {};
        if (!GetFileSizeEx(file_.Get(), &size)) FailWithLastError(L"\"" + program_ + L"\" cannot be read");
        return static_cast<ULONGLONG>(size.QuadPart);
    }
    // The file whose progress is reported; null if none.
    void SetSource(const SourceFile* source) {
        source_ = source;
        reported_ = 0;
    }
    // Why the last write failed; null if none did.
    std::exception_ptr Error() const { return error_; }

    static size_t OnWrite(void* target, mz_uint64 offset, const void* data, size_t count) noexcept {
        constexpr size_t kGiveUp = static_cast<size_t>(-1);
        auto& self = *static_cast<Target*>(target);
        try {
            self.Write(offset, data, count);
            return count;
        } catch (...) {
            self.error_ = std::current_exception();
            return kGiveUp;
        }
    }

  private:
    void Write(ULONGLONG offset, const void* data, size_t count) {
        LARGE_INTEGER place;
        place.QuadPart = static_cast<LONGLONG>(offset);
        WithContext(L"\"" + program_ + L"\" cannot be written", [&] {
            if (!SetFilePointerEx(file_.Get(), place, nullptr, FILE_BEGIN)) ThrowLastError();
            WriteAll(file_.Get(), data, count);
        });
        const ULONGLONG done = source_ ? source_->BytesRead() : 0;
        progress_.Advance(done - std::exchange(reported_, done));
    }

    const std::wstring& program_;
    ProgressLine& progress_;
    UniqueHandle file_;
    const SourceFile* source_ = nullptr;
    ULONGLONG reported_ = 0;
    std::exception_ptr error_;
};

void Add(ArchiveWriter& writer, const Entry& entry, Target& target) {
    if (entry.name.back() == L'/') {
        target.SetSource(nullptr);
        writer.AddFolder(entry.name);
    } else {
        SourceFile source(entry.path);
        target.SetSource(&source);
        writer.AddFile(entry.name, source);
        // A file that grows is still being written: its first part alone would be useless.
        if (source.HasGrown()) throw StatusError(E_FAIL);
        target.SetSource(nullptr);
    }
}

// Failures of the target are described already; only those of the writer itself need `what`.
template <class Work>
void Attempt(const Target& target, const std::wstring& what, Work&& work) {
    try {
        work();
    } catch (const StatusError&) {
        if (target.Error()) std::rethrow_exception(target.Error());
        throw Failure(what);
    }
}

}  // namespace

void AttachArchive(const std::wstring& program, const std::vector<Entry>& entries) {
    ProgressLine progress(L"Packing", TotalSize(entries));
    Target target(program, progress);
    ArchiveWriter writer(Target::OnWrite, &target, target.Size());
    for (const Entry& entry : entries) {
        Attempt(target,
                L"\"" + entry.path +
                    L"\" cannot be packed: it is in use or has changed, or the program would reach 4 GiB.",
                [&] { Add(writer, entry, target); });
    }
    Attempt(target, L"The program would reach 4 GiB.", [&] { writer.Finish(); });
}

}  // namespace tarvik
