// What registration writes to the registry, and what unregistration leaves there.

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "framework/Handles.h"
#include "tests/control/Component.h"
#include "tests/support/ModuleFunctions.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

constexpr wchar_t classId[] = L"{B1A0C4D5-B52D-44EA-8B0E-F3EEFD3BB67F}";

/// Keys below HKEY_CLASSES_ROOT, and values as "key|name"; a key maps to "", a string value to its text, and
/// any other value to the number of its type.
using Entries = std::map<std::wstring, std::wstring>;

std::vector<std::wstring> Subkeys(HKEY key) {
    std::vector<std::wstring> names;
    wchar_t name[256];
    for (DWORD index = 0;; ++index) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return names;
        names.push_back(name);
    }
}

/// Adds a key with its values and all that is below it.
void AddAll(const std::wstring& path, Entries& entries) {
    entries[path];
    UniqueKey key;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, key.Receive()));
    for (DWORD index = 0;; ++index) {
        wchar_t name[256];
        BYTE data[2048];
        DWORD length = 256;
        DWORD size = sizeof data;
        DWORD type = REG_NONE;
        if (RegEnumValueW(key.Get(), index, name, &length, nullptr, &type, data, &size) != ERROR_SUCCESS)
            break;
        entries[path + L"|" + name] =
            type == REG_SZ ? std::wstring(reinterpret_cast<const wchar_t*>(data), size / sizeof(wchar_t) - 1)
                           : L"type " + std::to_wstring(type);
    }
    for (const std::wstring& name : Subkeys(key.Get()))
        AddAll(path + L"\\" + name, entries);
}

/// The names of all classes, interfaces, libraries and whatever else stands two keys deep, with all that
/// belongs to the component in full. (To read everything in full takes seconds each time.)
Entries AllEntries() {
    Entries entries;
    for (const std::wstring& name : Subkeys(HKEY_CLASSES_ROOT)) {
        entries[name];
        if (name.starts_with(L"Tarnvale"))
            AddAll(name, entries);
        UniqueKey key;
        if (RegOpenKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, KEY_READ, key.Receive()) != ERROR_SUCCESS)
            continue;
        for (const std::wstring& subkey : Subkeys(key.Get())) {
            std::wstring path = name + L"\\" + subkey;
            if (_wcsicmp(name.c_str(), L"TypeLib") == 0)  // spelled in small or capital letters
                CharUpperW(path.data());
            entries[path];
        }
    }
    const std::wstring own = std::wstring(L"CLSID\\") + classId;
    if (entries.contains(own))
        AddAll(own, entries);
    return entries;
}

/// What is in `after` and not, or with another value, in `before`.
Entries Difference(const Entries& after, const Entries& before) {
    Entries difference;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                        std::inserter(difference, difference.end()));
    return difference;
}

Entries ExpectedEntries(const std::wstring& module) {
    const std::wstring key = std::wstring(L"CLSID\\") + classId;
    return {
        {L"Tarnvale.nuxStdParts.1", L""},
        {L"Tarnvale.nuxStdParts.1|", L"nuxStdParts Class"},
        {L"Tarnvale.nuxStdParts.1\\CLSID", L""},
        {L"Tarnvale.nuxStdParts.1\\CLSID|", classId},
        {L"Tarnvale.nuxStdParts", L""},
        {L"Tarnvale.nuxStdParts|", L"nuxStdParts Class"},
        {L"Tarnvale.nuxStdParts\\CLSID", L""},
        {L"Tarnvale.nuxStdParts\\CLSID|", classId},
        {L"Tarnvale.nuxStdParts\\CurVer", L""},
        {L"Tarnvale.nuxStdParts\\CurVer|", L"Tarnvale.nuxStdParts.1"},
        {key, L""},
        {key + L"|", L"nuxStdParts Class"},
        {key + L"\\ProgID", L""},
        {key + L"\\ProgID|", L"Tarnvale.nuxStdParts.1"},
        {key + L"\\VersionIndependentProgID", L""},
        {key + L"\\VersionIndependentProgID|", L"Tarnvale.nuxStdParts"},
        {key + L"\\Programmable", L""},
        {key + L"\\Control", L""},
        {key + L"\\Insertable", L""},
        {key + L"\\InprocServer32", L""},
        {key + L"\\InprocServer32|", module},
        {key + L"\\InprocServer32|ThreadingModel", L"Apartment"},
        {key + L"\\ToolboxBitmap32", L""},
        {key + L"\\ToolboxBitmap32|", module + L", 101"},
        {key + L"\\MiscStatus", L""},
        {key + L"\\MiscStatus|", L"0"},
        {key + L"\\MiscStatus\\1", L""},
        {key + L"\\MiscStatus\\1|", L"131473"},
        {key + L"\\TypeLib", L""},
        {key + L"\\TypeLib|", L"{B4E491E9-013B-46AC-8423-5AA1DCA6ABC7}"},
        {key + L"\\Version", L""},
        {key + L"\\Version|", L"1.0"},
        {key + L"\\Implemented Categories", L""},
        {key + L"\\Implemented Categories\\{7DD95801-9882-11CF-9FA9-00AA006C42C4}", L""},
        {key + L"\\Implemented Categories\\{7DD95802-9882-11CF-9FA9-00AA006C42C4}", L""},
        // By the platform, of the type library.
        {L"TYPELIB\\{B4E491E9-013B-46AC-8423-5AA1DCA6ABC7}", L""},
        {L"Interface\\{E7E3587B-C452-45F4-932A-CB3FBECF2784}", L""},
        {L"Interface\\{3C439629-1C5E-47C9-AF80-8DAB272A53AF}", L""},
        {L"Interface\\{B7581F4C-FAD1-49B3-8253-AA84A4E04904}", L""},
        {L"Interface\\{19EE4048-7678-449F-96DA-6A626F49E5D7}", L""},
    };
}

