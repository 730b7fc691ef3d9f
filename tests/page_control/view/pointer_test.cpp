// Touch contacts and pens over a page, with records in place of a device's.

#include <chrono>
#include <map>

#include "page_control/view/pen_input.h"
#include "page_control/view/system_pointers.h"
#include "page_control/view/touch_input.h"
#include "tests/page_control/view/hosted_page.h"

namespace tarvik {
namespace {

struct FakeDevices {
    std::map<UINT32, TouchRecord> contacts;
    std::map<UINT32, PenRecord> pens;
} devices;

template <class Record>
BOOL Copy(const std::map<UINT32, Record>& records, UINT32 id, Record* record) {
    const auto found = records.find(id);
    if (found == records.end()) return FALSE;
    *record = found->second;
    return TRUE;
}

class Pointers : public HostedPage {
  protected:
    Pointers() {
        devices = {};
        SystemPointers() = {
            [](UINT32 id, DWORD* type) -> BOOL {
                *type = devices.contacts.contains(id) ? kTouchPointer : kPenPointer;
                return devices.contacts.contains(id) || devices.pens.contains(id);
            },
            [](UINT32 id, TouchRecord* record) { return Copy(devices.contacts, id, record); },
            [](UINT32 id, PenRecord* record) { return Copy(devices.pens, id, record); },
        };
    }
    ~Pointers() override { SystemPointers() = system_; }

    LRESULT Message(UINT message, UINT32 id) const { return SendMessageW(PageWindow(), message, id, 0); }

    // The first of several contacts is the primary one.
    void Touch(UINT message, UINT32 id, POINT screen, UINT32 flags = kPointerPrimary, DWORD time = 0) {
        TouchRecord& record = devices.contacts[id];
        record.pointer.type = kTouchPointer;
        record.pointer.id = id;
        record.pointer.flags = flags;
        record.pointer.screen = screen;
        record.pointer.time = time;
        Message(message, id);
    }
    void Tap(POINT screen, DWORD duration = 0) {
        Touch(kPointerDown, 1000, screen);
        Touch(kPointerUp, 1000, screen, kPointerPrimary, duration);
    }

    PenRecord& Pen(POINT screen) {
        PenRecord& pen = devices.pens[7];
        pen.pointer.type = kPenPointer;
        pen.pointer.id = 7;
        pen.pointer.screen = screen;
        return pen;
    }

