#pragma once

#include <windows.h>
#include <activscp.h>

#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// The system's script engine in this process, so that objects are driven by real script, which sees them as
// `external`. JSON is there; the rest is the language of 1999.
class ScriptBench {
  public:
    explicit ScriptBench(IDispatch* external);
    ~ScriptBench();
    ScriptBench(const ScriptBench&) = delete;
    ScriptBench& operator=(const ScriptBench&) = delete;

    // Runs statements; a script error fails the test. False after an error.
    bool Run(const wchar_t* text);
    // The value of an expression; empty after an error.
    Variant Evaluate(const wchar_t* expression);

    // How many script errors came up.
    int Errors() const;

  private:
    class Site;
    HRESULT Parse(const wchar_t* text, DWORD flags, VARIANT* result);

    ComPtr<Site> site_;
    ComPtr<IActiveScript> engine_;
};

}  // namespace tarvik
