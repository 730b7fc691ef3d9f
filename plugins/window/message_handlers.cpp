#include "plugins/window/message_handlers.h"

#include <utility>

#include "tarvik/arguments.h"
#include "tarvik/properties.h"

namespace tarvik {

HRESULT MessageHandlers::Register(const wchar_t* name, ComPtr<IDispatch> function, Variant context) {
    if (!function) return E_INVALIDARG;
    Handler handler{std::move(function), std::move(context)};
    return handlers_.try_emplace(name, std::move(handler)).second ? S_OK : E_FAIL;
}

void MessageHandlers::Unregister(const wchar_t* name) {
    const auto found = handlers_.find(name);
    if (found == handlers_.end()) return;
    const auto removed = handlers_.extract(found);  // released after the map has been changed
}

void MessageHandlers::Clear() {
    const auto removed = std::exchange(handlers_, {});
}

HRESULT MessageHandlers::Call(BusMessage message) const {
    const auto found = handlers_.find(message.name);
    if (found == handlers_.end()) return E_FAIL;
    const ComPtr<IDispatch> function = found->second.function;
    const Variant context = Variant::Copy(found->second.context);
    const Variant payload = ToVariant(std::move(message.payload));
    return CallScriptFunction(function.Get(), {&payload, &context});
}

}  // namespace tarvik
