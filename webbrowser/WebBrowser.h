#pragma once

#include <windows.h>

#include <docobj.h>
#include <exdisp.h>
#include <ocidl.h>
#include <servprov.h>

#include <map>
#include <memory>
#include <string>

#include "framework/ComObject.h"
#include "framework/Dispatch.h"
#include "framework/OleControl.h"
#include "webbrowser/BrowserEvents.h"
#include "webbrowser/BrowserLink.h"
#include "webbrowser/DocumentHost.h"
#include "webbrowser/ListWindow.h"
#include "webbrowser/Page.h"
#include "webbrowser/PageView.h"

namespace nux::webbrowser {

inline constexpr RegisteredLibrary browserLibrary{
    {0xeab22ac0, 0x30c1, 0x11cf, {0xa7, 0xeb, 0x00, 0x00, 0xc0, 0x5b, 0xae, 0x0b}}, 1, 1};

using BrowserInterface = Dispatch<IWebBrowser2, &browserLibrary>;
using BrowserServices = Implements<IOleCommandTarget, IServiceProvider, IObjectWithSite>;

/// The platform's WebBrowser control, in a page of the process's browser.
///
/// It belongs to one apartment. The page is opened by the first navigation, sited or not, and closed when the
/// control is closed, loses its site or goes. Where no browser can be started, and when it is lost, the
/// window says so and offers to load the page again; operations then fail with RPC_E_DISCONNECTED or the
/// failure of the start, and with words for it.
class WebBrowser : public BrowserInterface,
                   public OleControl,
                   public BrowserServices,
                   private BrowserEvents,
                   private PageListener {
public:
    using PageOpener = std::shared_ptr<Page> (*)(PageListener& listener, PixelSize size);

    explicit WebBrowser(PageOpener openPage = &Page::Open);

    // IWebBrowser: what it shows. WebBrowserOperations.cpp

    /// E_FAIL if there is nothing to go to.
    STDMETHODIMP GoBack() override;
    STDMETHODIMP GoForward() override;
    /// There is no network: E_NOTIMPL.
    STDMETHODIMP GoHome() override { return NotOffered(); }
    STDMETHODIMP GoSearch() override { return NotOffered(); }
    /// Returns before the document is there.
    /// @param URL         a path or a URL of a file with slashes of either kind, "about:blank",
    ///                    "javascript:..."
    /// @param Flags       navOpenInNewWindow has an effect; may be null, as the others
    /// @param PostData    told to sinks; a file takes none
    /// @return the code of ERROR_CANCELLED if a sink has cancelled it, E_INVALIDARG without an address, or
    ///         why no browser can be started
    STDMETHODIMP Navigate(BSTR URL, VARIANT* Flags, VARIANT* TargetFrameName, VARIANT* PostData,
                          VARIANT* Headers) override;
    STDMETHODIMP Refresh() override { return Refresh2(nullptr); }
    /// @param Level  REFRESH_ value; REFRESH_NORMAL for null. Sinks are told DownloadBegin and
    ///               DownloadComplete, as of the platform's control.
    STDMETHODIMP Refresh2(VARIANT* Level) override;
    STDMETHODIMP Stop() override;
    STDMETHODIMP get_Application(IDispatch** ppDisp) override;
    /// The container, if it has automation.
    STDMETHODIMP get_Parent(IDispatch** ppDisp) override;
    STDMETHODIMP get_Container(IDispatch** ppDisp) override;
    /// Null before the first navigation.
    STDMETHODIMP get_Document(IDispatch** ppDisp) override;
    STDMETHODIMP get_TopLevelContainer(VARIANT_BOOL* pBool) override;
    STDMETHODIMP get_Type(BSTR* Type) override;
    /// Pixels of the container's window, here and of the next.
    STDMETHODIMP get_Left(LONG* pl) override;
    STDMETHODIMP put_Left(LONG Left) override;
    STDMETHODIMP get_Top(LONG* pl) override;
    STDMETHODIMP put_Top(LONG Top) override;
    STDMETHODIMP get_Width(LONG* pl) override;
    STDMETHODIMP put_Width(LONG Width) override;
    STDMETHODIMP get_Height(LONG* pl) override;
    STDMETHODIMP put_Height(LONG Height) override;
    /// The title, or the address of a document without one.
    STDMETHODIMP get_LocationName(BSTR* LocationName) override;
    /// Empty before the first document is there.
    STDMETHODIMP get_LocationURL(BSTR* LocationURL) override;
    STDMETHODIMP get_Busy(VARIANT_BOOL* pBool) override;

    // IWebBrowserApp

    /// A container's control ends with it: E_FAIL.
    STDMETHODIMP Quit() override;
    STDMETHODIMP ClientToWindow(int*, int*) override { return NotOffered(); }
    STDMETHODIMP PutProperty(BSTR Property, VARIANT vtValue) override;
    /// Empty for a property that nobody has put.
    STDMETHODIMP GetProperty(BSTR Property, VARIANT* pvtValue) override;
    STDMETHODIMP get_Name(BSTR* Name) override;
    /// The control's window; E_FAIL while there is none.
    STDMETHODIMP get_HWND(SHANDLE_PTR* pHWND) override;
    /// Of the program that the control is in.
    STDMETHODIMP get_FullName(BSTR* FullName) override;
    STDMETHODIMP get_Path(BSTR* Path) override;
    STDMETHODIMP get_Visible(VARIANT_BOOL* pBool) override { return Read(visible_, pBool); }
    STDMETHODIMP put_Visible(VARIANT_BOOL Value) override;
    // Parts of a frame, which is the container's affair: it is told of them, and they are kept for it.
    STDMETHODIMP get_StatusBar(VARIANT_BOOL* pBool) override { return Read(statusBar_, pBool); }
    STDMETHODIMP put_StatusBar(VARIANT_BOOL Value) override;
    STDMETHODIMP get_StatusText(BSTR* StatusText) override;
    STDMETHODIMP put_StatusText(BSTR StatusText) override;
    STDMETHODIMP get_ToolBar(int* Value) override;
    STDMETHODIMP put_ToolBar(int Value) override;
    STDMETHODIMP get_MenuBar(VARIANT_BOOL* Value) override { return Read(menuBar_, Value); }
    STDMETHODIMP put_MenuBar(VARIANT_BOOL Value) override;
    STDMETHODIMP get_FullScreen(VARIANT_BOOL* pbFullScreen) override {
        return Read(fullScreen_, pbFullScreen);
    }
    STDMETHODIMP put_FullScreen(VARIANT_BOOL bFullScreen) override;

    // IWebBrowser2

    STDMETHODIMP Navigate2(VARIANT* URL, VARIANT* Flags, VARIANT* TargetFrameName, VARIANT* PostData,
                           VARIANT* Headers) override;
    STDMETHODIMP QueryStatusWB(OLECMDID cmdID, OLECMDF* pcmdf) override;
    STDMETHODIMP ExecWB(OLECMDID cmdID, OLECMDEXECOPT cmdexecopt, VARIANT* pvaIn, VARIANT* pvaOut) override;
    STDMETHODIMP ShowBrowserBar(VARIANT*, VARIANT*, VARIANT*) override { return NotOffered(); }
    STDMETHODIMP get_ReadyState(READYSTATE* plReadyState) override;
    /// Always true, as there is no network; S_FALSE for the wish to change that.
    STDMETHODIMP get_Offline(VARIANT_BOOL* pbOffline) override;
    STDMETHODIMP put_Offline(VARIANT_BOOL bOffline) override { return bOffline ? S_OK : S_FALSE; }
    /// Whether pages' questions are answered without the user: an alert is read, all else is denied.
    STDMETHODIMP get_Silent(VARIANT_BOOL* pbSilent) override { return Read(silent_, pbSilent); }
    STDMETHODIMP put_Silent(VARIANT_BOOL bSilent) override { return Keep(silent_, bSilent); }
    // Kept; nothing here depends on them.
    STDMETHODIMP get_RegisterAsBrowser(VARIANT_BOOL* value) override { return Read(isBrowser_, value); }
    STDMETHODIMP put_RegisterAsBrowser(VARIANT_BOOL value) override { return Keep(isBrowser_, value); }
    STDMETHODIMP get_RegisterAsDropTarget(VARIANT_BOOL* value) override { return Read(isDropTarget_, value); }
    STDMETHODIMP put_RegisterAsDropTarget(VARIANT_BOOL value) override { return Keep(isDropTarget_, value); }
    STDMETHODIMP get_TheaterMode(VARIANT_BOOL* value) override { return Read(theaterMode_, value); }
    STDMETHODIMP put_TheaterMode(VARIANT_BOOL value) override;
    STDMETHODIMP get_AddressBar(VARIANT_BOOL* Value) override { return Read(addressBar_, Value); }
    STDMETHODIMP put_AddressBar(VARIANT_BOOL Value) override;
    STDMETHODIMP get_Resizable(VARIANT_BOOL*) override { return NotOffered(); }
    STDMETHODIMP put_Resizable(VARIANT_BOOL) override { return NotOffered(); }

    // IOleCommandTarget, of the standard group. WebBrowserCommands.cpp
    STDMETHODIMP QueryStatus(const GUID* group, ULONG count, OLECMD* commands, OLECMDTEXT* text) override;
    STDMETHODIMP Exec(const GUID* group, DWORD command, DWORD option, VARIANT* in, VARIANT* out) override;

    // IServiceProvider: its own interfaces as the browser of a page, and what its site provides.
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override;

    // IObjectWithSite, for containers that are no containers of controls
    STDMETHODIMP SetSite(IUnknown* site) override;
    STDMETHODIMP GetSite(REFIID iid, void** site) override;

    // Of the embedding, where a browser has its own way. WebBrowser.cpp
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT bounds) override;
    STDMETHODIMP GetClassInfo(ITypeInfo** typeInfo) override;
    STDMETHODIMP GetViewStatus(DWORD* status) override;
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target,
                      HDC draw, LPCRECTL bounds, LPCRECTL windowBounds,
                      BOOL(STDMETHODCALLTYPE* mayContinue)(ULONG_PTR), ULONG_PTR context) override;
    STDMETHODIMP FreezeEvents(BOOL freeze) override;
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL activate) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;

