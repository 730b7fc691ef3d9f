#include "page_control/view/page_view.h"

#include "page_control/accessibility/page_accessibility.h"
#include "page_control/engine/launch.h"
#include "page_control/view/cursor.h"
#include "page_control/view/edit_menu.h"
#include "page_control/view/full_screen.h"
#include "page_control/view/ime_input.h"
#include "page_control/view/input_queue.h"
#include "page_control/view/keyboard_input.h"
#include "page_control/view/mouse_input.h"
#include "page_control/view/page_clipboard.h"
#include "page_control/view/page_drag.h"
#include "page_control/view/page_scale.h"
#include "page_control/view/pen_input.h"
#include "page_control/view/placement.h"
#include "page_control/view/pointer_lock.h"
#include "page_control/view/root_watch.h"
#include "page_control/view/screencast.h"
#include "page_control/view/system_pointers.h"
#include "page_control/view/tooltip.h"
#include "page_control/view/touch_input.h"
#include "page_control/view/window_numbers.h"
#include "page_control/view/window_state.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

// As a view, because the program has one instance of the parser, for views.
Json ParseJson(const std::wstring& text) {
    return Json::parse(std::string_view(Narrow(text)));
}

}  // namespace

struct PageView::TargetView {
    TargetView(HWND window, std::shared_ptr<PageTarget> shown, FrameBuffer& frameBuffer,
               const Options& options, ViewScript::EventHandler onEvent, std::function<void()> onRootChange)
        : target(std::move(shown)),
          page(*target),
          script(page, options.textIsSelectable, std::move(onEvent)),
          engineWindow(page),
          placement(window, page, engineWindow, script),
          queue(page, script),
          state(window, page, engineWindow, script, queue),
          clipboard(page, script, queue),
          pointerLock(window, script),
          mouse(window, queue, pointerLock),
          touch(window, page, script, queue),
          pen(window, queue),
          keyboard(window, queue, clipboard),
          ime(window, script, queue),
          fieldPickers(window, page, script, queue, options.onPicker),
          drag(window, page, script, queue, mouse, frameBuffer),
          cursor(window, script),
          tooltip(window, script),
          screencast(window, page, frameBuffer),
          rootWatch(window, std::move(onRootChange)),
          accessibility(window, page, [this](const std::function<void()>& task) { QueueTask(task); }),
          fullScreen(window),
          newDocument(page.Events().Subscribe<event::ContextsCleared>([this](const auto&) {
              fullScreen.Leave();
              pointerLock.OnUnlock();
              fieldPickers.HideList();
          })) {}

    void QueueTask(const std::function<void()>& task) {
        queue.AddTask([task](const std::function<void()>& done) {
            task();
            done();
        });
    }

    // An event's handler may close the page, and with it the control that shares the target.
    const std::shared_ptr<PageTarget> target;
    PageTarget& page;
    ViewScript script;
    EngineWindow engineWindow;
    Placement placement;
    InputQueue queue;
    WindowState state;
    PageClipboard clipboard;
    PointerLock pointerLock;
    MouseInput mouse;
    TouchInput touch;
    PenInput pen;
    KeyboardInput keyboard;
    ImeInput ime;
    FieldPickers fieldPickers;
    PageDrag drag;
    PageCursor cursor;
    Tooltip tooltip;
    Screencast screencast;
    RootWatch rootWatch;
    PageAccessibility accessibility;
    FullScreen fullScreen;
    EventRouter::Subscription newDocument;
};

PageView::PageView(HWND window, Options options)
    : window_(window), options_(std::move(options)), notice_(window) {}

PageView::~PageView() = default;

void PageView::SetTarget(std::shared_ptr<PageTarget> target) {
    targetView_.reset();
    frameBuffer_.Clear();
    if (target) {
        notice_.Hide();
        targetView_ = std::make_shared<TargetView>(
            window_, std::move(target), frameBuffer_, options_,
            [this](const ViewScript::PageEvent& event) { OnPageEvent(event); }, [this] { OnWindowChange(); });
    }
    InvalidateRect(window_, nullptr, FALSE);
    // Screen readers ask for the window's content again.
    NotifyWinEvent(EVENT_OBJECT_REORDER, window_, OBJID_CLIENT, CHILDID_SELF);
}

