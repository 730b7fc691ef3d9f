#include <windows.h>

#include "base/text.h"
#include "plugins/stream/stream_plugin.h"
#include "script/object.h"
#include "tests/plugins/zip/memory_stream.h"
#include "tests/plugins/zip/zip_fixture.h"
#include "tests/support/waiting.h"

// The call, its callbacks, how `progress` steers a run, and where the archive goes.
namespace tarvik {
namespace {

using Texts = std::vector<std::string>;

template <class... Elements>
ComPtr<CArray> ArrayOf(Elements&&... elements) {
    auto array = MakeCom<CArray>();
    [[maybe_unused]] const auto push = [&](const Variant& element) { array->Push(&element); };
    (push(ToVariant(std::forward<Elements>(elements))), ...);
    return array;
}

TEST_F(Zip, ReportsEveryWriteWithTheEntryAtHand) {
    const std::wstring first = folder_.Write(L"source\\a.txt", "12345");
    const std::wstring second = folder_.Write(L"source\\b.txt", "123");
    OptionObject options = PackingOf(Source());
    options.Set(L"context", L"c");
    const Ending ending = Pack(options);
    EXPECT_EQ(ending.text, "success: BSTR c");
    const auto call = [](const std::wstring& path) {
        return "BSTR " + Narrow(path) + ", UI8 8, UI8 0, BSTR c";
    };
    // A header, its name, the data, the header again; after the last entry the directory and its end.
    Texts expected(4, call(first));
    expected.insert(expected.end(), 6, call(second));
    EXPECT_EQ(ending.progress, expected);
}

TEST_F(Zip, GoesOnUnlessProgressAnswersFalse) {
    folder_.Write(L"source\\a.txt", "12345");
    OptionObject options = PackingOf(Source());
    options.Set(L"overWrite", true);
    const auto run = [&](const Variant& answer) {
        return Pack(options, [&](const Recorder::Record&) { return Variant::Copy(answer); });
    };
    EXPECT_EQ(run(Variant::Bool(true)).text, kSuccess);
    EXPECT_EQ(run(Variant::I4(0)).text, kSuccess);
    EXPECT_EQ(run(Variant::Text(L"false")).text, kSuccess);
    // At any call, also where nothing is written, as for a folder.
    folder_.Write(L"source\\folder\\b.txt", "1");
    const size_t calls = run(Variant()).progress.size();
    for (size_t last = 1; last <= calls; ++last) {
        size_t call = 0;
        const Ending stopped =
            Pack(options, [&](const Recorder::Record&) { return Variant::Bool(++call != last); });
        EXPECT_EQ(stopped.text, ZipFailText(E_FAIL)) << last << " of " << calls;
        EXPECT_EQ(stopped.progress.size(), last);
        EXPECT_FALSE(FileExists(Archive()));
    }
}

TEST_F(Zip, TakesSeveralSourcesInTheirOrder) {
    folder_.Write(L"source\\z", "1");
    folder_.Write(L"source\\deep\\er\\a", "2");
    folder_.Write(L"source\\deep\\b", "3");
    const std::wstring empty = Source() + L"\\none";
    CreateDirectoryW(empty.c_str(), nullptr);
    const std::wstring file = folder_.Write(L"other\\single.txt", "4");
    OptionObject options = PackingOf(L"");
    options.Set(L"src", ArrayOf(file.c_str(), Source().c_str(), empty.c_str()));
    EXPECT_EQ(Pack(options).text, kSuccess);
    // Folders stand behind their contents, and the folder that was named has no entry.
    EXPECT_EQ(EntryNames(ReadFileBytes(Archive())),
              (Texts{"single.txt", "deep/b", "deep/er/a", "deep/er/", "deep/", "none/", "z"}));
}

TEST_F(Zip, MakesAnEmptyArchiveOfNothing) {
    CreateDirectoryW(Source().c_str(), nullptr);
    OptionObject options = PackingOf(Source());
    options.Set(L"overWrite", true);
    EXPECT_EQ(Pack(options).progress, Texts{"BSTR , UI8 0, UI8 0, EMPTY"});
    options.Set(L"src", ArrayOf());
    EXPECT_EQ(Pack(options).text, kSuccess);
    EXPECT_EQ(EntryNames(ReadFileBytes(Archive())), Texts{});
    EXPECT_EQ(RunOn(ReadFileBytes(Archive())).text, kSuccess);
}

TEST_F(Zip, TakesObjectsAtOnceAndReadsTheRestLate) {
    const std::wstring file = folder_.Write(L"source\\a.txt", "12345");
    OptionObject options = PackingOf(L"");
    options.Set(L"src", ArrayOf(file.c_str())).Set(L"dest", 5);
    CallMember(plugin_.Get(), L"zip", static_cast<IDispatch*>(options));
    options.Set(L"src", L"nothing").Set(L"dest", Archive().c_str());
    EXPECT_TRUE(PumpUntil([&] { return plugin_->AddRef(), plugin_->Release() == 1; }));
    EXPECT_EQ(EntryNames(ReadFileBytes(Archive())), Texts{"a.txt"});
}

TEST_F(Zip, WritesToAStreamWhatItWritesToAFile) {
    folder_.Write(L"source\\a.txt", std::string(500'000, 'a'));
    folder_.Write(L"source\\b.txt", "b");
    OptionObject options = PackingOf(Source());
    EXPECT_EQ(Pack(options).text, kSuccess);
    const std::string expected = ReadFileBytes(Archive());

    const auto ofHost = MakeCom<CStreamPlugin>();
    options.Set(L"dest", ofHost);
    EXPECT_EQ(Pack(options).text, kSuccess);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(ofHost->GetBuffer()), ofHost->GetSize()), expected);

    const auto ofLibrary = MakeCom<MemoryStream>();
    options.Set(L"dest", ofLibrary);
    EXPECT_EQ(Pack(options).text, kSuccess);
    EXPECT_EQ(ofLibrary->bytes, expected);

    // A stream that takes no more ends the run, and keeps what it has.
    const auto full = MakeCom<MemoryStream>(400);
    options.Set(L"dest", full);
    EXPECT_EQ(Pack(options).text, ZipFailText(E_FAIL));
    EXPECT_EQ(full->bytes.size(), 400u);
}

}  // namespace
}  // namespace tarvik
