#include "plugins/zip/zip_plugin.h"

#include "base/text.h"
#include "script/async.h"
#include "script/properties.h"

namespace tarvik {

namespace {

[[maybe_unused]] const bool registered = RegisterBuiltIn<CZipPlugin>(L"minizip", TVK::kTransientPlugin);

constexpr SmallMember<CZipPlugin> kMembers[] = {
    {-6999, L"unzip", &CZipPlugin::Unzip},
};

CZipPlugin* PluginOf(const AsyncTask& task) {
    const auto context = Query<IContext>(task.self.Get());
    return context ? static_cast<CZipPlugin*>(context->GetContext()) : throw StatusError(E_FAIL);
}

ExtractOptions ReadOptions(const AsyncTask& task) {
    const auto dest = task.options.Text(L"dest");
    if (!dest || dest->empty()) throw StatusError(E_INVALIDARG);
    // The system makes no folder that is named from the current one, and that may change during the run.
    return {FullPath(*dest), task.options.Flag(L"overWrite"), task.progress.Get(), &task.context};
}

HRESULT UnzipFile(const AsyncTask& task) {
    const ExtractOptions options = ReadOptions(task);
    const auto index = static_cast<ULONG>(task.options.Integer(L"index").value_or(0));
    PluginOf(task)->ExtractFile(task.options.Text(L"src").value_or(std::wstring()), index, options);
    return S_OK;
}

// Whether every page can be read at this moment. Pages may hand in any number as an address.
bool IsReadable(Bytes bytes) {
    constexpr DWORD kReadable = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READ |
                                PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    auto at = reinterpret_cast<ULONG_PTR>(bytes.data());
    const ULONG_PTR end = at + bytes.size();
    if (end < at) return false;
    while (at < end) {
        MEMORY_BASIC_INFORMATION pages = {};
        if (!VirtualQuery(reinterpret_cast<const void*>(at), &pages, sizeof pages)) return false;
        if (pages.State != MEM_COMMIT || !(pages.Protect & kReadable) || pages.Protect & PAGE_GUARD)
            return false;
        at = reinterpret_cast<ULONG_PTR>(pages.BaseAddress) + pages.RegionSize;
    }
    return true;
}

Bytes ReadMemorySource(const Options& options) {
    // Whatever its kind, the eight bytes of the value are the address.
    const Variant buffer = options.Value(L"buffer");
    Variant length = options.Value(L"length");
    if (buffer.Is(VT_EMPTY) || length.Is(VT_EMPTY) || !length.ChangeType(VT_UI4))
        throw StatusError(E_INVALIDARG);
    const Bytes bytes(static_cast<const std::uint8_t*>(buffer.byref), length.ulVal);
    if (!IsReadable(bytes)) throw StatusError(E_INVALIDARG);
    return bytes;
}

HRESULT UnzipMemory(const AsyncTask& task) {
    const Bytes source = ReadMemorySource(task.options);
    PluginOf(task)->ExtractMemory(source, ReadOptions(task));
    return S_OK;
}

// The two orders of fail differ on purpose: scripts are written against them.
void FailFile(const AsyncTask& task, HRESULT status) {
    const Variant code = Variant::I4(status);
    CallScriptFunction(task.fail.Get(), {&task.context, &code});
}

void FailMemory(const AsyncTask& task, HRESULT status) {
    const Variant none = Variant::Object(nullptr);
    const Variant code = Variant::I4(status);
    CallScriptFunction(task.fail.Get(), {&none, &task.context, &code});
}

constexpr AsyncMember kFromFile = {UnzipFile, SucceedWithContext, FailFile};
constexpr AsyncMember kFromMemory = {UnzipMemory, SucceedWithContext, FailMemory};

}  // namespace

std::span<const SmallMember<CZipPlugin>> CZipPlugin::Members() {
    return kMembers;
}

HRESULT CZipPlugin::Unzip(WORD flags, const Call& call) {
    if (!(flags & DISPATCH_METHOD)) return E_NOTIMPL;
    IDispatch* options = nullptr;
    if (call.Count() == 0 || !Read(call.At(0), options) || !options) return E_INVALIDARG;
    // The presence of `src`, of whatever kind, chooses the source.
    const bool fromFile = !ReadScriptProperty(options, L"src").Is(VT_EMPTY);
    StartAsync(fromFile ? kFromFile : kFromMemory, this, options);
    return S_OK;
}

}  // namespace tarvik
