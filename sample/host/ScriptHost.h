#pragma once

#include <string>

#include "SampleHost.h"
#include "framework/Dispatch.h"
#include "host/HostObjects.h"

namespace nux::host {

/// A host for scripts: Tarnvale.SampleHost. Its failures are told with a description.
class ScriptHost : public Dispatch<ISampleHost> {
public:
    virtual ~ScriptHost() = default;

    STDMETHODIMP get_Side3D(IDispatch** object) override { return Give(objects_.side3D, object); }
    STDMETHODIMP get_Application(IDispatch** object) override { return Give(objects_.application, object); }
    STDMETHODIMP get_ExternalDispatch(IDispatch** object) override { return Give(objects_.external, object); }
    STDMETHODIMP get_StatusBar(IDispatch** object) override { return Give(objects_.statusBar, object); }
    STDMETHODIMP get_EditedComponent(IDispatch** object) override { return Give(objects_.edited, object); }
    STDMETHODIMP get_Browser(IDispatch** object) override { return Give(objects_.browser, object); }
    STDMETHODIMP get_StdParts(IDispatch** object) override;

    STDMETHODIMP Start(BSTR catalogPath, BSTR dataPath, BSTR guiPath, BSTR customDimsPath,
                       IDispatch** component) override;
    STDMETHODIMP Stop() override;

    STDMETHODIMP get_Calls(BSTR* lines) override;
    STDMETHODIMP ClearCalls() override;
    STDMETHODIMP Fail(BSTR call, double code, LONG nth) override;
    STDMETHODIMP Answer(BSTR call, VARIANT value) override;
    STDMETHODIMP Restore() override;
    STDMETHODIMP StatusBarLacks(BSTR call) override;

    STDMETHODIMP SetCatalogFolder(BSTR catalogId, BSTR folder) override;
    STDMETHODIMP get_WindowHandle(LONG* window) override;
    STDMETHODIMP put_WindowHandle(LONG window) override;
    STDMETHODIMP EditComponent(BSTR catalogId, BSTR componentId, IDispatch** edited) override;
    STDMETHODIMP get_Page(IDispatch** script) override { return Give(objects_.browser->script, script); }
    STDMETHODIMP put_Page(IDispatch* script) override;
    STDMETHODIMP get_BrowserBusy(VARIANT_BOOL* busy) override { return Tell(objects_.browser->busy, busy); }
    STDMETHODIMP put_BrowserBusy(VARIANT_BOOL busy) override;
    STDMETHODIMP get_BrowserDead(VARIANT_BOOL* dead) override { return Tell(objects_.browser->dead, dead); }
    STDMETHODIMP put_BrowserDead(VARIANT_BOOL dead) override;

    STDMETHODIMP References(BSTR object, LONG* count) override;

protected:
    /// Scripts may forget to stop the component, which would keep the host's objects.
    void OnLastRelease() noexcept { objects_.Stop(); }

private:
    /// Runs an operation; a failure leaves its description for the caller.
    template <class Body>
    static HRESULT Described(Body&& body) noexcept;

    template <class Object>
    static HRESULT Give(const ComPtr<Object>& object, IDispatch** out) noexcept {
        if (!out)
            return E_POINTER;
        ComPtr<IDispatch>(object).CopyTo(out);
        return S_OK;
    }
    static HRESULT Tell(bool value, VARIANT_BOOL* out) noexcept {
        if (!out)
            return E_POINTER;
        *out = value ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    }

    HostObjects objects_;
};

}  // namespace nux::host
