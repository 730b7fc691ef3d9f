#include "host/accelerators.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

struct Row {
    bool needsControl;
    WPARAM key;
};

// A row that does not ask for Ctrl does not look at it, so Ctrl+F5 is swallowed too; that is intended.
constexpr Row kRows[] = {
    {true, 'L'}, {true, 'O'},          {true, 'M'},         {false, VK_F5},
    {true, '0'}, {true, VK_OEM_MINUS}, {true, VK_OEM_PLUS},
};

}  // namespace

bool IsSwallowedKey(WPARAM key, bool control) {
    return std::any_of(std::begin(kRows), std::end(kRows),
                       [&](const Row& row) { return row.key == key && (control || !row.needsControl); });
}

}  // namespace tarvik
