#include "webbrowser/DocumentHost.h"

#include <mshtmdid.h>
#include <olectl.h>
#include <servprov.h>
#include <urlmon.h>

#include <utility>

#include "framework/Handles.h"
#include "framework/Text.h"

namespace nux::webbrowser {

DWORD DocumentHost::Flags() const noexcept {
    DOCHOSTUIINFO information{};
    information.cbSize = sizeof information;
    const ComPtr<IDocHostUIHandler> handler = Handler();
    const bool isTold = handler && SUCCEEDED(handler->GetHostInfo(&information));
    // Both texts are the control's to free; no page here is styled or named by them.
    CoTaskMemFree(information.pchHostCss);
    CoTaskMemFree(information.pchHostNS);
    return isTold ? information.dwFlags : 0;
}

ComPtr<IDispatch> DocumentHost::External() const noexcept {
    ComPtr<IDispatch> external;
    const ComPtr<IDocHostUIHandler> handler = Handler();
    if (handler && FAILED(handler->GetExternal(external.Receive())))
        (void)external.Detach();
    return external;
}

std::wstring DocumentHost::Translated(const std::wstring& address) const {
    std::wstring asked = address;
    UniqueTaskText answer;
    const ComPtr<IDocHostUIHandler> handler = Handler();
    if (!handler || handler->TranslateUrl(0, asked.data(), answer.Receive()) != S_OK || !answer)
        return address;
    return answer.Get();
}

bool DocumentHost::ShowsContextMenu(DWORD kind, POINT at, IUnknown* commands,
                                    IDispatch* element) const noexcept {
    const ComPtr<IDocHostUIHandler> handler = Handler();
    return handler && handler->ShowContextMenu(kind, &at, commands, element) == S_OK;
}

bool DocumentHost::TakesKey(MSG& message) const noexcept {
    const ComPtr<IDocHostUIHandler> handler = Handler();
    return handler && handler->TranslateAccelerator(&message, &CGID_MSHTML, 0) == S_OK;
}

bool DocumentHost::ShowsMessage(HWND window, const std::wstring& text, const std::wstring& caption,
                                UINT style, int& answer) const {
    const ComPtr<IDocHostShowUI> shower = Query<IDocHostShowUI>(site_.Get());
    const Bstr message(text);
    const Bstr title(caption);
    LRESULT chosen = 0;
    if (!shower ||
        shower->ShowMessage(window, message.Get(), title.Get(), style, nullptr, 0, &chosen) != S_OK)
        return false;
    answer = static_cast<int>(chosen);
    return true;
}

void DocumentHost::EnableModeless(bool enable) const noexcept {
    if (const ComPtr<IDocHostUIHandler> handler = Handler())
        handler->EnableModeless(enable);
}

Variant DocumentHost::Ambient(DISPID id) const noexcept {
    Variant value;
    DISPPARAMS none{};
    const ComPtr<IDispatch> ambient = Query<IDispatch>(site_.Get());
    if (ambient && FAILED(ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                          value.Receive(), nullptr, nullptr)))
        value = Variant();
    return value;
}

bool DocumentHost::IsUserMode() const noexcept {
    const Variant mode = Ambient(DISPID_AMBIENT_USERMODE);
    return mode.Type() != VT_BOOL || mode.Get().boolVal != VARIANT_FALSE;
}

DWORD DocumentHost::DownloadControl() const noexcept {
    const Variant control = Ambient(DISPID_AMBIENT_DLCONTROL);
    return control.Type() == VT_I4 || control.Type() == VT_UI4 ? static_cast<DWORD>(control.Number()) : 0;
}

bool DocumentHost::IsSilent() const noexcept {
    return (DownloadControl() & DLCTL_SILENT) != 0;
}

bool DocumentHost::AllowsObjects(const std::wstring& address) const noexcept {
    if (DownloadControl() & DLCTL_NO_RUNACTIVEXCTLS)
        return false;
    const ComPtr<IServiceProvider> provider = Query<IServiceProvider>(site_.Get());
    ComPtr<IInternetSecurityManager> security;
    if (!provider || FAILED(provider->QueryService(IID_IInternetSecurityManager, IID_IInternetSecurityManager,
                                                   security.ReceiveVoid()))) {
        (void)security.Detach();
        return true;
    }
    DWORD policy = URLPOLICY_ALLOW;
    const HRESULT told =
        security->ProcessUrlAction(address.c_str(), URLACTION_ACTIVEX_RUN, reinterpret_cast<BYTE*>(&policy),
                                   sizeof policy, nullptr, 0, PUAF_NOUI, 0);
    return (told != S_OK && told != S_FALSE) || GetUrlPolicyPermissions(policy) == URLPOLICY_ALLOW;
}

ModalTime::ModalTime(DocumentHost host, ComPtr<IOleInPlaceFrame> frame) noexcept
    : host_(std::move(host)), frame_(std::move(frame)) {
    Enable(false);
}

ModalTime::~ModalTime() {
    Enable(true);
}

void ModalTime::Enable(bool enable) const noexcept {
    if (frame_)
        frame_->EnableModeless(enable);
    host_.EnableModeless(enable);
}

}  // namespace nux::webbrowser
