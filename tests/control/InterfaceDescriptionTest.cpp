// The type library as it lies in the registered module. Hosts are compiled against the order of the
// operations, and scripts are bound by their DISPIDs: both are compared with a list of their own here.

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "Inux3D.h"
#include "tests/control/Component.h"
#include "tests/support/DescribedType.h"

namespace nux {
namespace {

const std::vector<std::string> stdPartsOperations{
    "1 SetExternalDispatch(IDispatch* pDisp)",
    "2 SetEditedComponent(VARIANT EditedComponent, long fReload)",
    "4 ChooseDimensions(BSTR CatalogID, BSTR ComponentID, IDispatch* NamesDisp, VARIANT DefaultValuesVar, "
    "VARIANT StdDimensionVar, VARIANT UsrDimensionVar, out IDispatch** ChosenDimensions)",
    "5 Navigate(BSTR url)",
    "6 get nux3D(out IDispatch**)",
    "6 put nux3D(IDispatch*)",
    "7 get EditedComponent(out IDispatch**)",
    "10 get CatalogID(out BSTR*)",
    "11 get ComponentID(out BSTR*)",
    "14 WriteDebugString(BSTR DebugString)",
    "16 SetStatusMessage(BSTR Message)",
    "17 CreateProgressBar()",
    "18 DestroyProgressBar()",
    "19 UpdateProgressBar(long Position)",
    "21 GetComponentsDocument(BSTR CatalogID, out IDispatch** Document)",
    "22 GetStdDimensionNode(BSTR CatalogID, BSTR ComponentID, out IDispatch** Node)",
    "23 GetUsrDimensionNode(BSTR CatalogID, BSTR ComponentID, out IDispatch** Node)",
    "24 GetXMLDocument(BSTR XMLFilePath, out IDispatch** XMLDoc)",
    "80 RunDieWizard(long Mode)",
    "81 CreateDieBlock()",
    "85 SaveFile(BSTR FileName, BSTR Data)",
    "86 ExecuteFileInShell(BSTR FileName)",
    "87 GetSaveFileName(BSTR Title, BSTR Filter, BSTR DefFileName, BSTR DefExtension, out BSTR* FileName)",
    "88 GetInterfaceLanguage(out BSTR* Language)",
    "89 GetLocalizedString(BSTR CatalogID, BSTR MsgID, out BSTR* MsgStr)",
    "90 NewComponent(long load_html_page, out long* success)",
    "91 get UserData(out BSTR*)",
    "91 put UserData(BSTR)",
    "92 get DebugSessionStatus(out long*)",
    "92 put DebugSessionStatus(long)",
    "93 GetComponent(BSTR CatalogID, BSTR ComponentID)",
    "94 get GlobalData(out VARIANT*)",
    "94 put GlobalData(VARIANT)",
    "95 get WebBrowser(out IDispatch**)",
    "96 JSArray2SafeArray(IDispatch* JSArray, out VARIANT* SafeArray)",
    "97 get DataManager(out IDispatch**)",
    "98 RunSlideWizard()",
    "105 get Initialised(out long*)",
    "105 put Initialised(long)",
    "106 MessageBox(BSTR a_msg, BSTR a_title, long a_type, out long* a_result)",
    "107 get LifterWizard(out IDispatch**)",
    "108 AttachBrowser(IDispatch* Browser)",
    "109 get Version(out BSTR*)",
    "110 put StatusBar(IDispatch*)",
    "111 UnLoadStatusBar()",
    "112 TRNVExportDlg(long fSingleFile, out BSTR* ExportPath)",
    "114 SetTRNVPaths(BSTR CatalogPath, BSTR DataPath, BSTR GUIPath, BSTR CustomDimsPath)",
    "115 MessageBoxHTML(BSTR a_msg, BSTR a_title, long a_type, VARIANT_BOOL a_wrap_in_width, long "
    "a_max_width, "
    "long a_max_height, out long* a_result)",
    "117 ShowHTMLModelessDialog(BSTR a_title, BSTR a_url, long a_pos_x, long a_pos_y, long a_width, long "
    "a_height, "
    "VARIANT a_dialog_arguments, out IDispatch** a_browser)",
    "118 ShowHTMLModalDialog(BSTR a_title, BSTR a_url, long a_pos_x, long a_pos_y, long a_width, long "
    "a_height, "
    "VARIANT a_dialog_arguments, out VARIANT* a_return_value)",
    "120 get LastRVCCmdResult(out BSTR*)",
    "120 put LastRVCCmdResult(BSTR)",
    "121 DeleteClosedModelessIEDlgs()",
    "122 AssertFail()",
    "123 put DebugSessionStatusAndLogFile(BSTR)"};

const std::vector<std::string> dataManagerOperations{"1 get CavityPlateSizes(out VARIANT*)",
                                                     "1 put CavityPlateSizes(VARIANT)",
                                                     "2 get CorePlateSizes(out VARIANT*)",
                                                     "2 put CorePlateSizes(VARIANT)",
                                                     "3 ClearData()",
                                                     "4 get CatalogName(out VARIANT*)",
                                                     "4 put CatalogName(VARIANT)",
                                                     "5 get Units(out VARIANT*)",
                                                     "5 put Units(VARIANT)"};

const std::vector<std::string> dialogOperations{"1 get external_object(out IDispatch**)",
                                                "2 get dialogArguments(out VARIANT*)",
                                                "2 put dialogArguments(VARIANT)",
                                                "3 get returnValue(out VARIANT*)",
                                                "3 put returnValue(VARIANT)",
                                                "4 close()",
                                                "5 is_modal(out long*)"};

class TypeLibraryInTheModule : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(S_OK, LoadTypeLibEx(RegisteredModulePath().c_str(), REGKIND_NONE, library.Receive()));
    }

