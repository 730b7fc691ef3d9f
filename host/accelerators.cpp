#include "host/accelerators.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

struct Row {
    bool needsControl;
    WPARAM key;
};

// A row without Ctrl matches in any case, so Ctrl+F5 is swallowed too, by design.
constexpr Row kRows[] = {
    {true, 'L'}, {true, 'O'},          {true, 'M'},         {false, VK_F5},
    {true, '0'}, {true, VK_OEM_MINUS}, {true, VK_OEM_PLUS},
};

}  // namespace

// Ctrl and Alt together are AltGr, which types characters on many keyboards: the German one has } on AltGr+0.
// So a row with Ctrl does not match while Alt is held, or a page could not get those characters.
bool IsSwallowedKey(WPARAM key, bool control, bool alt) {
    const bool controlAlone = control && !alt;
    return std::any_of(std::begin(kRows), std::end(kRows),
                       [&](const Row& row) { return row.key == key && (controlAlone || !row.needsControl); });
}

}  // namespace tarvik
