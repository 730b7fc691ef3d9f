// Plug-in libraries of applications: those in the folder `plugins`, and those that a page loads.

#include <filesystem>

#include "tests/page/program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

class Libraries : public ProgramTest {
  protected:
    void Install(const fs::path& library, const std::wstring& file) {
        const fs::path target = fs::path(program_.Work()) / file;
        fs::create_directories(target.parent_path());
        fs::copy_file((samples_ / library) += ".dll", target);
    }

    // Runs a page until it calls end(), and returns what it logged.
    std::vector<std::string> Run(const std::string& script) {
        Open("function log(text) { console.log(text); } function end() { external.window.quit(4); }" +
             script);
        EXPECT_EQ(program_.Wait(), 4u);
        return program_.Lines();
    }

    const fs::path samples_ = fs::path(ExecutablePath()).parent_path() / "sample_libraries";
};

TEST_F(Libraries, AreLoadedDespiteInvalidFilesAndFreedAtTheEnd) {
    Install("good", L"plugins\\z.dll");
    Install("plain", L"plugins\\plain.dll");
    Install("second", L"plugins\\upper.DLL");
    Install("second", L"plugins\\sub\\second.dll");
    Install("throwing", L"plugins\\bad.dll");
    program_.Folder().Write(L"work\\plugins\\text.dll", "not a library");
    program_.Folder().Write(L"work\\plugins\\folder.dll\\inside", "");
    EXPECT_THAT(
        Run("log('sample ' + external.sample.answer + ', plain ' + external.plain.answer + ', ' + typeof "
            "external.second); end();"),
        ElementsAre("throwing", "sample 42, plain 42, undefined", "good"));
}

TEST_F(Libraries, LoadedByAPageAreAvailableInAllWindows) {
    Install("good", L"plugins\\good.dll");
    Install("second", L"more\\second.dll");
    Write(
        L"child.html",
        "windowContext.look = function () { return typeof external.second + ' ' + external.second.answer; };"
        "windowCallback(typeof external.second);");
    // The folder is searched only once: late.dll stays unknown.
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

// The current folder is not safe: it belongs to the application, and a page may have written any file there.
TEST_F(Libraries, FindDependenciesBesideThemselvesAndNotInTheCurrentFolder) {
    const std::string script = "log(external.needy ? '' + external.needy.answer : 'none'); end();";
    Install("needy", L"plugins\\needy.dll");
    Install("helper", L"helper.dll");
    EXPECT_THAT(Run(script), ElementsAre("none"));
    Install("helper", L"plugins\\helper.dll");
    EXPECT_THAT(Run(script), ElementsAre("43"));
}

// The libraries of examples/plugin. After the navigation, `clipboard` still holds a function of the old page,
// and the search of the old page must end. The last search is running when the program ends.
TEST_F(Libraries, OfTheExampleSurviveNavigation) {
    for (const std::wstring name : {L"clipboard", L"search"})
        Install(L"..\\..\\examples\\plugin\\plugins\\" + name, L"plugins\\" + name + L".dll");
    program_.Folder().Write(L"work\\texts\\a.txt", "first\r\nlast\n");
    program_.Folder().Write(L"work\\texts\\b\\c.txt", "none\nthe last");
    Write(L"next.html",
          "function log(text) { console.log(text); }"
          "var clipboard = external.clipboard; clipboard.text = 'unheard';"
          "var wait = setInterval(function () {"
          "  if (clipboard.onchange !== null) return;"
          "  clearInterval(wait);"
          "  log('dropped ' + clipboard.text);"
          "  external.search.find({folder: '..', text: 'x', progress: function () { external.window.quit(4); "
          "}});"
          "}, 50);");
    EXPECT_THAT(
        Run("var clipboard = external.clipboard;"
            "clipboard.onchange = function (text) { log('copied ' + text); find(); };"
            "clipboard.text = 'last';"
            "function find() {"
            "  clipboard.onchange = function (text) { log('wrong ' + text); };"
            "  var stream = external.stream; stream.writeString('one\\nlast one', 'utf8');"
            "  var lines = external.search.lines(stream, clipboard.text);"
            "  log(lines.length + ' in a stream, ' + lines[0].line + ': ' + lines[0].text);"
            "  try { external.search.find({folder: '.'}); } catch (error) { log('refused ' + error.number); }"
            "  external.search.find({folder: '../missing', text: 'x', fail: function (code) { log('failed ' "
            "+ code); }});"
            "  external.search.find({folder: '../texts', text: clipboard.text,"
            "    hit: function (path, line, text) { log(path.slice(-5) + line + text); },"
            "    progress: function (path, files) { log('' + files); },"
            "    success: function (files, hits) { log(files + ' ' + hits); leave(); }});"
            "}"
            "function leave() {"
            "  external.search.find({folder: '..', text: 'x',"
            "    progress: function () { location.href = 'next.html'; }, fail: log, success: log});"
            "}"),
        UnorderedElementsAre("copied last", "1 in a stream, 2: last one", "refused -2147024809",
                             "failed -2147024894", "0", "a.txt2last", "1", "c.txt2the last", "2 2",
                             "dropped unheard"));
}

}  // namespace
}  // namespace tarvik
