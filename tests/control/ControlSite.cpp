#include "tests/control/ControlSite.h"

namespace nux {

void* ControlSite::FindInterface(REFIID iid) noexcept {
    if (iid == IID_IUnknown || iid == IID_IOleClientSite)
        return static_cast<IOleClientSite*>(this);
    if (offersInPlace && (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow))
        return static_cast<IOleInPlaceSite*>(this);
    return nullptr;
}

HRESULT ControlSite::Note(const char* call, HRESULT result) {
    calls.push_back(call);
    return result;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
    *window = window_;
    return windowResult;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT bounds, LPRECT clipping, LPOLEINPLACEFRAMEINFO) {
    *frame = nullptr;
    *document = nullptr;
    *bounds = position;
    *clipping = clip;
    return contextResult;
}

}  // namespace nux
