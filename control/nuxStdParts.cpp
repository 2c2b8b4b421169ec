#include "control/nuxStdParts.h"

#include <mshtml.h>

#include "control/OutArguments.h"
#include "environment/DiagnosticLog.h"
#include "environment/InstallationPaths.h"
#include "environment/XMLAccess.h"
#include "framework/DispatchClient.h"

namespace nux {
namespace {

constexpr DWORD miscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                             OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;
static_assert(miscStatus == 131473, "the same as in the registry script");

constexpr ControlState::Identity identity{CLSID_nuxStdParts, DIID__InuxStdPartsEvents, "nuxStdParts Class",
                                          miscStatus};

const WindowClass& ControlWindowClass() noexcept {
    static const WindowClass windowClass("nuxStdPartsControl", CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS,
                                         reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    return windowClass;
}

/// The URL of the document that a site belongs to.
/// @return false if the site belongs to no document
bool FindDocument(IOleClientSite* site, std::wstring& url) {
    ComPtr<IOleContainer> container;
    if (!site || site->GetContainer(container.Receive()) != S_OK)
        return false;
    const ComPtr<IHTMLDocument2> document = container.As<IHTMLDocument2>();
    if (!document)
        return false;
    Bstr text;
    document->get_URL(text.Receive());
    url = text.View();
    return true;
}

}  // namespace

nuxStdParts::nuxStdParts()
    : OleControl(ControlWindowClass(), identity), m_DataManager(MakeObject<nuxDataManager>()) {}

void nuxStdParts::OnLastRelease() noexcept {
    ReleaseContainer();
    m_StatusBar.Reset();
    RevokeActiveObject(m_ActiveObjectCookie, nullptr);
    m_Browser.Reset();
    m_ComponentNode.Reset();
    m_EditedComponent.Reset();
    WithdrawHost3D(this);
    m_3D.Reset();
    m_DataManager.Reset();
    m_LifterWizard.Reset();
    m_ExternalDispatch.Reset();
    ClearLogFile();
    ClearXMLDocumentCache();
    {
        Variant last;
        m_GlobalData.Swap(last);
    }
    WithdrawHost3D(this);  // what has been released since may have called in and set it again
    m_3D.Reset();
}

void* nuxStdParts::FindInterface(REFIID iid) noexcept {
    if (void* found = Dispatch::FindInterface(iid))
        return found;
    if (iid == IdOf<DWebBrowserEvents2>())
        return &browserEvents_;
    return OleControl::FindInterface(iid);
}

DWORD nuxStdParts::SupportedSafety() const {
    // A page from elsewhere can't make the object do what a page of the installation may: write any file.
    std::wstring url;
    const ComPtr<IOleClientSite> site = site_;
    if (FindDocument(site.Get(), url) && !IsOfInstallation(url))
        return 0;
    return OleControl::SupportedSafety();
}

STDMETHODIMP nuxStdParts::SetExternalDispatch(IDispatch* pDisp) {
    return Operation([&] {
        m_ExternalDispatch = ComPtr<IDispatch>(pDisp);
        Require(pDisp, L"pDisp");
        m_Initialised = 1;
        const ComPtr<IDispatch> side = m_3D;  // the host may replace it while it is asked
        if (!side)
            throw HResultError(E_FAIL, L"nux3D has to be set before SetExternalDispatch.");
        if (!side.As<Inux3DReady>())
            throw HResultError(E_FAIL, L"The 3D side in nux3D is not ready: it does not offer Inux3DReady.");
        const ComPtr<Inux3D> host = side.As<Inux3D>();
        if (!host)
            throw HResultError(E_FAIL, L"The object in nux3D is no 3D side: it does not offer Inux3D.");
        host->AttachHost(pDisp);

        m_HostHWND = nullptr;
        Variant window;
        if (SUCCEEDED(GetDispatchProperty(pDisp, L"MainWindowHWND", &window)) && window.Type() == VT_I4)
            m_HostHWND = static_cast<HWND>(LongToHandle(window.Number()));
    });
}

STDMETHODIMP nuxStdParts::get_nux3D(IDispatch** pVal) {
    return Operation([&] { return HandOut(m_3D, pVal); });
}

STDMETHODIMP nuxStdParts::put_nux3D(IDispatch* newVal) {
    return Operation([&] {
        // Folders of catalogues are asked of the pointer that SetTRNVPaths has handed on. Nobody else holds
        // it.
        if (newVal != m_3D.Get())
            WithdrawHost3D(this);
        m_3D = ComPtr<IDispatch>(newVal);
    });
}

STDMETHODIMP nuxStdParts::get_Initialised(long* pVal) {
    return Operation([&] {
        Require(pVal, L"pVal");
        *pVal = m_Initialised;
    });
}

STDMETHODIMP nuxStdParts::put_Initialised(long newVal) {
    return Operation([&] {
        if (newVal != 0 && newVal != 1)
            throw HResultError(E_INVALIDARG, L"Initialised takes 0 and 1 only.");
        m_Initialised = newVal;
    });
}

STDMETHODIMP nuxStdParts::get_Version(BSTR*) {
    return S_OK;
}

STDMETHODIMP nuxStdParts::get_DataManager(IDispatch** pVal) {
    return Operation([&] { return HandOut(m_DataManager, pVal); });
}

HRESULT nuxStdParts::NotOffered() noexcept {
    return Operation(
        [] { throw HResultError(E_NOTIMPL, L"This version does not offer this operation yet."); });
}

}  // namespace nux
