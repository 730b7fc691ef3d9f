#include "page_control/view/touch_input.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "page_control/view/mouse_input.h"
#include "page_control/view/page_scale.h"

namespace tarvik {

namespace {

// As in Chromium.
constexpr DWORD kRestTime = 500;   // milliseconds
constexpr double kTapRadius = 15;  // CSS pixels

constexpr double kPressure = 0.5;  // of a device that measures none

Json Touches(const char* type, Json points) {
    return Parameters{{"type", type}, {"touchPoints", std::move(points)}, {"modifiers", KeyModifiers()}}
        .Take();
}

}  // namespace

Json TouchPointOf(const TouchRecord& record, int id, POINT origin, double scale) {
    const POINT& screen = record.pointer.screen;
    const bool hasArea = record.mask & TouchRecord::kHasArea;
    const bool hasPressure = record.mask & TouchRecord::kHasPressure;
    const RECT area = hasArea ? record.area : RECT{0, 0, 2, 2};
    return Parameters{
        {"id", id},
        {"x", (screen.x - origin.x) / scale},
        {"y", (screen.y - origin.y) / scale},
        {"radiusX", (area.right - area.left) / 2.0 / scale},
        {"radiusY", (area.bottom - area.top) / 2.0 / scale},
        {"force", hasPressure ? static_cast<double>(record.pressure) / TouchRecord::kMaxPressure : kPressure}}
        .Take();
}

void TouchInput::HandleMessage(UINT message, WPARAM wParam) {
    const UINT32 pointer = LOWORD(wParam);
    TouchRecord record = {};
    const auto contact = Find(pointer);
    const bool isKnown = contact != contacts_.end();
    if (message == kPointerCaptureChanged && isKnown) return Cancel();
    if (!SystemPointers().getTouch(pointer, &record)) return;
    if (message == kPointerDown) return OnDown(record);
    if (message == kPointerUpdate && isKnown) return OnMove(*contact, record);
    if (message == kPointerUp && isKnown)
        return record.pointer.flags & kPointerCancelled ? Cancel() : OnUp(contact, record);
}

TouchInput::Contacts::iterator TouchInput::Find(UINT32 pointer) {
    return std::ranges::find(contacts_, pointer, &Contact::pointer);
}

Json TouchInput::Describe(const TouchRecord& record, int id) const {
    POINT origin = {};
    ClientToScreen(window_, &origin);
    return TouchPointOf(record, id, origin, PageScaleOf(window_));
}

int TouchInput::UnusedId() const {
    int id = 0;
    while (std::ranges::any_of(contacts_, [id](const Contact& contact) { return contact.point["id"] == id; }))
        ++id;
    return id;
}

Json TouchInput::Points() const {
    Json points = Json::array();
    for (const Contact& contact : contacts_)
        points.push_back(contact.point);
    return points;
}

// The window may have missed how the contacts before a primary one ended.
void TouchInput::OnDown(const TouchRecord& record) {
    const PointerRecord& pointer = record.pointer;
    if ((pointer.flags & kPointerPrimary) || Find(pointer.id) != contacts_.end()) Cancel();
    contacts_.push_back({pointer.id, Describe(record, UnusedId()), pointer.screen, pointer.time});
    for (Contact& contact : contacts_)
        contact.isTap &= contacts_.size() == 1;
    // The engine takes a contact for started even if the page has missed that.
    Send(InputQueue::DeliveryMode::kAwaitReceipt, "touchStart", Points(),
         {Touches("touchCancel", Json::array()), Touches("touchStart", Points())});
}

void TouchInput::OnMove(Contact& contact, const TouchRecord& record) {
    Json point = Describe(record, contact.point["id"]);
    if (point == contact.point) return;
    contact.point = std::move(point);
    const double radius = kTapRadius * PageScaleOf(window_);
    contact.isTap &= std::abs(record.pointer.screen.x - contact.start.x) <= radius &&
                     std::abs(record.pointer.screen.y - contact.start.y) <= radius;
    Send(InputQueue::DeliveryMode::kCoalesce, "touchMove", Points());
}

void TouchInput::OnUp(Contacts::iterator contact, const TouchRecord& record) {
    const Json point = contact->point;
    const bool isTap = contact->isTap;
    const bool hasRested = isTap && record.pointer.time - contact->time >= kRestTime;
    Json start = Touches("touchStart", Points());
    contacts_.erase(contact);
    if (hasRested) return EndRest(point);
    // Another attempt must not make a tap of the end of a movement.
    const bool ends = isTap || !contacts_.empty();
    const Json points = Json::array({point}), none = Json::array();
    Send(InputQueue::DeliveryMode::kAwaitReceipt, "touchEnd", points,
         {std::move(start), ends ? Touches("touchEnd", points) : Touches("touchCancel", none)});
}

void TouchInput::Cancel() {
    if (contacts_.empty()) return;
    contacts_.clear();
    Send(InputQueue::DeliveryMode::kAwaitReply, "touchCancel", Json::array());
}

// Unless the page itself handles the contact.
void TouchInput::EndRest(const Json& point) {
    queue_.AddTask([&target = target_, &script = script_, point](const std::function<void()>& done) {
        script.Call("handlesTouch", "", [&target, point, done](const Json& handles) {
            for (const bool isPress : {true, false}) {
                if (handles == true) break;
                target.Post("Input.dispatchMouseEvent", {{"type", isPress ? "mousePressed" : "mouseReleased"},
                                                         {"x", point["x"]},
                                                         {"y", point["y"]},
                                                         {"button", "right"},
                                                         {"buttons", isPress ? 2 : 0},
                                                         {"clickCount", 1},
                                                         {"modifiers", KeyModifiers()}});
            }
            target.Post("Input.dispatchTouchEvent",
                        Touches(handles == true ? "touchEnd" : "touchCancel", Json::array()));
            done();
        });
    });
}

void TouchInput::Send(InputQueue::DeliveryMode mode, const char* type, Json points, std::vector<Json> retry) {
    queue_.Add(mode, "Input.dispatchTouchEvent", Touches(type, std::move(points)), std::move(retry));
}

}  // namespace tarvik
