#pragma once

#include <windows.h>

#include <exdisp.h>

#include "host/HostObject.h"

namespace nux::host {

/// A web browser's interface without what Browser offers of it.
class UnofferedBrowser : public HostDispatch<IWebBrowser2> {
public:
    STDMETHODIMP GoBack() override { return Unoffered(); }
    STDMETHODIMP GoForward() override { return Unoffered(); }
    STDMETHODIMP GoHome() override { return Unoffered(); }
    STDMETHODIMP GoSearch() override { return Unoffered(); }
    STDMETHODIMP Refresh2(VARIANT*) override { return Unoffered(); }
    STDMETHODIMP get_Application(IDispatch**) override { return Unoffered(); }
    STDMETHODIMP get_Parent(IDispatch**) override { return Unoffered(); }
    STDMETHODIMP get_Container(IDispatch**) override { return Unoffered(); }
    STDMETHODIMP get_TopLevelContainer(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP get_Type(BSTR*) override { return Unoffered(); }
    STDMETHODIMP get_Left(LONG*) override { return Unoffered(); }
    STDMETHODIMP put_Left(LONG) override { return Unoffered(); }
    STDMETHODIMP get_Top(LONG*) override { return Unoffered(); }
    STDMETHODIMP put_Top(LONG) override { return Unoffered(); }
    STDMETHODIMP get_Width(LONG*) override { return Unoffered(); }
    STDMETHODIMP put_Width(LONG) override { return Unoffered(); }
    STDMETHODIMP get_Height(LONG*) override { return Unoffered(); }
    STDMETHODIMP put_Height(LONG) override { return Unoffered(); }
    STDMETHODIMP get_LocationName(BSTR*) override { return Unoffered(); }
    STDMETHODIMP Quit() override { return Unoffered(); }
    STDMETHODIMP ClientToWindow(int*, int*) override { return Unoffered(); }
    STDMETHODIMP PutProperty(BSTR, VARIANT) override { return Unoffered(); }
    STDMETHODIMP GetProperty(BSTR, VARIANT*) override { return Unoffered(); }
    STDMETHODIMP get_Name(BSTR*) override { return Unoffered(); }
    STDMETHODIMP get_FullName(BSTR*) override { return Unoffered(); }
    STDMETHODIMP get_Path(BSTR*) override { return Unoffered(); }
    STDMETHODIMP get_Visible(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_Visible(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_StatusBar(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_StatusBar(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_StatusText(BSTR*) override { return Unoffered(); }
    STDMETHODIMP put_StatusText(BSTR) override { return Unoffered(); }
    STDMETHODIMP get_ToolBar(int*) override { return Unoffered(); }
    STDMETHODIMP put_ToolBar(int) override { return Unoffered(); }
    STDMETHODIMP get_MenuBar(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_MenuBar(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_FullScreen(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_FullScreen(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP Navigate2(VARIANT*, VARIANT*, VARIANT*, VARIANT*, VARIANT*) override { return Unoffered(); }
    STDMETHODIMP QueryStatusWB(OLECMDID, OLECMDF*) override { return Unoffered(); }
    STDMETHODIMP ExecWB(OLECMDID, OLECMDEXECOPT, VARIANT*, VARIANT*) override { return Unoffered(); }
    STDMETHODIMP ShowBrowserBar(VARIANT*, VARIANT*, VARIANT*) override { return Unoffered(); }
    STDMETHODIMP get_Offline(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_Offline(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_Silent(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_Silent(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_RegisterAsBrowser(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_RegisterAsBrowser(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_RegisterAsDropTarget(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_RegisterAsDropTarget(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_TheaterMode(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_TheaterMode(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_AddressBar(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_AddressBar(VARIANT_BOOL) override { return Unoffered(); }
    STDMETHODIMP get_Resizable(VARIANT_BOOL*) override { return Unoffered(); }
    STDMETHODIMP put_Resizable(VARIANT_BOOL) override { return Unoffered(); }

protected:
    using HostDispatch::HostDispatch;
    /// What an operation answers that is not offered.
    virtual HRESULT Unoffered() const noexcept = 0;
};

}  // namespace nux::host
