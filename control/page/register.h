#pragma once

#include <windows.h>

namespace tarvik {

// Registers the page control as the system's web browser class in this process, if the system's control
// cannot show pages or the environment variable TARVIK_ENGINE is `chromium` (`mshtml` forces the system's
// control). The thread stays in a single-threaded apartment during the object's life.
class PageControlClass {
  public:
    // Starts the engine in the background if this control will probably be used. May be called long before
    // the constructor, and more than once.
    static void Prelaunch();
    // Ends the engine that Prelaunch has started, if no control has used it.
    static void Shutdown();

    // The filter of the program's message loop; true if it has handled the message. Long waits for a page
    // call it too.
    using MessageFilter = bool (*)(MSG* message);
    explicit PageControlClass(MessageFilter filter = nullptr);
    ~PageControlClass();
    PageControlClass(const PageControlClass&) = delete;
    PageControlClass& operator=(const PageControlClass&) = delete;

  private:
    const bool initialized_;
    DWORD cookie_ = 0;
};

}  // namespace tarvik
