#include "plugins/zip/unzip_task.h"

#include "base/path.h"
#include "plugins/zip/archive_task.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

class UnzipTask : public ArchiveTask {
  public:
    using ArchiveTask::ArchiveTask;

  protected:
    ExtractOptions ReadOptions() {
        const ScriptObject& given = Given();
        const auto dest = given.Get<std::wstring>(L"dest");
        if (!dest || dest->empty()) throw StatusError(E_INVALIDARG);
        // SHCreateDirectory needs an absolute path, and the current folder may change meanwhile.
        return {FullPath(*dest), given.Get<bool>(L"overWrite", false), Progress().AsDispatch(), &Context()};
    }
};

// By contract the two tasks pass the arguments of `fail` in different orders.
class UnzipFileTask : public UnzipTask {
  public:
    using UnzipTask::UnzipTask;

  private:
    HRESULT Work() override {
        const ScriptObject& given = Given();
        const ExtractOptions options = ReadOptions();
        const auto index = given.Get<AnyInt32>(L"index");
        Plugin().ExtractFile(given.Get<std::wstring>(L"src", {}),
                             static_cast<ULONG>(index ? index->value : 0), options);
        return S_OK;
    }
    void Fail(HRESULT status) override {
        const Variant code = Variant::I4(status);
        CallScriptFunction(Failure().AsDispatch(), {&Context(), &code});
    }
};

// Whether all of the memory is readable now. A script may pass any number as an address.
bool IsReadable(Bytes bytes) {
    constexpr DWORD kReadable = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READ |
                                PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    auto address = reinterpret_cast<ULONG_PTR>(bytes.data());
    const ULONG_PTR end = address + bytes.size();
    if (end < address) return false;
    while (address < end) {
        MEMORY_BASIC_INFORMATION pages = {};
        if (!VirtualQuery(reinterpret_cast<const void*>(address), &pages, sizeof pages)) return false;
        if (pages.State != MEM_COMMIT || !(pages.Protect & kReadable) || pages.Protect & PAGE_GUARD)
            return false;
        address = reinterpret_cast<ULONG_PTR>(pages.BaseAddress) + pages.RegionSize;
    }
    return true;
}

class UnzipMemoryTask : public UnzipTask {
  public:
    using UnzipTask::UnzipTask;

  private:
    HRESULT Work() override {
        const Bytes source = ReadSource(Given());
        Plugin().ExtractMemory(source, ReadOptions());
        return S_OK;
    }
    void Fail(HRESULT status) override {
        const Variant none = Variant::Object(nullptr);
        const Variant code = Variant::I4(status);
        CallScriptFunction(Failure().AsDispatch(), {&none, &Context(), &code});
    }

    static Bytes ReadSource(const ScriptObject& given) {
        // By contract the eight data bytes of a value of any type are the address.
        const Variant buffer = given.Get(L"buffer");
        Variant length = given.Get(L"length");
        if (buffer.Is(VT_EMPTY) || length.Is(VT_EMPTY) || !length.ChangeType(VT_UI4))
            throw StatusError(E_INVALIDARG);
        const Bytes bytes(static_cast<const std::uint8_t*>(buffer.byref), length.ulVal);
        if (!IsReadable(bytes)) throw StatusError(E_INVALIDARG);
        return bytes;
    }
};

}  // namespace

HRESULT StartUnzip(IDispatch* plugin, const ScriptObject& options) {
    // A `src` of any type selects the file.
    if (options.Get(L"src").Is(VT_EMPTY))
        return StartWorker(std::make_unique<UnzipMemoryTask>(plugin, options));
    return StartWorker(std::make_unique<UnzipFileTask>(plugin, options));
}

}  // namespace tarvik
