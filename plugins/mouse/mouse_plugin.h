#pragma once

#include <optional>

#include "host/registry/plugin_base.h"

namespace tarvik {

// `mouse`: the pointer and the buttons of the whole desktop. Places are pixels of the screen.
class CMousePlugin : public TablePlugin<CMousePlugin> {
  public:
    static constexpr char kClassName[] = "CMousePlugin";
    static std::span<const Member<CMousePlugin>> Members();

    // An unknown button is the left one.
    bool IsButtonDown(std::optional<ExactInt> button);
    // The click is where the pointer is, whatever x and y say; that is intended.
    Outcome Click(std::optional<ExactInt> button);
    Outcome ClickAt(ExactInt button, LooseInt x, LooseInt y);

    Integer GetX();
    bool SetX(LooseInt x);
    Integer GetY();
    bool SetY(LooseInt y);
};

}  // namespace tarvik
