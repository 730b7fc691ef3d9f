#pragma once

#include <windows.h>
#include <ocidl.h>

#include <map>
#include <span>
#include <vector>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// Where sinks of one event interface, all of them IDispatch, are connected.
class ConnectionPoint : public ComObject<IConnectionPoint> {
  public:
    // The container is not owned; it closes the point before it ends.
    ConnectionPoint(REFIID events, IConnectionPointContainer* container)
        : events_(events), container_(container) {}

    // Arguments in the order of the event's documentation. Sinks may come and go meanwhile.
    void Fire(DISPID id, std::span<VARIANT> arguments = {});
    void Clear();
    // Also lets no sink in from now on.
    void Close();

    STDMETHODIMP GetConnectionInterface(IID* id) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

  private:
    const IID events_;
    IConnectionPointContainer* container_;
    std::map<DWORD, ComPtr<IDispatch>> sinks_;
    DWORD last_ = 0;
    bool closed_ = false;
};

}  // namespace tarvik
