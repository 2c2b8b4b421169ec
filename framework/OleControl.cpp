#include "framework/OleControl.h"

#include <cwchar>
#include <string>
#include <utility>

#include "framework/HResult.h"
#include "framework/Text.h"

namespace nux {
namespace {

/// Copies a text into memory that the caller frees with CoTaskMemFree.
HRESULT CopyToTaskMemory(const std::wstring& text, LPOLESTR* copy) noexcept {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    *copy = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (!*copy)
        return E_OUTOFMEMORY;
    std::wmemcpy(*copy, text.c_str(), text.size() + 1);
    return S_OK;
}

}  // namespace

HRESULT OleControl::InPlaceContext::Read(IOleInPlaceSite& site) noexcept {
    OLEINPLACEFRAMEINFO accelerators{};
    accelerators.cb = sizeof accelerators;
    return site.GetWindowContext(frame.Receive(), document.Receive(), &position, &clip, &accelerators);
}

OleControl::OleControl(const WindowClass& windowClass, const Identity& identity)
    : ConnectionPoints({IID_IPropertyNotifySink, identity.eventInterface}),
      identity_(identity),
      windowClass_(windowClass) {}

void OleControl::ReleaseContainer() noexcept {
    InPlaceDeactivate();
    site_.Reset();
    sinks_.Reset();
    ReleaseViewSinks();
    ReleaseConnections();
}

void* OleControl::FindInterface(REFIID iid) noexcept {
    for (void* found : {EmbeddingInterfaces::FindInterface(iid), ConnectionPoints::FindInterface(iid),
                        ControlPersistence::FindInterface(iid), ControlView::FindInterface(iid),
                        ControlInformation::FindInterface(iid)}) {
        if (found)
            return found;
    }
    return nullptr;
}

STDMETHODIMP OleControl::SetClientSite(IOleClientSite* site) {
    const ComPtr<IOleObject> self(this);
    if (!site)
        InPlaceDeactivate();
    site_ = ComPtr<IOleClientSite>(site);
    OnSiteChanged();
    return S_OK;
}

STDMETHODIMP OleControl::GetClientSite(IOleClientSite** site) {
    if (!site)
        return E_POINTER;
    site_.CopyTo(site);
    return S_OK;
}

STDMETHODIMP OleControl::Close(DWORD saveOption) {
    const ComPtr<IOleObject> self(this);
    InPlaceDeactivate();
    if (const ComPtr<IOleClientSite> site = site_; site && dirty_ && saveOption != OLECLOSE_NOSAVE)
        site->SaveObject();
    if (const ComPtr<IOleAdviseHolder> sinks = sinks_)
        sinks->SendOnClose();
    return S_OK;
}

STDMETHODIMP OleControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) {
    const ComPtr<IOleObject> self(this);
    switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_UIACTIVATE:
            return ActivateInPlace(true);
        case OLEIVERB_INPLACEACTIVATE:
            return ActivateInPlace(false);
        case OLEIVERB_HIDE:
            UIDeactivate();
            if (Handle())
                ShowWindow(Handle(), SW_HIDE);
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        default:
            return verb < 0 ? E_NOTIMPL : OLEOBJ_S_INVALIDVERB;
    }
}

HRESULT OleControl::ActivateInPlace(bool withUserInterface) {
    // The site is called in between and may deactivate the control, close it or take itself away at each of
    // these calls: references of our own, and a look at the state behind each.
    return Guarded([&]() -> HRESULT {
        const ComPtr<IOleClientSite> client = site_;
        if (!client)
            return E_UNEXPECTED;
        ComPtr<IOleInPlaceSite> site = inPlaceSite_;
        if (!site) {
            site = client.As<IOleInPlaceSite>();
            if (!site || site->CanInPlaceActivate() != S_OK)
                return E_FAIL;
            inPlaceSite_ = site;
            const HRESULT activated = site->OnInPlaceActivate();
            if (FAILED(activated)) {
                inPlaceSite_.Reset();
                Destroy();  // of an activation that was asked for meanwhile
                return activated;
            }
        }
        InPlaceContext context;
        const HRESULT shown = inPlaceSite_ ? ShowInPlace(*site.Get(), context) : E_UNEXPECTED;
        if (FAILED(shown)) {
            InPlaceDeactivate();
            return shown;
        }
        if (withUserInterface && inPlaceSite_)
            ActivateUserInterface(*site.Get(), context);
        if (inPlaceSite_)
            client->ShowObject();
        return S_OK;
    });
}

