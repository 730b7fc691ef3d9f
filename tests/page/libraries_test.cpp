// Plug-in libraries of real applications: in the folder `plugins`, and those that a page loads itself.

#include <filesystem>

#include "tests/page/program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

class Libraries : public ProgramTest {
  protected:
    void Install(const std::string& name, const std::wstring& file) {
        const fs::path target = fs::path(program_.Work()) / file;
        fs::create_directories(target.parent_path());
        fs::copy_file(samples_ / (name + ".dll"), target);
    }

    // What a page logs until it ends the program by end().
    std::vector<std::string> Run(const std::string& script) {
        Open("function log(text) { console.log(text); } function end() { external.window.quit(4); }" +
             script);
        EXPECT_EQ(program_.Wait(), 4u);
        return program_.Lines();
    }

    const fs::path samples_ = fs::path(ExecutablePath()).parent_path() / "sample_libraries";
};

TEST_F(Libraries, AreFoundAmongBadOnesAndFreedAtTheEnd) {
    Install("good", L"plugins\\z.dll");
    Install("second", L"plugins\\upper.DLL");
    Install("second", L"plugins\\sub\\second.dll");
    Install("throwing", L"plugins\\bad.dll");
    program_.Folder().Write(L"work\\plugins\\text.dll", "no library at all");
    program_.Folder().Write(L"work\\plugins\\folder.dll\\inside", "");
    EXPECT_THAT(Run("log('sample ' + external.sample.answer + ' ' + typeof external.second); end();"),
                ElementsAre("throwing", "sample 42 undefined", "good"));
}

TEST_F(Libraries, AreLoadedByAPageForAllWindows) {
    Install("good", L"plugins\\good.dll");
    Install("second", L"more\\second.dll");
    Write(
        L"child.html",
        "windowContext.look = function () { return typeof external.second + ' ' + external.second.answer; };"
        "windowCallback(typeof external.second);");
    // What comes into the folder later is found by no later window.
    EXPECT_THAT(Run("external.file.copy('..\\\\more\\\\second.dll', '..\\\\plugins\\\\late.dll');"
                    "var context = {}; createWindow({url: 'child.html', context: context, callback: function "
                    "(before) {"
                    "log('before ' + before + ' ' + typeof external.second);"
                    "log('loaded ' + loadPlugin('more\\\\second.dll') + ' ' + external.second.answer);"
                    "log('again ' + loadPlugin('more\\\\second.dll') + ' ' + external.sample.answer);"
                    "setTimeout(function () { log('there ' + context.look()); end(); }); } });"),
                ElementsAre("before undefined undefined", "loaded true 42", "again true 42",
                            "there function 42", "good", "second"));
}

}  // namespace
}  // namespace tarvik
