#include "host/Browser.h"

#include <mshtml.h>

#include "framework/ComObject.h"
#include "framework/Text.h"

namespace nux::host {
namespace {

/// The document of a page, known for nothing but its script.
class Page : public Implements<AlsoAs<IHTMLDocument, IDispatch>>, public HostObject {
public:
    Page(Record record, ComPtr<IDispatch> script)
        : HostObject(std::move(record)), script_(std::move(script)) {}
    virtual ~Page() = default;

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    STDMETHODIMP get_Script(IDispatch** script) override {
        return record_->RunForObject(Call::Script, script_.Get(), script);
    }

private:
    ComPtr<IDispatch> script_;
};

}  // namespace

void* Browser::FindInterface(REFIID iid) noexcept {
    if (iid == IdOf<IWebBrowser>() || iid == IdOf<IWebBrowserApp>())
        return static_cast<IWebBrowser2*>(this);
    if (iid == IdOf<IOleWindow>())
        return static_cast<IOleWindow*>(this);
    return UnofferedBrowser::FindInterface(iid);
}

STDMETHODIMP Browser::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
    return dead ? RPC_E_DISCONNECTED : Dispatch::GetIDsOfNames(iid, names, count, locale, ids);
}

STDMETHODIMP Browser::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                             VARIANT* result, EXCEPINFO* exception, UINT* argumentError) {
    return dead ? RPC_E_DISCONNECTED
                : HostDispatch::Invoke(id, iid, locale, flags, parameters, result, exception, argumentError);
}

STDMETHODIMP Browser::Navigate(BSTR url, VARIANT*, VARIANT*, VARIANT*, VARIANT*) {
    return Guarded([&] {
        const std::wstring address = Argument(url);
        return Asked(Call::Navigate, address, [&] {
            address_ = address;
            if (whenNavigated)
                whenNavigated();
            return S_OK;
        });
    });
}

STDMETHODIMP Browser::get_Document(IDispatch** document) {
    if (!document)
        return E_POINTER;
    *document = nullptr;
    return Guarded([&] {
        if (dead)
            return Asked(Call::Document);
        ComPtr<IDispatch> page;
        if (script)
            page = MakeObject<Page>(record_, script);
        return record_->RunForObject(Call::Document, page.Get(), document);
    });
}

STDMETHODIMP Browser::get_LocationURL(BSTR* url) {
    if (!url)
        return E_POINTER;
    *url = nullptr;
    return Asked(Call::LocationURL, {}, [&] {
        *url = Bstr(address_).Detach();
        return S_OK;
    });
}

STDMETHODIMP Browser::get_Busy(VARIANT_BOOL* isBusy) {
    if (!isBusy)
        return E_POINTER;
    *isBusy = busy ? VARIANT_TRUE : VARIANT_FALSE;
    return Asked(Call::Busy);
}

STDMETHODIMP Browser::get_ReadyState(READYSTATE* state) {
    if (!state)
        return E_POINTER;
    *state = busy ? READYSTATE_LOADING : READYSTATE_COMPLETE;
    return Asked(Call::ReadyState);
}

STDMETHODIMP Browser::get_HWND(SHANDLE_PTR* handle) {
    if (!handle)
        return E_POINTER;
    *handle = reinterpret_cast<SHANDLE_PTR>(window);
    return Asked(Call::GetWindow);
}

STDMETHODIMP Browser::GetWindow(HWND* handle) {
    if (!handle)
        return E_POINTER;
    *handle = window;
    return Asked(Call::GetWindow);
}

}  // namespace nux::host
