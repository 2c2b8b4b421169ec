// No exception leaves the component. Each allocation that an operation makes is made to fail in turn: the
// operation returns a code, and works when it is called again.

#include <windows.h>

#include <commdlg.h>
#include <gtest/gtest.h>
#include <ocidl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <functional>
#include <thread>
#include <utility>

#include "environment/Registry.h"
#include "tests/control/ControlSinks.h"
#include "tests/control/ControlSite.h"
#include "tests/control/HostedComponent.h"
#include "tests/control/LifterWizardClass.h"
#include "tests/support/FailingAllocations.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"
#include "tests/support/ModuleFunctions.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

using host::Call;
using Extent = FailingAllocations::Extent;
using host::Call;

class AllocationFailure : public HostedTest {
protected:
    void SetUp() override {
        HostedTest::SetUp();
        folder.Write("catalogs\\BOLTS\\StdDimensions\\M8.xml", "<Dims/>");
        folder.Write("custom\\catalogs\\BOLTS\\UsrDimensions\\M8.xml", "<Dims/>");
        folder.MakeFolder("locale\\English");
        parts->put_nux3D(static_cast<Inux3D*>(side.Get()));
        host->SetNumber(L"MainWindowHWND", 5);
        ASSERT_EQ(S_OK, UseInstallation());
        ASSERT_GE(failing.Replaced(), 9u);
    }

    /// Runs an operation with its 1st, 2nd, 3rd ... allocation failing, until it makes no further one.
    /// @param prepare  brings the operation to where it starts; nothing fails in it
    /// @param call     the operation; its code
    /// @param verify   looks at what a call that has worked has done
    /// @return how many allocations there are
    long FailEach(
        const char* name, const std::function<void()>& prepare, const std::function<HRESULT()>& call,
        const std::function<void()>& verify = [] {}) {
        SCOPED_TRACE(name);
        long allocations = 0;
        for (const Extent extent : {Extent::one, Extent::thatAndAllBehind}) {
            for (long number = 1;; ++number) {
                SCOPED_TRACE(number);
                prepare();
                failing.Arm(number, extent);
                const HRESULT result = call();
                if (failing.Disarm() < number) {
                    EXPECT_EQ(S_OK, result) << "nothing has failed";
                    verify();
                    allocations = std::max(allocations, number - 1);
                    break;
                }
                EXPECT_TRUE(FAILED(result) || failureIsSilent) << std::hex << result;
                prepare();
                EXPECT_EQ(S_OK, call()) << "the object works no longer";
                verify();
                if (HasFailure())
                    return number;
            }
        }
        return allocations;
    }

    long FailEach(
        const char* name, const std::function<HRESULT()>& call, const std::function<void()>& verify = [] {}) {
        return FailEach(
            name, [] {}, call, verify);
    }

    const ModuleFunctions module{RegisteredModulePath()};
    FailingAllocations failing{module.Handle()};
    bool failureIsSilent = false;  ///< of an operation that gives less instead of a failure
    ComPtr<ComObject<Host3D>> side = MakeObject<Host3D>();
    ComPtr<ComObject<NamedProperties>> host = MakeObject<NamedProperties>();
};

TEST_F(AllocationFailure, IsReportedByTheTextsAndValues) {
    const Bstr text(L"a text that is too long for a small string");
    EXPECT_GT(FailEach(
                  "put_UserData", [&] { return parts->put_UserData(text.Get()); },
                  [&] { EXPECT_EQ(text.Get(), ReadText(parts, &InuxStdParts::get_UserData)); }),
              0);
    BSTR read = nullptr;
    EXPECT_GT(FailEach(
                  "get_UserData", [&] { return parts->get_UserData(&read); },
                  [&] { EXPECT_STREQ(text.Get(), read); }),
              0);
    FailEach("put_LastRVCCmdResult", [&] { return parts->put_LastRVCCmdResult(text.Get()); });
    FailEach(
        "get_LastRVCCmdResult", [&] { return parts->get_LastRVCCmdResult(&read); },
        [&] { EXPECT_STREQ(text.Get(), read); });
    SysFreeString(read);

    RawVariant given;
    given.vt = VT_BSTR;
    given.bstrVal = SysAllocString(L"global");
    RawVariant global;
    EXPECT_GT(FailEach("put_GlobalData", [&] { return parts->put_GlobalData(given); }), 0);
    EXPECT_GT(FailEach(
                  "get_GlobalData", [&] { return parts->get_GlobalData(&global); },
                  [&] { EXPECT_STREQ(L"global", global.bstrVal); }),
              0);
}

