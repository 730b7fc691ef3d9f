#include "app/self_unpack.h"

#include <atomic>
#include <cwchar>

#include "archive/mapped_file.h"
#include "base/path.h"
#include "plugins/zip/zip_plugin.h"
#include "script/object.h"
#include "tarvik/owners.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

// Stands in for a script function: records the call and wakes the waiting thread. The worker of `minizip`
// calls it directly, because both are in the multi-threaded apartment.
class CExtractCallback : public ComObject<IDispatch> {
  public:
    explicit CExtractCallback(HANDLE event) : event_(event) {}
    bool WasCalled() const { return called_; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return OneTypeInfo(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override {
        return DefaultTypeInfo(index, locale, out);
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        called_ = true;
        if (event_) SetEvent(event_);
        return S_OK;
    }

  private:
    std::atomic<bool> called_{false};
    HANDLE event_;  // not owned
};

std::wstring TempFolderPath() {
    wchar_t temp[kPathLength] = {};
    if (GetEnvironmentVariableW(L"temp", temp, kPathLength) >= kPathLength) throw StatusError(E_FAIL);
    return temp;
}

std::wstring UniqueFolderName() {
    wchar_t name[16] = {};
    _snwprintf(name, std::size(name), L"TV%08lX", GetTickCount());
    return name;
}

void UnpackInto(const std::wstring& folder) {
    const auto zip = MakeCom<CZipPlugin>();
    const UniqueHandle finished(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!finished) ThrowLastError();
    const auto success = MakeCom<CExtractCallback>(finished.Get());
    const auto fail = MakeCom<CExtractCallback>(finished.Get());

    const ScriptObject options(MakeCom<CObject>().Get());
    options.Set(L"src", ExecutablePath());
    options.Set(L"dest", folder);
    options.Set(L"success", success.Get());
    options.Set(L"fail", fail.Get());
    // If the call itself fails, no callback would end the wait.
    ScriptObject(zip.Get()).Call(L"unzip", options);
    WaitForSingleObject(finished.Get(), INFINITE);
    if (!success->WasCalled()) throw StatusError(E_FAIL);
}

}  // namespace

bool HasAttachedArchive() {
    bool isFound = false;
    (void)Guard([&] { isFound = FindArchive(MappedFile(ExecutablePath()).Content(), 0).has_value(); });
    return isFound;
}

HRESULT SelfUnpack(UnpackFolder& folder) {
    const HRESULT status = Guard([&] {
        const std::wstring temp = TempFolderPath();
        UnpackFolder::RemoveAbandoned(temp);
        folder.Create(temp, UniqueFolderName());
        UnpackInto(folder.Path());
        SetCurrentDirectoryW(folder.Path().c_str());
    });
    if (FAILED(status)) folder.Remove();
    return status;
}

void RemoveUnpacked(UnpackFolder& folder) {
    if (folder.Path().empty()) return;
    // Windows does not delete the current folder of a process.
    SetCurrentDirectoryW((folder.Path() + L"\\..").c_str());
    folder.Remove();
}

}  // namespace tarvik
