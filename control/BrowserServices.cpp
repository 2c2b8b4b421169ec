// The host's browser and what is shown in it, the commands of the control's window, the host's status bar.

#include <mshtml.h>

#include "control/OutArguments.h"
#include "control/nuxStdParts.h"
#include "dialogs/nuxError.h"
#include "environment/InstallationFiles.h"
#include "environment/InstallationPaths.h"
#include "environment/Localisation.h"
#include "environment/Paths.h"
#include "framework/DispatchClient.h"

namespace nux {
namespace {

/// Commands to the control's window.
enum ControlCommand : WORD {
    doNothing = 1,
    chooseDimensionsOfPage = 2,
    loadWizardPage = 3,
    setCommandFlag = 4,
};

/// The members of a status bar, in the order of StatusBarDispIDs.
constexpr const wchar_t* statusBarMembers[] = {L"SetMessage", L"SetProgress", L"CreateProgressBar",
                                               L"DestroyProgressBar"};

HRESULT NavigateBrowser(IWebBrowser2* browser, const std::string& url) {
    return browser->Navigate(Bstr(url, CP_THREAD_ACP).Get(), nullptr, nullptr, nullptr, nullptr);
}

}  // namespace

void nuxStdParts::ShowError(const char* messageId) {
    nuxError(0, GetLocalizedMessage("", messageId)).Show(Handle());
}

void nuxStdParts::CloseEditedComponent() noexcept {
    const ComPtr<InuxEditedComponent> edited = m_EditedComponent;
    if (edited)
        edited->Close();
    m_EditedComponent.Reset();
}

STDMETHODIMP nuxStdParts::AttachBrowser(IDispatch* Browser) {
    return Operation([&] {
        m_Browser.Reset();
        m_BrowserHWND = nullptr;
        Require(Browser, L"Browser");
        Browser->AddRef();  // for the life of the process: the browser must outlive every object that may
                            // reach it
        ComPtr<IWebBrowser2> browser;  // not the field: who is asked may attach another meanwhile
        const HRESULT result =
            Received(Browser->QueryInterface(IdOf<IWebBrowser2>(), browser.ReceiveVoid()), browser);
        m_Browser = std::move(browser);
        if (const ComPtr<IOleWindow> window = Query<IOleWindow>(Browser))
            window->GetWindow(&m_BrowserHWND);
        if (FAILED(result))
            throw HResultError(result, L"The object is no browser: it does not offer IWebBrowser2.");
        return result;
    });
}

STDMETHODIMP nuxStdParts::get_WebBrowser(IDispatch** pVal) {
    return Operation([&] { return HandOut(m_Browser, pVal); });
}

STDMETHODIMP nuxStdParts::Navigate(BSTR url) {
    return Operation([&] {
        CloseEditedComponent();
        const std::string target = Narrow(url);
        const ComPtr<IWebBrowser2> browser = m_Browser;
        if (!browser)
            m_PendingURL = target;
        else if (URLTargetExists(target))
            browser->Navigate(url, nullptr, nullptr, nullptr, nullptr);
        else
            ShowError("Cannot find the html page!");
    });
}

void nuxStdParts::LoadDefaultPage() {
    const std::string url = DefaultPageURL(m_DataPath);
    const ComPtr<IWebBrowser2> browser = m_Browser;
    if (!browser)
        return;
    if (!URLTargetExists(url))
        ShowError("Cannot find the default html page!");
    else if (FAILED(NavigateBrowser(browser.Get(), url)))
        ShowError("Out of memory!");
}

void nuxStdParts::LoadWizardPage() {
    m_ComponentNode.Reset();
    CloseEditedComponent();
    const std::string url = WizardPageURL(Installation().data);
    const ComPtr<IWebBrowser2> browser = m_Browser;
    if (!browser)
        return;
    if (!URLTargetExists(url)) {
        m_ComponentNode.Reset();
        ShowError("Cannot find the html page!");
        LoadDefaultPage();
    } else if (FAILED(NavigateBrowser(browser.Get(), url))) {
        m_ComponentNode.Reset();
        ShowError("Out of memory!");
    }
}

HRESULT nuxStdParts::CallPageScript(const wchar_t* name, std::span<const Variant> arguments,
                                    Variant* result) {
    const ComPtr<IWebBrowser2> browser = m_Browser;
    if (!browser)
        return E_FAIL;
    ComPtr<IDispatch> document;
    if (FAILED(Received(browser->get_Document(document.Receive()), document)))
        return E_FAIL;
    const ComPtr<IHTMLDocument> page = document.As<IHTMLDocument>();
    ComPtr<IDispatch> script;
    if (!page || FAILED(Received(page->get_Script(script.Receive()), script)) || !script)
        return E_FAIL;
    DISPID function = DISPID_UNKNOWN;
    if (FAILED(FindMember(script.Get(), name, &function, 0)))
        return E_FAIL;
    return CallMethod(script.Get(), function, arguments, result);
}

LRESULT nuxStdParts::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COMMAND)
        return Default(message, wParam, lParam);
    const ComPtr<InuxStdParts> self(this);
    switch (LOWORD(wParam)) {
        case doNothing:
            return 0;
        case chooseDimensionsOfPage:
            CallPageScript(L"OnChooseDimensions");
            return 0;
        case loadWizardPage:
            Guarded([&] {
                LoadWizardPage();
                return S_OK;
            });
            return 0;
        case setCommandFlag:
            if (const ComPtr<Inux3D> host = m_3D.As<Inux3D>())
                host->SetCommandFlag(m_CommandFlag ? 1 : 0);
            return 0;
        default:
            return Default(message, wParam, lParam);
    }
}