TEST_F(AllocationFailure, OfTheGlobalDataLeavesItsCodeThere) {
    RawVariant given;
    given.vt = VT_I4;
    failing.Arm(1);
    EXPECT_EQ(E_OUTOFMEMORY, parts->put_GlobalData(given));
    failing.Disarm();
    RawVariant read;
    EXPECT_EQ(S_OK, parts->get_GlobalData(&read));
    EXPECT_EQ(VT_ERROR, read.vt);
    EXPECT_EQ(E_OUTOFMEMORY, read.scode);
}

TEST_F(AllocationFailure, IsReportedByTheDataManager) {
    ComPtr<IDispatch> dispatch;
    parts->get_DataManager(dispatch.Receive());
    const auto data = dispatch.As<InuxDataManager>();
    RawVariant text;
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocString(L"a text that is too long for a small string");
    RawVariant read;
    EXPECT_GT(FailEach("put_Units", [&] { return data->put_Units(text); }), 0);
    EXPECT_GT(FailEach(
                  "get_Units", [&] { return data->get_Units(&read); },
                  [&] { EXPECT_STREQ(text.bstrVal, read.bstrVal); }),
              0);
    RawVariant sizes;
    sizes.parray = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    sizes.vt = VT_ARRAY | VT_VARIANT;
    EXPECT_GT(FailEach("put_CorePlateSizes", [&] { return data->put_CorePlateSizes(sizes); }), 0);
    EXPECT_GT(FailEach("get_CorePlateSizes", [&] { return data->get_CorePlateSizes(&read); }), 0);
}

TEST_F(AllocationFailure, IsReportedByThePathsAndDocuments) {
    EXPECT_GT(FailEach(
                  "SetTRNVPaths", [&] { return UseInstallation(); },
                  [&] { EXPECT_EQ(L"English", ReadText(parts, &InuxStdParts::GetInterfaceLanguage)); }),
              4);
    const Bstr id(L"BOLTS");
    const Bstr component(L"M8");
    const Bstr url(folder.Url("catalogs\\BOLTS\\Catalog.xml"), CP_ACP);
    ComPtr<IDispatch> out;
    const auto empty = [&] {
        CreateParts().Reset();  // the end of an object empties the cache of documents
        out.Reset();
    };
    const auto given = [&] { EXPECT_TRUE(out); };
    EXPECT_GT(FailEach(
                  "GetComponentsDocument", empty,
                  [&] { return parts->GetComponentsDocument(id.Get(), out.Receive()); }, given),
              2);
    EXPECT_GT(
        FailEach(
            "GetXMLDocument", empty, [&] { return parts->GetXMLDocument(url.Get(), out.Receive()); }, given),
        2);
    EXPECT_GT(
        FailEach(
            "GetXMLDocument, cached", [&] { return parts->GetXMLDocument(url.Get(), out.Receive()); }, given),
        0);
    EXPECT_GT(
        FailEach(
            "GetStdDimensionNode", empty,
            [&] { return parts->GetStdDimensionNode(id.Get(), component.Get(), out.Receive()); }, given),
        2);
    EXPECT_GT(
        FailEach(
            "GetUsrDimensionNode", empty,
            [&] { return parts->GetUsrDimensionNode(id.Get(), component.Get(), out.Receive()); }, given),
        2);
}

