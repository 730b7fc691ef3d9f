#pragma once

#include "archive/archive_reader.h"
#include "archive/decoded_name.h"
#include "plugins/zip/zip_plugin.h"
#include "tarvik/text.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/test.h"

namespace tarvik {

// For an archive in a file, where the context is the first argument.
inline std::string UnzipFailText(HRESULT status) {
    return "fail: EMPTY, I4 " + std::to_string(status);
}

// Calls unzip as a script does and pumps messages until the task has ended. Exactly one of `success` and
// `fail` must be called, and the task must release all references.
class Unzip : public testing::Test {
  protected:
    void TearDown() override {
        plugin_.Reset();
        EXPECT_TRUE(PumpUntil([&] { return detail::liveComObjects == objectsBefore_; }));
    }

    Completion RunMember(const wchar_t* member, const OptionObject& options, Recorder::Handler handler) {
        Completion completion = RunToCompletion(plugin_.Get(), member, options, std::move(handler));
        EXPECT_NE(completion.text, "");
        return completion;
    }
    Completion Run(const OptionObject& options, Recorder::Handler handler = {}) {
        return RunMember(L"unzip", options, std::move(handler));
    }

    // Options that extract an archive from a file to Dest().
    OptionObject OptionsFor(const std::string& archive) const {
        OptionObject options;
        return options.Set(L"src", folder_.Write(L"archive.zip", archive).c_str())
            .Set(L"dest", Dest().c_str());
    }
    Completion RunOn(const std::string& archive, Recorder::Handler handler = {}) {
        return Run(OptionsFor(archive), std::move(handler));
    }
    // An answer of progress that skips the member with this call.
    static Recorder::Handler SkippingAt(std::string call) {
        return [call = std::move(call)](const Recorder::Record& record) {
            return Recorder::Text(record) == call ? Variant::I4(0) : Variant();
        };
    }
    std::wstring Dest() const { return folder_ / L"out"; }

    const long objectsBefore_ = detail::liveComObjects;
    const TempFolder folder_;
    ComPtr<CZipPlugin> plugin_ = MakeCom<CZipPlugin>();
};

// The names in an archive, in the order of the archive.
inline std::vector<std::string> EntryNames(const std::string& archive) {
    ArchiveReader reader(BytesOf(archive));
    std::vector<std::string> names;
    for (mz_uint i = 0; i < reader.Count(); ++i)
        names.push_back(Narrow(DecodedName(reader.Lookup(i))));
    return names;
}

// Calls zip as a script does, until the task has ended. The sources are in Source().
class Zip : public Unzip {
  protected:
    Completion Pack(const OptionObject& options, Recorder::Handler handler = {}) {
        return RunMember(L"zip", options, std::move(handler));
    }
    OptionObject PackingOf(const std::wstring& source) const {
        return OptionObject().Set(L"src", source.c_str()).Set(L"dest", Archive().c_str());
    }
    std::vector<std::string> PackedNames() const { return EntryNames(ReadFileBytes(Archive())); }

    std::wstring Source() const { return folder_ / L"source"; }
    std::wstring Archive() const { return folder_ / L"packed.zip"; }
};

}  // namespace tarvik
