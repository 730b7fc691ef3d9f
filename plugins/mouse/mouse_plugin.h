#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `mouse`: the pointer and the buttons of the desktop. Positions are in pixels of the screen.
class CMousePlugin : public TablePlugin<CMousePlugin> {
  public:
    static constexpr char kClassName[] = "CMousePlugin";
    static std::span<const Member<CMousePlugin>> Members();

    // An unknown button stands for the left one.
    bool IsButtonDown(std::optional<AnyInt32> button);
    // By design both click at the pointer; x and y have no effect.
    Outcome Click(std::optional<AnyInt32> button);
    Outcome ClickAt(AnyInt32 button, CoercedInt x, CoercedInt y);

    int GetX();
    bool SetX(CoercedInt x);
    int GetY();
    bool SetY(CoercedInt y);
};

}  // namespace tarvik