TEST_F(AllocationFailure, IsReportedByTheLocalisation) {
    BSTR text = nullptr;
    EXPECT_GT(FailEach(
                  "GetInterfaceLanguage", [&] { return parts->GetInterfaceLanguage(&text); },
                  [&] { EXPECT_STREQ(L"English", text); }),
              0);
    // A table once looked for stays: each call asks for a catalogue of its own.
    const Bstr id(L"A message ID of some length");
    int round = 0;
    std::string catalogue;
    const auto next = [&] {
        catalogue = "FAILING" + std::to_string(++round);
        WriteMessage("locale\\English\\" + catalogue + "_Msgs.xml", "A message ID of some length",
                     "Its translation");
    };
    failureIsSilent = true;  // a message whose document can't be made is given back as its ID
    EXPECT_GT(FailEach(
                  "GetLocalizedString", next,
                  [&] { return parts->GetLocalizedString(Bstr(catalogue, CP_ACP).Get(), id.Get(), &text); },
                  [&] { EXPECT_STREQ(L"Its translation", text); }),
              5);
    SysFreeString(text);
}

TEST_F(AllocationFailure, IsReportedByTheServices) {
    const Bstr log(folder.Path() + "log", CP_ACP);
    const Bstr file(folder.Path() + "file.txt", CP_ACP);
    const Bstr text(L"a text that is too long for a small string");
    EXPECT_GT(FailEach("put_DebugSessionStatusAndLogFile",
                       [&] { return parts->put_DebugSessionStatusAndLogFile(log.Get()); }),
              0);
    EXPECT_GT(FailEach(
                  "WriteDebugString", [&] { folder.Write("log", ""); },
                  [&] { return parts->WriteDebugString(text.Get()); },
                  [&] { EXPECT_EQ(18 + SysStringLen(text.Get()), folder.Read("log").size()); }),
              0);
    EXPECT_GT(FailEach(
                  "put_DebugSessionStatus", [&] { CreateParts().Reset(); },
                  [&] { return parts->put_DebugSessionStatus(1); }),
              0);
    CreateParts().Reset();
    EXPECT_GT(FailEach(
                  "SaveFile", [&] { return parts->SaveFile(file.Get(), text.Get()); },
                  [&] { EXPECT_EQ(SysStringLen(text.Get()), folder.Read("file.txt").size()); }),
              0);

    const auto array = MakeObject<NamedProperties>();
    array->SetNumber(L"length", 2);
    array->SetText(L"0", L"one");
    array->SetText(L"1", L"two");
    RawVariant result;
    EXPECT_GT(FailEach(
                  "JSArray2SafeArray", [&] { return parts->JSArray2SafeArray(array.Get(), &result); },
                  [&] { EXPECT_EQ(VT_ARRAY | VT_VARIANT, result.vt); }),
              2);
}

TEST_F(AllocationFailure, IsReportedByTheHostsServices) {
    FailEach("SetExternalDispatch", [&] { return parts->SetExternalDispatch(host.Get()); });
    side->attached.Reset();
    FailEach("put_nux3D", [&] { return parts->put_nux3D(static_cast<Inux3D*>(side.Get())); });
    FailEach("RunDieWizard", [&] { return parts->RunDieWizard(1); });
    FailEach("CreateDieBlock", [&] { return parts->CreateDieBlock(); });
    FailEach("RunSlideWizard", [&] { return parts->RunSlideWizard(); });
    const LifterWizardClass wizards;
    ComPtr<IDispatch> wizard;
    failing.Arm(1);
    EXPECT_EQ(S_FALSE, parts->get_LifterWizard(wizard.Receive())) << "it can't be made";
    failing.Disarm();
    EXPECT_EQ(S_OK, parts->get_LifterWizard(wizard.Receive()));
}

int WINAPI PressOk(HWND, const char*, const char*, UINT) {
    return IDOK;
}

INT_PTR answerOfShell = 33;  ///< to a file that is to be opened

HINSTANCE WINAPI StartNothing(HWND, const char* verb, const char*, const char*, const char*, int) {
    return reinterpret_cast<HINSTANCE>(verb ? answerOfShell : 33);
}

UINT WINAPI RunNothing(const char*, UINT) {
    return 33;
}

BOOL WINAPI ChooseFile(OPENFILENAMEA* description) {
    lstrcpyA(description->lpstrFile, "C:\\a folder of some length\\chosen.txt");
    return TRUE;
}

PIDLIST_ABSOLUTE WINAPI ChooseFolder(BROWSEINFOA*) {
    PIDLIST_ABSOLUTE folder = nullptr;
    SHGetSpecialFolderLocation(nullptr, CSIDL_WINDOWS, &folder);
    return folder;
}

