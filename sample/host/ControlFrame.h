#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"
#include "framework/Implements.h"

namespace nux::host {

/// The program's main window, as controls know it. It gives them no room for tool bars and no menu.
class ControlFrame : public Implements<AlsoAs<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>> {
public:
    explicit ControlFrame(HWND window) noexcept : window_(window) {}
    virtual ~ControlFrame() = default;

    ComPtr<IOleInPlaceActiveObject> active;  ///< which has the keyboard; null for none

    STDMETHODIMP GetWindow(HWND* window) override {
        if (!window)
            return E_POINTER;
        *window = window_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override { return widths ? OLE_E_INVALIDRECT : S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
        active = object;
        return S_OK;
    }
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

private:
    HWND window_;
};

}  // namespace nux::host
