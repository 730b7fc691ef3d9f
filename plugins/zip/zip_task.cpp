#include "plugins/zip/zip_task.h"

#include "plugins/zip/archive_task.h"

namespace tarvik {

namespace {

class ZipTask : public ArchiveTask {
  public:
    ZipTask(IDispatch* plugin, const ScriptObject& options)
        : ArchiveTask(plugin, options),
          sourceArray_(ObjectIn(options.Get(L"src")).Get()),
          stream_(Query<TVK::IStream>(ObjectIn(options.Get(L"dest")).Get())) {}

  private:
    HRESULT Work() override {
        const ScriptObject& given = Given();
        const auto dest = given.Get<std::wstring>(L"dest");
        if (!stream_ && !dest) throw StatusError(E_FAIL);
        CreateOptions options;
        options.sources = ReadSources(given);
        options.dest = dest.value_or(std::wstring());
        options.stream = stream_.Get();
        options.overWrite = given.Get<bool>(L"overWrite", false);
        options.progress = Progress().AsDispatch();
        options.context = &Context();
        Plugin().CreateArchive(options);
        return S_OK;
    }

    std::vector<std::wstring> ReadSources(const ScriptObject& given) {
        if (const ScriptObject& array = sourceArray_.Get()) return ReadArray(array);
        return {PathIn(given.Get<std::wstring>(L"src"))};
    }

    static std::vector<std::wstring> ReadArray(const ScriptObject& array) {
        UInt64 count;
        const Variant length = array.Get(L"length");
        if (length.Is(VT_EMPTY) || !FromVariant(length, count)) throw StatusError(E_FAIL);
        std::vector<std::wstring> paths;
        for (ULONGLONG i = 0; i < count.value; ++i)
            paths.push_back(PathIn(array.At<std::wstring>(i)));
        return paths;
    }

    static std::wstring PathIn(std::optional<std::wstring> path) {
        if (!path) throw StatusError(E_FAIL);
        return *std::move(path);
    }

    MarshaledObject sourceArray_;
    ComPtr<TVK::IStream> stream_;  // used directly, without a proxy
};

}  // namespace

HRESULT StartZip(IDispatch* plugin, const ScriptObject& options) {
    return StartWorker(std::make_unique<ZipTask>(plugin, options));
}

}  // namespace tarvik
