#include "tests/support/ControlSite.h"

#include "framework/Text.h"

namespace nux {

void* ControlFrame::FindInterface(REFIID iid) noexcept {
    return iid == IID_IUnknown || iid == IID_IOleInPlaceFrame ? static_cast<IOleInPlaceFrame*>(this)
                                                              : nullptr;
}

STDMETHODIMP ControlFrame::SetBorderSpace(LPCBORDERWIDTHS widths) {
    calls.push_back(widths ? "SetBorderSpace" : "SetBorderSpace none");
    return S_OK;
}

STDMETHODIMP ControlFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) {
    calls.push_back(object ? "active " + Narrow(name, std::wcslen(name)) : "active none");
    return S_OK;
}

void* ControlSite::FindInterface(REFIID iid) noexcept {
    if (iid == IID_IUnknown || iid == IID_IOleClientSite)
        return static_cast<IOleClientSite*>(this);
    if (offersInPlace && (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow))
        return static_cast<IOleInPlaceSite*>(this);
    return nullptr;
}

HRESULT ControlSite::Note(const char* call, HRESULT result) {
    calls.push_back(call);
    if (during)
        during(call);
    return result;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** containerOut) {
    container.CopyTo(containerOut);
    return container ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
    *window = window_;
    return windowResult;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frameOut, IOleInPlaceUIWindow** document,
                                           LPRECT bounds, LPRECT clipping, LPOLEINPLACEFRAMEINFO) {
    frame.CopyTo(frameOut);
    *document = nullptr;
    *bounds = position;
    *clipping = clip;
    return contextResult;
}

}  // namespace nux
