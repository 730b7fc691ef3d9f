#pragma once

#include <string>
#include <vector>

#include "archive/archive_finder.h"
#include "host/plugin_registry/plugin_base.h"
#include "plugins/zip/context.h"
#include "tarvik/script_object.h"
#include "tarvik/stream.h"

namespace tarvik {

struct ExtractOptions {
    std::wstring dest;
    bool overWrite = false;
    IDispatch* progress = nullptr;  // borrowed, may be null
    const VARIANT* context = nullptr;
};

struct CreateOptions {
    std::vector<std::wstring> sources;  // files and folders, as in the option `src`
    std::wstring dest;                  // the archive's path, unless there is a stream
    TVK::IStream* stream = nullptr;     // borrowed, used on the calling thread without a proxy
    bool overWrite = false;
    IDispatch* progress = nullptr;  // borrowed, may be null
    const VARIANT* context = nullptr;
};

// `minizip`: packs and extracts archives on worker threads. It has no state, so tasks share nothing.
class CZipPlugin : public SmallPlugin<CZipPlugin, SmallRules, As<IContextImpl<CZipPlugin>, IContext>> {
  public:
    static std::span<const Member<CZipPlugin>> Members();

    // Extract an archive from a file or from memory. `index` counts the archives in a file from its end; the
    // last is 0. Failures are thrown. A failure deletes the destination folder if the call created it;
    // otherwise the folder keeps the files extracted so far.
    void ExtractFile(const std::wstring& src, ULONG index, const ExtractOptions& options);
    void ExtractMemory(Bytes archive, const ExtractOptions& options);

    // Packs files and folders. Failures are thrown. A failure deletes the new file; a stream keeps the bytes
    // written so far.
    void CreateArchive(const CreateOptions& options);

    HRESULT Unzip(const Call& call);
    HRESULT Zip(const Call& call);

  private:
    using StartFunction = HRESULT (*)(IDispatch* plugin, const ScriptObject& options);
    HRESULT Start(StartFunction start, const Call& call);
};

}  // namespace tarvik
