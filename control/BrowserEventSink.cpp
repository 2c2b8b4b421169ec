#include "control/BrowserEventSink.h"

namespace nux {

STDMETHODIMP BrowserEventSink::QueryInterface(REFIID iid, void** object) {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    if (iid != DIID_DWebBrowserEvents2 && iid != IID_IDispatch && iid != IID_IUnknown)
        return E_NOINTERFACE;
    *object = static_cast<DWebBrowserEvents2*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP BrowserEventSink::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

}  // namespace nux
