#include "page_control/view/system_pointers.h"

#include <algorithm>
#include <iterator>

#include "base/module_function.h"

namespace tarvik {

PointerFunctions& SystemPointers() {
    constexpr const wchar_t* kModule = L"user32.dll";
    static PointerFunctions functions = {
        FindFunction<BOOL WINAPI(UINT32, DWORD*)>(kModule, "GetPointerType"),
        FindFunction<BOOL WINAPI(UINT32, TouchRecord*)>(kModule, "GetPointerTouchInfo"),
        FindFunction<BOOL WINAPI(UINT32, PenRecord*)>(kModule, "GetPointerPenInfo"),
    };
    return functions;
}

DWORD PointerTypeOf(UINT message, WPARAM wParam) {
    constexpr UINT kMessages[] = {kPointerUpdate, kPointerDown, kPointerUp, kPointerLeave,
                                  kPointerCaptureChanged};
    if (std::ranges::find(kMessages, message) == std::end(kMessages)) return 0;
    const PointerFunctions& functions = SystemPointers();
    if (!functions.getType || !functions.getTouch || !functions.getPen) return 0;
    DWORD type = 0;
    functions.getType(LOWORD(wParam), &type);
    return type == kTouchPointer || type == kPenPointer ? type : 0;
}

}  // namespace tarvik
