#pragma once

#include <windows.h>

#include <objsafe.h>
#include <ocidl.h>
#include <olectl.h>

#include "control/ConnectionPoints.h"
#include "framework/ComPtr.h"
#include "framework/Window.h"

namespace nux {

/// What the parts of a control share.
class ControlState {
public:
    /// Constants of a control's class.
    struct Identity {
        const CLSID& classId;
        const IID& eventInterface;  ///< default source, a dispatch interface
        const char* userTypeName;   ///< for people, a literal
        DWORD miscStatus;           ///< OLEMISC_ flags, the same as registered
    };

protected:
    virtual ~ControlState() = default;
    virtual const Identity& GetIdentity() const noexcept = 0;

    SIZEL extent_{5080, 5080};  ///< in 1/100 mm; two inches each way until a container sizes the control
    bool dirty_ = false;        ///< the extent has changed since it was loaded or saved
};

/// Saving and loading: the only state is the extent.
class ControlPersistence : public virtual ControlState, public IPersistStreamInit, public IPersistStorage {
public:
    STDMETHODIMP GetClassID(CLSID* classId) override;
    STDMETHODIMP IsDirty() override { return dirty_ ? S_OK : S_FALSE; }

    /// E_FAIL for a stream that holds no state of this control; the state then stays.
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew() override;

    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override { return S_OK; }

protected:
    void* FindPersistence(REFIID iid) noexcept;
};

/// Drawing and data: a control without a surface of its own draws nothing and offers no format.
class ControlView : public virtual ControlState, public IViewObjectEx, public IDataObject {
public:
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target,
                      HDC draw, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(STDMETHODCALLTYPE* mayContinue)(ULONG_PTR), ULONG_PTR context) override;
    STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) override;
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* size) override;
    STDMETHODIMP GetRect(DWORD aspect, RECTL* bounds) override;
    STDMETHODIMP GetViewStatus(DWORD* status) override;
    STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG close, DWORD* result) override;
    STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT hit, LONG close, DWORD* result) override;
    STDMETHODIMP GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC target,
                                  DVEXTENTINFO* information, SIZEL* size) override;

    STDMETHODIMP GetData(FORMATETC*, STGMEDIUM*) override { return DV_E_FORMATETC; }
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return DV_E_FORMATETC; }
    STDMETHODIMP QueryGetData(FORMATETC*) override { return DV_E_FORMATETC; }
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical) override;
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** enumeration) override;
    STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* connection) override;
    STDMETHODIMP DUnadvise(DWORD connection) override;
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA** enumeration) override;

protected:
    void* FindView(REFIID iid) noexcept;
    /// Tells containers that watch the view that the extent has changed.
    void NotifyViewChanged() noexcept;
    void ReleaseViewSinks() noexcept;

private:
    ComPtr<IAdviseSink> viewSink_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    ComPtr<IDataAdviseHolder> dataSinks_;
};

/// What the control tells about itself.
class ControlInformation : public virtual ControlState,
                           public ISpecifyPropertyPages,
                           public ISupportErrorInfo,
                           public IProvideClassInfo2,
                           public IObjectSafety {
public:
    /// There are no property pages: an empty list.
    STDMETHODIMP GetPages(CAUUID* pages) override;
    /// S_FALSE: failures are told by HRESULT alone.
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return S_FALSE; }
    STDMETHODIMP GetClassInfo(ITypeInfo** typeInfo) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;

protected:
    void* FindInformation(REFIID iid) noexcept;

private:
    DWORD safety_ = 0;
};

/// An in-place activated control with a window of its own. A class derives from this and from its own
/// automation interface, and answers FindInterface with FindControlInterface as the last resort.
class OleControl : public ControlPersistence,
                   public ControlView,
                   public ControlInformation,
                   public ConnectionPoints,
                   public IOleObject,
                   public IOleInPlaceObjectWindowless,
                   public IOleInPlaceActiveObject,
                   public IOleControl,
                   public IQuickActivate,
                   public Window {
public:
    /// Style of the control's window.
    static constexpr DWORD windowStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

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

    void* FindControlInterface(REFIID iid) noexcept;
    /// Ends the activation and lets go of the site and all sinks. For OnLastRelease: each may call in.
    void ReleaseContainer() noexcept;
    const Identity& GetIdentity() const noexcept override { return identity_; }

private:
    // A site that is called may let go of the control: what calls it holds a reference of its own.

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
    ComPtr<IOleClientSite> site_;
    ComPtr<IOleInPlaceSite> inPlaceSite_;  ///< not null exactly while the control is active in place
    bool userInterfaceActive_ = false;
    ComPtr<IOleAdviseHolder> sinks_;
};

}  // namespace nux
