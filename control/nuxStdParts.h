#pragma once

#include <string>

#include "Inux3D.h"
#include "control/BrowserEventSink.h"
#include "control/OleControl.h"
#include "control/nuxDataManager.h"
#include "framework/ComObject.h"
#include "framework/Dispatch.h"
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
    /// S_FALSE and null when there is none.
    STDMETHODIMP get_EditedComponent(IDispatch** pVal) override;
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

    // Operations that this version does not offer yet: E_NOTIMPL, with every out argument left as it is.

    STDMETHODIMP SetEditedComponent(VARIANT, long) override { return NotOffered(); }
    STDMETHODIMP Navigate(BSTR) override { return NotOffered(); }
    STDMETHODIMP get_CatalogID(BSTR*) override { return NotOffered(); }
    STDMETHODIMP get_ComponentID(BSTR*) override { return NotOffered(); }
    STDMETHODIMP SetStatusMessage(BSTR) override { return NotOffered(); }
    STDMETHODIMP CreateProgressBar() override { return NotOffered(); }
    STDMETHODIMP DestroyProgressBar() override { return NotOffered(); }
    STDMETHODIMP UpdateProgressBar(long) override { return NotOffered(); }
    STDMETHODIMP ExecuteFileInShell(BSTR) override { return NotOffered(); }
    STDMETHODIMP GetSaveFileName(BSTR, BSTR, BSTR, BSTR, BSTR*) override { return NotOffered(); }
    STDMETHODIMP NewComponent(long, long*) override { return NotOffered(); }
    STDMETHODIMP GetComponent(BSTR, BSTR) override { return NotOffered(); }
    STDMETHODIMP get_WebBrowser(IDispatch**) override { return NotOffered(); }
    STDMETHODIMP MessageBox(BSTR, BSTR, long, long*) override { return NotOffered(); }
    STDMETHODIMP AttachBrowser(IDispatch*) override { return NotOffered(); }
    STDMETHODIMP put_StatusBar(IDispatch*) override { return NotOffered(); }
    STDMETHODIMP UnLoadStatusBar() override { return NotOffered(); }
    STDMETHODIMP TRNVExportDlg(long, BSTR*) override { return NotOffered(); }
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

private:
    HRESULT GetText(const std::string& text, BSTR* pVal) noexcept;
    HRESULT PutText(std::string& text, BSTR newVal) noexcept;
    HRESULT NotOffered() noexcept;
    /// The 3D side. Raises E_FAIL if there is none or it is another kind of object.
    ComPtr<Inux3D> Host3DOrFail() const;

    // Two styles of names meet in the automation classes. State that a client of the object can tell, or that
    // is told of under this name in documents for hosts, is m_ and the capital word by which they know it.
    // All else, as in all other classes, has the underscore behind.
    ComPtr<InuxEditedComponent> m_EditedComponent;
    std::string m_CatalogPath;
    std::string m_DataPath;
    std::string m_GUIPath;
    std::string m_CustomDimsPath;
    std::string m_UserData;
    long m_DebugSessionStatus = 0;
    Variant m_GlobalData;
    DWORD m_ActiveObjectCookie = 0;
    ComPtr<InuxDataManager> m_DataManager;
    long m_Initialised = 0;
    ComPtr<IDispatch> m_3D;
    ComPtr<IDispatch> m_ExternalDispatch;
    ComPtr<IDispatch> m_LifterWizard;
    HWND m_HostHWND = nullptr;
    std::string m_LastRVCCmdResult;
    BrowserEventSink browserEvents_{static_cast<InuxStdParts&>(*this)};
};

}  // namespace nux
