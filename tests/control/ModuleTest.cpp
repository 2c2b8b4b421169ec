// The module: what it is made of, its class factory, and when it may go.

#include <gtest/gtest.h>
#include <ocidl.h>

#include "resources/resource.h"
#include "tests/control/Component.h"
#include "tests/support/HandleCount.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ModuleFunctions.h"

namespace nux {
namespace {

/// A module opened for its resources alone, so that one for another processor can be read too.
class ResourceFile {
public:
    explicit ResourceFile(const std::wstring& path)
        : module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {}
    ResourceFile(const ResourceFile&) = delete;
    ResourceFile& operator=(const ResourceFile&) = delete;
    ~ResourceFile() { FreeLibrary(module_); }

    explicit operator bool() const noexcept { return module_ != nullptr; }
    DWORD Size(LPCSTR type, int id) const {
        const HRSRC found = FindResourceA(module_, MAKEINTRESOURCEA(id), type);
        return found ? SizeofResource(module_, found) : 0;
    }
    /// The widths in pixels of an icon's images in full colour.
    std::vector<int> IconWidths(int id) const {
        const HRSRC found = FindResourceA(module_, MAKEINTRESOURCEA(id), RT_GROUP_ICON);
        if (!found)
            return {};
        const auto group = static_cast<const BYTE*>(LockResource(LoadResource(module_, found)));
        const int count = group[4];
        std::vector<int> widths;
        for (int image = 0; image < count; ++image) {
            const BYTE* entry = group + 6 + 14 * image;
            if (entry[6] == 32)  // bits per pixel
                widths.push_back(entry[0]);
        }
        return widths;
    }

private:
    HMODULE module_;
};

std::wstring VersionText(const std::wstring& path, const wchar_t* name) {
    DWORD ignored = 0;
    std::vector<BYTE> block(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    if (block.empty() ||
        !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()))
        return L"no version information";
    void* value = nullptr;
    UINT length = 0;
    struct Translation {
        WORD language;
        WORD codePage;
    };
    if (!VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation", &value, &length))
        return L"no translation";
    const auto translation = *static_cast<const Translation*>(value);
    wchar_t query[80];
    std::swprintf(query, 80, L"\\StringFileInfo\\%04x%04x\\%ls", translation.language, translation.codePage,
                  name);
    if (!VerQueryValueW(block.data(), query, &value, &length))
        return L"no such text";
    return static_cast<const wchar_t*>(value);
}

void ExpectResources(const std::wstring& path) {
    const ResourceFile file(path);
    ASSERT_TRUE(file);
    EXPECT_GT(file.Size("TYPELIB", 1), 1000u);
    EXPECT_GT(file.Size("REGISTRY", IDR_REGISTRY), 100u);
    for (const int icon : {IDI_COMPONENT_CHOOSER, IDI_DIMENSION_CHOOSER, IDI_USER_ROW, IDI_SORT_ASCENDING,
                           IDI_SORT_DESCENDING, IDI_FILTER, IDI_FILTER_OFF, IDI_HTML_DIALOG})
        EXPECT_GT(file.Size(RT_GROUP_ICON, icon), 0u) << icon;
    EXPECT_GT(file.Size(RT_BITMAP, 101), 0u) << "the toolbox bitmap that the registry names";
    EXPECT_GT(file.Size(RT_VERSION, VS_VERSION_INFO), 0u);
    EXPECT_EQ(L"nuxStdPartsAX.dll", VersionText(path, L"OriginalFilename"));
    EXPECT_EQ(L"1.0.0.0", VersionText(path, L"FileVersion"));
}

TEST(ModuleFile, HoldsItsTypeLibraryRegistryScriptIconsAndVersion) {
    ExpectResources(RegisteredModulePath());
}

TEST(ModuleFile, HasTheChoosersIconsForScreensOfEachScale) {
    const ResourceFile file(RegisteredModulePath());
    ASSERT_TRUE(file);
    for (const int icon : {IDI_DIMENSION_CHOOSER, IDI_USER_ROW, IDI_SORT_ASCENDING, IDI_SORT_DESCENDING,
                           IDI_FILTER, IDI_FILTER_OFF})
        EXPECT_EQ((std::vector<int>{16, 20, 24, 32}), file.IconWidths(icon)) << icon;
}

class ModuleLife : public testing::Test {
protected:
    const ModuleFunctions module{RegisteredModulePath()};
};

TEST_F(ModuleLife, OnlyItsOneClassIsMade) {
    void* out = &out;
    EXPECT_EQ(CLASS_E_CLASSNOTAVAILABLE, module.GetClassObject(IID_InuxDataManager, IID_IClassFactory, &out));
    EXPECT_EQ(nullptr, out);
    out = &out;
    EXPECT_EQ(E_NOINTERFACE, module.GetClassObject(CLSID_nuxStdParts, IID_IDispatch, &out));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(E_POINTER, module.GetClassObject(CLSID_nuxStdParts, IID_IClassFactory, nullptr));
    EXPECT_EQ(S_OK, module.CanUnload());
}

TEST_F(ModuleLife, TheFactoryMakesObjectsThatAreNotAggregated) {
    const ComPtr<IClassFactory> factory = module.Factory();
    ComPtr<InuxStdParts> parts;
    EXPECT_EQ(S_OK, factory->CreateInstance(nullptr, IID_InuxStdParts, parts.ReceiveVoid()));
    EXPECT_TRUE(parts);
    const auto outer = MakeObject<NamedProperties>();
    void* out = &out;
    EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(outer.Get(), IID_IUnknown, &out));
    EXPECT_EQ(nullptr, out);
    out = &out;
    EXPECT_EQ(E_NOINTERFACE, factory->CreateInstance(nullptr, IID_IPicture, &out));
    EXPECT_EQ(nullptr, out);
    EXPECT_EQ(E_POINTER, factory->CreateInstance(nullptr, IID_IUnknown, nullptr));
}

TEST_F(ModuleLife, AnythingAliveHoldsTheModule) {
    ASSERT_EQ(S_OK, module.CanUnload());
    ComPtr<IClassFactory> factory = module.Factory();
    EXPECT_EQ(S_FALSE, module.CanUnload()) << "a class factory";
    ComPtr<InuxStdParts> parts;
    factory->CreateInstance(nullptr, IID_InuxStdParts, parts.ReceiveVoid());
    factory.Reset();
    EXPECT_EQ(S_FALSE, module.CanUnload()) << "an object";
    ComPtr<IDispatch> data;
    parts->get_DataManager(data.Receive());
    ComPtr<IEnumConnectionPoints> points;
    parts.As<IConnectionPointContainer>()->EnumConnectionPoints(points.Receive());
    parts.Reset();
    EXPECT_EQ(S_FALSE, module.CanUnload());
    data.Reset();
    EXPECT_EQ(S_FALSE, module.CanUnload()) << "an enumerator";
    points.Reset();
    EXPECT_EQ(S_OK, module.CanUnload());
}

TEST_F(ModuleLife, ALockHoldsTheModuleAsOftenAsItIsSet) {
    module.Factory()->LockServer(TRUE);
    module.Factory()->LockServer(TRUE);
    EXPECT_EQ(S_FALSE, module.CanUnload());
    module.Factory()->LockServer(FALSE);
    EXPECT_EQ(S_FALSE, module.CanUnload());
    module.Factory()->LockServer(FALSE);
    EXPECT_EQ(S_OK, module.CanUnload());
}

TEST(ModuleUnloading, TheModuleIsUnloadedAndLoadedAgain) {
    unsigned handles = 0;
    for (int round = 0; round < 30; ++round) {
        {
            const ComPtr<InuxStdParts> parts = CreateParts();
            ASSERT_TRUE(parts);
            EXPECT_TRUE(LoadedModule());
            // What the module keeps beyond its objects: type descriptions, the window class.
            wchar_t name[] = L"UserData";
            LPOLESTR names = name;
            DISPID id = 0;
            EXPECT_EQ(S_OK, parts->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
            EXPECT_EQ(S_OK, parts->SetTRNVPaths(nullptr, nullptr, nullptr, nullptr));
            const ComPtr<InuxStdParts> second = CreateParts();
            EXPECT_EQ(E_FAIL, second->RunDieWizard(1));
        }
        EXPECT_EQ(S_OK, ModuleCanUnload());
        CoFreeUnusedLibraries();
        EXPECT_FALSE(LoadedModule()) << "round " << round;
        if (round == 9)
            handles = HandleCount();
    }
    EXPECT_EQ(handles, HandleCount());
}

}  // namespace
}  // namespace nux