    ComPtr<ITypeInfo> TypeOf(REFGUID guid) {
        ComPtr<ITypeInfo> type;
        EXPECT_EQ(S_OK, library->GetTypeInfoOfGuid(guid, type.Receive()));
        return type;
    }

    /// Compares a dual interface with its list, in the order of the table of virtual operations.
    void ExpectDual(REFIID iid, const char* name, const std::vector<std::string>& operations) {
        SCOPED_TRACE(name);
        const ComPtr<ITypeInfo> dispatch = TypeOf(iid);
        EXPECT_EQ(name, NameOf(dispatch.Get(), MEMBERID_NIL));
        const TypeAttributes attributes(dispatch.Get());
        EXPECT_EQ(TKIND_DISPATCH, attributes->typekind);
        EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL);

        const ComPtr<ITypeInfo> table = VirtualTable(dispatch.Get());
        ASSERT_TRUE(table);
        const TypeAttributes tableAttributes(table.Get());
        EXPECT_EQ(iid, tableAttributes->guid);
        ASSERT_EQ(operations.size(), tableAttributes->cFuncs);
        constexpr int operationsOfIDispatch = 7;
        for (UINT i = 0; i < operations.size(); ++i) {
            SCOPED_TRACE(operations[i]);
            const OperationOffset offset(table.Get(), i);
            EXPECT_EQ((operationsOfIDispatch + static_cast<int>(i)) * static_cast<int>(sizeof(void*)),
                      offset.bytes);
            EXPECT_TRUE(offset.isVirtual);
            EXPECT_TRUE(offset.standardCall);
            EXPECT_TRUE(offset.returnsHResult);
            const bool argumentsAreNamed = operations[i].find(" get ") == std::string::npos &&
                                           operations[i].find(" put ") == std::string::npos &&
                                           operations[i].find("is_modal") == std::string::npos;
            EXPECT_EQ(operations[i], Describe(table.Get(), i, argumentsAreNamed));
        }
    }

    ComPtr<ITypeLib> library;
};

TEST_F(TypeLibraryInTheModule, TellsItsNameVersionAndHelpString) {
    BSTR name = nullptr;
    BSTR help = nullptr;
    ASSERT_EQ(S_OK, library->GetDocumentation(MEMBERID_NIL, &name, &help, nullptr, nullptr));
    EXPECT_EQ(L"NUXSTDPARTSAXLib", Take(name));
    EXPECT_EQ(L"nuxStdPartsAX 1.0 Type Library", Take(help));
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, library->GetLibAttr(&attributes));
    EXPECT_EQ(1, attributes->wMajorVerNum);
    EXPECT_EQ(0, attributes->wMinorVerNum);
    EXPECT_EQ(0u, attributes->lcid);
    EXPECT_EQ(sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32, attributes->syskind);
    wchar_t guid[40];
    StringFromGUID2(attributes->guid, guid, 40);
    EXPECT_STREQ(L"{B4E491E9-013B-46AC-8423-5AA1DCA6ABC7}", guid) << "as the registry script has it";
    library->ReleaseTLibAttr(attributes);
}