/// Whatever the user is asked is answered at once.
class AllocationFailureInAHost : public AllocationFailure {
protected:
    void SetUp() override {
        AllocationFailure::SetUp();
        parts->put_nux3D(objects.side3D.Get());
        ASSERT_EQ(S_OK, UseInstallation());
        for (const ImportPatch* patch : {&boxes_, &shell_, &files_, &folders_})
            ASSERT_TRUE(*patch);
    }

    /// The address that the browser was sent to last; empty for none.
    std::string LastOpened() {
        const Texts addresses = Opened();
        return addresses.empty() ? std::string() : addresses.back();
    }
    /// The code of an operation that fails in any case, whose text may be missing.
    static HRESULT Expected(HRESULT result) { return result == E_FAIL ? S_OK : result; }

private:
    const ImportPatch boxes_{module.Handle(), "USER32.dll", "MessageBoxA", reinterpret_cast<void*>(PressOk)};
    const ImportPatch shell_{module.Handle(), "SHELL32.dll", "ShellExecuteA",
                             reinterpret_cast<void*>(StartNothing)};
    const ImportPatch files_{module.Handle(), "COMDLG32.dll", "GetSaveFileNameA",
                             reinterpret_cast<void*>(ChooseFile)};
    const ImportPatch folders_{module.Handle(), "SHELL32.dll", "SHBrowseForFolderA",
                               reinterpret_cast<void*>(ChooseFolder)};
};

