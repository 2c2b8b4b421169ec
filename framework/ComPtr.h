#pragma once

#include <windows.h>

#include <ole2.h>

#include <utility>

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
    ComPtr<Other> As(REFIID iid) const noexcept {
        return QueryFor<Other>(object_, iid);
    }

    /// Stores a further reference (or null) in a caller's out argument.
    template <class Target>
    void CopyTo(Target** target) const noexcept {
        if (object_)
            object_->AddRef();
        *target = object_;
    }

    template <class Other>
    static ComPtr<Other> QueryFor(IUnknown* object, REFIID iid) noexcept {
        ComPtr<Other> result;
        if (object && FAILED(object->QueryInterface(iid, result.ReceiveVoid())))
            (void)result.Detach();  // a failed query owns nothing, whatever it left in the out argument
        return result;
    }

private:
    Interface* object_ = nullptr;
};

/// `iid` of `object`, or null if `object` is null or does not offer it.
template <class Interface>
ComPtr<Interface> Query(IUnknown* object, REFIID iid) noexcept {
    return ComPtr<Interface>::template QueryFor<Interface>(object, iid);
}

}  // namespace nux