TEST_F(TypeLibraryInTheModule, HoldsFourInterfacesAndOneClassAndNothingElse) {
    std::vector<std::string> names;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        BSTR name = nullptr;
        library->GetDocumentation(static_cast<int>(i), &name, nullptr, nullptr, nullptr);
        names.push_back(Narrow(name));
        SysFreeString(name);
    }
    std::sort(names.begin(), names.end());
    EXPECT_EQ((std::vector<std::string>{"InuxDataManager", "InuxHTMLDlgExtObj", "InuxStdParts",
                                        "_InuxStdPartsEvents", "nuxStdParts"}),
              names);
}

TEST_F(TypeLibraryInTheModule, ListsTheOperationsOfTheAutomationObject) {
    ExpectDual(IID_InuxStdParts, "InuxStdParts", stdPartsOperations);
}

TEST_F(TypeLibraryInTheModule, ListsTheOperationsOfTheDataManager) {
    ExpectDual(IID_InuxDataManager, "InuxDataManager", dataManagerOperations);
}

TEST_F(TypeLibraryInTheModule, ListsTheOperationsOfAnHtmlDialogsExternalObject) {
    ExpectDual(IID_InuxHTMLDlgExtObj, "InuxHTMLDlgExtObj", dialogOperations);
}

TEST_F(TypeLibraryInTheModule, HoldsADispatchOnlySourceWithOneEvent) {
    const ComPtr<ITypeInfo> events = TypeOf(DIID__InuxStdPartsEvents);
    EXPECT_EQ("_InuxStdPartsEvents", NameOf(events.Get(), MEMBERID_NIL));
    const TypeAttributes attributes(events.Get());
    EXPECT_EQ(TKIND_DISPATCH, attributes->typekind);
    EXPECT_FALSE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
    EXPECT_EQ(0, attributes->cVars);
    ASSERT_EQ(1, attributes->cFuncs);
    EXPECT_EQ("1 OnChooseDimensions()", Describe(events.Get(), 0, true));
}

TEST_F(TypeLibraryInTheModule, TellsTheClassWithItsDefaultInterfaceAndDefaultSource) {
    const ComPtr<ITypeInfo> coclass = TypeOf(CLSID_nuxStdParts);
    EXPECT_EQ("nuxStdParts", NameOf(coclass.Get(), MEMBERID_NIL));
    const TypeAttributes attributes(coclass.Get());
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
    ASSERT_EQ(2, attributes->cImplTypes);
    const auto expectImplemented = [&](UINT index, int flags, const char* name) {
        int found = 0;
        EXPECT_EQ(S_OK, coclass->GetImplTypeFlags(index, &found));
        EXPECT_EQ(flags, found) << name;
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> type;
        ASSERT_EQ(S_OK, coclass->GetRefTypeOfImplType(index, &reference));
        ASSERT_EQ(S_OK, coclass->GetRefTypeInfo(reference, type.Receive()));
        EXPECT_EQ(name, NameOf(type.Get(), MEMBERID_NIL));
    };
    expectImplemented(0, IMPLTYPEFLAG_FDEFAULT, "InuxStdParts");
    expectImplemented(1, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE, "_InuxStdPartsEvents");
}

/// The help text of each operation of an interface, in the order of the table of virtual operations.
std::vector<std::wstring> HelpTexts(ITypeInfo* type) {
    std::vector<std::wstring> texts;
    const TypeAttributes attributes(type);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type->GetFuncDesc(i, &function)))
            return texts;
        BSTR help = nullptr;
        type->GetDocumentation(function->memid, nullptr, &help, nullptr, nullptr);
        texts.push_back(Take(help));
        type->ReleaseFuncDesc(function);
    }
    return texts;
}

bool SaysNotOffered(const std::wstring& help) {
    return help.starts_with(L"Not offered yet (E_NOTIMPL): ");
}

TEST_F(TypeLibraryInTheModule, TellsWhatEachOperationDoes) {
    for (const IID& iid :
         {IID_InuxStdParts, IID_InuxDataManager, IID_InuxHTMLDlgExtObj, DIID__InuxStdPartsEvents}) {
        const ComPtr<ITypeInfo> type = TypeOf(iid);
        const bool isDual = iid != DIID__InuxStdPartsEvents;
        const std::vector<std::wstring> texts =
            HelpTexts(isDual ? VirtualTable(type.Get()).Get() : type.Get());
        EXPECT_FALSE(texts.empty());
        for (const std::wstring& help : texts) {
            ASSERT_GT(help.size(), 10u) << NameOf(type.Get(), MEMBERID_NIL);
            EXPECT_EQ(L'.', help.back()) << Narrow(help.c_str(), help.size());
            EXPECT_LT(help.size(), 256u)
                << "more than some browsers show: " << Narrow(help.c_str(), help.size());
        }
    }
}