HRESULT OleControl::ShowInPlace(IOleInPlaceSite& site, InPlaceContext& context) noexcept {
    return Guarded([&]() -> HRESULT {
        HWND parent = nullptr;
        ThrowIfFailed(site.GetWindow(&parent));
        ThrowIfFailed(context.Read(site));
        if (!inPlaceSite_)
            return E_UNEXPECTED;
        if (!Handle())
            Create(windowClass_, parent, context.position, windowStyle);
        ShowWindow(Handle(), SW_SHOW);
        return SetObjectRects(&context.position, &context.clip);
    });
}

void OleControl::ActivateUserInterface(IOleInPlaceSite& site, const InPlaceContext& context) {
    if (userInterfaceActive_)
        return;
    const Bstr name(Widen(identity_.userTypeName));
    userInterfaceActive_ = true;
    if (FAILED(site.OnUIActivate())) {
        userInterfaceActive_ = false;
        return;
    }
    if (!userInterfaceActive_)
        return;
    SetFocus(Handle());
    const auto activate = [&](IOleInPlaceUIWindow* window) {
        if (window && userInterfaceActive_) {
            window->SetActiveObject(this, name.Get());
            window->SetBorderSpace(nullptr);
        }
    };
    activate(context.frame.Get());
    activate(context.document.Get());
    if (userInterfaceActive_)
        OnUserInterface(true);
}

ComPtr<IOleInPlaceFrame> OleControl::Frame() const noexcept {
    InPlaceContext context;
    if (const ComPtr<IOleInPlaceSite> site = inPlaceSite_)
        context.Read(*site.Get());
    return context.frame;
}

STDMETHODIMP OleControl::InPlaceDeactivate() {
    const ComPtr<IOleObject> self(this);
    UIDeactivate();
    // Destroying the window tells the container's window, which may come back here.
    const ComPtr<IOleInPlaceSite> site = std::move(inPlaceSite_);
    Destroy();
    if (site)
        site->OnInPlaceDeactivate();
    return S_OK;
}

STDMETHODIMP OleControl::UIDeactivate() {
    const ComPtr<IOleObject> self(this);
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    if (!std::exchange(userInterfaceActive_, false) || !site)
        return S_OK;
    OnUserInterface(false);
    InPlaceContext context;
    context.Read(*site.Get());
    if (context.document)
        context.document->SetActiveObject(nullptr, nullptr);
    if (context.frame)
        context.frame->SetActiveObject(nullptr, nullptr);
    site->OnUIDeactivate(FALSE);
    return S_OK;
}

STDMETHODIMP OleControl::SetObjectRects(LPCRECT position, LPCRECT clip) {
    if (!position || !clip)
        return E_POINTER;
    if (!Handle())
        return S_OK;
    RECT visible{};
    IntersectRect(&visible, position, clip);
    HRGN region = nullptr;  // none shows the whole window
    if (!EqualRect(&visible, position)) {
        OffsetRect(&visible, -position->left, -position->top);
        region = CreateRectRgnIndirect(&visible);
    }
    if (!SetWindowRgn(Handle(), region, TRUE) && region)
        DeleteObject(region);  // otherwise the window owns it
    SetWindowPos(Handle(), nullptr, position->left, position->top, position->right - position->left,
                 position->bottom - position->top, SWP_NOZORDER | SWP_NOACTIVATE);
    return S_OK;
}

