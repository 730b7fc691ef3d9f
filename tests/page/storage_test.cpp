// What pages store, and the profile that keeps it.

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/engine_processes.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

// A page that counts its starts in two kinds of storage, logs both counts and calls `then`.
std::string CountingPage(const std::string& then) {
    return "<!doctype html><script>function ended() {" + then +
           "} localStorage.count = Number(localStorage.count || 0) + 1;"
           "var opening = indexedDB.open('base', 1);"
           "opening.onupgradeneeded = function () { opening.result.createObjectStore('counts'); };"
           "opening.onsuccess = function () {"
           "  var change = opening.result.transaction('counts', 'readwrite'), counts = "
           "change.objectStore('counts');"
           "  var reading = counts.get('count'), count;"
           "  reading.onsuccess = function () { counts.put(count = (reading.result || 0) + 1, 'count'); };"
           "  change.oncomplete = function () { console.log(localStorage.count + ' ' + count); ended(); };"
           "};</script>";
}

class Storage : public testing::Test {
  protected:
    // The engine still writes into the folder of the test when the program has ended.
    void TearDown() override {
        program_.Kill();
        EngineProcesses engine(program_.Mark());
        EXPECT_TRUE(WaitFor([&] { return engine.Snapshot().empty(); }));
    }

    // A packed program, whose pages are in another folder at each start.
    void Install(const std::string& page) {
        executable_ = program_.Folder() / L"Counter.exe";
        fs::copy_file(fs::path(ExecutablePath()).parent_path() / "tarvik.exe", executable_);
        std::ofstream(fs::path(executable_), std::ios::binary | std::ios::app)
            << WriteArchive({{"resource/index.html", page}});
        Prepare(program_);
    }
    void Prepare(Program& program) const {
        program.UseExecutable(executable_);
        fs::create_directories(Profiles().parent_path());
        program.SetVariable(L"LOCALAPPDATA", Profiles().parent_path());
        program.SetVariable(L"TARVIK_PROFILE", L"");
    }
    static bool Reports(const Program& program, std::string_view text) {
        return std::ranges::any_of(
            program.Lines(), [&](const std::string& line) { return line.find(text) != std::string::npos; });
    }
    fs::path Profiles() const { return fs::path(program_.Folder() / L"local") / "Tarvik"; }

    Program program_;
    std::wstring executable_;
};

// The next start follows immediately, while the engine of the last one still ends.
TEST_F(Storage, IsFoundAtTheNextStart) {
    Install(CountingPage("external.window.quit(4)"));
    for (const char* count : {"1 1", "2 2", "3 3"}) {
        program_.Start();
        EXPECT_EQ(program_.Wait(), 4u);
        EXPECT_THAT(program_.Lines(), ElementsAre(count));
    }
    program_.SetVariable(L"TARVIK_PROFILE", L"temporary");
    program_.Start();
    EXPECT_EQ(program_.Wait(), 4u);
    EXPECT_THAT(program_.Lines(), ElementsAre("1 1"));
    std::vector<fs::path> names;
    for (const auto& entry : fs::directory_iterator(Profiles()))
        names.push_back(entry.path().filename());
    EXPECT_THAT(names, ElementsAre("Counter")) << "no lock is left";
}

// The engine ends if a certain file exists in its profile, or if it may not write there.
TEST_F(Storage, IsReplacedIfTheEngineDoesNotStart) {
    Install(CountingPage("external.window.quit(4)"));
    const std::wstring engine = L"/tmp/tarvik-engine-" + Widen(program_.Mark());
    const fs::path file = L"Z:" + engine;
    std::ofstream(file, std::ios::binary)
        << "#!/bin/sh\nfor argument; do case $argument in --user-data-dir=*) profile=${argument#*=}; esac; "
           "done\n"
           "[ ! -e \"$profile/damaged\" ] && [ ! -e \"$profile.read-only\" ] || exit 1\n"
           "exec /usr/bin/chromium \"$@\"\n";
    RunOnUnixHost(L"chmod +x " + engine);
    program_.SetVariable(L"TARVIK_BROWSER", engine);
    ASSERT_TRUE(fs::create_directories(Profiles() / "Counter"));
    std::ofstream(Profiles() / "Counter" / "damaged") << "";
    std::ofstream(Profiles() / "Counter.read-only") << "";
    for (const char* reported : {"does not start with the profile", "was damaged"}) {
        SCOPED_TRACE(reported);
        program_.Start();
        EXPECT_EQ(program_.Wait(), 4u);
        EXPECT_TRUE(program_.HasLine("1 1"));
        EXPECT_TRUE(Reports(program_, reported));
        fs::remove(Profiles() / "Counter.read-only");
    }
    EXPECT_TRUE(fs::exists(Profiles() / "Counter.damaged" / "damaged"));
    EXPECT_FALSE(fs::exists(Profiles() / "Counter" / "damaged"));
    fs::remove(file);
}

}  // namespace
}  // namespace tarvik
