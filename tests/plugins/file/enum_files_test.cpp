#include "tarvik/text.h"
#include "tests/plugins/file/file_fixture.h"

namespace tarvik {
namespace {

class EnumFiles : public File {
  protected:
    EnumFiles() {
        folder_.Write(L"tree\\a.txt", "12345");
        folder_.Write(L"tree\\inner\\b.txt", "1");
    }

    // The calls in order, with paths relative to the tree: "a.txt, UI4 32, R8 5.000000", and `completed`
    // last.
    std::vector<std::string> List(const OptionObject& options, Recorder::Handler handler = {}) {
        Completion completion = RunToCompletion(plugin_.Get(), L"enumFiles", options, std::move(handler));
        EXPECT_EQ(completion.result, "EMPTY");
        const std::string top = "BSTR " + Narrow(folder_ / L"tree") + "\\";
        for (std::string& text : completion.progress)
            if (text.starts_with(top)) text.erase(0, top.size());
        completion.progress.push_back(completion.text);
        return completion.progress;
    }
    OptionObject Tree() const { return OptionObject().Set(L"path", (folder_ / L"tree").c_str()); }

    static constexpr char kFile[] = "a.txt, UI4 32, R8 5.000000";
    static constexpr char kInnerFile[] = "inner\\b.txt, UI4 32, R8 1.000000";
    static constexpr char kInner[] = "inner, UI4 16, R8 0.000000";
    static constexpr char kCompleted[] = "success: ";
};

TEST_F(EnumFiles, ReportsEachEntryAndThenCompletes) {
    const OptionObject options = Tree();
    const auto all = ElementsAre(kFile, kInnerFile, kInner, kCompleted);
    EXPECT_THAT(List(options), all);
    EXPECT_THAT(List(options.Set(L"recursive", L"no boolean, so it counts as true")), all);
    EXPECT_THAT(List(options.Set(L"recursive", false)), ElementsAre(kFile, kInner, kCompleted));
    options.Set(L"recursive", true);
    EXPECT_THAT(List(options.Set(L"filter", L"b\\.txt$")), ElementsAre(kInnerFile, kCompleted));
    EXPECT_THAT(List(options.Set(L"filter", L"(not an expression")), all) << "filters nothing";
    EXPECT_THAT(List(options.Set(L"path", (folder_ / L"missing").c_str())), ElementsAre(kCompleted));
    EXPECT_THAT(List(options.Set(L"path", L"tree")), ElementsAre(kCompleted))
        << "relative to the current folder, not to the page";
}

TEST_F(EnumFiles, StopsOnlyAtFalse) {
    const auto stop = [](const Recorder::Record&) { return Variant::Bool(false); };
    EXPECT_THAT(List(Tree(), stop), ElementsAre(kFile, kCompleted));
    EXPECT_THAT(List(Tree().Set(L"filter", L"inner"), stop), ElementsAre(kInnerFile, kCompleted))
        << "in a subfolder";
    EXPECT_THAT(List(Tree(), [](const Recorder::Record&) { return Variant::I4(0); }).size(), 4u);
}

TEST_F(EnumFiles, StartsNothingWithoutBothFunctions) {
    const auto function = MakeCom<Recorder>();
    for (const wchar_t* name : {L"callback", L"completed"})
        EXPECT_EQ(Call(L"enumFiles", static_cast<IDispatch*>(Tree().Set(name, function))), "EMPTY");
    EXPECT_THAT(function->Texts(), IsEmpty());
}

}  // namespace
}  // namespace tarvik
