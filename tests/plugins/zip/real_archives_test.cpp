#include <filesystem>

#include "tests/plugins/zip/zip_fixture.h"

// Archives of common programs (see make_archives), and archives for them (see check_archives).
namespace tarvik {
namespace {

namespace fs = std::filesystem;

TEST_F(Unzip, ExtractsArchivesOfCommonPrograms) {
    const std::pair<const char*, const char*> archives[] = {
        {"zip.zip", "ascii"},        {"zip-stored.zip", "ascii"}, {"bsdtar.zip", "tree"},
        {"bsdtar-dots.zip", "tree"}, {"7z.zip", "tree"},          {"python.zip", "tree"},
        {"attached.exe", "ascii"},   {"adjusted.exe", "ascii"},
    };
    const fs::path made = fs::absolute("archives");
    for (const auto& [archive, tree] : archives) {
        SCOPED_TRACE(archive);
        ASSERT_EQ(Run(OptionsFor("").Set(L"src", (made / archive).c_str())).text, kSuccess);
        EXPECT_EQ(ReadTree(Dest()), ReadTree((made / tree).wstring()));
        EXPECT_EQ(fs::last_write_time(fs::path(Dest()) / "deep/er/lines.txt"),
                  fs::last_write_time(made / tree / "deep/er/lines.txt"));
        fs::remove_all(Dest());
    }
}

// Leaves the archives for check_archives.
class PackedTrees : public Zip {
  protected:
    std::string PackForOthers(const std::string& tree) {
        const fs::path archive = fs::absolute("packed") / (tree + ".zip");
        fs::create_directories(archive.parent_path());
        const OptionObject options = PackingOf(fs::absolute("archives") / tree);
        EXPECT_EQ(Pack(options.Set(L"dest", archive.c_str()).Set(L"overWrite", true)).text, kSuccess);
        return ReadFileBytes(archive);
    }
};

TEST_F(PackedTrees, AreExtractedUnchanged) {
    EXPECT_EQ(RunOn(PackForOthers("tree")).text, kSuccess);
    EXPECT_EQ(ReadTree(Dest()), ReadTree(fs::absolute("archives/tree")));
    EXPECT_EQ(fs::last_write_time(fs::path(Dest()) / "plain.txt"),
              fs::last_write_time("archives/tree/plain.txt"));
}

TEST_F(PackedTrees, MayBeLarge) {
    EXPECT_EQ(EntryNames(PackForOthers("many")).size(), 10'010u);
}

}  // namespace
}  // namespace tarvik
