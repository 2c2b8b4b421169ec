#pragma once

#include <atomic>
#include <utility>

#include "framework/ComPtr.h"
#include "framework/Module.h"

namespace nux {

/// Gives `Class` its identity: a reference count that starts at 0, QueryInterface, and a place in the count
/// of live objects. `Class` says its interfaces by deriving from Implements; one with several lists joins
/// them in
///     void* FindInterface(REFIID iid) noexcept;
/// A class that talks to others at its end may have
///     void OnLastRelease() noexcept;
/// which runs while the object can still be handed out; in its destructor it no longer can.
template <class Class>
class ComObject final : public Class {
public:
    template <class... Arguments>
    explicit ComObject(Arguments&&... arguments) : Class(std::forward<Arguments>(arguments)...) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = this->FindInterface(iid);
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            // The object may be handed out once more (to a sink that is told of the end): the count stays
            // above 0 meanwhile, so that this can't destroy it a second time.
            references_ = 1;
            if constexpr (requires { this->OnLastRelease(); })
                this->OnLastRelease();
            delete this;
        }
        return left;
    }

private:
    std::atomic<ULONG> references_{0};
    LiveObject alive_;
};

/// Makes an object with one reference, owned by the result. Throws what the constructor throws.
template <class Class, class... Arguments>
ComPtr<ComObject<Class>> MakeObject(Arguments&&... arguments) {
    return ComPtr<ComObject<Class>>(new ComObject<Class>(std::forward<Arguments>(arguments)...));
}

}  // namespace nux
