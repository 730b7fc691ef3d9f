#include "plugins/window/taskbar_progress.h"

#include <cwchar>

namespace tarvik {

namespace {

struct State {
    const wchar_t* name;
    TBPFLAG flag;
};

constexpr State kStates[] = {
    {L"none", TBPF_NOPROGRESS}, {L"cycle", TBPF_INDETERMINATE}, {L"normal", TBPF_NORMAL},
    {L"error", TBPF_ERROR},     {L"pause", TBPF_PAUSED},
};

}  // namespace

ComPtr<ITaskbarList3> CreateTaskbarList() {
    ComPtr<ITaskbarList3> taskbar;
    CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, __uuidof(ITaskbarList3),
                     reinterpret_cast<void**>(taskbar.GetAddressOf()));
    return taskbar;
}

std::optional<TBPFLAG> ProgressFlag(const wchar_t* state) {
    for (const State& known : kStates) {
        if (_wcsicmp(state, known.name) == 0) return known.flag;
    }
    return std::nullopt;
}

}  // namespace tarvik
