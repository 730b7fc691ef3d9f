// What pages copy, paste, write and read is on the system's clipboard, which the tests use as another program
// does.

#include "tests/support/clipboard.h"

#include "tests/page/program.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

using testing::HasSubstr;

UINT HtmlFormat() {
    return RegisterClipboardFormatW(L"HTML Format");
}

class Clipboard : public ProgramTest {
  protected:
    // Opens a page and clicks it. `script` has `log`, which escapes, and `on(key, function)` for the keys
    // that the test presses.
    void OpenForKeys(const std::string& script) {
        Open(
            "var w = external.window; w.title = 'Clipboard'; w.setWindowPos(200, 150, 400, 300); "
            "w.show(true);"
            "function log(text) { console.log(escape(text)); }"
            "var keys = {};"
            "function on(key, f) { keys[key] = f; }"
            "document.addEventListener('keydown', function (e) { if (keys[e.key]) keys[e.key](); });"
            "document.addEventListener('mouseup', function () { log('clicked'); });" +
            script);
        ClickPage(L"Clipboard");
    }
};

// The paste follows at once, while the copy is on its way to the system.
TEST_F(Clipboard, CarriesBoldTextBetweenFieldsAndPrograms) {
    OpenForKeys(R"(
        function field(html) {
            var element = document.createElement('div');
            element.contentEditable = true;
            element.innerHTML = html;
            return document.body.appendChild(element);
        }
        var first = field('plain <b>b\u00F6ld</b>'), second = field('');
        document.addEventListener('copy', function (event) { event.stopImmediatePropagation(); });
        second.addEventListener('paste', function (event) { log(event.clipboardData.types.join()); });
        second.oninput = function () { log(second.innerHTML.replace(/ style="[^"]*"/g, '')); };
        document.addEventListener('mouseup', function () { first.focus(); });)");
    SetClipboardText(L"old");
    PressKeys({VK_CONTROL, 'A'});
    PressKeys({VK_CONTROL, 'C'});
    PressKeys({VK_TAB});
    PressKeys({VK_CONTROL, 'V'});
    EXPECT_TRUE(program_.WaitForLine("text/plain%2Ctext/html"));
    EXPECT_TRUE(program_.WaitForLine("plain%20%3Cb%3Eb%F6ld%3C/b%3E"));
    EXPECT_TRUE(WaitFor([] { return ClipboardText() == L"plain b\u00F6ld"; }));
    EXPECT_THAT(ClipboardBytes(HtmlFormat()), HasSubstr(">b\xC3\xB6ld</b>"));
    PutOnClipboard({{HtmlFormat(),
                     "Version:0.9\r\nStartHTML:-1\r\nEndHTML:-1\r\nStartFragment:00000085\r\n"
                     "EndFragment:00000099\r\n<i>foreign</i>"}});
    PressKeys({VK_CONTROL, 'A'});
    PressKeys({VK_CONTROL, 'V'});
    EXPECT_TRUE(program_.WaitForLine("text/html"));
    EXPECT_TRUE(program_.WaitForLine("%3Ci%3Eforeign%3C/i%3E"));
}

// Editors copy by script, with formats of their own. The engine keeps those until another program copies.
TEST_F(Clipboard, KeepsThePagesOwnFormats) {
    OpenForKeys(R"(
        var count = 0;
        document.addEventListener('copy', function (event) {
            if (count++ < 2) event.clipboardData.setData('text/plain', 'same');
            if (count === 1) event.clipboardData.setData('application/x-own', 'own');
            event.preventDefault();
            event.stopPropagation();
        }, true);
        document.addEventListener('paste', function (event) {
            log(event.clipboardData.getData('text/plain') + '/' + event.clipboardData.getData('application/x-own'));
        });
        on('1', function () { document.execCommand('copy'); log('copied'); });)");
    PressKeys({'1'});
    EXPECT_TRUE(WaitFor([] { return ClipboardText() == L"same"; }));
    PressKeys({VK_CONTROL, 'V'});
    EXPECT_TRUE(program_.WaitForLine("same/own"));
    SetClipboardText(L"foreign");
    PressKeys({VK_CONTROL, 'V'});
    EXPECT_TRUE(program_.WaitForLine("foreign/"));
    PressKeys({'1'});
    EXPECT_TRUE(WaitFor([] { return ClipboardText() == L"same"; }));
    // A handler that sets no data copies nothing.
    SetClipboardText(L"again foreign");
    PressKeys({'1'});
    PressKeys({VK_CONTROL, 'V'});
    EXPECT_TRUE(program_.WaitForLine("again%20foreign/"));
    EXPECT_EQ(ClipboardText(), L"again foreign");
}

TEST_F(Clipboard, IsReadAndWrittenByScript) {
    OpenForKeys(R"(
        var clipboard = navigator.clipboard;
        function fail(error) { log(error.name); }
        on('1', function () { clipboard.writeText('\u00FCber\n2').then(function () { log('text'); }, fail); });
        on('2', function () { clipboard.readText().then(log, function (error) { log('read ' + error.name); }); });
        on('3', async function () {
            var canvas = new OffscreenCanvas(2, 1), context = canvas.getContext('2d');
            context.fillStyle = '#f00';
            context.fillRect(0, 0, 1, 1);
            await clipboard.write([new ClipboardItem({
                'text/html': '<u>x</u>', 'image/png': canvas.convertToBlob() })]).then(function () { log('picture'); }, fail);
        });
        on('4', async function () {
            var item = (await clipboard.read())[0];
            var picture = await createImageBitmap(await item.getType('image/png'));
            var context = new OffscreenCanvas(2, 1).getContext('2d');
            context.drawImage(picture, 0, 0);
            log(item.types + ' ' + context.getImageData(0, 0, 2, 1).data);
        });)");
    PressKeys({'1'});
    ASSERT_TRUE(program_.WaitForLine("text"));
    EXPECT_EQ(ClipboardText(), L"\u00FCber\r\n2");
    SetClipboardText(L"foreign \u6F22");
    PressKeys({'2'});
    EXPECT_TRUE(program_.WaitForLine("foreign%20%u6F22"));
    PressKeys({'3'});
    ASSERT_TRUE(program_.WaitForLine("picture"));
    EXPECT_THAT(ClipboardBytes(HtmlFormat()), HasSubstr("<u>x</u>"));
    EXPECT_THAT(ClipboardBytes(RegisterClipboardFormatW(L"PNG")), testing::StartsWith("\x89PNG"));
    const std::string bitmap = ClipboardBytes(CF_DIB);
    EXPECT_THAT(bitmap, testing::EndsWith(std::string("\0\0\xFF\xFF\xFF\xFF\xFF\xFF", 8)));
    // As another program would: this bitmap alone, with the second pixel blue.
    PutOnClipboard({{CF_DIB, bitmap.substr(0, 44) + std::string("\xFF\0\0\0", 4)}});
    PressKeys({'4'});
    EXPECT_TRUE(program_.WaitForLine("image/png%20255%2C0%2C0%2C255%2C0%2C0%2C255%2C255"));
    SetClipboardText(L"out of reach");
    ASSERT_TRUE(OpenClipboard(nullptr));
    PressKeys({'1'});
    EXPECT_TRUE(program_.WaitForLine("NotAllowedError"));
    PressKeys({'2'});
    EXPECT_TRUE(program_.WaitForLine("read%20NotAllowedError"));
    CloseClipboard();
}

TEST_F(Clipboard, IsForTheApplicationsOwnPages) {
    const WebServer server([](const WebExchange& exchange) {
        exchange.Respond(
            "<script>navigator.permissions.query({name: 'clipboard-read'}).then(function (permission) {"
            "  console.log(location.hostname + ' ' + permission.state);"
            "  if (location.hostname === 'localhost') external.window.quit(4);"
            "  location.hostname = 'localhost';"
            "});</script>");
    });
    program_.Start(L"-f " + server.Url(L"page.html"));
    EXPECT_EQ(program_.Wait(), 4u);
    EXPECT_THAT(program_.Lines(), testing::ElementsAre("127.0.0.1 granted", "localhost denied"));
}

}  // namespace
}  // namespace tarvik
