#pragma once

#include <windows.h>
#include <objidl.h>

#include <functional>

#include "page_control/drag/drag_image.h"

namespace tarvik {

// Lets the user drag data until the button is released. Runs a message loop; cancels once the page of the
// data is gone. Returns the effect of the drop.
DWORD RunDrag(IDataObject* data, DWORD allowedEffects, const DragImage& image, std::function<bool()> hasPage);

}  // namespace tarvik
