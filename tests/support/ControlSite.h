#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>

#include <functional>
#include <string>

#include "tests/support/HostDoubles.h"

namespace nux {

/// A container's frame, which writes down which object is active in it.
class ControlFrame : public IOleInPlaceFrame {
public:
    virtual ~ControlFrame() = default;

    Journal calls;

    STDMETHODIMP GetWindow(HWND*) override { return E_NOTIMPL; }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return E_NOTIMPL; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return E_NOTIMPL; }
    STDMETHODIMP EnableModeless(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept;
};

/// A container's site for one control, which writes down what the control asks of it. It offers a window, and
/// a container and a frame if it is given them.
class ControlSite : public IOleClientSite, public IOleInPlaceSite {
public:
    explicit ControlSite(HWND window) : window_(window) {}
    virtual ~ControlSite() = default;

    Journal calls;
    std::function<void(const std::string&)> during;  ///< told of each call while it is made; may be empty
    ComPtr<IOleContainer> container;
    ComPtr<IOleInPlaceFrame> frame;
    bool offersInPlace = true;
    HRESULT canActivate = S_OK;
    HRESULT onActivate = S_OK;
    HRESULT windowResult = S_OK;
    HRESULT contextResult = S_OK;
    RECT position{5, 6, 105, 56};
    RECT clip{0, 0, 1000, 1000};

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return Note("SaveObject", S_OK); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return Note("ShowObject", S_OK); }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return Note("CanInPlaceActivate", canActivate); }
    STDMETHODIMP OnInPlaceActivate() override { return Note("OnInPlaceActivate", onActivate); }
    STDMETHODIMP OnUIActivate() override { return Note("OnUIActivate", S_OK); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT bounds,
                                  LPRECT clipping, LPOLEINPLACEFRAMEINFO information) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate", S_OK); }
    STDMETHODIMP OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate", S_OK); }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

protected:
    void* FindInterface(REFIID iid) noexcept;

private:
    HRESULT Note(const char* call, HRESULT result);

    HWND window_;
};

}  // namespace nux
