#include "tests/plugins/zip/zip_fixture.h"

#include "base/text.h"
#include "plugins/zip/archive_reader.h"

namespace tarvik {

OptionObject Zip::PackingOf(const std::wstring& source) {
    OptionObject options;
    options.Set(L"src", source.c_str()).Set(L"dest", Archive().c_str());
    return options;
}

std::string ZipFailText(HRESULT status) {
    return "fail: I4 " + std::to_string(status) + ", EMPTY";
}

std::vector<std::string> EntryNames(const std::string& archive) {
    ArchiveReader reader(BytesOf(archive));
    std::vector<std::string> names;
    for (mz_uint i = 0; i < reader.Count(); ++i)
        names.push_back(Narrow(reader.Name(reader.Statistics(i))));
    return names;
}

}  // namespace tarvik
