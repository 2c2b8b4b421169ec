#pragma once

#include <windows.h>

#include <ole2.h>

#include <concepts>
#include <utility>

#include "framework/InterfaceId.h"

namespace nux {

/// Owns one reference on a COM object. Copying adds a reference; the destructor releases it.
template <class Interface>
class ComPtr {
public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}

    /// Shares `object`: adds a reference of its own. `object` may be null.
    ComPtr(Interface* object) noexcept : object_(object) {
        if (object_)
            object_->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    /// A pointer to a class or interface is one to its bases.
    template <class Derived>
    requires std::convertible_to<Derived*, Interface*> ComPtr(const ComPtr<Derived>& other)
    noexcept : ComPtr(static_cast<Interface*>(other.Get())) {}
    template <class Derived>
    requires std::convertible_to<Derived*, Interface*> ComPtr(ComPtr<Derived>&& other)
    noexcept : object_(other.Detach()) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() { Reset(); }

    Interface* Get() const noexcept { return object_; }
    Interface* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Releases what is held. The field is null before the release, which may re-enter its owner.
    void Reset() noexcept {
        if (Interface* old = std::exchange(object_, nullptr))
            old->Release();
    }

    /// Takes over a reference that the caller owns.
    void Attach(Interface* object) noexcept {
        Reset();
        object_ = object;
    }

    /// Gives the reference to the caller.
    [[nodiscard]] Interface* Detach() noexcept { return std::exchange(object_, nullptr); }

    /// For out arguments: what was held is released first.
    Interface** Receive() noexcept {
        Reset();
        return &object_;
    }
    void** ReceiveVoid() noexcept { return reinterpret_cast<void**>(Receive()); }

    /// Another interface of the same object, or null if it does not offer it.
    template <class Other>
    ComPtr<Other> As() const noexcept;

    /// Stores a further reference (or null) in a caller's out argument.
    template <class Target>
    void CopyTo(Target** target) const noexcept {
        if (object_)
            object_->AddRef();
        *target = object_;
    }

private:
    Interface* object_ = nullptr;
};

/// The code of a call that hands out a reference. A failed call owns nothing, whatever it left in the out
/// argument.
template <class Interface>
HRESULT Received(HRESULT result, ComPtr<Interface>& object) noexcept {
    if (FAILED(result))
        (void)object.Detach();
    return result;
}

/// An interface of `object`, or null if `object` is null or does not offer it.
/// @param iid  what is asked for; what comes back must be usable as `Interface`
template <class Interface>
ComPtr<Interface> Query(IUnknown* object, REFIID iid = IdOf<Interface>()) noexcept {
    ComPtr<Interface> result;
    if (object)
        Received(object->QueryInterface(iid, result.ReceiveVoid()), result);
    return result;
}

template <class Interface>
template <class Other>
ComPtr<Other> ComPtr<Interface>::As() const noexcept {
    return Query<Other>(object_);
}

/// A new object of a registered class.
/// @param context  CLSCTX_ flags
/// @return S_OK, or the platform's failure with `object` null
template <class Interface>
HRESULT CreateObject(REFCLSID classId, ComPtr<Interface>& object,
                     DWORD context = CLSCTX_INPROC_SERVER) noexcept {
    return Received(CoCreateInstance(classId, nullptr, context, IdOf<Interface>(), object.ReceiveVoid()),
                    object);
}

}  // namespace nux
