#pragma once

#include <exdisp.h>
#include <msxml2.h>

#include <array>
#include <span>
#include <string>

#include "Inux3D.h"
#include "control/BrowserEventSink.h"
#include "control/nuxDataManager.h"
#include "framework/ComObject.h"
#include "framework/Dispatch.h"
#include "framework/OleControl.h"
#include "framework/Variant.h"
#include "nuxStdPartsAX.h"

namespace nux {

/// The automation object: a control without a surface of its own, created by the host and called by the host
/// and by the scripts of wizard pages. All calls come on the thread of its apartment.
///
/// Use it in this order, which nothing enforces: set `nux3D`, SetExternalDispatch, SetTRNVPaths, then the
/// rest. Strings are narrow inside, in the thread's ANSI code page. Out strings and values replace the
/// caller's, which must be initialised. Unless told otherwise an operation returns S_OK, E_INVALIDARG for a
/// null out pointer, and E_OUTOFMEMORY when memory runs out. An operation that fails says why in the thread's
/// error object, in English: scripts read it as `message` or `Err.Description`.
///
/// What is read when: a catalogue, a standard dimension file and a document of GetXMLDocument at the first
/// call that asks for them, and anew only once an object of this class has gone, whichever; a user's
/// dimension file at each call; the messages of a catalogue once for the life of the process, and where their
/// file was missing or broken they stay untranslated for as long, whatever the paths or the language become.
class nuxStdParts : public Dispatch<InuxStdParts>, public OleControl {
public:
    nuxStdParts();

    // The host and the object's own state: nuxStdParts.cpp

    /// Takes the host object and tells the 3D side of it.
    /// @param pDisp  object with the property MainWindowHWND (VT_I4); the parent of all modal HTML dialogs
    /// @return E_INVALIDARG for null, which clears the old object; E_FAIL without a 3D side that is ready,
    ///         with the new object kept and `Initialised` set
    STDMETHODIMP SetExternalDispatch(IDispatch* pDisp) override;
    // The 3D side is what SetExternalDispatch and the wizards call. One that is set before SetTRNVPaths is
    // also asked for the folder of each catalogue, where the catalogue's own translations lie. Without one
    // that folder is taken to be the root of the catalogues: all else works, and those translations are not
    // found.

    /// S_FALSE and null when there is none.
    STDMETHODIMP get_nux3D(IDispatch** pVal) override;
    /// Null lets go of the old one. Another than before is asked for folders only from the next SetTRNVPaths
    /// on.
    STDMETHODIMP put_nux3D(IDispatch* newVal) override;
    /// A note for scripts, 0 or 1; nothing here reads it.
    STDMETHODIMP get_Initialised(long* pVal) override;
    /// E_INVALIDARG for a value that is neither 0 nor 1.
    STDMETHODIMP put_Initialised(long newVal) override;
    /// S_OK with the caller's string untouched: scripts rely on finding there what they passed in.
    STDMETHODIMP get_Version(BSTR* Version) override;
    STDMETHODIMP get_DataManager(IDispatch** pVal) override;
    /// Does nothing.
    STDMETHODIMP AssertFail() override { return S_OK; }

    // Installation paths and documents: InstallationServices.cpp

    /// Takes the four paths as they stand, each with its closing separator, and starts the environment.
    /// @return E_FAIL if the environment did not start; the paths are set then too
    STDMETHODIMP SetTRNVPaths(BSTR CatalogPath, BSTR DataPath, BSTR GUIPath, BSTR CustomDimsPath) override;
    /// The document of a catalogue's "Catalog.xml", shared with all who ask for it. E_FAIL if there is none.
    /// It is looked for below the path that SetTRNVPaths was given; the host is not asked.
    STDMETHODIMP GetComponentsDocument(BSTR CatalogID, IDispatch** Document) override;
    /// Root element of a component's standard dimension file. E_FAIL if the file can't be loaded; S_OK and
    /// null for a document without a root.
    STDMETHODIMP GetStdDimensionNode(BSTR CatalogID, BSTR ComponentID, IDispatch** Node) override;
    /// The same for the user's dimension file, which is read afresh at each call.
    STDMETHODIMP GetUsrDimensionNode(BSTR CatalogID, BSTR ComponentID, IDispatch** Node) override;
    /// The document of a URL. E_FAIL if there is none.
    STDMETHODIMP GetXMLDocument(BSTR XMLFilePath, IDispatch** XMLDoc) override;
    /// The interface language, empty for none. E_FAIL for a null pointer.
    STDMETHODIMP GetInterfaceLanguage(BSTR* Language) override;
    /// A message in the interface language, or its ID if it has no translation. E_FAIL for a null pointer.
    STDMETHODIMP GetLocalizedString(BSTR CatalogID, BSTR MsgID, BSTR* MsgStr) override;

