#include "framework/ConnectionPoints.h"

#include "framework/Enumeration.h"

namespace nux {
namespace {

struct PointItem {
    ComPtr<IConnectionPoint> point;
    void CopyTo(IConnectionPoint** target) const noexcept { point.CopyTo(target); }
};

struct SinkItem {
    ComPtr<IUnknown> sink;
    DWORD cookie;
    void CopyTo(CONNECTDATA* target) const noexcept {
        target->dwCookie = cookie;
        sink.CopyTo(&target->pUnk);
    }
};

using PointEnumeration = Enumeration<IEnumConnectionPoints, PointItem, IConnectionPoint*>;
using SinkEnumeration = Enumeration<IEnumConnections, SinkItem, CONNECTDATA>;

}  // namespace

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (iid != IID_IConnectionPoint && iid != IID_IUnknown)
        return E_NOINTERFACE;
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid)
        return E_POINTER;
    *iid = iid_;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container)
        return E_POINTER;
    ComPtr<IConnectionPointContainer>(&container_).CopyTo(container);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie)
        return E_POINTER;
    *cookie = 0;
    const ComPtr<IConnectionPoint> self(this);
    return Guarded([&]() -> HRESULT {
        ComPtr<IUnknown> connected = Query<IUnknown>(sink, iid_);
        if (!connected)
            return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({lastCookie_ + 1, std::move(connected)});
        *cookie = ++lastCookie_;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    for (auto connection = connections_.begin(); connection != connections_.end(); ++connection) {
        if (connection->cookie == cookie) {
            const ComPtr<IUnknown> sink = std::move(connection->sink);  // its release may re-enter
            connections_.erase(connection);
            return S_OK;
        }
    }
    return CONNECT_E_NOCONNECTION;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** enumeration) {
    if (!enumeration)
        return E_POINTER;
    *enumeration = nullptr;
    return Guarded([&] {
        auto items = std::make_shared<SinkEnumeration::Items>();
        for (const Connection& connection : connections_)
            items->push_back({connection.sink, connection.cookie});
        *enumeration = MakeObject<SinkEnumeration>(std::move(items), 0u).Detach();
        return S_OK;
    });
}

std::vector<ComPtr<IUnknown>> ConnectionPoint::Sinks() const {
    std::vector<ComPtr<IUnknown>> sinks;
    for (const Connection& connection : connections_)
        sinks.push_back(connection.sink);
    return sinks;
}

std::vector<ComPtr<IUnknown>> ConnectionPoints::Sinks(REFIID iid) const {
    for (const ConnectionPoint& point : points_) {
        if (point.Outgoing() == iid)
            return point.Sinks();
    }
    return {};
}

ConnectionPoints::ConnectionPoints(std::initializer_list<IID> outgoing) {
    for (const IID& iid : outgoing)
        points_.emplace_back(*this, iid);
}

void ConnectionPoints::ReleaseConnections() noexcept {
    for (ConnectionPoint& point : points_)
        point.ReleaseConnections();
}

STDMETHODIMP ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** enumeration) {
    if (!enumeration)
        return E_POINTER;
    *enumeration = nullptr;
    return Guarded([&] {
        auto items = std::make_shared<PointEnumeration::Items>();
        for (ConnectionPoint& point : points_)
            items->push_back({ComPtr<IConnectionPoint>(&point)});
        *enumeration = MakeObject<PointEnumeration>(std::move(items), 0u).Detach();
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (!point)
        return E_POINTER;
    *point = nullptr;
    for (ConnectionPoint& candidate : points_) {
        if (candidate.Outgoing() == iid) {
            candidate.AddRef();
            *point = &candidate;
            return S_OK;
        }
    }
    return CONNECT_E_NOCONNECTION;
}

}  // namespace nux
