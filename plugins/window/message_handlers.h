#pragma once

#include <windows.h>
#include <oaidl.h>

#include <map>
#include <string>

#include "plugins/window/shared_block.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// The functions that handle messages, one for each name. They are retained until they are unregistered, even
// after their page has been destroyed: calls fail then. Calling or releasing a function may change the table.
class MessageHandlers {
  public:
    // E_INVALIDARG without a function. E_FAIL if the name has a function, which is not replaced.
    HRESULT Register(const wchar_t* name, ComPtr<IDispatch> function, Variant context);
    void Unregister(const wchar_t* name);
    void Clear();

    // Calls function(payload, context) and returns its status; E_FAIL if the name has no function.
    HRESULT Call(BusMessage message) const;

  private:
    struct Handler {
        ComPtr<IDispatch> function;
        Variant context;
    };
    std::map<std::wstring, Handler, std::less<>> handlers_;
};

}  // namespace tarvik
