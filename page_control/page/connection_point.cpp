#include "page_control/page/connection_point.h"

#include <olectl.h>

#include <algorithm>

#include "tarvik/status.h"

namespace tarvik {

void ConnectionPoint::Fire(DISPID id, std::span<VARIANT> arguments) {
    const auto sinks = sinks_;
    std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    for (const auto& [cookie, sink] : sinks) {
        sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
    }
}

void ConnectionPoint::Clear() {
    const auto sinks = std::move(sinks_);
    sinks_.clear();
}

void ConnectionPoint::Close() {
    closed_ = true;
    container_ = nullptr;
    Clear();
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* id) {
    if (!id) return E_POINTER;
    *id = events_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    return container_ ? CopyTo(ComPtr<IConnectionPointContainer>(container_), container) : E_UNEXPECTED;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie) return E_POINTER;
    if (closed_) return CONNECT_E_CANNOTCONNECT;
    // A sink returns its IDispatch for the id of the event interface, as a rule.
    ComPtr<IDispatch> events;
    sink->QueryInterface(events_, reinterpret_cast<void**>(events.GetAddressOf()));
    if (!events) events = Query<IDispatch>(sink);
    if (!events) return CONNECT_E_CANNOTCONNECT;
    return Guard([&] {
        sinks_.emplace(++last_, std::move(events));
        *cookie = last_;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = sinks_.find(cookie);
    if (found == sinks_.end()) return CONNECT_E_NOCONNECTION;
    const ComPtr<IDispatch> removed = std::move(found->second);
    sinks_.erase(found);
    return S_OK;
}

}  // namespace tarvik
