#pragma once

#include <windows.h>
#include <activscp.h>

#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// Runs script in this process with the system's engine: JavaScript as of 1999, and JSON. `external` is a
// global variable of the script.
class ScriptHost {
  public:
    explicit ScriptHost(IDispatch* external);
    ~ScriptHost();
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;

    // Runs statements; a script error fails the test. False after an error.
    bool Run(const wchar_t* text);
    // The value of an expression; empty after an error.
    Variant Evaluate(const wchar_t* expression);

    // The number of script errors so far.
    int Errors() const;

  private:
    class Site;
    HRESULT Parse(const wchar_t* text, DWORD flags, VARIANT* result);

    ComPtr<Site> site_;
    ComPtr<IActiveScript> engine_;
};

}  // namespace tarvik
