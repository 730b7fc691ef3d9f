#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "page_control/engine/shared_engine.h"

namespace tarvik {

// Registers the page control as the system's web browser class in this process, if the environment variable
// TARVIK_ENGINE or the resource of the program (base/engine_choice.h) says so, or if they leave the choice
// and the system's control cannot show pages. The thread stays in a single-threaded apartment during the
// object's life.
class PageControlClass {
  public:
    // Starts the engine in the background if this control will probably be used. May be called long before
    // the constructor, and more than once.
    static void Prelaunch(SharedEngine& engine);

    // Long waits for a page call the filter of the program's message loop.
    explicit PageControlClass(std::shared_ptr<SharedEngine> engine = std::make_shared<SharedEngine>(),
                              DevTools::MessageFilter filter = nullptr);
    ~PageControlClass();
    PageControlClass(const PageControlClass&) = delete;
    PageControlClass& operator=(const PageControlClass&) = delete;

    SharedEngine& Engine() const { return *engine_; }

  private:
    const std::shared_ptr<SharedEngine> engine_;
    const bool initialized_;
    DWORD cookie_ = 0;
};

}  // namespace tarvik
