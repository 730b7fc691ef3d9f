#pragma once

#include <string>
#include <vector>

#include "archive/archive_finder.h"
#include "tarvik/stream.h"
#include "host/plugin_registry/plugin_base.h"
#include "plugins/zip/context.h"
#include "tarvik/options.h"

namespace tarvik {

struct ExtractOptions {
    std::wstring dest;
    bool overWrite = false;
    IDispatch* progress = nullptr;  // borrowed, may be null
    const VARIANT* context = nullptr;
};

struct CreateOptions {
    std::vector<std::wstring> sources;  // files and folders, as script wrote them
    std::wstring dest;                  // the archive's path, unless there is a stream
    TVK::IStream* stream = nullptr;     // borrowed, used on the calling thread as it is
    bool overWrite = false;
    IDispatch* progress = nullptr;  // borrowed, may be null
    const VARIANT* context = nullptr;
};

// `minizip`: archives, each run on a thread of its own. It holds no state, so runs share nothing.
class CZipPlugin : public SmallPlugin<CZipPlugin, SmallRules, As<IContextImpl<CZipPlugin>, IContext>> {
  public:
    static std::span<const Member<CZipPlugin>> Members();

    // Extracts the archive that lies in the file `src`, found from the end of the file; 0 is the last one.
    // A failure of these two is thrown; then a `dest` that the call made is gone again, and another one keeps
    // what was extracted so far.
    void ExtractFile(const std::wstring& src, ULONG index, const ExtractOptions& options);
    void ExtractMemory(Bytes archive, const ExtractOptions& options);

    // Packs files and folders. A failure is thrown; then the new file is gone again, and a stream keeps what
    // was written so far.
    void CreateArchive(const CreateOptions& options);

    HRESULT Unzip(const Call& call);
    HRESULT Zip(const Call& call);

  private:
    using StartRun = HRESULT (*)(IDispatch* plugin, const Options& options);
    HRESULT Start(StartRun start, const Call& call);
};

}  // namespace tarvik
