#pragma once

#include <functional>

#include "host/registry/plugin_base.h"

namespace tarvik {

// What is done when a page calls; the page waits meanwhile.
struct SoakAnswers {
    std::function<bool()> ready;  // true: the page is to close its window
    std::function<void()> leave;
};
extern SoakAnswers soakAnswers;

// `external.soak`, by which the pages of a long run use native code and native code uses them.
class SoakPlugin : public TablePlugin<SoakPlugin> {
  public:
    static constexpr char kClassName[] = "SoakPlugin";
    static std::span<const Member<SoakPlugin>> Members();

    // A native object, which the page keeps.
    ComPtr<IDispatch> Make();
    // A script function, which is kept here until the next one comes or the window goes.
    void Hold(IDispatch* function) { held_ = function; }
    HRESULT CallBack(IDispatch* function);
    bool Ready();
    void Leave() { soakAnswers.leave(); }

  private:
    ComPtr<IDispatch> held_;
};

}  // namespace tarvik
