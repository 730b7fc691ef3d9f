#include <exception>
#include <optional>

#include "archive/extract_archive.h"
#include "base/path.h"
#include "cli/console.h"
#include "cli/failure.h"
#include "cli/interrupt.h"
#include "cli/progress_line.h"
#include "pack/attached_archive.h"
#include "pack/commands.h"
#include "pack/numbers.h"
#include "pack/paths.h"

namespace tarvik {

namespace {

class Listener : public ExtractListener {
  public:
    void SetTotal(ULONGLONG bytes) override { progress_.emplace(L"Extracting", bytes); }
    Action OnEntry(std::wstring_view name) override {
        entry_ = name;
        return Interrupt::IsRequested() ? Action::kStop : Action::kContinue;
    }
    bool OnData(ULONGLONG count) override {
        if (Interrupt::IsRequested()) return false;
        progress_->Advance(count);
        return true;
    }
    void OnWriteError(HRESULT status) noexcept override { writeError_ = status; }

    const std::wstring& CurrentEntry() const { return entry_; }
    std::optional<HRESULT> WriteError() const { return writeError_; }

  private:
    std::optional<ProgressLine> progress_;
    std::wstring entry_;
    std::optional<HRESULT> writeError_;
};

}  // namespace

void ExtractProgram(const std::wstring& program, const std::wstring& destination) {
    const std::wstring path = FullPath(program);
    const std::wstring folder = FullPath(destination);
    CheckIsNewFolder(folder);
    AttachedArchive attached(path);
    Listener listener;
    try {
        ExtractArchive(attached.Content(), folder, false, listener);
    } catch (const std::exception&) {
        Interrupt::ThrowIfRequested();
        const HRESULT status = listener.WriteError().value_or(CaughtStatus());
        if (status == E_FAIL) FailAsDamaged(path);
        FailAs(L"\"" + listener.CurrentEntry() + L"\" in \"" + path + L"\" cannot be extracted", status);
    }
    Console::Out().Write(folder + L": " + WithCommas(attached.Reader().Count()) + L" files and folders\n");
}

}  // namespace tarvik