protected:
    void* FindInterface(REFIID iid) noexcept;
    void OnLastRelease() noexcept;

private:
    /// Holds the control for as long as others are called, which may let go of it.
    ComPtr<IOleObject> Held() noexcept { return ComPtr<IOleObject>(this); }
    IDispatch* Self() noexcept { return static_cast<IWebBrowser2*>(this); }
    DocumentHost Host() const noexcept;
    HRESULT NotOffered() noexcept;

    /// The page, opened if there is none. Throws why it can't be, and shows that.
    std::shared_ptr<Page> OpenedPage();
    void ClosePage() noexcept;
    /// @param reason  why there is no page, for the window
    void ShowNotice(const std::wstring& reason);
    void Begin(const std::wstring& address);
    HRESULT NavigateTo(const std::wstring& address, const VARIANT* flags, const VARIANT* frame,
                       const VARIANT* post, const VARIANT* headers);
    bool NavigateFrame(const std::wstring& frame, const std::wstring& address);
    void OpenWindow(const std::wstring& address);
    void EndDownload();
    void BeginDownload();

    RECT Bounds() const noexcept;
    HRESULT Measure(LONG value, LONG* target) const noexcept;
    HRESULT MoveTo(const RECT& bounds) noexcept;
    HRESULT Read(VARIANT_BOOL kept, VARIANT_BOOL* value) noexcept;
    HRESULT Keep(VARIANT_BOOL& kept, VARIANT_BOOL value) noexcept;
    HRESULT KeepAndTell(VARIANT_BOOL& kept, VARIANT_BOOL value, DISPID event) noexcept;
    HRESULT GiveText(const std::wstring& text, BSTR* target);

    /// OLECMDF_ flags of a standard command; 0 for one that isn't offered.
    DWORD StateOf(DWORD command) const noexcept;
    bool TakesAccelerator(const MSG& message);
    void MoveFocus(bool forward);
    void ShowMenu(POINT at);
    PageDialogAnswer AskUser(const PageDialog& question);

    // Its window
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    // WebBrowserInput.cpp
    void OnKey(UINT message, WPARAM wParam, LPARAM lParam);
    void OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void OnFocus(bool focused);
    void CloseList() noexcept;
    void ListEnded(int entry);

    void UpdateBorder() noexcept;
    PixelSize ViewSize() const noexcept;

    // OleControl
    void OnSiteChanged() noexcept override;
    void OnUserInterface(bool active) noexcept override;

    // BrowserEvents
    std::vector<ComPtr<IUnknown>> EventSinks(REFIID iid) const override { return Sinks(iid); }

    // PageListener
    bool Navigating(const std::wstring& address, bool isTop) override;
    void Navigated(const std::wstring& address, bool isTop) override;
    void Loaded(const std::wstring& address, bool isTop) override;
    void NavigationFailed(const std::wstring& address, bool isTop, HRESULT status) override;
    void ReadyStateChanged(ReadyState state) override;
    void TitleChanged(const std::wstring& title) override;
    void StatusChanged(const std::wstring& status) override;
    void HistoryChanged() override;
    void NewWindow(const std::wstring& address) override;
    void CloseRequested() override;
    PageDialogAnswer Asked(const PageDialog& question) override;
    ComPtr<IDispatch> External() override;
    bool MayMakeObjects(const std::wstring& address) override;
    ComPtr<IDispatch> MakeObject(const PageReference& reference) override;
    void Painted(const std::shared_ptr<const Picture>& picture) override;
    void CursorChanged(HCURSOR cursor) override;
    void ToolTipChanged(const std::wstring& text) override;
    void TabbedOut(bool forward) override;
    void ContextMenu(POINT at, const PageReference& element) override;
    void ListOpened(const PageList& list) override;
    void Copied(const std::wstring& text) override;
    void Lost(PageLoss loss) override;

    IDispatch* FrameOf(const std::wstring& address);

    const PageOpener openPage_;
    std::shared_ptr<Page> page_;
    const ComPtr<ComObject<BrowserLink>> link_;
    PageView view_;
    ListWindow list_{static_cast<IOleObject&>(*this), [this](int entry) { ListEnded(entry); }};
    PageReference listElement_;  ///< whose list is open
    bool isKeyOfList_ = false;   ///< the last key went down for it
    HCURSOR cursor_;
    ComPtr<IUnknown> objectSite_;
    /// Of the host's last navigation that a sink let pass, for loading again: what a page begins itself opens
    /// no folder, and loading again does.
    std::wstring address_;
    /// What stands for the frames that are being loaded, by address.
    std::map<std::wstring, ComPtr<IDispatch>> frames_;
    unsigned closings_ = 0;     ///< of the page: sinks may close it while they are told
    bool hasDocument_ = false;  ///< a navigation has come to a document
    bool isLost_ = false;
    bool isAnnounced_ = false;    ///< sinks have been asked for the document that comes next
    bool isRefreshing_ = false;   ///< the document that comes next is the same again
    bool isDownloading_ = false;  ///< between DownloadBegin and DownloadComplete
    bool isTracking_ = false;     ///< WM_MOUSELEAVE is asked for
    std::wstring statusText_;
    std::map<std::wstring, Variant> properties_;
    VARIANT_BOOL visible_ = VARIANT_TRUE;
    VARIANT_BOOL statusBar_ = VARIANT_TRUE;
    VARIANT_BOOL toolBar_ = VARIANT_TRUE;
    VARIANT_BOOL menuBar_ = VARIANT_TRUE;
    VARIANT_BOOL addressBar_ = VARIANT_TRUE;
    VARIANT_BOOL fullScreen_ = VARIANT_FALSE;
    VARIANT_BOOL theaterMode_ = VARIANT_FALSE;
    VARIANT_BOOL silent_ = VARIANT_FALSE;
    VARIANT_BOOL isBrowser_ = VARIANT_FALSE;
    VARIANT_BOOL isDropTarget_ = VARIANT_FALSE;
};

}  // namespace nux::webbrowser