STDMETHODIMP nuxStdParts::put_StatusBar(IDispatch* newVal) {
    return Operation([&] {
        m_StatusBar.Reset();
        if (!newVal)
            return;
        for (std::size_t member = 0; member < StatusBarDispIDs.size(); ++member) {
            if (FAILED(FindMember(newVal, statusBarMembers[member], &StatusBarDispIDs[member], 0))) {
                m_StatusBar.Reset();  // who is asked may have put another, whose numbers these are not
                throw HResultError(
                    E_FAIL, std::wstring(L"The status bar has no member ") + statusBarMembers[member] + L".");
            }
        }
        m_StatusBar = newVal;
    });
}

STDMETHODIMP nuxStdParts::UnLoadStatusBar() {
    return Operation([&] { m_StatusBar.Reset(); });
}

HRESULT nuxStdParts::CallStatusBar(StatusBarMember member, std::span<const Variant> arguments) {
    const ComPtr<IDispatch> bar = m_StatusBar;
    if (!bar)
        return S_FALSE;
    const HRESULT result = CallMethod(bar.Get(), StatusBarDispIDs[member], arguments, nullptr, 0);
    // Scripts report progress while they work: the page repaints meanwhile.
    if (m_BrowserHWND)
        UpdateWindow(m_BrowserHWND);
    if (FAILED(result))
        throw HResultError(result,
                           std::wstring(L"The status bar failed in ") + statusBarMembers[member] + L".");
    return result;
}

STDMETHODIMP nuxStdParts::SetStatusMessage(BSTR Message) {
    return Operation([&] {
        Variant text;
        text.SetText(Bstr(std::wstring_view(Message, SysStringLen(Message))));
        return CallStatusBar(setMessage, {&text, 1});
    });
}

STDMETHODIMP nuxStdParts::UpdateProgressBar(long Position) {
    return Operation([&] {
        Variant number;
        number.SetNumber(Position);
        return CallStatusBar(setProgress, {&number, 1});
    });
}

STDMETHODIMP nuxStdParts::CreateProgressBar() {
    return Operation([&] { return CallStatusBar(createProgressBar); });
}

STDMETHODIMP nuxStdParts::DestroyProgressBar() {
    return Operation([&] { return CallStatusBar(destroyProgressBar); });
}

}  // namespace nux
