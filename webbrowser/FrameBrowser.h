#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "framework/Implements.h"

namespace nux::webbrowser {

/// Stands for a frame in a page, in the events of the control: another object than the control's own, by
/// which sinks tell that it is not the page itself. By name it tells LocationURL, Name and that it is no
/// TopLevelContainer; all else of a browser answers E_NOTIMPL.
class FrameBrowser : public Implements<IDispatch> {
public:
    explicit FrameBrowser(std::wstring address) : address_(std::move(address)) {}
    virtual ~FrameBrowser() = default;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** typeInfo) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override;

private:
    std::wstring address_;
};

}  // namespace nux::webbrowser
