// Drag and drop within a page, out of it and into it.

#include <ole2.h>
#include <shlobj.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "page_control/drag/data_object.h"
#include "tarvik/com_object.h"
#include "tests/page_control/view/hosted_page.h"

namespace tarvik {
namespace {

constexpr COLORREF kGreen = RGB(0, 160, 0);

constexpr const char* kStrips =
    R"(<style>#source, #link, #target, #other { display: block; height: 60px; margin: 10px; }</style>
    <div id="source" draggable="true" style="background: rgb(0, 0, 200); width: 100px">Source</div>
    <a id="link" href="https://example.com/">Link</a>
    <div id="target" style="background: #ddd">Target</div>
    <div id="other" style="background: #eee">Other</div><script>
    logEvents('dragstart', 'dragenter', 'dragleave', 'drop', 'mouseup', 'click');
    addEventListener('dragend', function (event) { log.push('dragend:' + event.dataTransfer.dropEffect); });
    source.ondragstart = function (event) {
        event.dataTransfer.setData('text/plain', 'text \u00FC');
        event.dataTransfer.setData('text/html', '<b>bold</b>');
        event.dataTransfer.setData('application/own', 'own');
        event.dataTransfer.setData('DownloadURL', 'text/html:page.html:' + location.href);
    };
    link.ondragstart = function (event) {
        var canvas = document.createElement('canvas');
        canvas.width = canvas.height = 40;
        canvas.getContext('2d').fillRect(0, 0, 40, 40);
        event.dataTransfer.setDragImage(canvas, 20, 20);
    };
    target.ondragover = function (event) {
        event.preventDefault();
        event.dataTransfer.dropEffect = event.dataTransfer.types.includes('application/own') ? 'move' : 'copy';
        target.style.background = '#00a000';
    };
    target.ondrop = function (event) {
        var data = event.dataTransfer;
        event.preventDefault();
        log.push(data.types.join() + ':' + data.getData('text/plain') + ':' + data.getData('application/own'));
        Array.from(data.files).forEach(function (file) {
            file.text().then(function (text) { log.push(file.name + ':' + text); });
        });
    };</script>)";

// The picture that follows the pointer.
HWND VisibleImage() {
    const std::vector<HWND> windows = TopWindows(L"STATIC");
    const auto found = std::ranges::find_if(windows, [](HWND window) {
        return IsWindowVisible(window) && (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_LAYERED);
    });
    return found == windows.end() ? nullptr : *found;
}

// Accepts all, and keeps it.
class Receiver : public ComObject<IDropTarget> {
  public:
    STDMETHODIMP DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) override {
        isOver = true;
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }
    STDMETHODIMP DragOver(DWORD, POINTL, DWORD* effect) override {
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }
    STDMETHODIMP DragLeave() override { return S_OK; }
    STDMETHODIMP Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
        *effect = DROPEFFECT_COPY;
        isOver = false;
        dropped_ = data;
        return S_OK;
    }

    std::wstring DroppedText(UINT format, size_t header = 0) const {
        const std::vector<BYTE> bytes = DataOf(dropped_.Get(), format);
        if (bytes.size() < header) return {};
        return reinterpret_cast<const wchar_t*>(bytes.data() + header);
    }
    std::string DroppedBytes(const wchar_t* format) const {
        const std::vector<BYTE> bytes = DataOf(dropped_.Get(), RegisterClipboardFormatW(format));
        return {bytes.begin(), bytes.end()};
    }

    std::atomic<bool> isOver{false};

  private:
    ComPtr<IDataObject> dropped_ = MakeCom<DataObject>();
};

class Source : public ComObject<IDropSource> {
  public:
    STDMETHODIMP QueryContinueDrag(BOOL escape, DWORD keys) override {
        isDragging = true;
        if (escape) return DRAGDROP_S_CANCEL;
        return keys & MK_LBUTTON ? S_OK : DRAGDROP_S_DROP;
    }
    STDMETHODIMP GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

    std::atomic<bool> isDragging{false};
};

class DragTest : public HostedPage {
  protected:
    // A user who moves the pointer once something is being dragged, and releases the button when the drag has
    // arrived.
    std::thread User(std::function<bool()> isDragging, POINT to, std::function<bool()> hasArrived) {
        return std::thread([=, this] {
            const POINT from = from_;
            EXPECT_TRUE(WaitFor(
                [&] {
                    for (const LONG step : {8, 12})
                        Send(MoveOf({from.x + step, from.y + 2}));
                    return WaitFor(isDragging, 200);
                },
                8000));
            EXPECT_TRUE(WaitFor(
                [&] {
                    Send(MoveOf(to));
                    return WaitFor(hasArrived, 100);
                },
                8000));
            WaitFor(
                [&] {
                    Send(MoveOf(to));
                    Send(MouseInputOf(MOUSEEVENTF_LEFTUP));
                    return WaitFor([&] { return done_.load(); }, 300);
                },
                8000);
        });
    }
    void Press(POINT from) {
        from_ = from;
        done_ = false;
        MovePointer(from);
        Send(MouseInputOf(MOUSEEVENTF_LEFTDOWN));
        EXPECT_TRUE(PumpUntil([] { return GetKeyState(VK_LBUTTON) < 0; }));
    }
    // Drags an element of the page until its `dragend`.
    void DragFrom(const wchar_t* id, POINT to, std::function<bool()> hasArrived) {
        Evaluate(L"log = []");
        Press(MiddleOf(id));
        std::thread user = User([] { return VisibleImage() != nullptr; }, to, std::move(hasArrived));
        EXPECT_TRUE(Becomes(L"/dragend/.test(log)", L"true"));
        done_ = true;
        user.join();
        EXPECT_FALSE(VisibleImage());
    }

