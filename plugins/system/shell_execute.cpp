#include "plugins/system/shell_execute.h"

#include "base/status.h"
#include "plugins/system/path_option.h"
#include "tarvik/marshaled_object.h"
#include "tarvik/owners.h"
#include "tarvik/properties.h"
#include "tarvik/worker.h"

namespace tarvik {

namespace {

// Waits for a process on a worker thread and reports its exit code. The wait cannot be cancelled.
class ShellExitContext : public Worker {
  public:
    ShellExitContext(const ScriptObject& exitCallback, const VARIANT& context, IDispatch* plugin)
        : exitCallback_(exitCallback), context_(context), plugin_(plugin) {}

    void SetProcess(UniqueHandle process) { process_ = std::move(process); }

    HRESULT Run() override {
        // Another running program has taken over the request, so there is no process to wait for.
        if (!process_) return S_OK;
        const Variant code = Variant::UI4(WaitForExit());
        process_.Reset();
        return CallScriptFunction(exitCallback_.Get().AsDispatch(), {&code, &context_.Get()});
    }

  private:
    DWORD WaitForExit() const {
        WaitForSingleObject(process_.Get(), INFINITE);
        DWORD code = 0;
        return GetExitCodeProcess(process_.Get(), &code) ? code : static_cast<DWORD>(LastErrorStatus());
    }

    MarshaledObject exitCallback_;
    MarshaledValue context_;
    MarshaledObject plugin_;
    UniqueHandle process_;
};

}  // namespace

HRESULT ExecuteByShell(SystemCalls& calls, TVK::ICore* core, IDispatch* plugin, const ScriptObject& options) {
    const std::wstring path = PathOption(core, options, L"path");
    if (path.empty()) return E_INVALIDARG;
    const std::wstring folder = PathOption(core, options, L"workDir");
    const std::wstring parameters = options.Get<std::wstring>(L"args", {});
    const bool elevate = options.Get<bool>(L"requestAdmin", false);
    const ScriptObject exitCallback = options.Function(L"exitCallback");
    const Variant context = options.Get(L"context");

    const wchar_t* const verb = elevate && !calls.IsAdministrator() ? L"runas" : nullptr;
    if (!exitCallback) {
        return calls.Open(verb, path.c_str(), parameters.c_str(), folder.c_str()) ? E_FAIL : S_OK;
    }
    // Created first, so that no process starts whose exit cannot be reported.
    auto wait = std::make_unique<ShellExitContext>(exitCallback, context, plugin);
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_NOCLOSEPROCESS;
    info.lpVerb = verb;
    info.lpFile = path.c_str();
    info.lpParameters = parameters.c_str();
    info.lpDirectory = folder.c_str();
    info.nShow = SW_SHOWNORMAL;
    if (!calls.Execute(info)) {
        if (GetLastError() == ERROR_CANCELLED) return E_ABORT;
        ThrowLastError();  // E_FAIL if the system's error message has cleared the error
    }
    wait->SetProcess(UniqueHandle(info.hProcess));
    return StartWorker(std::move(wait));
}

}  // namespace tarvik
