// Plug-in libraries of real applications: in the folder `plugins`, and those that a page loads itself.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "tests/page/program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

// Each in its own way no library for plug-ins.
constexpr const char* kRefused[] = {"no_export", "wrong_kind", "no_descriptor", "failing", "throwing"};

fs::path Sample(const std::string& name) {
    return fs::path(ExecutablePath()).parent_path() / "sample_libraries" / (name + ".dll");
}

// The same library as one for 32-bit programs, as far as its header tells.
std::string As32Bit(std::string image) {
    constexpr size_t kHeaderOffset = 0x3C;
    const size_t header = static_cast<unsigned char>(image[kHeaderOffset]) |
                          static_cast<unsigned char>(image[kHeaderOffset + 1]) << 8;
    image.replace(header + 4, 2, "\x4c\x01");
    return image;
}

class Libraries : public testing::Test {
  protected:
    void Install(const std::string& name, const std::wstring& file) {
        const fs::path target = fs::path(program_.Work()) / file;
        fs::create_directories(target.parent_path());
        fs::copy_file(Sample(name), target);
    }

    // What a page logs until it ends the program by end().
    std::vector<std::string> Run(const std::string& script) {
        program_.Folder().Write(L"work\\resource\\index.html",
                                "<!doctype html><script>function log(text) { console.log(text); }"
                                "function end() { external.window.quit(4); }" +
                                    script + "</script>");
        program_.Start();
        EXPECT_EQ(program_.Wait(), 4u);
        return program_.Lines();
    }

    Program program_;
};

TEST_F(Libraries, AreFoundInTheirFolderAndFreedAtTheEnd) {
    Install("good", L"plugins\\good.dll");
    Install("second", L"plugins\\upper.DLL");
    Install("second", L"plugins\\sub\\second.dll");
    EXPECT_THAT(Run("log('sample ' + external.sample.answer + ' ' + typeof external.second); end();"),
                ElementsAre("sample 42 undefined", "good"));
}

TEST_F(Libraries, AreNotHinderedByBadOnes) {
    Install("good", L"plugins\\z.dll");
    for (const char* name : kRefused)
        Install(name, L"plugins\\" + Widen(name) + L".dll");
    program_.Folder().Write(L"work\\plugins\\text.dll", "no library at all");
    program_.Folder().Write(L"work\\plugins\\empty.dll", "");
    program_.Folder().Write(L"work\\plugins\\narrow.dll", As32Bit(ReadFileBytes(Sample("good").wstring())));
    fs::create_directories(fs::path(program_.Work()) / "plugins" / "folder.dll");
    const auto lines = Run("log('sample ' + external.sample.answer); end();");
    EXPECT_EQ(std::ranges::count(lines, "sample 42"), 1);
}

TEST_F(Libraries, AreLoadedByAPageForAllWindows) {
    Install("good", L"plugins\\good.dll");
    Install("second", L"more\\second.dll");
    program_.Folder().Write(L"work\\resource\\child.html",
                            "<!doctype html><script>windowContext.look = function () {"
                            "return typeof external.second + ' ' + external.second.answer; };"
                            "windowCallback(typeof external.second);</script>");
    EXPECT_THAT(Run("var context = {}; createWindow({url: 'child.html', context: context, callback: function "
                    "(before) {"
                    "log('before ' + before + ' ' + typeof external.second);"
                    "log('loaded ' + loadPlugin('more\\\\second.dll') + ' ' + external.second.answer);"
                    "log('again ' + loadPlugin('more\\\\second.dll') + ' ' + external.sample.answer);"
                    "setTimeout(function () { log('there ' + context.look()); end(); }); } });"),
                ElementsAre("before undefined undefined", "loaded true 42", "again true 42",
                            "there function 42", "good", "second"));
}

// A library that is refused before it is loaded is told to the page; one that turns out to be none later is
// not.
TEST_F(Libraries, AreRefused) {
    Install("good", L"more\\good.dll");
    program_.Folder().Write(L"work\\more\\narrow.dll", As32Bit(ReadFileBytes(Sample("good").wstring())));
    program_.Folder().Write(L"work\\more\\text.dll", "no library at all");
    for (const char* name : kRefused)
        Install(name, L"more\\" + Widen(name) + L".dll");
    const auto lines =
        Run("['missing', 'text', 'narrow', 'no_export', 'wrong_kind', 'no_descriptor', 'failing', "
            "'throwing'].forEach("
            "function (name) { log(name + ' ' + loadPlugin('more\\\\' + name + '.dll')); });"
            "log([typeof external.none, typeof external.wrongKind, typeof external.sample].join()); end();");
    const std::vector<std::string> expected = {
        "missing false",  "text false",      "narrow false",
        "no_export true", "wrong_kind true", "no_descriptor true",
        "failing true",   "throwing true",   "undefined,undefined,undefined"};
    std::vector<std::string> told;
    // A library that is freed says so in between.
    std::ranges::copy_if(lines, std::back_inserter(told),
                         [&](const auto& line) { return std::ranges::count(expected, line) > 0; });
    EXPECT_EQ(told, expected);
}

}  // namespace
}  // namespace tarvik