    // Services for scripts: ScriptServices.cpp

    /// Appends the text to the log behind a stamp of date and time. Does nothing without a log file. A log
    /// file that can't be opened ends the process, with exit code -1, at its first entry: a run that is to be
    /// watched does not go on unwatched.
    STDMETHODIMP WriteDebugString(BSTR DebugString) override;
    STDMETHODIMP get_DebugSessionStatus(long* pVal) override;
    /// A nonzero value sets the log file unless one is set: "brask_log" four levels above the folder of the
    /// wizard pages, where the user must be allowed to write. 0 leaves the log on.
    STDMETHODIMP put_DebugSessionStatus(long newVal) override;
    /// Sets the log file; an empty text leaves it and only clears the flag that DebugSessionStatus reads.
    STDMETHODIMP put_DebugSessionStatusAndLogFile(BSTR newVal) override;
    /// Replaces a file by the text in the thread's ANSI code page. Characters that the code page lacks become
    /// question marks or look-alikes, with success: a page that writes XML writes them as character
    /// references. E_FAIL if the file can't be written whole.
    STDMETHODIMP SaveFile(BSTR FileName, BSTR Data) override;
    STDMETHODIMP get_UserData(BSTR* pVal) override;
    STDMETHODIMP put_UserData(BSTR newVal) override;
    STDMETHODIMP get_LastRVCCmdResult(BSTR* pVal) override;
    STDMETHODIMP put_LastRVCCmdResult(BSTR newVal) override;
    STDMETHODIMP get_GlobalData(VARIANT* pVal) override;
    /// Keeps a copy, of a reference to a variable a copy of its value. A value that can't be copied leaves
    /// VT_ERROR with the failure, which is also returned.
    STDMETHODIMP put_GlobalData(VARIANT newVal) override;
    /// A script's array as VT_ARRAY | VT_VARIANT from index 0. E_INVALIDARG for null or an object without a
    /// whole number as length, E_FAIL if an element is missing.
    STDMETHODIMP JSArray2SafeArray(IDispatch* JSArray, VARIANT* SafeArray) override;
    /// Forwarded to the 3D side, whose result is returned. E_FAIL without one.
    STDMETHODIMP RunDieWizard(long Mode) override;
    STDMETHODIMP CreateDieBlock() override;
    /// Forwarded; S_OK whatever the 3D side answers. E_FAIL without one.
    STDMETHODIMP RunSlideWizard() override;
    /// The host's lifter wizard, made at the first call. S_FALSE and null if it can't be made.
    STDMETHODIMP get_LifterWizard(IDispatch** pVal) override;

    // Choice of a size: DimensionServices.cpp

    /// Lets the user pick one size of a component in a modal dialog over the active window.
    /// @param CatalogID         catalogue whose messages translate the texts; with ComponentID what
    ///                          layout and filters are remembered by; "Default" for an empty one
    /// @param NamesDisp         IXMLDOMNodeList with one node for each dimension: name and caption
    /// @param DefaultValuesVar  IXMLDOMNode whose children have the values of the row that is selected first
    /// @param StdDimensionVar   IXMLDOMNodeList of the standard rows
    /// @param UsrDimensionVar   IXMLDOMNodeList of the user's rows. Of these three, what is no VT_DISPATCH
    ///                          stands for none; so does a reference to a variable, as VBScript passes one
    /// @param ChosenDimensions  may be null; receives the chosen row as IXMLDOMNode or null after OK, and
    ///                          stays as it is after Cancel
    /// @return E_INVALIDARG, without a dialog, for names that are null or an object that lacks its interface
    STDMETHODIMP ChooseDimensions(BSTR CatalogID, BSTR ComponentID, IDispatch* NamesDisp,
                                  VARIANT DefaultValuesVar, VARIANT StdDimensionVar, VARIANT UsrDimensionVar,
                                  IDispatch** ChosenDimensions) override;

