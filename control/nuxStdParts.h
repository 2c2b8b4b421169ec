#pragma once

#include <string>

#include "Inux3D.h"
#include "control/BrowserEventSink.h"
#include "control/OleControl.h"
#include "control/nuxDataManager.h"
#include "framework/Automation.h"
#include "framework/ComObject.h"
#include "framework/TypeLibrary.h"
#include "nuxStdPartsAX.h"

namespace nux {

/// The automation object: a control without a surface of its own, created by the host and called by the host
/// and by the scripts of wizard pages. All calls come on the thread of its apartment.
///
/// Use it in this order, which nothing enforces: set `nux3D`, SetExternalDispatch, SetTRNVPaths, then the
/// rest. Strings are narrow inside, in the thread's ANSI code page. Out strings and values replace the
/// caller's, which must be initialised. Unless told otherwise an operation returns S_OK, E_INVALIDARG for a
/// null out pointer, and E_OUTOFMEMORY when memory runs out.
class nuxStdParts : public Dispatch<InuxStdParts, &IID_InuxStdParts>, public OleControl {
public:
    nuxStdParts();

    // The host and the object's own state: nuxStdParts.cpp

    /// Takes the host object and tells the 3D side of it.
    /// @param pDisp  object with the property MainWindowHWND (VT_I4); the parent of all modal HTML dialogs
    /// @return E_INVALIDARG for null, which clears the old object; E_FAIL without a 3D side that is ready,
    ///         with the new object kept and `Initialised` set
    STDMETHODIMP SetExternalDispatch(IDispatch* pDisp) override;
    /// S_FALSE and null when there is none.
    STDMETHODIMP get_nux3D(IDispatch** pVal) override;
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
    /// `nux3D` must be set before.
    /// @return E_FAIL if the environment did not start; the paths are set then too
    STDMETHODIMP SetTRNVPaths(BSTR CatalogPath, BSTR DataPath, BSTR GUIPath, BSTR CustomDimsPath) override;
    /// The document of a catalogue's "Catalog.xml", shared with all who ask for it. E_FAIL if there is none.
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

    /// Appends the text to the log behind a stamp of date and time. Does nothing without a log file.
    STDMETHODIMP WriteDebugString(BSTR DebugString) override;
    STDMETHODIMP get_DebugSessionStatus(long* pVal) override;
    /// A nonzero value sets the log file beside the installation unless one is set; 0 leaves it on.
    STDMETHODIMP put_DebugSessionStatus(long newVal) override;
    /// Sets the log file; an empty text leaves it and only clears the flag that DebugSessionStatus reads.
    STDMETHODIMP put_DebugSessionStatusAndLogFile(BSTR newVal) override;
    /// Replaces a file by the narrowed text. E_FAIL if it can't be written whole.
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

    // Operations that this version does not offer yet.

    STDMETHODIMP SetEditedComponent(VARIANT, long) override { return E_NOTIMPL; }
    STDMETHODIMP Navigate(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_CatalogID(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_ComponentID(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusMessage(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP CreateProgressBar() override { return E_NOTIMPL; }
    STDMETHODIMP DestroyProgressBar() override { return E_NOTIMPL; }
    STDMETHODIMP UpdateProgressBar(long) override { return E_NOTIMPL; }
    STDMETHODIMP ExecuteFileInShell(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP GetSaveFileName(BSTR, BSTR, BSTR, BSTR, BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP NewComponent(long, long*) override { return E_NOTIMPL; }
    STDMETHODIMP GetComponent(BSTR, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_WebBrowser(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP MessageBox(BSTR, BSTR, long, long*) override { return E_NOTIMPL; }
    STDMETHODIMP AttachBrowser(IDispatch*) override { return E_NOTIMPL; }
    STDMETHODIMP put_StatusBar(IDispatch*) override { return E_NOTIMPL; }
    STDMETHODIMP UnLoadStatusBar() override { return E_NOTIMPL; }
    STDMETHODIMP TRNVExportDlg(long, BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP MessageBoxHTML(BSTR, BSTR, long, VARIANT_BOOL, long, long, long*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ShowHTMLModelessDialog(BSTR, BSTR, long, long, long, long, VARIANT, IDispatch**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP ShowHTMLModalDialog(BSTR, BSTR, long, long, long, long, VARIANT, VARIANT*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP DeleteClosedModelessIEDlgs() override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept;
    /// Lets go of all that belongs to others, clears the log file and empties the document cache. Here and
    /// not in the destructor, since a host that is let go of may still call in.
    void OnLastRelease() noexcept;

private:
    ComPtr<InuxEditedComponent> m_EditedComponent;
    std::string m_CatalogPath;
    std::string m_DataPath;
    std::string m_GUIPath;
    std::string m_CustomDimsPath;
    std::string m_UserData;
    long m_DebugSessionStatus = 0;
    Variant m_GlobalData;
    DWORD m_ActiveObjectCookie = 0;
    ComPtr<nuxDataManager> m_DataManager;
    long m_Initialised = 0;
    ComPtr<IDispatch> m_3D;
    ComPtr<IDispatch> m_ExternalDispatch;
    ComPtr<IDispatch> m_LifterWizard;
    HWND m_HostHWND = nullptr;
    std::string m_LastRVCCmdResult;
    BrowserEventSink browserEvents_{static_cast<InuxStdParts&>(*this)};
};

}  // namespace nux
