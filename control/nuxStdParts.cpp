#include "control/nuxStdParts.h"

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

/// Hands out a reference of the object, or null and S_FALSE.
template <class Interface>
HRESULT HandOut(const ComPtr<Interface>& object, IDispatch** pVal) noexcept {
    if (!pVal)
        return E_INVALIDARG;
    object.CopyTo(pVal);
    return object ? S_OK : S_FALSE;
}

}  // namespace

nuxStdParts::nuxStdParts()
    : OleControl(ControlWindowClass(), identity), m_DataManager(MakeObject<nuxDataManager>().Get()) {}

void nuxStdParts::OnLastRelease() noexcept {
    ReleaseContainer();
    RevokeActiveObject(m_ActiveObjectCookie, nullptr);
    m_EditedComponent.Reset();
    WithdrawHost3D(this);
    m_3D.Reset();
    m_DataManager.Reset();
    m_LifterWizard.Reset();
    m_ExternalDispatch.Reset();
    ClearLogFile();
    ClearXMLDocumentCache();
    Variant last;
    m_GlobalData.Swap(last);
    VariantClear(&last);
    WithdrawHost3D(this);  // what has been released since may have called in and set it again
    m_3D.Reset();
}

void* nuxStdParts::FindInterface(REFIID iid) noexcept {
    if (void* found = FindDispatchInterface(iid))
        return found;
    if (iid == DIID_DWebBrowserEvents2)
        return &browserEvents_;
    return FindControlInterface(iid);
}

STDMETHODIMP nuxStdParts::SetExternalDispatch(IDispatch* pDisp) {
    const ComPtr<InuxStdParts> self(this);  // the host that is called may let go of the object
    m_ExternalDispatch = ComPtr<IDispatch>(pDisp);
    if (!pDisp)
        return E_INVALIDARG;
    m_Initialised = 1;
    const ComPtr<IDispatch> side = m_3D;  // the host may replace it while it is asked
    if (!side.As<Inux3DReady>(IID_Inux3DReady))
        return E_FAIL;
    const ComPtr<Inux3D> host = side.As<Inux3D>(IID_Inux3D);
    if (!host)
        return E_FAIL;
    host->AttachHost(pDisp);

    m_HostHWND = nullptr;
    Variant window;
    if (SUCCEEDED(GetDispatchProperty(pDisp, L"MainWindowHWND", &window)) && window.vt == VT_I4)
        m_HostHWND = static_cast<HWND>(LongToHandle(window.lVal));
    return S_OK;
}

STDMETHODIMP nuxStdParts::get_nux3D(IDispatch** pVal) {
    return HandOut(m_3D, pVal);
}

STDMETHODIMP nuxStdParts::put_nux3D(IDispatch* newVal) {
    // Folders of catalogues are asked of the pointer that SetTRNVPaths has handed on. Nobody else holds it.
    if (newVal != m_3D.Get())
        WithdrawHost3D(this);
    m_3D = ComPtr<IDispatch>(newVal);
    return S_OK;
}

STDMETHODIMP nuxStdParts::get_EditedComponent(IDispatch** pVal) {
    return HandOut(m_EditedComponent, pVal);
}

STDMETHODIMP nuxStdParts::get_Initialised(long* pVal) {
    if (!pVal)
        return E_INVALIDARG;
    *pVal = m_Initialised;
    return S_OK;
}

STDMETHODIMP nuxStdParts::put_Initialised(long newVal) {
    if (newVal != 0 && newVal != 1)
        return E_INVALIDARG;
    m_Initialised = newVal;
    return S_OK;
}

STDMETHODIMP nuxStdParts::get_Version(BSTR*) {
    return S_OK;
}

STDMETHODIMP nuxStdParts::get_DataManager(IDispatch** pVal) {
    return HandOut(m_DataManager, pVal);
}

}  // namespace nux
