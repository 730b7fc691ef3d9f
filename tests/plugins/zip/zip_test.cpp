#include "plugins/stream/stream_plugin.h"
#include "script/object.h"
#include "tarvik/text.h"
#include "tests/plugins/zip/zip_fixture.h"

// The options, callbacks and destinations of zip.
namespace tarvik {
namespace {

template <class... Elements>
ComPtr<CArray> ArrayOf(Elements&&... elements) {
    auto array = MakeCom<CArray>();
    [[maybe_unused]] const auto push = [&](const Variant& element) { array->Push(&element); };
    (push(Argument(std::forward<Elements>(elements))), ...);
    return array;
}

TEST_F(Zip, ReportsEveryWriteWithItsEntry) {
    const std::wstring first = folder_.Write(L"source\\a.txt", "12345");
    const std::wstring second = folder_.Write(L"source\\b.txt", "123");
    const Completion completion = Pack(PackingOf(Source()).Set(L"context", L"c"));
    EXPECT_EQ(completion.text, "success: BSTR c");
    const auto call = [](const std::wstring& path) {
        return "BSTR " + Narrow(path) + ", UI8 8, UI8 0, BSTR c";
    };
    // A header, its name, the data, the header again; after the last entry the directory and its end.
    std::vector<std::string> expected(4, call(first));
    expected.insert(expected.end(), 6, call(second));
    EXPECT_EQ(completion.progress, expected);
}

TEST_F(Zip, StopsOnlyIfProgressReturnsFalse) {
    folder_.Write(L"source\\a.txt", "12345");
    const OptionObject options = PackingOf(Source()).Set(L"overWrite", true);
    const auto run = [&](const Variant& answer) {
        return Pack(options, [&](const Recorder::Record&) { return Variant::Copy(answer); });
    };
    EXPECT_EQ(run(Variant::I4(0)).text, kSuccess);
    // At any call, even for a folder, which writes no data.
    folder_.Write(L"source\\folder\\b.txt", "1");
    const size_t calls = run(Variant()).progress.size();
    for (size_t last = 1; last <= calls; ++last) {
        size_t call = 0;
        const Completion stopped =
            Pack(options, [&](const Recorder::Record&) { return Variant::Bool(++call != last); });
        EXPECT_EQ(stopped.text, FailText(E_FAIL)) << last << " of " << calls;
        EXPECT_EQ(stopped.progress.size(), last);
        EXPECT_FALSE(FileExists(Archive()));
    }
}

TEST_F(Zip, PacksSeveralSourcesInOrder) {
    folder_.Write(L"source\\z", "1");
    folder_.Write(L"source\\deep\\er\\a", "2");
    folder_.Write(L"source\\deep\\b", "3");
    const std::wstring empty = Source() + L"\\none";
    CreateDirectoryW(empty.c_str(), nullptr);
    const std::wstring file = folder_.Write(L"other\\single.txt", "4");
    const auto sources = ArrayOf(file.c_str(), Source().c_str(), empty.c_str());
    EXPECT_EQ(Pack(PackingOf(L"").Set(L"src", sources)).text, kSuccess);
    EXPECT_THAT(PackedNames(),
                ElementsAre("single.txt", "deep/b", "deep/er/a", "deep/er/", "deep/", "none/", "z"))
        << "folders follow their contents, and the source folder has no entry";
}

TEST_F(Zip, CreatesAnEmptyArchive) {
    CreateDirectoryW(Source().c_str(), nullptr);
    const OptionObject options = PackingOf(Source()).Set(L"overWrite", true);
    EXPECT_THAT(Pack(options).progress, ElementsAre("BSTR , UI8 0, UI8 0, EMPTY"));
    EXPECT_EQ(Pack(options.Set(L"src", ArrayOf())).text, kSuccess);
    EXPECT_THAT(PackedNames(), IsEmpty());
    EXPECT_EQ(RunOn(ReadFileBytes(Archive())).text, kSuccess);
}

TEST_F(Zip, MarshalsObjectsAtOnceAndReadsOtherOptionsLater) {
    const std::wstring file = folder_.Write(L"source\\a.txt", "12345");
    OptionObject options = PackingOf(L"");
    options.Set(L"src", ArrayOf(file.c_str())).Set(L"dest", 5);
    CallMember(plugin_.Get(), L"zip", static_cast<IDispatch*>(options));
    options.Set(L"src", L"nothing").Set(L"dest", Archive().c_str());
    EXPECT_TRUE(PumpUntil([&] { return plugin_->AddRef(), plugin_->Release() == 1; }));
    EXPECT_THAT(PackedNames(), ElementsAre("a.txt"));
}

TEST_F(Zip, WritesTheSameBytesToAStream) {
    folder_.Write(L"source\\a.txt", std::string(500'000, 'a'));
    folder_.Write(L"source\\b.txt", "b");
    const OptionObject options = PackingOf(Source());
    EXPECT_EQ(Pack(options).text, kSuccess);
    const std::string expected = ReadFileBytes(Archive());

    const auto ofHost = MakeCom<CStreamPlugin>();
    EXPECT_EQ(Pack(options.Set(L"dest", ofHost)).text, kSuccess);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(ofHost->GetBuffer()), ofHost->GetSize()), expected);
}

}  // namespace
}  // namespace tarvik