TEST_F(TypeLibraryInTheModule, TellsOfEachOperationThatIsNotOffered) {
    const ComPtr<ITypeInfo> table = VirtualTable(TypeOf(IID_InuxStdParts).Get());
    ASSERT_TRUE(table);
    int notOffered = 0;
    for (const std::wstring& help : HelpTexts(table.Get()))
        notOffered += SaysNotOffered(help);
    EXPECT_EQ(6, notOffered) << "as many as not_offered_test.js calls";
    for (const std::wstring& help : HelpTexts(VirtualTable(TypeOf(IID_InuxHTMLDlgExtObj).Get()).Get()))
        EXPECT_TRUE(SaysNotOffered(help)) << Narrow(help.c_str(), help.size());
}

TEST(TypeLibraryOfTheHost, LiesBesideTheModuleWithItsInterfaces) {
    const std::wstring module = RegisteredModulePath();
    const std::wstring path = module.substr(0, module.find_last_of(L'\\') + 1) + L"Inux3D.tlb";
    ComPtr<ITypeLib> library;
    ASSERT_EQ(S_OK, LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.Receive()));
    EXPECT_EQ(3u, library->GetTypeInfoCount());
    const std::pair<IID, std::vector<std::string>> interfaces[] = {
        {IID_Inux3D,
         {"1 AttachHost(IDispatch* Host)", "2 SetCommandFlag(long Flag)", "3 RunDieWizard(long Mode)",
          "4 CreateDieBlock()", "5 GetApplication(out IDispatch** Application)", "6 RunSlideWizard()"}},
        {IID_InuxEditedComponent, {"1 Close()", "2 GetValue(BSTR Name, out BSTR* Value)"}}};
    for (const auto& [iid, operations] : interfaces) {
        ComPtr<ITypeInfo> type;
        ASSERT_EQ(S_OK, library->GetTypeInfoOfGuid(iid, type.Receive()));
        const ComPtr<ITypeInfo> table = VirtualTable(type.Get());
        ASSERT_TRUE(table);
        const std::vector<std::wstring> help = HelpTexts(table.Get());
        ASSERT_EQ(operations.size(), help.size());
        for (UINT i = 0; i < operations.size(); ++i) {
            EXPECT_EQ(operations[i], Describe(table.Get(), i, true));
            EXPECT_GT(help[i].size(), 10u) << operations[i];
        }
    }
    ComPtr<ITypeInfo> ready;
    EXPECT_EQ(S_OK, library->GetTypeInfoOfGuid(IID_Inux3DReady, ready.Receive()));
}

TEST_F(TypeLibraryInTheModule, IsTheOneThatTheObjectsDescribeThemselvesWith) {
    const ComPtr<InuxStdParts> parts = CreateParts();
    UINT count = 0;
    EXPECT_EQ(S_OK, parts->GetTypeInfoCount(&count));
    EXPECT_EQ(1u, count);
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(S_OK, parts->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive()));
    EXPECT_EQ("InuxStdParts", NameOf(type.Get(), MEMBERID_NIL));
    EXPECT_EQ(DISP_E_BADINDEX, parts->GetTypeInfo(1, LOCALE_USER_DEFAULT, type.Receive()));
    EXPECT_FALSE(type);

    ComPtr<IDispatch> data;
    parts->get_DataManager(data.Receive());
    ASSERT_EQ(S_OK, data->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.Receive()));
    EXPECT_EQ("InuxDataManager", NameOf(type.Get(), MEMBERID_NIL));
}

TEST_F(TypeLibraryInTheModule, EveryNameIsFoundByScriptsInAnyCase) {
    const ComPtr<InuxStdParts> parts = CreateParts();
    for (const std::string& operation : stdPartsOperations) {
        std::istringstream words(operation);
        DISPID expected = 0;
        std::string name;
        words >> expected >> name;
        if (name == "get" || name == "put")
            words >> name;
        name.resize(name.find('(') == std::string::npos ? name.size() : name.find('('));
        std::wstring wide(name.begin(), name.end());
        for (int round = 0; round < 2; ++round) {
            LPOLESTR names = wide.data();
            DISPID id = 0;
            EXPECT_EQ(S_OK, parts->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)) << name;
            EXPECT_EQ(expected, id) << name;
            CharUpperW(wide.data());
        }
    }
    wchar_t missing[] = L"NoSuchOperation";
    LPOLESTR names = missing;
    DISPID id = 0;
    EXPECT_EQ(DISP_E_UNKNOWNNAME, parts->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
    EXPECT_EQ(DISPID_UNKNOWN, id);
}

}  // namespace
}  // namespace nux