    // The host's browser, the control's window, the status bar: BrowserServices.cpp

    /// Takes the browser in which pages are shown. Nothing is navigated.
    /// @param Browser  one reference on it is kept for the life of the process
    /// @return what its query for IWebBrowser2 returned; E_INVALIDARG for null. The old browser is gone
    /// either way
    STDMETHODIMP AttachBrowser(IDispatch* Browser) override;
    /// S_FALSE and null when there is none.
    STDMETHODIMP get_WebBrowser(IDispatch** pVal) override;
    /// Closes the edited component and opens a page. A file that is missing is told to the user; without a
    /// browser nothing is opened. S_OK in any case.
    STDMETHODIMP Navigate(BSTR url) override;
    /// Takes the status bar: an object with SetMessage, SetProgress, CreateProgressBar, DestroyProgressBar.
    /// @return E_FAIL if it lacks one; then there is none
    STDMETHODIMP put_StatusBar(IDispatch* newVal) override;
    STDMETHODIMP UnLoadStatusBar() override;
    // Forwarded to the status bar, whose result is returned. S_FALSE without one.
    STDMETHODIMP SetStatusMessage(BSTR Message) override;
    STDMETHODIMP CreateProgressBar() override;
    STDMETHODIMP DestroyProgressBar() override;
    STDMETHODIMP UpdateProgressBar(long Position) override;

    // The current component: ComponentServices.cpp

    /// Takes the component of the model that is being edited. CatalogID and ComponentID stay as they are.
    /// @param EditedComponent  VT_DISPATCH with an InuxEditedComponent; anything else drops the current
    ///                         component and opens the default page, also a reference to a variable, as
    ///                         VBScript passes one
    /// @param fReload          0 to keep the object only; otherwise its part is found and its page opened
    /// @return E_INVALIDARG for an object of another kind; E_FAIL, after the user was told, if part or page
    /// are missing
    STDMETHODIMP SetEditedComponent(VARIANT EditedComponent, long fReload) override;
    /// Makes a part of a catalogue the current component; its page is the caller's to open.
    /// @return S_OK also if there is none: the user was told, and CatalogID and ComponentID stay as they were
    STDMETHODIMP GetComponent(BSTR CatalogID, BSTR ComponentID) override;
    /// S_FALSE and null when there is none.
    STDMETHODIMP get_EditedComponent(IDispatch** pVal) override;
    STDMETHODIMP get_CatalogID(BSTR* pVal) override;
    STDMETHODIMP get_ComponentID(BSTR* pVal) override;

    // Files and their applications, file names, export: HostServices.cpp

    /// Opens a file with its application. E_FAIL if nothing could be started.
    STDMETHODIMP ExecuteFileInShell(BSTR FileName) override;
    /// Asks for the name of a file to save, over the control's window.
    /// @param Filter    pairs of a description and patterns, all joined with "|": "IGES|*.igs"
    /// @param FileName  receives the path, or an empty text if the user cancels. E_FAIL for null
    STDMETHODIMP GetSaveFileName(BSTR Title, BSTR Filter, BSTR DefFileName, BSTR DefExtension,
                                 BSTR* FileName) override;
    /// Asks where a moldbase is to be exported, over the host's window; nothing is made there.
    /// @param fSingleFile  0 asks for a folder and gives its "Moldbase" subfolder, otherwise for an IGES file
    /// @param ExportPath   receives the path, or an empty text if the user cancels
    /// @return E_FAIL if the host's main object can't be reached
    STDMETHODIMP TRNVExportDlg(long fSingleFile, BSTR* ExportPath) override;

    // Operations that this version does not offer yet: E_NOTIMPL, with every out argument left as it is.