STDMETHODIMP OleControl::EnumVerbs(IEnumOLEVERB** enumeration) {
    if (!enumeration)
        return E_POINTER;
    *enumeration = nullptr;
    return OLEOBJ_E_NOVERBS;
}

STDMETHODIMP OleControl::GetUserClassID(CLSID* classId) {
    return GetClassID(classId);
}

STDMETHODIMP OleControl::GetUserType(DWORD, LPOLESTR* name) {
    if (!name)
        return E_POINTER;
    *name = nullptr;
    return Guarded([&] { return CopyToTaskMemory(Widen(identity_.userTypeName), name); });
}

STDMETHODIMP OleControl::SetExtent(DWORD aspect, SIZEL* size) {
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (size->cx < 0 || size->cy < 0)
        return E_INVALIDARG;
    const ComPtr<IOleObject> self(this);
    if (size->cx != extent_.cx || size->cy != extent_.cy) {
        extent_ = *size;
        dirty_ = true;
        NotifyViewChanged();
    }
    return S_OK;
}

STDMETHODIMP OleControl::GetExtent(DWORD aspect, SIZEL* size) {
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *size = extent_;
    return S_OK;
}

STDMETHODIMP OleControl::Advise(IAdviseSink* sink, DWORD* connection) {
    const ComPtr<IOleObject> self(this);
    if (!sinks_) {
        const HRESULT result = CreateOleAdviseHolder(sinks_.Receive());
        if (FAILED(result))
            return result;
    }
    return ComPtr<IOleAdviseHolder>(sinks_)->Advise(sink, connection);
}

STDMETHODIMP OleControl::Unadvise(DWORD connection) {
    const ComPtr<IOleAdviseHolder> sinks = sinks_;
    return sinks ? sinks->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP OleControl::EnumAdvise(IEnumSTATDATA** enumeration) {
    if (!enumeration)
        return E_POINTER;
    *enumeration = nullptr;
    return sinks_ ? sinks_->EnumAdvise(enumeration) : S_OK;
}

STDMETHODIMP OleControl::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? identity_.miscStatus : 0;
    return S_OK;
}

STDMETHODIMP OleControl::GetWindow(HWND* window) {
    if (!window)
        return E_POINTER;
    *window = Handle();
    return *window ? S_OK : E_FAIL;
}

STDMETHODIMP OleControl::TranslateAccelerator(LPMSG) {
    return S_FALSE;
}

STDMETHODIMP OleControl::OnDocWindowActivate(BOOL activate) {
    if (!activate)
        UIDeactivate();
    return S_OK;
}

STDMETHODIMP OleControl::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    if (!container || !control)
        return E_POINTER;
    const ComPtr<IOleObject> self(this);
    *control = {};
    control->cbSize = sizeof *control;
    SetClientSite(container->pClientSite);
    if (container->pAdviseSink)
        SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
    const auto connect = [this](REFIID iid, IUnknown* sink, DWORD* cookie) {
        ComPtr<IConnectionPoint> point;
        if (sink && SUCCEEDED(FindConnectionPoint(iid, point.Receive())))
            point->Advise(sink, cookie);
    };
    connect(IID_IPropertyNotifySink, container->pPropertyNotifySink, &control->dwPropNotifyCookie);
    connect(identity_.eventInterface, container->pUnkEventSink, &control->dwEventCookie);
    control->dwMiscStatus = identity_.miscStatus;
    return GetViewStatus(&control->dwViewStatus);
}

STDMETHODIMP OleControl::SetContentExtent(LPSIZEL size) {
    return SetExtent(DVASPECT_CONTENT, size);
}

STDMETHODIMP OleControl::GetContentExtent(LPSIZEL size) {
    return GetExtent(DVASPECT_CONTENT, size);
}

}  // namespace nux
