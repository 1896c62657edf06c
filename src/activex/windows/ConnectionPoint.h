#pragma once

#include "activex/windows/ComPointer.h"

#include <functional>
#include <vector>

namespace activex {

/// A listener, and the number that ends its connection.
struct Connection {
    DWORD cookie;
    ComPointer<::IUnknown> listener;
};

/// One kind of listener of an object. It is a part of the object and counted with it.
class ConnectionPoint final : public ::IConnectionPoint {
public:
    /// For listeners of the interface `id`; such as have only calls by name will do where it is one of
    /// events.
    ConnectionPoint(::IConnectionPointContainer& owner, const Guid& id) : owner_(owner), id_(id) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;
    virtual ~ConnectionPoint() = default;

    const Guid& id() const { return id_; }
    bool empty() const { return sinks_.empty(); }
    /// Calls `visit` with the listeners that are connected now, as the interface that they were asked for.
    void callEach(const std::function<void(::IUnknown&)>& visit) const;

    ::HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override;
    ::ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
    ::ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }
    ::HRESULT STDMETHODCALLTYPE GetConnectionInterface(::IID* result) override;
    ::HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(::IConnectionPointContainer** result) override;
    ::HRESULT STDMETHODCALLTYPE Advise(::IUnknown* sink, DWORD* cookie) override;
    ::HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    ::HRESULT STDMETHODCALLTYPE EnumConnections(::IEnumConnections** result) override;

private:
    ::IConnectionPointContainer& owner_;
    Guid id_;
    std::vector<Connection> sinks_;
    DWORD lastCookie_ = 0;
};

} // namespace activex
