#pragma once

#include <windows.h>

#include <ocidl.h>

#include "framework/ComPtr.h"
#include "framework/ControlState.h"
#include "framework/Implements.h"

namespace nux {

/// Drawing and data: a control without a surface of its own draws nothing and offers no format.
class ControlView : public virtual ControlState,
                    public Implements<AlsoAs<IViewObjectEx, IViewObject2, IViewObject>, IDataObject> {
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
    /// Tells containers that watch the view that the extent has changed.
    void NotifyViewChanged() noexcept;
    void ReleaseViewSinks() noexcept;

private:
    ComPtr<IAdviseSink> viewSink_;
    DWORD viewAspects_ = 0;
    DWORD viewFlags_ = 0;
    ComPtr<IDataAdviseHolder> dataSinks_;
};

}  // namespace nux
