#include "host/Embedding.h"

#include <mshtmhst.h>

#include "framework/HResult.h"
#include "framework/Implements.h"

namespace nux::host {

/// The place of one control.
class ControlSite
    : public Implements<IOleClientSite, AlsoAs<IOleInPlaceSite, IOleWindow>, IDocHostUIHandler> {
public:
    ControlSite(HWND window, HWND frameWindow, ComPtr<IOleInPlaceFrame> frame, ComPtr<IDispatch> external)
        : window_(window),
          frameWindow_(frameWindow),
          frame_(std::move(frame)),
          external_(std::move(external)) {}
    virtual ~ControlSite() = default;

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override {
        if (!container)
            return E_POINTER;
        *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP GetWindow(HWND* window) override {
        if (!window)
            return E_POINTER;
        *window = window_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO keys) override {
        if (!frame || !document || !position || !clip || !keys)
            return E_POINTER;
        frame_.CopyTo(frame);
        *document = nullptr;
        GetClientRect(window_, position);
        *clip = *position;
        keys->fMDIApp = FALSE;
        keys->hwndFrame = frameWindow_;
        keys->haccel = nullptr;
        keys->cAccelEntries = 0;
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

    // IDocHostUIHandler, which a browser control asks for
    STDMETHODIMP ShowContextMenu(DWORD, POINT*, IUnknown*, IDispatch*) override { return S_FALSE; }
    STDMETHODIMP GetHostInfo(DOCHOSTUIINFO* information) override {
        if (!information)
            return E_POINTER;
        information->dwFlags = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_THEME;
        information->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
        return S_OK;
    }
    STDMETHODIMP ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*, IOleInPlaceFrame*,
                        IOleInPlaceUIWindow*) override {
        return S_FALSE;
    }
    STDMETHODIMP HideUI() override { return S_OK; }
    STDMETHODIMP UpdateUI() override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(LPMSG, const GUID*, DWORD) override { return S_FALSE; }
    STDMETHODIMP GetOptionKeyPath(LPOLESTR* key, DWORD) override {
        if (!key)
            return E_POINTER;
        *key = nullptr;
        return S_FALSE;
    }
    STDMETHODIMP GetDropTarget(IDropTarget*, IDropTarget**) override { return E_NOTIMPL; }
    STDMETHODIMP GetExternal(IDispatch** external) override {
        if (!external)
            return E_POINTER;
        external_.CopyTo(external);
        return external_ ? S_OK : S_FALSE;
    }
    STDMETHODIMP TranslateUrl(DWORD, LPWSTR, LPWSTR*) override { return S_FALSE; }
    STDMETHODIMP FilterDataObject(IDataObject*, IDataObject**) override { return S_FALSE; }

private:
    HWND window_;
    HWND frameWindow_;
    ComPtr<IOleInPlaceFrame> frame_;
    ComPtr<IDispatch> external_;
};

void Embedding::Open(IUnknown* control, HWND container, HWND frame, IDispatch* external) {
    Close();
    container_ = container;
    frame_ = MakeObject<ControlFrame>(frame);
    object_ = Query<IOleObject>(control);
    if (!object_)
        throw HResultError(E_NOINTERFACE);
    const ComPtr<ComObject<ControlSite>> site = MakeObject<ControlSite>(
        container, frame, ComPtr<IOleInPlaceFrame>(frame_), ComPtr<IDispatch>(external));
    ThrowIfFailed(object_->SetClientSite(site.Get()));
    RECT bounds{};
    GetClientRect(container, &bounds);
    ThrowIfFailed(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site.Get(), 0, container, &bounds));
}

void Embedding::Resize() const noexcept {
    RECT bounds{};
    GetClientRect(container_, &bounds);
    if (const ComPtr<IOleInPlaceObject> placed = object_.As<IOleInPlaceObject>())
        placed->SetObjectRects(&bounds, &bounds);
}

void Embedding::Close() noexcept {
    const ComPtr<IOleObject> object = std::move(object_);
    if (object) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    if (frame_)
        frame_->active.Reset();
}

HWND Embedding::Window() const noexcept {
    HWND window = nullptr;
    if (const ComPtr<IOleWindow> placed = object_.As<IOleWindow>())
        placed->GetWindow(&window);
    return window;
}

bool Embedding::TranslateKey(MSG& message) const noexcept {
    if (!frame_ || message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    const ComPtr<IOleInPlaceActiveObject> active = frame_->active;
    return active && active->TranslateAccelerator(&message) == S_OK;
}

}  // namespace nux::host
