#pragma once

#include <windows.h>

// Messages, records and functions of touch contacts and pens, which came with Windows 8. The headers leave
// them out for a program that also runs on Windows 7.
namespace tarvik {

inline constexpr UINT kPointerUpdate = 0x0245;  // WM_POINTERUPDATE, and so on
inline constexpr UINT kPointerDown = 0x0246;
inline constexpr UINT kPointerUp = 0x0247;
inline constexpr UINT kPointerLeave = 0x024A;
inline constexpr UINT kPointerCaptureChanged = 0x024C;

enum PointerType : DWORD { kTouchPointer = 2, kPenPointer = 3 };

enum PointerFlag : UINT32 {
    kPointerInContact = 0x04,
    kPointerSecondButton = 0x20,
    kPointerPrimary = 0x2000,
    kPointerCancelled = 0x8000,
};

// POINTER_INFO
struct PointerRecord {
    DWORD type;
    UINT32 id;
    UINT32 frame;
    UINT32 flags;
    HANDLE device;
    HWND target;
    POINT screen;
    POINT unused[3];  // in other units
    DWORD time;
    UINT32 historyCount;
    INT32 inputData;
    DWORD keyStates;
    UINT64 counter;
    DWORD buttonChange;
};
static_assert(sizeof(PointerRecord) == 96);

// POINTER_TOUCH_INFO
struct TouchRecord {
    enum Mask : UINT32 { kHasArea = 1, kHasPressure = 4 };
    static constexpr UINT32 kMaxPressure = 1024;

    PointerRecord pointer;
    UINT32 touchFlags;
    UINT32 mask;
    RECT area;
    RECT rawArea;
    UINT32 orientation;
    UINT32 pressure;
};
static_assert(sizeof(TouchRecord) == 144);

// POINTER_PEN_INFO
struct PenRecord {
    enum Flag : UINT32 { kBarrel = 1 };
    enum Mask : UINT32 { kHasPressure = 1, kHasRotation = 2, kHasTiltX = 4, kHasTiltY = 8 };
    static constexpr UINT32 kMaxPressure = 1024;

    PointerRecord pointer;
    UINT32 penFlags;
    UINT32 mask;
    UINT32 pressure;
    UINT32 rotation;  // degrees, as the tilt
    INT32 tiltX;
    INT32 tiltY;
};
static_assert(sizeof(PenRecord) == 120);

struct PointerFunctions {
    BOOL(WINAPI* getType)(UINT32 id, DWORD* type);
    BOOL(WINAPI* getTouch)(UINT32 id, TouchRecord* record);
    BOOL(WINAPI* getPen)(UINT32 id, PenRecord* record);
};

// Null if the system lacks them. Tests replace them, because only a device makes the records.
PointerFunctions& SystemPointers();

// Whose message this is: kTouchPointer, kPenPointer, or 0 for all others.
DWORD PointerTypeOf(UINT message, WPARAM wParam);

}  // namespace tarvik
