#pragma once

#include <windows.h>

#include <exdisp.h>
#include <exdispid.h>

namespace nux {

/// The control's sink of browser events. It lives inside its owner and shares the owner's reference count,
/// but is an object of its own to whoever asks it for interfaces. No event has an effect.
class BrowserEventSink final : public DWebBrowserEvents2 {
public:
    explicit BrowserEventSink(IUnknown& owner) noexcept : owner_(owner) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return owner_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_.Release(); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    /// S_OK for every event, without acting.
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return S_OK;
    }

private:
    IUnknown& owner_;
};

}  // namespace nux
