#include <filesystem>

#include "tests/plugins/zip/zip_fixture.h"

// Archives made by the programs that people use (see make_archives), and made for them (see check_archives).
namespace tarvik {
namespace {

namespace fs = std::filesystem;

struct RealArchive {
    std::string name;
    const char* tree;  // what must come out
    int index = 0;
};

void PrintTo(const RealArchive& archive, std::ostream* out) {
    *out << archive.name << archive.index;
}

const RealArchive kArchives[] = {
    {"zip.zip", "ascii"},     {"zip-stored.zip", "ascii"}, {"zip-comment.zip", "ascii"},
    {"bsdtar.zip", "tree"},   {"bsdtar-dots.zip", "tree"}, {"7z.zip", "tree"},
    {"python.zip", "tree"},   {"attached.exe", "ascii"},   {"adjusted.exe", "ascii"},
    {"twice.exe", "tree", 0}, {"twice.exe", "ascii", 1},
};

class RealArchives : public Unzip, public testing::WithParamInterface<RealArchive> {};

TEST_P(RealArchives, ComeOutAsTheyWentIn) {
    const fs::path made = fs::absolute("archives");
    const OptionObject options = OptionsFor("").Set(L"src", (made / GetParam().name).c_str());
    ASSERT_EQ(Run(options.Set(L"index", GetParam().index)).text, kSuccess);
    const fs::path expected = made / GetParam().tree;
    EXPECT_EQ(ReadTree(Dest()), ReadTree(expected.wstring()));
    EXPECT_EQ(fs::last_write_time(fs::path(Dest()) / "deep/er/lines.txt"),
              fs::last_write_time(expected / "deep/er/lines.txt"));
}

INSTANTIATE_TEST_SUITE_P(, RealArchives, testing::ValuesIn(kArchives));

class PackedTrees : public Zip {
  protected:
    // Left there for check_archives.
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

TEST_F(PackedTrees, ComeOutAsTheyWentIn) {
    EXPECT_EQ(RunOn(ReadFileBytes(PackForOthers("tree"))).text, kSuccess);
    EXPECT_EQ(ReadTree(Dest()), ReadTree(fs::absolute("archives/tree")));
}

TEST_F(PackedTrees, MayBeLarge) {
    EXPECT_EQ(EntryNames(ReadFileBytes(PackForOthers("many"))).size(), 10'010u);
}

}  // namespace
}  // namespace tarvik