    STDMETHODIMP NewComponent(long, long*) override { return NotOffered(); }
    STDMETHODIMP MessageBox(BSTR, BSTR, long, long*) override { return NotOffered(); }
    STDMETHODIMP MessageBoxHTML(BSTR, BSTR, long, VARIANT_BOOL, long, long, long*) override {
        return NotOffered();
    }
    STDMETHODIMP ShowHTMLModelessDialog(BSTR, BSTR, long, long, long, long, VARIANT, IDispatch**) override {
        return NotOffered();
    }
    STDMETHODIMP ShowHTMLModalDialog(BSTR, BSTR, long, long, long, long, VARIANT, VARIANT*) override {
        return NotOffered();
    }
    STDMETHODIMP DeleteClosedModelessIEDlgs() override { return NotOffered(); }

protected:
    void* FindInterface(REFIID iid) noexcept;
    /// Lets go of all that belongs to others, clears the log file and empties the document cache. Here and
    /// not in the destructor, since a host that is let go of may still call in.
    void OnLastRelease() noexcept;
    /// Safe for scripts and data, but in a document that is no file of the installation: there nothing is.
    DWORD SupportedSafety() const override;

private:
    /// The commands of the control's window, sent by the host.
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// Tells the user of a failure; the text is localised from the common messages.
    void ShowError(const char* messageId);
    /// Tells the edited component that it is none any more, and lets go of it.
    void CloseEditedComponent() noexcept;
    void LoadDefaultPage();
    void LoadWizardPage();
    /// Calls a global function of the current page. E_FAIL if there is no page or no such function, else its
    /// result.
    HRESULT CallPageScript(const wchar_t* name, std::span<const Variant> arguments = {},
                           Variant* result = nullptr);
    /// Tells the user, shows the default page, and raises E_FAIL.
    [[noreturn]] void FailEditedComponent(const char* messageId);
    /// Finds the component's part and opens its page.
    void OpenEditedComponent(const ComPtr<InuxEditedComponent>& edited);
    void LoadComponent(std::string catalogId, std::string componentId);
    /// The object of the host that has its main window. Raises E_FAIL if it can't be reached.
    ComPtr<IDispatch> MainObjectOfHost() const;

    enum StatusBarMember {
        setMessage,
        setProgress,
        createProgressBar,
        destroyProgressBar,
        statusBarMemberCount
    };
    HRESULT CallStatusBar(StatusBarMember member, std::span<const Variant> arguments = {});

    HRESULT GetText(const std::string& text, BSTR* pVal) noexcept;
    HRESULT PutText(std::string& text, BSTR newVal) noexcept;
    HRESULT NotOffered() noexcept;
    /// The 3D side. Raises E_FAIL if there is none or it is another kind of object.
    ComPtr<Inux3D> Host3DOrFail() const;

    // Two styles of names meet in the automation classes. State that a client of the object can tell, or that
    // is told of under this name in documents for hosts, is m_ and the capital word by which they know it.
    // All else, as in all other classes, has the underscore behind.
    long m_CommandFlag = 0;  ///< for the host's 3D side; nothing here ever changes it
    ComPtr<IWebBrowser2> m_Browser;
    long m_ComponentState = 0;
    ComPtr<IXMLDOMNode> m_ComponentNode;
    ComPtr<InuxEditedComponent> m_EditedComponent;
    std::string m_CatalogID;
    std::string m_ComponentID;
    std::string m_CatalogPath;
    std::string m_DataPath;
    std::string m_GUIPath;
    std::string m_CustomDimsPath;
    std::string m_PendingURL;  ///< of the last Navigate without a browser
    std::string m_UserData;
    long m_DebugSessionStatus = 0;
    Variant m_GlobalData;
    DWORD m_ActiveObjectCookie = 0;
    ComPtr<InuxDataManager> m_DataManager;
    long m_Initialised = 0;
    ComPtr<IDispatch> m_3D;
    ComPtr<IDispatch> m_ExternalDispatch;
    ComPtr<IDispatch> m_LifterWizard;
    ComPtr<IDispatch> m_StatusBar;
    std::array<DISPID, statusBarMemberCount> StatusBarDispIDs{};
    HWND m_BrowserHWND = nullptr;
    HWND m_HostHWND = nullptr;
    std::string m_LastRVCCmdResult;
    BrowserEventSink browserEvents_{static_cast<InuxStdParts&>(*this)};
};

}  // namespace nux
