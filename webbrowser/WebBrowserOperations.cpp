// What containers and scripts ask of the browser by IWebBrowser2.

#include <exdispid.h>

#include "framework/Text.h"
#include "webbrowser/ControlText.h"
#include "webbrowser/WebBrowser.h"
#include "webbrowser/resource.h"

namespace nux::webbrowser {
namespace {

const VARIANT& Referred(const VARIANT& value) noexcept {
    return value.vt == (VT_BYREF | VT_VARIANT) && value.pvarVal ? *value.pvarVal : value;
}

/// The text of an argument; empty for one that is left out.
std::wstring TextOf(const VARIANT* argument) {
    if (!argument)
        return {};
    const VARIANT& value = Referred(*argument);
    if (value.vt == VT_BSTR)
        return std::wstring(value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal));
    if (value.vt == (VT_BYREF | VT_BSTR) && value.pbstrVal)
        return std::wstring(*value.pbstrVal ? *value.pbstrVal : L"", SysStringLen(*value.pbstrVal));
    return {};
}

/// The number of an argument; 0 for one that is left out.
LONG NumberOf(const VARIANT* argument) {
    VARIANT number{};
    if (!argument || Referred(*argument).vt == VT_ERROR ||
        // The platform's declaration is not const, its contract is.
        FAILED(VariantChangeType(&number, const_cast<VARIANT*>(&Referred(*argument)), 0, VT_I4)))
        return 0;
    return number.lVal;
}

bool IsScript(std::wstring_view address) {
    constexpr std::wstring_view scheme = L"javascript:";
    return address.size() >= scheme.size() &&
           CompareStringOrdinal(address.data(), static_cast<int>(scheme.size()), scheme.data(),
                                static_cast<int>(scheme.size()), TRUE) == CSTR_EQUAL;
}

std::wstring ProgramPath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace

HRESULT WebBrowser::NotOffered() noexcept {
    return Operation([&]() -> HRESULT { throw HResultError(E_NOTIMPL, ControlText(IDS_NOT_OFFERED)); });
}

HRESULT WebBrowser::Read(VARIANT_BOOL kept, VARIANT_BOOL* value) noexcept {
    if (!value)
        return E_POINTER;
    *value = kept;
    return S_OK;
}

HRESULT WebBrowser::Keep(VARIANT_BOOL& kept, VARIANT_BOOL value) noexcept {
    kept = value ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT WebBrowser::KeepAndTell(VARIANT_BOOL& kept, VARIANT_BOOL value, DISPID event) noexcept {
    return Operation([&] {
        Keep(kept, value);
        FlagChange(event, value != VARIANT_FALSE);
    });
}

HRESULT WebBrowser::GiveText(const std::wstring& text, BSTR* target) {
    if (!target)
        return E_POINTER;
    *target = Bstr(text).Detach();
    return S_OK;
}

// Navigation

HRESULT WebBrowser::NavigateTo(const std::wstring& address, const VARIANT* flags, const VARIANT* frame,
                               const VARIANT* post, const VARIANT* headers) {
    if (address.empty())
        throw HResultError(E_INVALIDARG, L"There is no address to navigate to.");
    if (IsScript(address)) {
        OpenedPage()->Navigate(address);
        return S_OK;
    }
    const std::wstring frameName = TextOf(frame);
    if ((NumberOf(flags) & navOpenInNewWindow) || frameName == L"_blank" ||
        (!frameName.empty() && frameName[0] != L'_' && !NavigateFrame(frameName, address))) {
        OpenWindow(address);
        return S_OK;
    }
    if (!frameName.empty() && frameName[0] != L'_')
        return S_OK;
    Navigation navigation{Self(), address, NumberOf(flags), frameName, {}, TextOf(headers)};
    if (post && post->vt != VT_ERROR)
        navigation.postData.SetCopy(*post);
    const unsigned closings = closings_;
    if (BeforeNavigate(navigation) || closings != closings_)
        return HRESULT_FROM_WIN32(ERROR_CANCELLED);
    Begin(address);
    return S_OK;
}

bool WebBrowser::NavigateFrame(const std::wstring& frame, const std::wstring& address) {
    const std::shared_ptr<Page> page = page_;
    if (!page)
        return false;
    Variant arguments[2];
    arguments[0].SetText(Bstr(frame));
    arguments[1].SetText(Bstr(address));
    const Variant found = page->Call(
        "(name, url) => { const frame = [...document.querySelectorAll('iframe, frame')]"
        ".find(each => each.name === name); if (frame) frame.src = url; return !!frame; }",
        arguments);
    return found.Type() == VT_BOOL && found.Get().boolVal != VARIANT_FALSE;
}

STDMETHODIMP WebBrowser::Navigate(BSTR URL, VARIANT* Flags, VARIANT* TargetFrameName, VARIANT* PostData,
                                  VARIANT* Headers) {
    return Operation([&] {
        return NavigateTo(std::wstring(URL ? URL : L"", SysStringLen(URL)), Flags, TargetFrameName, PostData,
                          Headers);
    });
}

STDMETHODIMP WebBrowser::Navigate2(VARIANT* URL, VARIANT* Flags, VARIANT* TargetFrameName, VARIANT* PostData,
                                   VARIANT* Headers) {
    return Operation([&] { return NavigateTo(TextOf(URL), Flags, TargetFrameName, PostData, Headers); });
}

STDMETHODIMP WebBrowser::GoBack() {
    return Operation([&] {
        const std::shared_ptr<Page> page = page_;
        return page && page->GoBack() ? S_OK : E_FAIL;
    });
}

STDMETHODIMP WebBrowser::GoForward() {
    return Operation([&] {
        const std::shared_ptr<Page> page = page_;
        return page && page->GoForward() ? S_OK : E_FAIL;
    });
}

STDMETHODIMP WebBrowser::Refresh2(VARIANT* Level) {
    return Operation([&] {
        if (isLost_ || !page_) {
            if (address_.empty())
                return S_OK;
            return NavigateTo(std::wstring(address_), nullptr, nullptr, nullptr, nullptr);
        }
        const std::shared_ptr<Page> page = page_;
        isRefreshing_ = true;
        BeginDownload();
        page->Reload(NumberOf(Level) == REFRESH_COMPLETELY);
        return S_OK;
    });
}

STDMETHODIMP WebBrowser::Stop() {
    return Operation([&] {
        if (const std::shared_ptr<Page> page = page_)
            page->Stop();
        isRefreshing_ = false;
        EndDownload();
    });
}

STDMETHODIMP WebBrowser::get_Busy(VARIANT_BOOL* pBool) {
    const std::shared_ptr<Page> page = page_;
    return Read(page && !isLost_ && page->IsBusy() ? VARIANT_TRUE : VARIANT_FALSE, pBool);
}

STDMETHODIMP WebBrowser::get_ReadyState(READYSTATE* plReadyState) {
    if (!plReadyState)
        return E_POINTER;
    *plReadyState = page_ ? static_cast<READYSTATE>(page_->State()) : READYSTATE_UNINITIALIZED;
    return S_OK;
}

STDMETHODIMP WebBrowser::get_LocationURL(BSTR* LocationURL) {
    return Operation(
        [&] { return GiveText(page_ && hasDocument_ ? page_->Location() : std::wstring(), LocationURL); });
}

STDMETHODIMP WebBrowser::get_LocationName(BSTR* LocationName) {
    return Operation([&] {
        if (!page_ || !hasDocument_)
            return GiveText({}, LocationName);
        const std::wstring title = page_->Title();
        return GiveText(title.empty() ? page_->Location() : title, LocationName);
    });
}

STDMETHODIMP WebBrowser::get_Document(IDispatch** ppDisp) {
    if (!ppDisp)
        return E_POINTER;
    *ppDisp = nullptr;
    return Operation([&] {
        const std::shared_ptr<Page> page = page_;
        if (isLost_)
            throw HResultError(RPC_E_DISCONNECTED, ControlText(IDS_NO_PAGE));
        if (page && page->State() != ReadyState::uninitialized)
            *ppDisp = page->ObjectOf(page->Document()).Detach();
        return S_OK;
    });
}

STDMETHODIMP WebBrowser::get_Type(BSTR* Type) {
    return Operation([&] { return page_ ? GiveText(ControlText(IDS_DOCUMENT_TYPE), Type) : E_FAIL; });
}

// The container

STDMETHODIMP WebBrowser::get_Application(IDispatch** ppDisp) {
    if (!ppDisp)
        return E_POINTER;
    ComPtr<IDispatch>(Self()).CopyTo(ppDisp);
    return S_OK;
}

STDMETHODIMP WebBrowser::get_Parent(IDispatch** ppDisp) {
    return get_Container(ppDisp);
}

STDMETHODIMP WebBrowser::get_Container(IDispatch** ppDisp) {
    if (!ppDisp)
        return E_POINTER;
    *ppDisp = nullptr;
    return Operation([&] {
        ComPtr<IOleContainer> container;
        const ComPtr<IOleClientSite> site = site_;
        if (site && FAILED(site->GetContainer(container.Receive())))
            (void)container.Detach();
        *ppDisp = container.As<IDispatch>().Detach();
        return S_OK;
    });
}

STDMETHODIMP WebBrowser::get_TopLevelContainer(VARIANT_BOOL* pBool) {
    return Read(VARIANT_TRUE, pBool);
}

STDMETHODIMP WebBrowser::Quit() {
    return Operation([&]() -> HRESULT { throw HResultError(E_FAIL, ControlText(IDS_NO_QUIT)); });
}

RECT WebBrowser::Bounds() const noexcept {
    RECT bounds = WindowRectangle(Handle());
    MapWindowPoints(HWND_DESKTOP, GetParent(Handle()), reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
}

HRESULT WebBrowser::Measure(LONG value, LONG* target) const noexcept {
    if (!target)
        return E_POINTER;
    *target = value;
    return S_OK;
}

HRESULT WebBrowser::MoveTo(const RECT& bounds) noexcept {
    return Operation([&] {
        const ComPtr<IOleInPlaceSite> site = InPlaceSite();
        return site ? site->OnPosRectChange(&bounds) : E_FAIL;
    });
}

STDMETHODIMP WebBrowser::get_Left(LONG* pl) {
    return Measure(Bounds().left, pl);
}

STDMETHODIMP WebBrowser::put_Left(LONG Left) {
    RECT bounds = Bounds();
    OffsetRect(&bounds, Left - bounds.left, 0);
    return MoveTo(bounds);
}

STDMETHODIMP WebBrowser::get_Top(LONG* pl) {
    return Measure(Bounds().top, pl);
}

STDMETHODIMP WebBrowser::put_Top(LONG Top) {
    RECT bounds = Bounds();
    OffsetRect(&bounds, 0, Top - bounds.top);
    return MoveTo(bounds);
}

STDMETHODIMP WebBrowser::get_Width(LONG* pl) {
    const RECT bounds = Bounds();
    return Measure(bounds.right - bounds.left, pl);
}

STDMETHODIMP WebBrowser::put_Width(LONG Width) {
    RECT bounds = Bounds();
    bounds.right = bounds.left + Width;
    return MoveTo(bounds);
}

STDMETHODIMP WebBrowser::get_Height(LONG* pl) {
    const RECT bounds = Bounds();
    return Measure(bounds.bottom - bounds.top, pl);
}

STDMETHODIMP WebBrowser::put_Height(LONG Height) {
    RECT bounds = Bounds();
    bounds.bottom = bounds.top + Height;
    return MoveTo(bounds);
}

STDMETHODIMP WebBrowser::PutProperty(BSTR Property, VARIANT vtValue) {
    return Operation([&] {
        const std::wstring name(Property ? Property : L"", SysStringLen(Property));
        Variant value;
        ThrowIfFailed(value.SetCopy(vtValue));
        properties_[name].Swap(value);
        PropertyChange(name);
    });
}

STDMETHODIMP WebBrowser::GetProperty(BSTR Property, VARIANT* pvtValue) {
    if (!pvtValue)
        return E_POINTER;
    VariantInit(pvtValue);
    return Operation([&] {
        const auto found = properties_.find(std::wstring(Property ? Property : L"", SysStringLen(Property)));
        return found == properties_.end() ? S_OK : found->second.CopyTo(pvtValue);
    });
}

STDMETHODIMP WebBrowser::get_Name(BSTR* Name) {
    return Operation([&] { return GiveText(ControlText(IDS_CONTROL_NAME), Name); });
}

STDMETHODIMP WebBrowser::get_HWND(SHANDLE_PTR* pHWND) {
    if (!pHWND)
        return E_POINTER;
    *pHWND = reinterpret_cast<SHANDLE_PTR>(Handle());
    return Handle() ? S_OK : E_FAIL;
}

STDMETHODIMP WebBrowser::get_FullName(BSTR* FullName) {
    return Operation([&] { return GiveText(ProgramPath(), FullName); });
}

STDMETHODIMP WebBrowser::get_Path(BSTR* Path) {
    return Operation([&] {
        const std::wstring program = ProgramPath();
        return GiveText(program.substr(0, program.find_last_of(L'\\') + 1), Path);
    });
}

STDMETHODIMP WebBrowser::put_Visible(VARIANT_BOOL Value) {
    return Operation([&] {
        if (Handle())
            ShowWindow(Handle(), Value ? SW_SHOWNA : SW_HIDE);
        return KeepAndTell(visible_, Value, DISPID_ONVISIBLE);
    });
}

STDMETHODIMP WebBrowser::put_StatusBar(VARIANT_BOOL Value) {
    return KeepAndTell(statusBar_, Value, DISPID_ONSTATUSBAR);
}

STDMETHODIMP WebBrowser::get_StatusText(BSTR* StatusText) {
    return Operation([&] { return GiveText(statusText_, StatusText); });
}

STDMETHODIMP WebBrowser::put_StatusText(BSTR StatusText) {
    return Operation(
        [&] { StatusChanged(std::wstring(StatusText ? StatusText : L"", SysStringLen(StatusText))); });
}

STDMETHODIMP WebBrowser::get_ToolBar(int* Value) {
    if (!Value)
        return E_POINTER;
    *Value = toolBar_;
    return S_OK;
}

STDMETHODIMP WebBrowser::put_ToolBar(int Value) {
    return KeepAndTell(toolBar_, Value ? VARIANT_TRUE : VARIANT_FALSE, DISPID_ONTOOLBAR);
}

STDMETHODIMP WebBrowser::put_MenuBar(VARIANT_BOOL Value) {
    return KeepAndTell(menuBar_, Value, DISPID_ONMENUBAR);
}

STDMETHODIMP WebBrowser::put_FullScreen(VARIANT_BOOL bFullScreen) {
    return KeepAndTell(fullScreen_, bFullScreen, DISPID_ONFULLSCREEN);
}

STDMETHODIMP WebBrowser::put_TheaterMode(VARIANT_BOOL value) {
    return KeepAndTell(theaterMode_, value, DISPID_ONTHEATERMODE);
}

STDMETHODIMP WebBrowser::put_AddressBar(VARIANT_BOOL Value) {
    return KeepAndTell(addressBar_, Value, DISPID_ONADDRESSBAR);
}

STDMETHODIMP WebBrowser::get_Offline(VARIANT_BOOL* pbOffline) {
    return Read(VARIANT_TRUE, pbOffline);
}

}  // namespace nux::webbrowser
