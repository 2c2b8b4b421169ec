#pragma once

#include <windows.h>

#include <olectl.h>

#include "framework/ComPtr.h"
#include "framework/ConnectionPoints.h"
#include "framework/ControlInformation.h"
#include "framework/ControlPersistence.h"
#include "framework/ControlView.h"
#include "framework/Window.h"

namespace nux {

using EmbeddingInterfaces =
    Implements<IOleObject, AlsoAs<IOleInPlaceObjectWindowless, IOleInPlaceObject, IOleWindow>,
               IOleInPlaceActiveObject, IOleControl, IQuickActivate>;

/// An in-place activated control with a window of its own. A class derives from this and from its own
/// automation interface, and answers FindInterface with this one as the last resort.
class OleControl : public ControlPersistence,
                   public ControlView,
                   public ControlInformation,
                   public ConnectionPoints,
                   public EmbeddingInterfaces,
                   public Window {
public:
    /// Style of the control's window.
    static constexpr DWORD windowStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

    using ControlView::GetExtent;  // of the view, beside the object's

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT bounds) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** enumeration) override;
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* classId) override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* name) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
    STDMETHODIMP Unadvise(DWORD connection) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** enumeration) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleWindow, IOleInPlaceObject, IOleInPlaceObjectWindowless
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnWindowMessage(UINT, WPARAM, LPARAM, LRESULT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetDropTarget(IDropTarget**) override { return E_NOTIMPL; }

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; }
    STDMETHODIMP OnMnemonic(MSG*) override { return E_NOTIMPL; }
    STDMETHODIMP OnAmbientPropertyChange(DISPID) override { return S_OK; }
    STDMETHODIMP FreezeEvents(BOOL) override { return S_OK; }

    // IQuickActivate
    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetContentExtent(LPSIZEL size) override;
    STDMETHODIMP GetContentExtent(LPSIZEL size) override;

protected:
    /// @param windowClass  class of the control's window; lives as long as the module
    /// @param identity     constants of the class; live as long as the module
    OleControl(const WindowClass& windowClass, const Identity& identity);

    void* FindInterface(REFIID iid) noexcept;
    /// Ends the activation and lets go of the site and all sinks. For OnLastRelease: each may call in.
    void ReleaseContainer() noexcept;
    const Identity& GetIdentity() const noexcept override { return identity_; }

    /// Told when the control has another site, or none.
    virtual void OnSiteChanged() noexcept {}
    /// Told when the control's user interface has become active, and before it ends.
    virtual void OnUserInterface(bool /*active*/) noexcept {}
    bool HasUserInterface() const noexcept { return userInterfaceActive_; }
    /// The site in which the control is active in place; null while it isn't.
    const ComPtr<IOleInPlaceSite>& InPlaceSite() const noexcept { return inPlaceSite_; }
    /// The window that the container calls its own, whose keys and dialogs it watches; null while the control
    /// isn't active in place.
    ComPtr<IOleInPlaceFrame> Frame() const noexcept;

private:
    // A site or sink that is called may let go of the control, and of itself: what calls it holds references
    // of its own.

    /// Where the site shows the control.
    struct InPlaceContext {
        HRESULT Read(IOleInPlaceSite& site) noexcept;

        ComPtr<IOleInPlaceFrame> frame;
        ComPtr<IOleInPlaceUIWindow> document;
        RECT position{};
        RECT clip{};
    };

    HRESULT ActivateInPlace(bool withUserInterface);
    HRESULT ShowInPlace(IOleInPlaceSite& site, InPlaceContext& context) noexcept;
    void ActivateUserInterface(IOleInPlaceSite& site, const InPlaceContext& context);

    const Identity& identity_;
    const WindowClass& windowClass_;
    ComPtr<IOleInPlaceSite> inPlaceSite_;  ///< not null exactly while the control is active in place
    bool userInterfaceActive_ = false;
    ComPtr<IOleAdviseHolder> sinks_;
};

}  // namespace nux
