#include "framework/ControlView.h"

namespace nux {

void ControlView::NotifyViewChanged() noexcept {
    const ComPtr<IDataObject> self(this);
    if (const ComPtr<IDataAdviseHolder> sinks = dataSinks_)
        sinks->SendOnDataChange(this, 0, 0);
    if (const ComPtr<IAdviseSink> sink = viewSink_) {
        if (viewFlags_ & ADVF_ONLYONCE)
            viewSink_.Reset();
        sink->OnViewChange(DVASPECT_CONTENT, -1);
    }
}

void ControlView::ReleaseViewSinks() noexcept {
    viewSink_.Reset();
    dataSinks_.Reset();
}

STDMETHODIMP ControlView::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC, LPCRECTL, LPCRECTL,
                               BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    return aspect == DVASPECT_CONTENT ? S_OK : DV_E_DVASPECT;
}

STDMETHODIMP ControlView::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) {
    if (!colors)
        return E_POINTER;
    *colors = nullptr;
    return S_FALSE;
}

STDMETHODIMP ControlView::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    const ComPtr<IDataObject> self(this);
    viewSink_ = ComPtr<IAdviseSink>(sink);
    viewAspects_ = aspects;
    viewFlags_ = flags;
    if (sink && (flags & ADVF_PRIMEFIRST))
        NotifyViewChanged();
    return S_OK;
}

STDMETHODIMP ControlView::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    if (aspects)
        *aspects = viewAspects_;
    if (flags)
        *flags = viewFlags_;
    if (sink)
        viewSink_.CopyTo(sink);
    return S_OK;
}

STDMETHODIMP ControlView::GetExtent(DWORD, LONG, DVTARGETDEVICE*, SIZEL* size) {
    if (!size)
        return E_POINTER;
    *size = extent_;
    return S_OK;
}

STDMETHODIMP ControlView::GetRect(DWORD, RECTL* bounds) {
    if (!bounds)
        return E_POINTER;
    *bounds = {};
    return DV_E_DVASPECT;
}

STDMETHODIMP ControlView::GetViewStatus(DWORD* status) {
    if (!status)
        return E_POINTER;
    *status = 0;  // transparent: nothing is drawn
    return S_OK;
}

STDMETHODIMP ControlView::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* result) {
    if (!bounds || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *result = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ControlView::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT hit, LONG, DWORD* result) {
    if (!bounds || !hit || !result)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    RECT common;
    *result = IntersectRect(&common, bounds, hit) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP ControlView::GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*, SIZEL*) {
    return E_NOTIMPL;
}

STDMETHODIMP ControlView::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical) {
    if (canonical)
        canonical->ptd = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlView::EnumFormatEtc(DWORD, IEnumFORMATETC** enumeration) {
    if (!enumeration)
        return E_POINTER;
    *enumeration = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlView::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* connection) {
    const ComPtr<IDataObject> self(this);
    if (!dataSinks_) {
        const HRESULT result = CreateDataAdviseHolder(dataSinks_.Receive());
        if (FAILED(result))
            return result;
    }
    return ComPtr<IDataAdviseHolder>(dataSinks_)->Advise(this, format, flags, sink, connection);
}

STDMETHODIMP ControlView::DUnadvise(DWORD connection) {
    const ComPtr<IDataAdviseHolder> sinks = dataSinks_;
    return sinks ? sinks->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP ControlView::EnumDAdvise(IEnumSTATDATA** enumeration) {
    if (!enumeration)
        return E_POINTER;
    *enumeration = nullptr;
    return dataSinks_ ? dataSinks_->EnumAdvise(enumeration) : S_OK;
}

}  // namespace nux
