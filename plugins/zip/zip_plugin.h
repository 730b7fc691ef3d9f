#pragma once

#include <string>

#include "host/registry/plugin_base.h"
#include "plugins/zip/archive_finder.h"
#include "plugins/zip/context.h"

namespace tarvik {

struct ExtractOptions {
    std::wstring dest;
    bool overWrite = false;
    IDispatch* progress = nullptr;  // borrowed, may be null
    const VARIANT* context = nullptr;
};

// `minizip`: archives, each run on a thread of its own. It holds no state, so runs share nothing.
class CZipPlugin : public SmallPlugin<CZipPlugin, SameCharacters, As<IContextImpl<CZipPlugin>, IContext>> {
  public:
    static std::span<const SmallMember<CZipPlugin>> Members();

    // Extracts the archive that lies in the file `src`, found from the end of the file; 0 is the last one.
    // A failure of these two is thrown; then a `dest` that the call made is gone again, and another one keeps
    // what was extracted so far.
    void ExtractFile(const std::wstring& src, ULONG index, const ExtractOptions& options);
    void ExtractMemory(Bytes archive, const ExtractOptions& options);

    HRESULT Unzip(WORD flags, const Call& call);
};

}  // namespace tarvik
