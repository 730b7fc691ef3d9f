#pragma once

#include <windows.h>
#include <oaidl.h>

#include <map>
#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"
#include "plugins/window/shared_block.h"

namespace tarvik {

// The functions that a page has for messages, one for each name. They stay until they are taken out, also
// when their page has gone; then calling one fails. A function may change the table while it runs, and so may
// the end of one that is let go of.
class MessageHandlers {
  public:
    // E_INVALIDARG without a function. E_FAIL if the name has one already, which stays.
    HRESULT Register(const wchar_t* name, ComPtr<IDispatch> function, Variant context);
    void Unregister(const wchar_t* name);
    void Clear();

    // function(payload, context), and its status; E_FAIL if the name has none.
    HRESULT Call(BusMessage message) const;

  private:
    struct Handler {
        ComPtr<IDispatch> function;
        Variant context;
    };
    std::map<std::wstring, Handler, std::less<>> handlers_;
};

}  // namespace tarvik
