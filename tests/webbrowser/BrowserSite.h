#pragma once

#include <windows.h>

#include <mshtmdid.h>
#include <mshtmhst.h>
#include <olectl.h>
#include <servprov.h>
#include <urlmon.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "framework/ComObject.h"
#include "framework/Implements.h"
#include "framework/InterfaceId.h"
#include "framework/Variant.h"
#include "tests/support/ControlSite.h"

namespace nux::webbrowser {

/// A container's site that also says how it wants pages to be shown.
class BrowserSite : public ControlSite,
                    public IDocHostUIHandler,
                    public IDocHostShowUI,
                    public IOleControlSite,
                    public IServiceProvider,
                    public IDispatch {
public:
    using ControlSite::ControlSite;

    bool hasHandler = true;
    DWORD flags = DOCHOSTUIFLAG_NO3DBORDER;
    ComPtr<IDispatch> external;
    HRESULT onMenu = S_OK;  ///< S_OK: it has shown its own
    HRESULT onKey = S_FALSE;
    std::map<DISPID, LONG> ambient;
    std::wstring translated;  ///< where navigations of a page go; empty for where they are to go

    HRESULT onMessage = S_FALSE;  ///< S_OK: it has shown the page's message itself
    LRESULT messageAnswer = 0;
    std::vector<std::wstring> messages;
    std::optional<DWORD> policy;  ///< of its security manager; none: it has none
    std::vector<DWORD> actions;   ///< that the security manager was asked for

    // IDocHostShowUI
    STDMETHODIMP ShowMessage(HWND, LPOLESTR text, LPOLESTR, DWORD, LPOLESTR, DWORD,
                             LRESULT* answer) override {
        messages.push_back(text);
        *answer = messageAnswer;
        return onMessage;
    }
    STDMETHODIMP ShowHelp(HWND, LPOLESTR, UINT, DWORD, POINT, IDispatch*) override { return E_NOTIMPL; }

    // IServiceProvider
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override;

    // IDocHostUIHandler
    STDMETHODIMP ShowContextMenu(DWORD kind, POINT*, IUnknown* commands, IDispatch*) override {
        calls.push_back("ShowContextMenu " + std::to_string(kind) + (commands ? "" : " without commands"));
        return onMenu;
    }
    STDMETHODIMP GetHostInfo(DOCHOSTUIINFO* information) override {
        information->dwFlags = flags;
        return S_OK;
    }
    STDMETHODIMP ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*, IOleInPlaceFrame*,
                        IOleInPlaceUIWindow*) override {
        calls.push_back("ShowUI");
        return S_OK;
    }
    STDMETHODIMP HideUI() override {
        calls.push_back("HideUI");
        return S_OK;
    }
    STDMETHODIMP UpdateUI() override {
        calls.push_back("UpdateUI");
        return S_OK;
    }
    STDMETHODIMP EnableModeless(BOOL enable) override {
        calls.push_back(enable ? "EnableModeless" : "EnableModeless not");
        return S_OK;
    }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, const GUID* group, DWORD) override {
        calls.push_back(group && *group == CGID_MSHTML ? "handler's key" : "handler's key without group");
        return onKey;
    }
    STDMETHODIMP GetOptionKeyPath(LPOLESTR*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetDropTarget(IDropTarget*, IDropTarget**) override { return E_NOTIMPL; }
    STDMETHODIMP GetExternal(IDispatch** result) override {
        external.CopyTo(result);
        return external ? S_OK : S_FALSE;
    }
    STDMETHODIMP TranslateUrl(DWORD, LPWSTR, LPWSTR* result) override {
        if (translated.empty())
            return S_FALSE;
        *result = static_cast<LPWSTR>(CoTaskMemAlloc((translated.size() + 1) * sizeof(wchar_t)));
        std::copy_n(translated.c_str(), translated.size() + 1, *result);
        return S_OK;
    }
    STDMETHODIMP FilterDataObject(IDataObject*, IDataObject**) override { return S_FALSE; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG* message, DWORD modifiers) override {
        calls.push_back("site's key " + std::to_string(message->wParam) + " " + std::to_string(modifiers));
        return S_OK;
    }
    STDMETHODIMP OnFocus(BOOL focused) override {
        calls.push_back(focused ? "OnFocus" : "OnFocus not");
        return S_OK;
    }
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    // IDispatch: ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        const auto found = ambient.find(id);
        if (found == ambient.end())
            return DISP_E_MEMBERNOTFOUND;
        result->vt = VT_I4;
        result->lVal = found->second;
        return S_OK;
    }

protected:
    void* FindInterface(REFIID iid) noexcept {
        if (iid == IdOf<IDocHostUIHandler>())
            return hasHandler ? static_cast<IDocHostUIHandler*>(this) : nullptr;
        if (iid == IdOf<IDocHostShowUI>())
            return static_cast<IDocHostShowUI*>(this);
        if (iid == IdOf<IServiceProvider>())
            return static_cast<IServiceProvider*>(this);
        if (iid == IdOf<IOleControlSite>())
            return static_cast<IOleControlSite*>(this);
        return iid == IdOf<IDispatch>() ? static_cast<IDispatch*>(this) : ControlSite::FindInterface(iid);
    }
};

/// What a site has that decides what pages may do.
class SecurityManager : public Implements<IInternetSecurityManager> {
public:
    explicit SecurityManager(BrowserSite& site) : site_(site) {}
    virtual ~SecurityManager() = default;

    STDMETHODIMP SetSecuritySite(IInternetSecurityMgrSite*) override { return E_NOTIMPL; }
    STDMETHODIMP GetSecuritySite(IInternetSecurityMgrSite**) override { return E_NOTIMPL; }
    STDMETHODIMP MapUrlToZone(LPCWSTR, DWORD*, DWORD) override { return INET_E_DEFAULT_ACTION; }
    STDMETHODIMP GetSecurityId(LPCWSTR, BYTE*, DWORD*, DWORD_PTR) override { return INET_E_DEFAULT_ACTION; }
    STDMETHODIMP ProcessUrlAction(LPCWSTR, DWORD action, BYTE* policy, DWORD, BYTE*, DWORD, DWORD,
                                  DWORD) override {
        site_.actions.push_back(action);
        *reinterpret_cast<DWORD*>(policy) = *site_.policy;
        return S_OK;
    }
    STDMETHODIMP QueryCustomPolicy(LPCWSTR, REFGUID, BYTE**, DWORD*, BYTE*, DWORD, DWORD) override {
        return INET_E_DEFAULT_ACTION;
    }
    STDMETHODIMP SetZoneMapping(DWORD, LPCWSTR, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetZoneMappings(DWORD, IEnumString**, DWORD) override { return E_NOTIMPL; }

private:
    BrowserSite& site_;
};

inline STDMETHODIMP BrowserSite::QueryService(REFGUID service, REFIID iid, void** object) {
    *object = nullptr;
    if (service != IdOf<IInternetSecurityManager>() || !policy)
        return E_NOINTERFACE;
    return MakeObject<SecurityManager>(*this)->QueryInterface(iid, object);
}

}  // namespace nux::webbrowser
