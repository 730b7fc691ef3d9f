#include "plugins/file/enum_files.h"

#include "base/walk_folder.h"
#include "tarvik/marshaled_object.h"
#include "tarvik/properties.h"
#include "tarvik/status.h"
#include "tarvik/worker.h"

namespace tarvik {

namespace {

// The worker reads the other options from the script object itself, so a relative path refers to the current
// folder at that moment.
class EnumFilesWorker : public Worker {
  public:
    EnumFilesWorker(const ScriptObject& options, const ScriptObject& callback, const ScriptObject& completed)
        : options_(options), callback_(callback), completed_(completed) {}

    HRESULT Run() override {
        const HRESULT status = Guard([this] { return Walk(); });
        CallScriptFunction(completed_.Get().AsDispatch());
        return status;
    }

  private:
    HRESULT Walk() {
        const ScriptObject& given = options_.Get();
        const auto path = given.Get<std::wstring>(L"path");
        const auto filter = given.Get<std::wstring>(L"filter");
        // WalkFolder would take an empty path for the root of the current drive.
        if (!path || path->empty()) return E_INVALIDARG;
        return WalkFolder(*path, filter ? filter->c_str() : nullptr, given.Get<bool>(L"recursive", true),
                          [this](const std::wstring& entry, DWORD attributes, ULONGLONG size) {
                              return OnEnumEntry(entry, attributes, size);
                          });
    }

    // Only false stops the walk; a script error does not.
    HRESULT OnEnumEntry(const std::wstring& path, DWORD attributes, ULONGLONG size) {
        const Variant name = Variant::Text(path);
        const Variant bits = Variant::UI4(attributes);
        const Variant bytes = Variant::R8(static_cast<double>(size));
        Variant result;
        CallScriptFunction(callback_.Get().AsDispatch(), {&name, &bits, &bytes}, &result);
        return IsFalse(result) ? E_ABORT : S_OK;
    }

    MarshaledObject options_;
    MarshaledObject callback_;
    MarshaledObject completed_;
};

}  // namespace

HRESULT StartEnumFiles(const ScriptObject& options) {
    const ScriptObject callback = options.Function(L"callback");
    const ScriptObject completed = options.Function(L"completed");
    if (!callback || !completed) return S_OK;
    return StartWorker(std::make_unique<EnumFilesWorker>(options, callback, completed));
}

}  // namespace tarvik