void PageView::SetInNativeCall(bool inCall) {
    if (targetView_) targetView_->queue.SetInNativeCall(inCall);
}

bool PageView::IsMouseHeld() const {
    return targetView_ && targetView_->mouse.IsHeld();
}

void PageView::WhenActive(std::function<void()> task) {
    if (targetView_) targetView_->state.WhenActive(std::move(task));
}

DropReceiver* PageView::Drops() const {
    return targetView_ ? &targetView_->drag : nullptr;
}

void PageView::OpenEditMenu(POINT screen) {
    if (!targetView_) return;
    targetView_->script.Call("hasSelection", "",
                             [this, view = std::weak_ptr(targetView_), screen](const Json& result) {
                                 if (!view.expired()) RunEditMenu(screen, result == true);
                             });
}

// The page, and this view with it, may be destroyed while the menu is open.
void PageView::RunEditMenu(POINT screen, bool hasSelection) {
    const std::weak_ptr<TargetView> before = targetView_;
    const EditCommand command = ShowEditMenu(window_, screen, hasSelection);
    const auto view = before.lock();
    if (!view || command == EditCommand::kNone) return;
    if (command == EditCommand::kPaste) view->clipboard.QueueUpdate();
    // The engine runs an editing command as part of a key event, here one without a key.
    view->queue.Add(InputQueue::DeliveryMode::kAwaitReceipt, "Input.dispatchKeyEvent",
                    {{"type", "rawKeyDown"}, {"commands", {EditCommandName(command)}}});
}

void PageView::OnPageEvent(const ViewScript::PageEvent& event) {
    const auto view = targetView_;  // script may close the page
    if (!view) return;
    switch (event.type) {
        case ViewScript::PageEvent::Type::kCopied:
            return view->clipboard.OnCopy(event.text);
        case ViewScript::PageEvent::Type::kReading:
            return view->clipboard.OnRead(event.text);
        case ViewScript::PageEvent::Type::kNewWindow:
            return options_.onNewWindow(event.text);
        case ViewScript::PageEvent::Type::kPicker:
            return view->fieldPickers.OnPicker(ParseJson(event.text));
        case ViewScript::PageEvent::Type::kSuggestions:
            return view->fieldPickers.OnSuggestions(ParseJson(event.text));
        case ViewScript::PageEvent::Type::kPress:
            return view->fieldPickers.Press(Narrow(event.text));
        case ViewScript::PageEvent::Type::kSize:
            return view->placement.OnSizeReport(event.text == L"seen");
        case ViewScript::PageEvent::Type::kFocus:
            return view->ime.Enable(event.text == L"text");
        case ViewScript::PageEvent::Type::kFullScreen:
            return event.text == L"on" ? view->fullScreen.Enter() : view->fullScreen.Leave();
        case ViewScript::PageEvent::Type::kPointerLock:
            return event.text == L"on" ? view->pointerLock.OnLock(view->mouse.LastPoint())
                                       : view->pointerLock.OnUnlock();
    }
}

void PageView::OnWindowChange() {
    if (!targetView_) return;
    targetView_->fieldPickers.HideList();
    targetView_->placement.Update();
    targetView_->state.Update();
    targetView_->screencast.OnWindowChange();
}

void PageView::Paint() {
    PAINTSTRUCT paint;
    const HDC target = BeginPaint(window_, &paint);
    RECT area = {};
    GetClientRect(window_, &area);
    if (notice_.IsShown())
        notice_.Paint(target);
    else
        frameBuffer_.Paint(target, area, paint.rcPaint, PageScaleOf(window_) / EngineScale());
    EndPaint(window_, &paint);
    if (targetView_) targetView_->screencast.OnPaint();
}

