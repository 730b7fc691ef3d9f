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

// The connection point of one event interface, whose sinks are called through IDispatch.
class ConnectionPoint : public ComObject<IConnectionPoint> {
  public:
    // The container is not owned; it calls Close before it is destroyed.
    ConnectionPoint(REFIID events, IConnectionPointContainer* container)
        : events_(events), container_(container) {}

    // Arguments are in documented order. Sinks may connect and disconnect meanwhile.
    void Fire(DISPID id, std::span<VARIANT> arguments = {});
    void Clear();
    // Disconnects all sinks and refuses new ones.
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
