#include "page_control/view/ime_input.h"

#include <cmath>
#include <utility>

#include "page_control/view/page_scale.h"
#include "page_control/view/window_numbers.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

// The input context of a window; null while it is disabled.
class InputContext {
  public:
    explicit InputContext(HWND window) : window_(window), context_(ImmGetContext(window)) {}
    ~InputContext() {
        if (context_) ImmReleaseContext(window_, context_);
    }
    InputContext(const InputContext&) = delete;
    InputContext& operator=(const InputContext&) = delete;

    HIMC Get() const { return context_; }

    std::wstring Text(DWORD which) const {
        const LONG bytes = ImmGetCompositionStringW(context_, which, nullptr, 0);
        if (bytes <= 0) return {};
        std::wstring text(static_cast<size_t>(bytes) / sizeof(wchar_t), L'\0');
        ImmGetCompositionStringW(context_, which, text.data(), static_cast<DWORD>(bytes));
        return text;
    }

  private:
    HWND window_;
    HIMC context_;
};

}  // namespace

ImeInput::~ImeInput() {
    *alive_ = false;
    Enable(true);
}

bool ImeInput::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    switch (message) {
        case WM_IME_SETCONTEXT:
            // The page shows the composition.
            *result = DefWindowProcW(window_, message, wParam,
                                     lParam & ~static_cast<LPARAM>(ISC_SHOWUICOMPOSITIONWINDOW));
            return true;
        case WM_IME_STARTCOMPOSITION:
            PlaceWindows();
            return true;
        case WM_IME_COMPOSITION:
            OnComposition(lParam);
            return true;
        case WM_IME_ENDCOMPOSITION:
            CancelLater();
            return true;
        case kCancelMessage:
            if (cancelling_) SetComposition({}, 0);
            return true;
        case WM_IME_REQUEST:
            if (wParam != IMR_QUERYCHARPOSITION) return false;
            *result = DescribeCaret(*reinterpret_cast<IMECHARPOSITION*>(lParam));
            return true;
        default:
            return false;
    }
}

void ImeInput::Enable(bool enabled) {
    if (std::exchange(enabled_, enabled) != enabled)
        ImmAssociateContextEx(window_, nullptr, enabled ? IACE_DEFAULT : 0);
}

void ImeInput::Complete() {
    if (!composing_) return;
    const InputContext context(window_);
    ImmNotifyIME(context.Get(), NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
}

// One message may bring the result of a composition and the start of the next. A message without changes
// cancels.
void ImeInput::OnComposition(LPARAM changes) {
    const InputContext context(window_);
    if (changes & GCS_RESULTSTR) Commit(context.Text(GCS_RESULTSTR));
    if (changes & GCS_COMPSTR) {
        const std::wstring text = context.Text(GCS_COMPSTR);
        const LONG caret = ImmGetCompositionStringW(context.Get(), GCS_CURSORPOS, nullptr, 0);
        text.empty() ? CancelLater() : SetComposition(text, caret & 0xFFFF);
    }
    if (!changes) CancelLater();
}

// A result may still follow: some input methods empty or end the composition first.
void ImeInput::CancelLater() {
    if (composing_ && !std::exchange(cancelling_, true)) PostMessageW(window_, kCancelMessage, 0, 0);
}

void ImeInput::SetComposition(const std::wstring& text, int caret) {
    cancelling_ = false;
    const bool wasComposing = std::exchange(composing_, !text.empty());
    if (!composing_ && !wasComposing) return;
    queue_.Add(InputQueue::DeliveryMode::kAwaitReply, "Input.imeSetComposition",
               {{"text", Narrow(text)}, {"selectionStart", caret}, {"selectionEnd", caret}});
    if (composing_) PlaceWindows();
}

void ImeInput::Commit(const std::wstring& text) {
    if (text.empty()) return CancelLater();
    composing_ = cancelling_ = false;
    queue_.Add(InputQueue::DeliveryMode::kAwaitReply, "Input.insertText", {{"text", Narrow(text)}});
}

// After the input so far, which moves the caret.
void ImeInput::PlaceWindows() {
    queue_.AddTask([this, alive = alive_](std::function<void()> done) {
        if (!*alive) return;
        script_.Call("caret", "", [this, alive, done = std::move(done)](const Json& caret) {
            if (*alive && caret.is_array()) OnCaret(caret);
            done();
        });
    });
}

void ImeInput::OnCaret(const Json& caret) {
    const double scale = PageScaleOf(window_);
    const auto pixels = [&](size_t index) { return std::lround(static_cast<LONG>(caret.at(index)) * scale); };
    const LONG left = pixels(0), top = pixels(1), height = pixels(2);
    caret_ = {left, top, left + 1, top + height};
    const InputContext context(window_);
    COMPOSITIONFORM composition = {CFS_POINT, {left, top}, {}};
    ImmSetCompositionWindow(context.Get(), &composition);
    CANDIDATEFORM candidates = {0, CFS_EXCLUDE, {left, top}, caret_};
    ImmSetCandidateWindow(context.Get(), &candidates);
}

bool ImeInput::DescribeCaret(IMECHARPOSITION& position) const {
    if (IsRectEmpty(&caret_)) return false;
    position.pt = {caret_.left, caret_.top};
    ClientToScreen(window_, &position.pt);
    position.cLineHeight = static_cast<UINT>(caret_.bottom - caret_.top);
    GetClientRect(window_, &position.rcDocument);
    MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&position.rcDocument), 2);
    return true;
}

}  // namespace tarvik