bool PageView::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    *result = 0;
    if (notice_.HandleMessage(message, wParam, lParam, result)) return true;
    switch (message) {
        case WM_PAINT:
            Paint();
            return true;
        case WM_ERASEBKGND:
            *result = 1;
            return true;  // WM_PAINT covers everything
        case WM_GETDLGCODE:
            *result = DLGC_WANTALLKEYS;
            return true;
        default:
            break;
    }
    return targetView_ && HandlePageMessage(message, wParam, lParam, result);
}

bool PageView::HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    TargetView& view = *targetView_;
    switch (message) {
        case kFrameMessage:
            if (!view.screencast.OnFrame()) return true;
            if (!view.pointerLock.Position()) view.cursor.Refresh();
            view.accessibility.OnChange();
            return true;
        case WM_GETOBJECT:
            return view.accessibility.OnGetObject(wParam, lParam, result);
        case WM_TIMER:
            return HandleTimer(wParam);
        case WM_SIZE:
            view.screencast.ExpectResize();
            [[fallthrough]];
        case WM_MOVE:
        case WM_SHOWWINDOW:
        case kDpiChangedAfterParent:
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            if (message == WM_KILLFOCUS) {
                view.ime.Complete();
                view.pointerLock.Release();
            }
            OnWindowChange();
            if (message == WM_SETFOCUS) view.accessibility.OnFocus();
            return false;
        case WM_SETCURSOR:
            if (LOWORD(lParam) != HTCLIENT) return false;
            SetCursor(view.pointerLock.Position() ? nullptr : view.cursor.Current());
            *result = TRUE;
            return true;
        default:
            return HandleInput(message, wParam, lParam, result);
    }
}

bool PageView::HandleTimer(UINT_PTR timer) {
    TargetView& view = *targetView_;
    switch (timer) {
        case kCursorTimer:
            view.cursor.OnTimer();
            return true;
        case kFrameTimer:
            view.screencast.OnTimer();
            return true;
        case kTooltipTimer:
            view.tooltip.OnTimer();
            return true;
        case kFocusTimer:
            view.state.OnTimer();
            return true;
        case kChoiceTimer:
            view.fieldPickers.OnTimer();
            return true;
        case kDragTimer:
            view.drag.OnTimer();
            return true;
        default:
            return false;
    }
}

bool PageView::HandleInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const std::weak_ptr<TargetView> before = targetView_;
    const DWORD pointer = notice_.IsShown() ? 0 : PointerTypeOf(message, wParam);
    if (MouseInput::IsPress(message) || (pointer && message == kPointerDown)) {
        targetView_->ime.Complete();
        SetFocus(window_);
    }
    // A blur handler may close this page.
    if (before.expired()) return true;
    TargetView& view = *targetView_;
    if (pointer || IsInput(message)) view.screencast.OnInput();
    if (pointer) return HandlePointer(pointer, message, wParam);
    if (view.fieldPickers.HandleKey(message, wParam)) return true;
    if (view.ime.HandleMessage(message, wParam, lParam, result)) return true;
    const bool isLocked = view.pointerLock.Position().has_value();
    if (isLocked && message == WM_KEYDOWN && wParam == VK_ESCAPE) {
        view.pointerLock.Release();
        return true;
    }
    const bool isMouse = view.mouse.HandleMessage(message, wParam, lParam);
    if ((isMouse && !isLocked) || (message >= WM_KEYFIRST && message <= WM_KEYLAST))
        view.tooltip.OnInput(message, view.mouse.LastPoint());
    if (!isMouse) return view.keyboard.HandleMessage(message, wParam, lParam);
    view.state.OnMouse();
    if (!isLocked) view.cursor.SetPosition(view.mouse.LastPoint());
    // Messages of the X buttons return TRUE.
    *result = message >= WM_XBUTTONDOWN && message <= WM_XBUTTONDBLCLK;
    return true;
}

// The system makes mouse messages of those that are not handled.
bool PageView::HandlePointer(DWORD type, UINT message, WPARAM wParam) {
    TargetView& view = *targetView_;
    if (type == kTouchPointer)
        view.touch.HandleMessage(message, wParam);
    else
        view.pen.HandleMessage(message, wParam);
    view.state.OnMouse();
    return true;
}

}  // namespace tarvik
