// A plug-in library that uses the core and nothing else of the host. SAMPLE_MODULE is the text that it sends
// to the debugger when it is freed, SAMPLE_NAME the name of its plug-in, and SAMPLE_FAULT its fault.
#include <stdexcept>

#include <tarvik/core.h>

#define FAULT_NONE 0
#define FAULT_NO_EXPORT 1
#define FAULT_KIND 2
#define FAULT_NO_DESCRIPTOR 3
#define FAULT_FAILING_KIND 4
#define FAULT_THROWING 5

namespace {

// Script reads `answer`, which is 42.
class Sample : public tarvik::Plugin<Sample> {
  public:
    static std::span<const tarvik::Member<Sample>> Members() {
        static constexpr auto members =
            tarvik::NumberedMembers({tarvik::ReadOnly<&Sample::Answer>(L"answer")});
        return members;
    }
    int Answer() { return 42; }
};

class FaultyDescriptor : public tarvik::detail::PluginDescriptor {
  public:
    using PluginDescriptor::PluginDescriptor;
    STDMETHODIMP GetKind(int* kind, int) override {
        if (SAMPLE_FAULT == FAULT_THROWING) throw std::runtime_error("thrown by a library");
        *kind = SAMPLE_FAULT == FAULT_KIND ? TVK::kPluginKind + 1 : TVK::kPluginKind;
        return SAMPLE_FAULT == FAULT_FAILING_KIND ? E_ABORT : S_OK;
    }
};

}  // namespace

#if SAMPLE_FAULT == FAULT_NONE
TARVIK_PLUGIN(Sample, SAMPLE_NAME, TVK::kTransientPlugin)
#elif SAMPLE_FAULT != FAULT_NO_EXPORT
extern "C" __declspec(dllexport) HRESULT __stdcall CreateInterface(REFIID, void** out) {
    *out = nullptr;
    if (SAMPLE_FAULT == FAULT_NO_DESCRIPTOR) return E_OUTOFMEMORY;
    *out = new FaultyDescriptor(SAMPLE_NAME, TVK::kTransientPlugin);
    return S_OK;
}
#endif

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_PROCESS_DETACH) OutputDebugStringW(SAMPLE_MODULE);
    return TRUE;
}