    // Beside the picture that follows the pointer.
    static bool IsGreen(POINT pointer) { return PixelOf(nullptr, {pointer.x - 200, pointer.y}) == kGreen; }

    static constexpr POINT kDesk = {800, 200};
    // Beside the page's window, for other programs.
    const UniqueWindow desk_{CreateWindowExW(WS_EX_TOPMOST, L"EDIT", L"Desk", WS_POPUP | WS_VISIBLE, 700, 100,
                                             200, 200, nullptr, nullptr, nullptr, nullptr)};
    POINT from_ = {};
    std::atomic<bool> done_{false};
};

// As a browser does: with the events of a drag, and none of a click.
TEST_F(DragTest, MovesDataWithinThePage) {
    Open(kStrips);
    const POINT target = MiddleOf(L"target");
    DragFrom(L"source", target, [&] { return IsGreen(target); });
    EXPECT_TRUE(Becomes(L"log.slice(-3).join(' ')",
                        L"drop text/plain,text/html,application/own:text \u00FC:own dragend:move"));
    DragFrom(L"source", MiddleOf(L"other"), [] { return true; });
    EXPECT_TRUE(Becomes(L"log.slice(-2).join(' ')", L"dragleave dragend:none"));
    EXPECT_EQ(Evaluate(L"/click|mouseup|drop/.test(log)"), L"false");
    ClickAt(MiddleOf(L"other"));
    EXPECT_TRUE(Becomes(L"log.slice(-2).join(' ')", L"mouseup click"));
}

TEST_F(DragTest, GivesDataToOtherPrograms) {
    Open(kStrips);
    const auto receiver = MakeCom<Receiver>();
    ASSERT_EQ(RegisterDragDrop(desk_.Get(), receiver.Get()), S_OK);
    DragFrom(L"source", kDesk, [&] { return receiver->isOver.load(); });
    EXPECT_TRUE(Becomes(L"log.slice(-1)[0]", L"dragend:copy"));
    EXPECT_EQ(receiver->DroppedText(CF_UNICODETEXT), L"text \u00FC");
    EXPECT_THAT(receiver->DroppedBytes(L"HTML Format"), testing::HasSubstr("Fragment--><b>bold</b><!--"));
    const std::wstring paths = receiver->DroppedText(CF_HDROP, sizeof(DROPFILES));
    EXPECT_TRUE(paths.ends_with(L"\\page.html")) << testing::PrintToString(paths);
    RECT image = {};
    DragFrom(L"link", kDesk, [&] {
        return receiver->isOver.load() && GetWindowRect(VisibleImage(), &image) && image.left == kDesk.x - 20;
    });
    EXPECT_EQ(image.right - image.left, 40);
    EXPECT_EQ(receiver->DroppedText(RegisterClipboardFormatW(L"UniformResourceLocatorW")),
              L"https://example.com/");
    RevokeDragDrop(desk_.Get());
}

TEST_F(DragTest, TakesDataOfOtherPrograms) {
    Open(kStrips);
    const POINT target = MiddleOf(L"target");
    const TempFolder folder;
    const std::wstring path = folder.Write(L"b \u00FC.txt", "inside");
    const auto data = MakeCom<DataObject>();
    data->Add(CF_UNICODETEXT, L"outside", sizeof L"outside");
    const DROPFILES header = {sizeof header, {}, FALSE, TRUE};
    std::string files(reinterpret_cast<const char*>(&header), sizeof header);
    files.append(reinterpret_cast<const char*>(path.c_str()), (path.size() + 2) * sizeof(wchar_t));
    data->Add(CF_HDROP, files.data(), files.size());
    const auto source = MakeCom<Source>();
    SetForegroundWindow(desk_.Get());
    Press(kDesk);
    std::thread user =
        User([&] { return source->isDragging.load(); }, target, [&] { return IsGreen(target); });
    DWORD effect = 0;
    EXPECT_EQ(DoDragDrop(data.Get(), source.Get(), DROPEFFECT_COPY, &effect), DRAGDROP_S_DROP);
    done_ = true;
    user.join();
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_TRUE(Becomes(L"log.slice(-3).join(' ')", L"drop text/plain,Files:outside: b \u00FC.txt:inside"));
}

}  // namespace
}  // namespace tarvik
