#pragma once

#include <functional>
#include <string>

#include "framework/ComPtr.h"
#include "host/HostObject.h"
#include "host/UnofferedBrowser.h"

namespace nux::host {

/// Stands for a web browser: loads nothing and shows nothing, but keeps the address that it was sent to, and
/// has a page whose script is given by others.
class Browser : public UnofferedBrowser, public Implements<IOleWindow> {
public:
    explicit Browser(Record record) : UnofferedBrowser(std::move(record)) {}
    virtual ~Browser() = default;

    bool busy = false;  ///< never comes to an end of loading
    bool dead = false;  ///< answers as the object of a process that has ended
    HWND window = nullptr;
    ComPtr<IDispatch> script;             ///< the global functions of the page; null for no page
    std::function<void()> whenNavigated;  ///< may be empty
    const std::wstring& Address() const noexcept { return address_; }

    // IDispatch
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override;

    // IWebBrowser2
    STDMETHODIMP Navigate(BSTR url, VARIANT*, VARIANT*, VARIANT*, VARIANT*) override;
    STDMETHODIMP Refresh() override { return Asked(Call::Refresh); }
    STDMETHODIMP Stop() override { return Asked(Call::Stop); }
    STDMETHODIMP get_Document(IDispatch** document) override;
    STDMETHODIMP get_LocationURL(BSTR* url) override;
    STDMETHODIMP get_Busy(VARIANT_BOOL* isBusy) override;
    STDMETHODIMP get_ReadyState(READYSTATE* state) override;
    STDMETHODIMP get_HWND(SHANDLE_PTR* handle) override;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* handle) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return Unoffered(); }

protected:
    void* FindInterface(REFIID iid) noexcept;
    HRESULT Unoffered() const noexcept override { return dead ? RPC_E_DISCONNECTED : E_NOTIMPL; }

private:
    template <class Body>
    HRESULT Asked(Call call, std::wstring arguments, Body&& body) noexcept {
        return record_->Run(call, std::move(arguments), [&]() -> HRESULT {
            if (dead)
                return RPC_E_DISCONNECTED;
            return body();
        });
    }
    HRESULT Asked(Call call) noexcept {
        return Asked(call, {}, [] { return S_OK; });
    }

    std::wstring address_;
};

}  // namespace nux::host