TEST_F(AllocationFailureInAHost, IsReportedByTheBrowser) {
    FailEach("AttachBrowser", [&] { return Attach(objects.browser.Get()); });
    const Bstr url(defaultPage, CP_ACP);
    const Bstr missing(defaultPage + ".missing", CP_ACP);
    EXPECT_GT(FailEach("Navigate", [&] { return parts->Navigate(url.Get()); }), 0);
    EXPECT_GT(FailEach("Navigate to nothing", [&] { return parts->Navigate(missing.Get()); }), 1);
    EXPECT_GT(FailEach(
                  "the default page", [&] { return Edit(nullptr, 0); },
                  [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
              1);
    FailEach("put_StatusBar", [&] { return parts->put_StatusBar(objects.statusBar.Get()); });
    EXPECT_GT(FailEach("SetStatusMessage", [&] { return parts->SetStatusMessage(url.Get()); }), 0);
    FailEach("UpdateProgressBar", [&] { return parts->UpdateProgressBar(1); });
    FailEach("CreateProgressBar", [&] { return parts->CreateProgressBar(); });
    FailEach("DestroyProgressBar", [&] { return parts->DestroyProgressBar(); });
    folder.Remove("data\\Tarnvale.htm");
    EXPECT_GT(FailEach("the default page, missing", [&] { return Edit(nullptr, 0); }), 2);
    folder.Write("data\\Tarnvale.htm", "");
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_GT(FailEach("the default page, in a browser that fails", [&] { return Edit(nullptr, 0); }), 2);
    objects.Record().Restore();
    failureIsSilent = true;
    EXPECT_GT(FailEach("a foreign browser",
                       [&] {
                           const HRESULT result = Attach(objects.application.Get());
                           return result == E_NOINTERFACE ? S_OK : result;
                       }),
              0);
    FailEach("a foreign status bar",
             [&] { return Expected(parts->put_StatusBar(objects.application.Get())); });
}

TEST_F(AllocationFailureInAHost, IsReportedByTheCommands) {
    const HWND window = ShowControl();
    AttachBrowser();
    failureIsSilent = true;  // whoever sends a command learns nothing of it
    const auto opened = [&] { EXPECT_EQ(wizardPage, LastOpened()); };
    EXPECT_GT(FailEach(
                  "LoadWizardPage",
                  [&] {
                      SendMessageA(window, WM_COMMAND, 3, 0);
                      return S_OK;
                  },
                  opened),
              1);
    for (const WPARAM command : {2, 4}) {
        FailEach("a command to the page or the 3D side", [&] {
            SendMessageA(window, WM_COMMAND, command, 0);
            return S_OK;
        });
    }
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_GT(FailEach("LoadWizardPage, in a browser that fails",
                       [&] {
                           SendMessageA(window, WM_COMMAND, 3, 0);
                           return S_OK;
                       }),
              2);
    objects.Record().Restore();
    folder.Remove("data\\Wizard.htm");
    EXPECT_GT(FailEach(
                  "LoadWizardPage, missing",
                  [&] {
                      SendMessageA(window, WM_COMMAND, 3, 0);
                      return S_OK;
                  },
                  [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
              2);
}

TEST_F(AllocationFailureInAHost, IsReportedByTheComponents) {
    AttachBrowser();
    const auto component = objects.Edit(L"BOLTS", L"M8");
    const auto without = objects.Edit(L"BOLTS", L"M12");
    const auto empty = [&] {
        CreateParts().Reset();  // the end of an object empties the cache of documents
        Edit(nullptr, 0);
        objects.Record().ClearLines();
    };
    FailEach("SetEditedComponent, kept only", [&] { return Edit(component.Get(), 0); });
    EXPECT_GT(FailEach(
                  "SetEditedComponent", empty, [&] { return Edit(component.Get(), 1); },
                  [&] {
                      EXPECT_TRUE(Edited());
                      EXPECT_EQ(componentPage, LastOpened());
                  }),
              5);
    BSTR text = nullptr;
    EXPECT_GT(FailEach("get_CatalogID", [&] { return parts->get_CatalogID(&text); }), 0);
    EXPECT_GT(FailEach("get_ComponentID", [&] { return parts->get_ComponentID(&text); }), 0);
    SysFreeString(text);
    failureIsSilent =
        true;  // a catalogue that can't be made is one that is missing, which is told to the user
    EXPECT_GT(FailEach(
                  "GetComponent", empty, [&] { return GetComponent("BOLTS", "M8"); },
                  [&] { EXPECT_EQ("BOLTS M8", Ids()); }),
              5);
    EXPECT_GT(FailEach(
                  "GetComponent, missing", empty, [&] { return GetComponent("BOLTS", "none"); },
                  [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
              5);
    EXPECT_GT(
        FailEach(
            "SetEditedComponent, without a geometry", empty, [&] { return Expected(Edit(without.Get(), 1)); },
            [&] { EXPECT_EQ(defaultPage, LastOpened()); }),
        5);
    const auto missing = objects.Edit(L"BOLTS", L"none");
    const auto withoutPage = objects.Edit(L"BOLTS", L"M10");
    for (const auto& [name, edited] : {std::pair("SetEditedComponent, without a part", missing.Get()),
                                       std::pair("SetEditedComponent, without a page", withoutPage.Get())}) {
        EXPECT_GT(FailEach(
                      name, empty, [&] { return Expected(Edit(edited, 1)); },
                      [&] {
                          EXPECT_FALSE(Edited());
                          EXPECT_EQ(defaultPage, Opened().back());
                      }),
                  5);
    }
    objects.Record().Fail(Call::Navigate, E_FAIL, 0);
    EXPECT_GT(FailEach(
                  "SetEditedComponent, in a browser that fails", empty,
                  [&] { return Expected(Edit(component.Get(), 1)); }, [&] { EXPECT_FALSE(Edited()); }),
              5);
    objects.Record().Restore();
    EXPECT_GT(FailEach("SetEditedComponent, a foreign object",
                       [&] {
                           const HRESULT result = Edit(objects.application.Get(), 1);
                           return result == E_INVALIDARG ? S_OK : result;
                       }),
              0);
}

TEST_F(AllocationFailureInAHost, OfAComponentLeavesNothingHalf) {
    const char* const longIds[] = {"a catalogue with a name that is long",
                                   "an ID that is too long for a small string"};
    folder.Write(std::string("catalogs\\") + longIds[0] + "\\Catalog.xml",
                 std::string("<c><Part><ID>") + longIds[1] + "</ID><Geometry>g</Geometry></Part></c>");
    for (long number = 1;; ++number) {
        SCOPED_TRACE(number);
        ASSERT_EQ(S_OK, GetComponent("BOLTS", "M8"));
        const auto edited = objects.Edit(Widen(longIds[0]), Widen(longIds[1]));
        failing.Arm(number);
        const HRESULT edit = Edit(edited.Get(), 1);
        failing.Disarm();
        EXPECT_EQ(SUCCEEDED(edit), static_cast<bool>(Edited()));
        failing.Arm(number);
        const HRESULT get = GetComponent(longIds[0], longIds[1]);
        if (failing.Disarm() < number)
            break;
        const std::string wanted = std::string(longIds[0]) + " " + longIds[1];
        EXPECT_TRUE(Ids() == "BOLTS M8" || (SUCCEEDED(get) && Ids() == wanted)) << Ids();
    }
}

TEST_F(AllocationFailureInAHost, IsReportedByTheDialogs) {
    const Bstr file(folder.Path() + "file.nuxtest", CP_ACP);
    const Bstr filter(L"A description of some length|*.txt|All|*.*");
    EXPECT_GT(FailEach("ExecuteFileInShell", [&] { return parts->ExecuteFileInShell(file.Get()); }), 0);
    answerOfShell = SE_ERR_NOASSOC;
    EXPECT_GT(FailEach("ExecuteFileInShell, a file of no application",
                       [&] { return Expected(parts->ExecuteFileInShell(file.Get())); }),
              1);
    answerOfShell = 33;
    {
        const ImportPatch run(module.Handle(), "KERNEL32.dll", "WinExec",
                              reinterpret_cast<void*>(RunNothing));
        ASSERT_TRUE(run);
        CRegistry(HKEY_CLASSES_ROOT).SetStringValue(".nuxtest", "", "nuxtest.file of some length");
        CRegistry(HKEY_CLASSES_ROOT)
            .SetStringValue("nuxtest.file of some length\\shell\\open\\command", "",
                            "\"C:\\a folder of some length\\IEXPLORE.EXE\" %1");
        EXPECT_GT(FailEach("ExecuteFileInShell, in the browser",
                           [&] { return parts->ExecuteFileInShell(file.Get()); }),
                  5);
        CRegistry(HKEY_CLASSES_ROOT).Delete(".nuxtest", nullptr);
        CRegistry(HKEY_CLASSES_ROOT).Delete("nuxtest.file of some length", nullptr);
    }
    BSTR path = nullptr;
    EXPECT_GT(FailEach(
                  "GetSaveFileName",
                  [&] {
                      return parts->GetSaveFileName(filter.Get(), filter.Get(), file.Get(), filter.Get(),
                                                    &path);
                  },
                  [&] { EXPECT_STREQ(L"C:\\a folder of some length\\chosen.txt", path); }),
              3);
    SysFreeString(path);
    path = nullptr;
    for (const long singleFile : {1L, 0L}) {
        EXPECT_GT(FailEach(
                      "TRNVExportDlg",
                      [&] {
                          SysFreeString(path);
                          return parts->TRNVExportDlg(singleFile, &path);
                      },
                      [&] {
                          EXPECT_STREQ(singleFile ? L"C:\\a folder of some length\\chosen.txt"
                                                  : L"C:\\windows\\Moldbase",
                                       path);
                      }),
                  2);
    }
    SysFreeString(path);
}

TEST_F(AllocationFailure, IsReportedByAutomation) {
    ReleaseParts();
    ComPtr<InuxStdParts> fresh;
    const auto forgetTypes = [&] {
        fresh.Reset();
        EXPECT_EQ(S_OK, ModuleCanUnload());  // drops the type descriptions
        fresh = CreateParts();
    };
    wchar_t name[] = L"UserData";
    LPOLESTR names = name;
    DISPID id = 0;
    EXPECT_GT(FailEach(
                  "GetIDsOfNames", forgetTypes,
                  [&] { return fresh->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id); },
                  [&] { EXPECT_EQ(91, id); }),
              2);
    RawVariant read;
    DISPPARAMS none{};
    EXPECT_GT(FailEach(
                  "Invoke", forgetTypes,
                  [&] {
                      return fresh->Invoke(91, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                           read.Receive(), nullptr, nullptr);
                  },
                  [&] { EXPECT_EQ(VT_BSTR, read.vt); }),
              2);
    ComPtr<ITypeInfo> type;
    EXPECT_GT(FailEach(
                  "GetTypeInfo",
                  [&] {
                      type.Reset();
                      forgetTypes();
                  },
                  [&] { return fresh->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive()); }),
              2);
    ComPtr<ITypeInfo> coclass;
    EXPECT_GT(FailEach(
                  "GetClassInfo",
                  [&] {
                      coclass.Reset();
                      forgetTypes();
                  },
                  [&] { return fresh.As<IProvideClassInfo>()->GetClassInfo(coclass.Receive()); }),
              2);
}

TEST_F(AllocationFailure, IsReportedByTheControl) {
    const HWND frame = CreateWindowExA(0, "STATIC", "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 400,
                                       300, nullptr, nullptr, nullptr, nullptr);
    const auto site = MakeObject<ControlSite>(frame);
    const auto object = parts.As<IOleObject>();
    object->SetClientSite(site.Get());
    failureIsSilent = true;  // a frame that can't be told the name is no failure of the activation
    FailEach(
        "DoVerb", [&] { object->Close(OLECLOSE_NOSAVE); },
        [&] { return object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, frame, nullptr); });
    failureIsSilent = false;
    object->SetClientSite(nullptr);
    DestroyWindow(frame);

    LPOLESTR name = nullptr;
    EXPECT_GT(FailEach(
                  "GetUserType", [&] { return object->GetUserType(USERCLASSTYPE_FULL, &name); },
                  [&] {
                      EXPECT_STREQ(L"nuxStdParts Class", name);
                      CoTaskMemFree(name);
                  }),
              0);
    const auto sink = MakeObject<AdviseSink>();
    DWORD cookie = 0;
    EXPECT_GT(FailEach(
                  "Advise", [&] { return object->Advise(sink.Get(), &cookie); },
                  [&] { EXPECT_EQ(S_OK, object->Unadvise(cookie)); }),
              0);
    const auto container = parts.As<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> points;
    EXPECT_GT(
        FailEach("EnumConnectionPoints", [&] { return container->EnumConnectionPoints(points.Receive()); }),
        1);
    const auto events = MakeObject<EventSink>();
    ComPtr<IConnectionPoint> point;
    container->FindConnectionPoint(DIID__InuxStdPartsEvents, point.Receive());
    EXPECT_GT(FailEach("connecting a sink", [&] { return point->Advise(events.Get(), &cookie); }), 0);
    ComPtr<IEnumConnections> connections;
    EXPECT_GT(FailEach("EnumConnections", [&] { return point->EnumConnections(connections.Receive()); }), 1);
}

TEST_F(AllocationFailure, IsReportedByTheClassFactory) {
    ComPtr<IClassFactory> factory;
    EXPECT_GT(FailEach("DllGetClassObject",
                       [&] {
                           return module.GetClassObject(CLSID_nuxStdParts, IID_IClassFactory,
                                                        factory.ReceiveVoid());
                       }),
              0);
    ComPtr<InuxStdParts> made;
    EXPECT_GT(FailEach(
                  "CreateInstance",
                  [&] { return factory->CreateInstance(nullptr, IID_InuxStdParts, made.ReceiveVoid()); },
                  [&] { EXPECT_EQ(S_OK, made->AssertFail()); }),
              2);
    EXPECT_GT(FailEach("DllRegisterServer", [&] { return module.Register(); }), 2);
}

TEST_F(AllocationFailure, IsReportedByAThreadThatHasNeverSeenAnException) {
    for (const Extent extent : {Extent::one, Extent::thatAndAllBehind}) {
        HRESULT result = S_OK;
        HRESULT again = E_FAIL;
        std::thread([&] {
            OleInitialize(nullptr);
            {
                const ComPtr<InuxStdParts> own = CreateParts();
                const Bstr text(L"a text that is too long for a small string");
                failing.Arm(1, extent);
                result = own->put_UserData(text.Get());
                failing.Disarm();
                again = own->put_UserData(text.Get());
            }
            OleUninitialize();
        }).join();
        EXPECT_EQ(E_OUTOFMEMORY, result);
        EXPECT_EQ(S_OK, again);
    }
}

}  // namespace
}  // namespace nux
