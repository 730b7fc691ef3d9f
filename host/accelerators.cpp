#include "host/accelerators.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

struct Accelerator {
    bool needsControl;
    WPARAM key;
};

// F5 is swallowed with and without Ctrl, by design.
constexpr Accelerator kAccelerators[] = {
    {true, 'L'}, {true, 'O'},          {true, 'M'},         {false, VK_F5},
    {true, '0'}, {true, VK_OEM_MINUS}, {true, VK_OEM_PLUS},
};

}  // namespace

// Ctrl and Alt together are AltGr, which types characters on many keyboards, such as } by AltGr+0 on a German
// one. So combinations with Ctrl are swallowed only if Alt is up.
bool IsSwallowedKey(WPARAM key, bool control, bool alt) {
    const bool controlAlone = control && !alt;
    return std::any_of(std::begin(kAccelerators), std::end(kAccelerators),
                       [&](const Accelerator& accelerator) {
                           return accelerator.key == key && (controlAlone || !accelerator.needsControl);
                       });
}

}  // namespace tarvik
