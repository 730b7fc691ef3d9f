#include <filesystem>

#include "tests/plugins/zip/zip_fixture.h"

// Archives of common programs (see make_archives), and archives for them (see check_archives).
namespace tarvik {
namespace {

namespace fs = std::filesystem;

TEST_F(Unzip, ExtractsArchivesOfCommonPrograms) {
    const struct {
        const char* name;
        const char* tree;  // the expected contents
        int index = 0;
    } archives[] = {
        {"zip.zip", "ascii"},     {"zip-stored.zip", "ascii"}, {"zip-comment.zip", "ascii"},
        {"bsdtar.zip", "tree"},   {"bsdtar-dots.zip", "tree"}, {"7z.zip", "tree"},
        {"python.zip", "tree"},   {"attached.exe", "ascii"},   {"adjusted.exe", "ascii"},
        {"twice.exe", "tree", 0}, {"twice.exe", "ascii", 1},
    };
    const fs::path made = fs::absolute("archives");
    for (const auto& archive : archives) {
        SCOPED_TRACE(archive.name);
        const OptionObject options = OptionsFor("").Set(L"src", (made / archive.name).c_str());
        ASSERT_EQ(Run(options.Set(L"index", archive.index)).text, kSuccess);
        const fs::path expected = made / archive.tree;
        EXPECT_EQ(ReadTree(Dest()), ReadTree(expected.wstring()));
        EXPECT_EQ(fs::last_write_time(fs::path(Dest()) / "deep/er/lines.txt"),
                  fs::last_write_time(expected / "deep/er/lines.txt"));
        fs::remove_all(Dest());
    }
}

class PackedTrees : public Zip {
  protected:
    // Leaves the archive for check_archives.
    std::wstring PackForOthers(const std::string& tree) {
        const fs::path archive = fs::absolute("packed") / (tree + ".zip");
        fs::create_directories(archive.parent_path());
        const Variant context;
        CreateOptions options;
        options.sources = {fs::absolute("archives") / tree};
        options.dest = archive;
        options.overWrite = true;
        options.context = &context;
        plugin_->CreateArchive(options);
        return archive;
    }
};

TEST_F(PackedTrees, AreExtractedUnchanged) {
    EXPECT_EQ(RunOn(ReadFileBytes(PackForOthers("tree"))).text, kSuccess);
    EXPECT_EQ(ReadTree(Dest()), ReadTree(fs::absolute("archives/tree")));
}

TEST_F(PackedTrees, MayBeLarge) {
    EXPECT_EQ(EntryNames(ReadFileBytes(PackForOthers("many"))).size(), 10'010u);
}

}  // namespace
}  // namespace tarvik
