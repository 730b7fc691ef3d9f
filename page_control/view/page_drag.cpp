#include "page_control/view/page_drag.h"

#include <cmath>
#include <optional>
#include <utility>

#include "page_control/drag/drag_data.h"
#include "page_control/drag/drag_source.h"
#include "page_control/encoding/base64.h"
#include "page_control/engine/launch.h"
#include "page_control/view/page_scale.h"
#include "page_control/view/window_numbers.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kEffectTimeout = 200;  // milliseconds, for a page that is busy

Pixels Decode(std::string_view dataUrl) {
    Pixels pixels;
    std::vector<BYTE> file;
    (void)Guard([&] {
        if (DecodeBase64(dataUrl.substr(dataUrl.find(',') + 1), file) && !file.empty())
            PictureCodec().Decode(file, GUID_WICPixelFormat32bppPBGRA, pixels);
    });
    return pixels;
}

}  // namespace

PageDrag::PageDrag(HWND window, PageTarget& target, ViewScript& script, InputQueue& queue, MouseInput& mouse,
                   const FrameBuffer& frameBuffer)
    : window_(window),
      target_(target),
      script_(script),
      queue_(queue),
      mouse_(mouse),
      frameBuffer_(frameBuffer),
      intercepted_(target.Events().Subscribe<event::DragIntercepted>(
          [this](const event::DragIntercepted& drag) { OnStart(drag.data); })) {
    target.Post("Input.setInterceptDrags", {{"enabled", true}});
}

PageDrag::~PageDrag() {
    *alive_ = false;
    KillTimer(window_, kDragTimer);
}

void PageDrag::OnStart(const Json& dragData) {
    starting_ = dragData;
    script_.Call("dragImage", "", [this, alive = alive_](const Json& image) {
        if (!*alive) return;
        image_ = image;
        SetTimer(window_, kDragTimer, USER_TIMER_MINIMUM, nullptr);
    });
}

// Native code that waits for the engine must not be held up by the loop of the drag.
void PageDrag::OnTimer() {
    if (target_.Engine().IsWaiting()) return;
    KillTimer(window_, kDragTimer);
    Run();
}

void PageDrag::Run() {
    const auto alive = alive_;
    const Json data = std::exchange(starting_, nullptr);
    if (data.is_null()) return;
    POINT hotSpot = {};
    const Pixels pixels = Picture(hotSpot);
    // The page gets no release of the button: the drag has ended its click.
    mouse_.Forget();
    const DragImage image(pixels, hotSpot);
    const DWORD effect =
        RunDrag(ToDataObject(data).Get(), AllowedEffects(data), image, [alive] { return *alive; });
    if (!*alive) return;
    // After a drop on this page, the drag has ended.
    queue_.AddTask([this, alive, effect](const std::function<void()>& done) {
        if (*alive) script_.Call("endDrag", Json(EffectName(effect)).dump(), [done](const Json&) { done(); });
    });
    over_ = data;
    Dispatch("dragCancel", kOutside);
}

// In the order of the script's list; none without an element, as in a frame of another origin.
Pixels PageDrag::Picture(POINT& hotSpot) const {
    if (!image_.is_array()) return {};
    // The pixels of the engine's frames.
    const auto number = [this](size_t index) {
        return std::lround(static_cast<LONG>(image_.at(index)) * EngineScale());
    };
    const std::string& picture = image_.at(6).get_ref<const std::string&>();
    hotSpot = {number(4), number(5)};
    if (!picture.empty()) return Decode(picture);
    return frameBuffer_.Crop({number(0), number(1)}, {number(2), number(3)}, hotSpot);
}

void PageDrag::OnDragEnter(const Json& dragData, POINT screen) {
    over_ = dragData;
    Dispatch("dragEnter", InPage(screen));
}

DWORD PageDrag::OnDragOver(POINT screen) {
    const auto effect = std::make_shared<std::optional<DWORD>>();
    Dispatch("dragOver", InPage(screen));
    queue_.AddTask([this, alive = alive_, effect](const std::function<void()>& done) {
        if (!*alive) return;
        script_.Call("dropEffect", "", [effect, done](const Json& name) {
            *effect = EffectNamed(name.is_string() ? name.get_ref<const std::string&>() : "");
            done();
        });
    });
    const auto engine = target_.EnginePointer();
    engine->WaitUntil([alive = alive_, effect] { return effect->has_value() || !*alive; }, kEffectTimeout);
    return effect->value_or(DROPEFFECT_NONE);
}

// A position outside: DevTools cannot say that a drag leaves, other than by its end.
void PageDrag::OnDragLeave() {
    Dispatch("dragOver", kOutside);
}

void PageDrag::OnDrop(POINT screen) {
    Dispatch("drop", InPage(screen));
}

void PageDrag::Dispatch(const char* type, POINT point) {
    queue_.Add(
        InputQueue::DeliveryMode::kAwaitReply, "Input.dispatchDragEvent",
        {{"type", type}, {"x", point.x}, {"y", point.y}, {"data", over_}, {"modifiers", KeyModifiers()}});
}

POINT PageDrag::InPage(POINT screen) const {
    ScreenToClient(window_, &screen);
    return ToPage(screen, PageScaleOf(window_));
}

}  // namespace tarvik
