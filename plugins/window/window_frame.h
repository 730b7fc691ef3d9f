#pragma once

#include <windows.h>

#include "plugins/window/browser_subclass.h"
#include "plugins/window/composition.h"
#include "plugins/window/main_subclass.h"

namespace tarvik {

// The frame of a top-level window: caption and sizing border, or a shape instead. A window without a caption
// is sized by a border along the page's edges. A shape cannot be removed: from then on SetCaption and
// SetResizable return E_FAIL.
class WindowFrame {
  public:
    WindowFrame(CMainSubclassWindow& main, CBrowserSubclassWindow& browser,
                const Composition& composition = Composition::System())
        : main_(main), browser_(browser), composition_(composition) {}

    void SetWindow(HWND window) { window_ = window; }

    HRESULT SetCaption(bool visible);
    HRESULT SetResizable(bool resizable);

    // Shapes the window to the pixels of a bitmap file that are not exactly white, in place of an earlier
    // shape. E_INVALIDARG if the file cannot be read.
    HRESULT ShapeImage(const wchar_t* path);
    bool IsShaped() const { return shaped_; }

  private:
    enum class FrameType { kComposed, kPlain, kShaped };

    void ChangeCaption(bool visible, FrameType type);
    void ExtendFrame(bool hide);
    void AddShadow();
    void RedrawFrame();

    CMainSubclassWindow& main_;
    CBrowserSubclassWindow& browser_;
    const Composition& composition_;
    HWND window_ = nullptr;
    bool shaped_ = false;
    bool resizable_ = true;
    bool caption_ = true;
};

// Sets or clears bits of a window's style; the frame shows it when it is next drawn.
void ChangeWindowStyle(HWND window, DWORD bits, bool on);

}  // namespace tarvik