  private:
    const PointerFunctions system_ = SystemPointers();
};

constexpr const char* kLog = R"(<script>
    function logContacts() {
        for (const type of ['touchstart', 'touchmove', 'touchend', 'touchcancel'])
            addEventListener(type, function (event) {
                log.push(type + Array.from(event.changedTouches, function (touch) {
                    return [' ' + touch.identifier, touch.clientX, touch.clientY].join('/');
                }).join('') + ' of ' + event.touches.length);
            });
    }
    function logPointers() {
        for (const type of arguments)
            addEventListener(type, function (event) {
                log.push([type, event.pointerType, event.button, event.buttons, event.pressure].join(' '));
            });
    }
</script>)";

TEST_F(Pointers, TouchAPageWithSeveralContacts) {
    Open(std::string(kLog) + R"(<style>html { touch-action: none; }</style><script>
        logContacts();
        addEventListener('touchstart', function (event) {
            var touch = event.changedTouches[0];
            log.push([touch.radiusX, touch.radiusY, touch.force].join());
        });</script>)");
    TouchRecord& measured = devices.contacts[40];
    measured.mask = TouchRecord::kHasArea | TouchRecord::kHasPressure;
    measured.area = {0, 0, 20, 12};
    measured.pressure = 256;
    Touch(kPointerDown, 40, OnScreen({100, 80}));
    Touch(kPointerDown, 31, OnScreen({200, 90}), 0);
    EXPECT_TRUE(Becomes(L"log.join('; ')",
                        L"touchstart 0/100/80 of 1; 10,6,0.25; touchstart 1/200/90 of 2; 1,1,0.5"));
    Evaluate(L"log = []");
    Touch(kPointerUpdate, 31, OnScreen({240, 130}), 0);
    EXPECT_TRUE(Becomes(L"log.at(-1)", L"touchmove 1/240/130 of 2"));
    Evaluate(L"log = []");
    // The other contact stays, and the next one takes the free number.
    Touch(kPointerUp, 40, OnScreen({100, 80}));
    Touch(kPointerDown, 52, OnScreen({60, 70}), 0);
    EXPECT_TRUE(Becomes(L"log.join('; ')", L"touchend 0/100/80 of 1; touchstart 0/60/70 of 2; 1,1,0.5"));
    Evaluate(L"log = []");
    Message(kPointerCaptureChanged, 31);
    EXPECT_TRUE(Becomes(L"log.join('; ')", L"touchcancel 0/60/70 1/240/130 of 0"));
    // The rest of a cancelled contact is no input, and the next contact is alone.
    Touch(kPointerUpdate, 31, OnScreen({250, 130}), 0);
    Touch(kPointerUp, 31, OnScreen({250, 130}), 0);
    Touch(kPointerDown, 61, OnScreen({30, 30}));
    Touch(kPointerUp, 61, OnScreen({30, 30}), kPointerPrimary | kPointerCancelled);
    EXPECT_TRUE(
        Becomes(L"log.slice(1).join('; ')", L"touchstart 0/30/30 of 1; 1,1,0.5; touchcancel 0/30/30 of 0"));
}

TEST_F(Pointers, TapScrollAndPinch) {
    Open(std::string(kLog) + R"(<style>body { width: 3000px; height: 3000px; }</style>
        <button id="button" style="width: 200px; height: 60px">Tap</button><br><input id="field"><script>
        logEvents('mousedown', 'mouseup', 'click', 'contextmenu');
        logPointers('pointerdown', 'pointerup');</script>)");
    Tap(MiddleOf(L"button"));
    EXPECT_TRUE(
        Becomes(L"log.join()", L"pointerdown touch 0 1 0.5,pointerup touch 0 0 0,mousedown,mouseup,click"));
    Tap(MiddleOf(L"field"));
    EXPECT_TRUE(Becomes(L"document.activeElement.id", L"field"));
    Type(L"typed");
    EXPECT_TRUE(Becomes(L"field.value", L"typed"));
    Touch(kPointerDown, 2, OnScreen({250, 300}));
    for (LONG y = 290; y >= 100; y -= 10) {
        Touch(kPointerUpdate, 2, OnScreen({250, y}));
        PumpUntil([] { return false; }, std::chrono::milliseconds(10));
    }
    EXPECT_TRUE(Becomes(L"scrollX === 0 && scrollY > 100", L"true"));
    Touch(kPointerUp, 2, OnScreen({250, 100}));
    EXPECT_EQ(Evaluate(L"visualViewport.scale"), L"1");
    Touch(kPointerDown, 3, OnScreen({240, 200}));
    Touch(kPointerDown, 4, OnScreen({260, 200}), 0);
    for (LONG distance = 10; distance <= 150; distance += 10) {
        Touch(kPointerUpdate, 3, OnScreen({240 - distance, 200}));
        Touch(kPointerUpdate, 4, OnScreen({260 + distance, 200}), 0);
        PumpUntil([] { return false; }, std::chrono::milliseconds(10));
    }
    EXPECT_TRUE(Becomes(L"visualViewport.scale > 1.5", L"true"));
}

TEST_F(Pointers, OpenAMenuByRestingUnlessThePageHandlesTheContact) {
    Open(R"(<div id="free" style="height: 100px"></div><div id="own" style="height: 100px"></div><script>
        logEvents('touchend', 'touchcancel', 'click', 'contextmenu');
        addEventListener('contextmenu', function (event) { event.preventDefault(); });
        own.addEventListener('touchstart', function (event) { event.preventDefault(); });</script>)");
    Tap(MiddleOf(L"free"), 700);
    EXPECT_TRUE(Becomes(L"log.join()", L"contextmenu,touchcancel"));
    Tap(MiddleOf(L"own"), 700);
    EXPECT_TRUE(Becomes(L"log.join()", L"contextmenu,touchcancel,touchend"));
    Tap(MiddleOf(L"free"));
    EXPECT_TRUE(Becomes(L"log.join()", L"contextmenu,touchcancel,touchend,touchend,click"));
}

// The engine loses most of the taps on such a page. Some stay lost, because the engine sends a tap's click on
// its own.
TEST_F(Pointers, LoseFewTapsOfAPageThatMakesNativeCalls) {
    Open(R"(<button id="button" style="width: 200px; height: 60px">Count</button><script>
        var own = external.window, ends = 0, clicks = 0;
        addEventListener('touchend', function () { ends++; });
        button.onclick = function () { clicks++; own.isVisible(); own.isVisible(); };
        setInterval(function () { own.isVisible(); own.isVisible(); }, 15);</script>)");
    const POINT middle = MiddleOf(L"button");
    for (int i = 0; i < 40; ++i) {
        Tap(middle);
        PumpUntil([] { return false; }, std::chrono::milliseconds(i % 7));
    }
    EXPECT_TRUE(Becomes(L"clicks > 30 && ends > 30", L"true"));
}

TEST_F(Pointers, DrawWithAPen) {
    Open(std::string(kLog) + R"(<style>body { height: 300px; }</style><script>
        var pen;
        logPointers('pointerdown', 'pointerup', 'contextmenu');
        onpointermove = function (event) {
            pen = [event.pointerType, event.clientX, event.clientY, event.buttons, event.pressure, event.tiltX,
                event.tiltY, event.twist].join();
        };
        onpointerleave = document.documentElement.onpointerleave = function () { pen = 'left'; };</script>)");
    const auto move = [&](UINT message, POINT point) {
        Pen(OnScreen(point));
        EXPECT_EQ(Message(message, 7), 0);
    };
    PenRecord& pen = Pen({});
    pen.mask =
        PenRecord::kHasPressure | PenRecord::kHasRotation | PenRecord::kHasTiltX | PenRecord::kHasTiltY;
    pen.tiltX = -30;
    pen.tiltY = 20;
    pen.rotation = 90;
    move(kPointerUpdate, {50, 60});
    EXPECT_TRUE(Becomes(L"pen", L"pen,50,60,0,0,-30,20,90"));
    pen.pointer.flags = kPointerInContact;
    pen.pressure = 512;
    move(kPointerDown, {50, 60});
    pen.pressure = 768;
    move(kPointerUpdate, {70, 80});
    EXPECT_TRUE(Becomes(L"pen", L"pen,70,80,1,0.75,-30,20,90"));
    pen.pointer.flags = 0;
    move(kPointerUp, {70, 80});
    EXPECT_TRUE(Becomes(L"log.join()", L"pointerdown pen 0 1 0.5,pointerup pen 0 0 0"));
    Evaluate(L"log = []");
    pen.pointer.flags = kPointerInContact;
    pen.mask = 0;
    pen.penFlags = PenRecord::kBarrel;
    move(kPointerDown, {90, 80});
    EXPECT_TRUE(Becomes(L"log[0]", L"pointerdown pen 2 2 0.5"));
    Message(kPointerCaptureChanged, 7);
    EXPECT_TRUE(Becomes(L"log.at(-1)", L"pointerup pen 2 0 0"));
    Message(kPointerLeave, 7);
    EXPECT_TRUE(Becomes(L"pen", L"left"));
}

}  // namespace
}  // namespace tarvik
