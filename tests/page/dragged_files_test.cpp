// Files that the user drags from another program onto a page.

#include <shlobj.h>

#include <atomic>
#include <thread>

#include "tarvik/com_object.h"
#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

// Ends the drag when the button is released at a place, and counts how often the target has returned its
// effect there. Under Wine an earlier position of the pointer may return with the release.
class Source : public ComObject<IDropSource> {
  public:
    explicit Source(POINT place) : place_(place) {}

    STDMETHODIMP QueryContinueDrag(BOOL escape, DWORD keys) override {
        isDragging = true;
        if (escape) return DRAGDROP_S_CANCEL;
        return keys & MK_LBUTTON || !IsAtPlace() ? S_OK : DRAGDROP_S_DROP;
    }
    STDMETHODIMP GiveFeedback(DWORD effect) override {
        if (IsAtPlace()) {
            lastEffect = effect;
            ++effects;
        }
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }

    std::atomic<bool> isDragging{false};
    std::atomic<int> effects{0};
    std::atomic<DWORD> lastEffect{0};

  private:
    bool IsAtPlace() const {
        const DWORD at = GetMessagePos();
        return LOWORD(at) == place_.x && HIWORD(at) == place_.y;
    }

    const POINT place_;
};

// The shell's data object for files of one folder.
ComPtr<IDataObject> ShellFiles(const std::vector<std::wstring>& paths) {
    ComPtr<IShellFolder> folder;
    std::vector<PIDLIST_ABSOLUTE> items;
    std::vector<PCUITEMID_CHILD> names;
    for (const std::wstring& path : paths) {
        EXPECT_EQ(SHParseDisplayName(path.c_str(), nullptr, &items.emplace_back(), 0, nullptr), S_OK);
        SHBindToParent(items.back(), IID_IShellFolder,
                       reinterpret_cast<void**>(folder.ReleaseAndGetAddressOf()), &names.emplace_back());
    }
    ComPtr<IDataObject> files;
    EXPECT_EQ(folder->GetUIObjectOf(nullptr, static_cast<UINT>(names.size()), names.data(), IID_IDataObject,
                                    nullptr, reinterpret_cast<void**>(files.GetAddressOf())),
              S_OK);
    for (const PIDLIST_ABSOLUTE item : items)
        ILFree(item);
    return files;
}

class DraggedFiles : public ProgramTest {
  protected:
    // Opens a page of four strips of 60 pixels: bound, bound inside a bound one, without an id inside a bound
    // one, and not bound.
    void OpenStrips() {
        program_.Folder().Write(
            L"work\\resource\\index.html",
            "<!doctype html><body style='margin:0'>"
            "<div id=outer style='background:#0a0'><div style='height:60px'>outer</div>"
            "<div id=inner style='height:60px'>inner</div>"
            "<p style='height:60px;margin:0'><b>outer again</b></p></div>"
            "<div id=none style='height:60px'>none</div>"
            "<script>var w = external.window, drag = external.dragfile; w.title = 'Target';"
            "function log(name) { return function (files, context) { var list = [];"
            "  for (var i = 0; i < files.length; i++) list.push(files[i]);"
            "  console.log(name + ' ' + list.join('|') + ' ' + context); }; }"
            "drag.bind('outer', log('wrong')); drag.bind('outer', log('outer'), 7);"
            "drag.bind('inner', log('wrong'), 5); drag.bind('inner', log('inner'));"
            "drag.bind('none', log('none')); drag.bind('none', null);"
            "w.caption = false; w.setWindowPos(200, 150, 400, 300); w.show(true);</script>");
        program_.Start();
        const HWND window = program_.WindowTitled(L"Target");
        ASSERT_TRUE(WaitFor([&] {
            return PixelOnScreen(InnermostWindow(window), {300, 30}) == RGB(0, 0xaa, 0);
        }));
    }
    // Returns the effect that the page returned while the files were over it, and the status of the drag.
    std::pair<DWORD, HRESULT> DragTo(LONG y, const std::vector<std::wstring>& paths) {
        const POINT place = {280, 150 + y};
        const auto source = MakeCom<Source>(place);
        const auto files = ShellFiles(paths);
        DWORD effectOverPage = 0;
        std::atomic<bool> isOver{false};
        SetForegroundWindow(desk_.Get());
        MovePointer({50, 50});
        Send(MouseInputOf(MOUSEEVENTF_LEFTDOWN));
        EXPECT_TRUE(PumpUntil([] { return GetKeyState(VK_LBUTTON) < 0; }));
        std::thread user([&] {
            EXPECT_TRUE(WaitFor([&] { return source->isDragging.load(); }));
            // The first effect may be that of an earlier place.
            EXPECT_TRUE(WaitFor([&] {
                Send(MoveOf(place));
                return source->effects > 1;
            }));
            effectOverPage = source->lastEffect;
            // Under Wine the drag gets the release of the button only in the foreground, which it may have
            // lost.
            WaitFor([&] {
                SetForegroundWindow(desk_.Get());
                Send(MoveOf(place));
                Send(MouseInputOf(MOUSEEVENTF_LEFTUP));
                return WaitFor([&] { return isOver.load(); }, 300);
            });
        });
        DWORD effect = 0;
        const HRESULT status = DoDragDrop(files.Get(), source.Get(), DROPEFFECT_COPY, &effect);
        isOver = true;
        user.join();
        return {effectOverPage, status};
    }

    const UniqueWindow desk_{CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"Desk", WS_POPUP | WS_VISIBLE, 20, 20,
                                             100, 100, nullptr, nullptr, nullptr, nullptr)};
};

TEST_F(DraggedFiles, AreDroppedOnTheNearestBoundElement) {
    OpenStrips();
    const std::pair accepted(static_cast<DWORD>(DROPEFFECT_COPY), DRAGDROP_S_DROP);
    const std::wstring first = program_.Folder().Write(L"a.txt", "");
    const std::wstring second = program_.Folder().Write(L"b c.txt", "");
    EXPECT_EQ(DragTo(90, {first, second}), accepted);
    EXPECT_TRUE(program_.WaitForLine("inner " + Narrow(first) + "|" + Narrow(second) + " undefined"));
    EXPECT_EQ(DragTo(210, {first}).first, static_cast<DWORD>(DROPEFFECT_NONE));
    EXPECT_EQ(DragTo(130, {second}), accepted);
    EXPECT_TRUE(program_.WaitForLine("outer " + Narrow(second) + " 7"));
    EXPECT_EQ(program_.Lines().size(), 2u);
}

}  // namespace
}  // namespace tarvik
