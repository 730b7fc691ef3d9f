#include "plugins/zip/zip_task.h"

#include "plugins/zip/archive_task.h"

namespace tarvik {

namespace {

class ZipTask : public ArchiveTask {
  public:
    ZipTask(IDispatch* plugin, const Options& options)
        : ArchiveTask(plugin, options),
          sourceArray_(options.Object(L"src").Get()),
          stream_(Query<TVK::IStream>(options.Object(L"dest").Get())) {}

  private:
    HRESULT Work() override {
        const Options given = Given();
        const auto dest = given.Text(L"dest");
        if (!stream_ && !dest) throw StatusError(E_FAIL);
        CreateOptions options;
        options.sources = ReadSources(given);
        options.dest = dest.value_or(std::wstring());
        options.stream = stream_.Get();
        options.overWrite = given.Flag(L"overWrite");
        options.progress = Progress();
        options.context = &Context();
        Plugin().CreateArchive(options);
        return S_OK;
    }

    std::vector<std::wstring> ReadSources(const Options& given) {
        if (IDispatch* array = sourceArray_.Get()) return ReadArray(Options(array));
        return {Path(given, L"src")};
    }

    static std::vector<std::wstring> ReadArray(const Options& array) {
        UInt64 count;
        const Variant length = array.Value(L"length");
        if (length.Is(VT_EMPTY) || !FromVariant(length, count)) throw StatusError(E_FAIL);
        std::vector<std::wstring> paths;
        for (ULONGLONG i = 0; i < count.value; ++i)
            paths.push_back(Path(array, std::to_wstring(i).c_str()));
        return paths;
    }

    static std::wstring Path(const Options& from, const wchar_t* name) {
        auto path = from.Text(name);
        if (!path) throw StatusError(E_FAIL);
        return *std::move(path);
    }

    MarshaledObject sourceArray_;
    ComPtr<TVK::IStream> stream_;  // used directly, without a proxy
};

}  // namespace

HRESULT StartZip(IDispatch* plugin, const Options& options) {
    return StartWorker(std::make_unique<ZipTask>(plugin, options));
}

}  // namespace tarvik
