#pragma once

#include <windows.h>

namespace tarvik {

// Offers the page control as the system's web browser class to this thread, where the system's own cannot
// show a page or the environment variable TARVIK_ENGINE says `chromium` (`mshtml` forces the system's). The
// thread is in the single-threaded apartment of its windows as long as this lives.
class PageControlClass {
  public:
    // Where this control will be the one, most likely: starts its engine, which takes a moment, in the
    // background. May come long before the object, and more than once.
    static void Prelaunch();
    // Ends what Prelaunch has started, if no control has used it.
    static void Shutdown();

    // The filter of the program's message loop: true takes the message. Waits for a page that take long query
    // it, too.
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
