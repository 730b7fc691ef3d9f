// On Windows the engine inherits two anonymous pipes and belongs to a job that ends with this process.

#include <string>
#include <vector>

#include "base/folder_reader.h"
#include "base/job.h"
#include "base/path.h"
#include "base/shell_delete.h"
#include "base/text.h"
#include "page_control/engine/launch.h"
#include "page_control/engine/transport.h"
#include "tarvik/owners.h"
#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kProfile = L".profile";
constexpr const wchar_t* kLockSuffix = L".used";

struct Pipe {
    UniqueHandle read;
    UniqueHandle write;
};

// Large enough that a busy engine seldom blocks this process.
constexpr DWORD kPipeSize = 1 << 20;

Pipe MakePipe() {
    Pipe pipe;
    if (!CreatePipe(pipe.read.Receive(), pipe.write.Receive(), nullptr, kPipeSize)) ThrowLastError();
    return pipe;
}

void MakeInheritable(const UniqueHandle& handle) {
    SetHandleInformation(handle.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
}

// An attribute list with the only handles that the engine inherits.
class InheritedHandles {
  public:
    InheritedHandles(HANDLE read, HANDLE write) : handles_{read, write} {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory_.resize(size);
        if (!InitializeProcThreadAttributeList(List(), 1, 0, &size)) ThrowLastError();
        UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles_, sizeof handles_,
                                  nullptr, nullptr);
    }
    ~InheritedHandles() { DeleteProcThreadAttributeList(List()); }
    InheritedHandles(const InheritedHandles&) = delete;
    InheritedHandles& operator=(const InheritedHandles&) = delete;

    LPPROC_THREAD_ATTRIBUTE_LIST List() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
    }

  private:
    HANDLE handles_[2];
    std::vector<char> memory_;
};

// Marks a profile as in use by an exclusively opened file beside it, which the system deletes with this
// process, even if that is killed.
UniqueHandle LockProfile(const std::wstring& profile) {
    UniqueHandle lock(CreateFileW((profile + kLockSuffix).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!lock) ThrowLastError();
    return lock;
}

// After a power failure the file may still exist.
bool IsInUse(const std::wstring& profile) {
    return !DeleteFileW((profile + kLockSuffix).c_str()) && GetLastError() != ERROR_FILE_NOT_FOUND;
}

void RemoveStaleProfiles(const std::wstring& folder) {
    std::vector<std::wstring> stale;
    FolderReader reader(folder + L"tarvik-*" + kProfile);
    while (reader.Next()) {
        const std::wstring path = folder + reader.Entry().cFileName;
        if (!IsInUse(path)) stale.push_back(path);
    }
    for (const std::wstring& path : stale)
        DeleteFolder(path);
}

// The name of a folder for the engine; none unless it is created.
class TemporaryProfile {
  public:
    void Create(const std::wstring& parent) {
        path_ = parent + UniqueName() + kProfile;
        lock_ = LockProfile(path_);
    }
    const std::wstring& Path() const { return path_; }
    void Remove() const {
        if (!path_.empty()) DeleteFolder(path_);
    }

  private:
    std::wstring path_;
    UniqueHandle lock_;
};

class PipeTransport : public Transport {
  public:
    PipeTransport(UniqueHandle fromEngine, UniqueHandle toEngine, UniqueHandle process, UniqueHandle job,
                  TemporaryProfile profile, std::wstring downloadFolder)
        : Transport(std::move(fromEngine), std::move(toEngine), std::move(downloadFolder)),
          process_(std::move(process)),
          job_(std::move(job)),
          profile_(std::move(profile)) {}
    ~PipeTransport() override {
        CloseWriting();
        WaitForSingleObject(process_.Get(), kEndTimeout);
        PipeTransport::Kill();
    }

    // Also removes a temporary profile, which would otherwise stay until the next start. Polls until the job
    // is empty, for which a job has no event, and its completion port no guarantee.
    void Kill() override {
        TerminateJobObject(job_.Get(), 0);
        TerminateProcess(process_.Get(), 0);
        WaitForSingleObject(process_.Get(), kEndTimeout);
        const ULONGLONG end = GetTickCount64() + kEndTimeout;
        while (HasProcesses() && GetTickCount64() < end)
            Sleep(kPollInterval);
        profile_.Remove();
    }

  private:
    static constexpr DWORD kEndTimeout = 2000;
    static constexpr DWORD kPollInterval = 10;

    // Whether other processes of the engine still use the profile.
    bool HasProcesses() const {
        JOBOBJECT_BASIC_ACCOUNTING_INFORMATION information = {};
        QueryInformationJobObject(job_.Get(), JobObjectBasicAccountingInformation, &information,
                                  sizeof information, nullptr);
        return information.ActiveProcesses > 0;
    }

    UniqueHandle process_;
    UniqueHandle job_;
    TemporaryProfile profile_;
};

std::wstring HandleText(const UniqueHandle& handle) {
    return DecimalText(static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(handle.Get())));
}

}  // namespace

std::unique_ptr<Transport> StartThroughPipes(const std::wstring& engine, const std::wstring& profile) {
    Pipe toEngine = MakePipe();
    Pipe fromEngine = MakePipe();
    const std::wstring folder = ReadPath([](wchar_t* buffer) { GetTempPathW(kPathLength, buffer); });
    RemoveStaleProfiles(folder);
    TemporaryProfile temporary;
    if (profile.empty()) temporary.Create(folder);
    const std::wstring& used = profile.empty() ? temporary.Path() : profile;
    const std::wstring downloadFolder = used + L"\\downloads";
    DeleteFolder(downloadFolder);  // the remains of a killed process
    // An elevated engine would restart itself without elevation, and lose the pipes.
    std::wstring line = QuoteArgument(engine) + EngineArguments() + L" --do-not-de-elevate " +
                        QuoteArgument(L"--user-data-dir=" + used) +
                        L" --remote-debugging-pipe --remote-debugging-io-pipes=" + HandleText(toEngine.read) +
                        L"," + HandleText(fromEngine.write) + L" about:blank";
    MakeInheritable(toEngine.read);
    MakeInheritable(fromEngine.write);
    InheritedHandles inherited(toEngine.read.Get(), fromEngine.write.Get());
    STARTUPINFOEXW startup = {};
    startup.StartupInfo.cb = sizeof startup;
    startup.lpAttributeList = inherited.List();
    PROCESS_INFORMATION information = {};
    if (!CreateProcessW(engine.c_str(), line.data(), nullptr, nullptr, TRUE,
                        EXTENDED_STARTUPINFO_PRESENT | CREATE_SUSPENDED, nullptr, nullptr,
                        &startup.StartupInfo, &information)) {
        ThrowLastError();
    }
    UniqueHandle process(information.hProcess);
    const UniqueHandle thread(information.hThread);
    // Without it, only the end of the pipe ends the engine.
    UniqueHandle job = AssignToJob(process.Get());
    ResumeThread(thread.Get());
    return std::make_unique<PipeTransport>(std::move(fromEngine.read), std::move(toEngine.write),
                                           std::move(process), std::move(job), std::move(temporary),
                                           downloadFolder);
}

}  // namespace tarvik