class Registration : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(S_OK, module.Register()) << "the other tests need it"; }

    const std::wstring path = RegisteredModulePath();
    const ModuleFunctions module{path};
};

TEST_F(Registration, WritesExactlyItsEntriesAndLeavesNothing) {
    ASSERT_EQ(S_OK, module.Unregister());
    const Entries before = AllEntries();
    EXPECT_GT(before.size(), 1000u) << "the neighbours are seen";
    ASSERT_EQ(S_OK, module.Register());
    const Entries registered = AllEntries();
    EXPECT_EQ(ExpectedEntries(path), Difference(registered, before));
    EXPECT_EQ(Entries{}, Difference(before, registered)) << "no neighbour is changed";
    ASSERT_EQ(S_OK, module.Unregister());
    EXPECT_EQ(Entries{}, Difference(AllEntries(), before));
    EXPECT_EQ(Entries{}, Difference(before, AllEntries())) << "no neighbour is taken along";
}

/// Whether an object of the component can be handed to another apartment.
HRESULT Marshal(const ComPtr<InuxStdParts>& parts) {
    ComPtr<IStream> stream;
    const HRESULT result =
        CoMarshalInterThreadInterfaceInStream(IID_InuxStdParts, parts.Get(), stream.Receive());
    if (stream)
        CoReleaseMarshalData(stream.Get());  // nobody takes it out
    return result;
}

TEST_F(Registration, EntersTheTypeLibraryForToolsAndForMarshalling) {
    ComPtr<ITypeLib> library;
    EXPECT_EQ(S_OK, LoadRegTypeLib(LIBID_NUXSTDPARTSAXLib, 1, 0, 0, library.Receive()));
    BSTR registered = nullptr;
    EXPECT_EQ(S_OK, QueryPathOfRegTypeLib(LIBID_NUXSTDPARTSAXLib, 1, 0, 0, &registered));
    EXPECT_EQ(path, Take(registered).c_str());
    EXPECT_EQ(S_OK, Marshal(CreateParts()));
    library.Reset();

    const ComPtr<InuxStdParts> parts = CreateParts();
    ASSERT_EQ(S_OK, module.Unregister());
    EXPECT_TRUE(FAILED(LoadRegTypeLib(LIBID_NUXSTDPARTSAXLib, 1, 0, 0, library.Receive())));
    EXPECT_TRUE(FAILED(Marshal(parts)));
    EXPECT_EQ(S_OK, module.Unregister()) << "what is not there needs no taking away";
}

TEST_F(Registration, TwiceIsAsGoodAsOnce) {
    const Entries before = AllEntries();
    EXPECT_EQ(S_OK, module.Register());
    EXPECT_EQ(before, AllEntries());
}

TEST_F(Registration, UnregisteringTwiceLeavesTheNeighboursAlone) {
    EXPECT_EQ(S_OK, module.Unregister());
    const Entries before = AllEntries();
    module.Unregister();
    EXPECT_EQ(before, AllEntries());
}

TEST_F(Registration, AnUnregisteredClassCannotBeMade) {
    module.Unregister();
    CLSID classId{};
    EXPECT_TRUE(FAILED(CLSIDFromProgID(L"Tarnvale.nuxStdParts", &classId)));
}

TEST_F(Registration, PathsWithBlanksApostrophesAndPercentSignsAreKept) {
    const TempFolder folder;
    for (const char* name :
         {"a folder\\nux Std Parts.dll", "it's\\the 'module'.dll", "'.dll", "100%\\MODULE%.dll"}) {
        SCOPED_TRACE(name);
        const std::wstring copy = Widen(folder.Write(name, ""));
        ASSERT_TRUE(CopyFileW(path.c_str(), copy.c_str(), FALSE));
        {
            const ModuleFunctions copied(copy);
            ASSERT_EQ(S_OK, copied.Register());
            const Entries entries = AllEntries();
            for (const auto& [key, value] : ExpectedEntries(copy)) {
                ASSERT_TRUE(entries.contains(key)) << Narrow(key.c_str(), key.size());
                EXPECT_EQ(value, entries.at(key));
            }
            CreateParts().Reset();
            EXPECT_EQ(S_OK, copied.Unregister());
            CoFreeUnusedLibraries();
        }
    }
}

}  // namespace
}  // namespace nux
