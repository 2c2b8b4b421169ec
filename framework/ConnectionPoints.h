#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <initializer_list>
#include <list>
#include <vector>

#include "framework/ComPtr.h"
#include "framework/Implements.h"

namespace nux {

/// One outgoing interface of an object, with the sinks that are connected to it. It lives inside its
/// container and shares the container's reference count.
class ConnectionPoint final : public IConnectionPoint {
public:
    ConnectionPoint(IConnectionPointContainer& container, REFIID iid) : container_(container), iid_(iid) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return container_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return container_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    /// CONNECT_E_CANNOTCONNECT for a sink that does not offer the outgoing interface.
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** enumeration) override;

    const IID& Outgoing() const noexcept { return iid_; }
    /// What is connected now, each the interface that goes out here. Throws std::bad_alloc.
    std::vector<ComPtr<IUnknown>> Sinks() const;
    void ReleaseConnections() noexcept { std::vector<Connection>().swap(connections_); }

private:
    struct Connection {
        DWORD cookie;
        ComPtr<IUnknown> sink;
    };

    IConnectionPointContainer& container_;
    IID iid_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

/// IConnectionPointContainer over a fixed set of outgoing interfaces.
class ConnectionPoints : public Implements<IConnectionPointContainer> {
public:
    explicit ConnectionPoints(std::initializer_list<IID> outgoing);

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** enumeration) override;
    /// CONNECT_E_NOCONNECTION for an interface that is not outgoing here.
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

protected:
    /// One more outgoing interface. Throws std::bad_alloc.
    void AddConnectionPoint(REFIID iid) { points_.emplace_back(*this, iid); }
    /// What is connected for an outgoing interface. Throws std::bad_alloc.
    std::vector<ComPtr<IUnknown>> Sinks(REFIID iid) const;
    /// Lets go of all sinks.
    void ReleaseConnections() noexcept;

private:
    std::list<ConnectionPoint> points_;
};

}  // namespace nux
