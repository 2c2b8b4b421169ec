#include "environment/Registry.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "framework/Handles.h"
#include "tests/environment/RegistryFunctions.h"
#include "tests/support/HandleCount.h"

namespace nux {
namespace {

using namespace std::string_literals;

const std::string key = "Software\\nuxStdPartsAXTests\\Registry";

class RegistryAccess : public testing::Test {
protected:
    ~RegistryAccess() override { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\nuxStdPartsAXTests"); }

    /// Writes a value past the class, with a wide name and as it stands.
    static void WriteRaw(const std::string& path, const wchar_t* name, DWORD type, const void* bytes,
                         DWORD size) {
        UniqueKey opened;
        RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, opened.Receive(),
                        nullptr);
        EXPECT_EQ(ERROR_SUCCESS,
                  RegSetValueExW(opened.Get(), name, 0, type, static_cast<const BYTE*>(bytes), size));
    }
    static bool KeyExists(const std::string& path) {
        UniqueKey opened;
        return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, opened.Receive()) == ERROR_SUCCESS;
    }
    std::string ReadString(const std::string& path, const std::string& name) {
        RegistryValue value;
        const char* text = "no string";
        return registry_.QueryValue(path, name, &value) && value.AsString(&text) ? text : "missing";
    }
    /// A key handle of the test's own, to be closed by the registry object.
    static HKEY OpenRoot() {
        HKEY root = nullptr;
        EXPECT_EQ(ERROR_SUCCESS, RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\nuxStdPartsAXTests", 0,
                                                 nullptr, 0, KEY_ALL_ACCESS, nullptr, &root, nullptr));
        return root;
    }
    static bool IsOpen(HKEY root) {
        return RegQueryInfoKeyA(root, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    }

    /// Whether a root was closed. One that is still open is closed here.
    static bool WasClosed(HKEY root) {
        const bool open = IsOpen(root);
        if (open)
            RegCloseKey(root);
        return !open;
    }

    CRegistry registry_{HKEY_CURRENT_USER};
};

/// RegQueryValueExA in the moment in which another process replaces the value that is being read.
template <DWORD type, DWORD size>
LSTATUS WINAPI QueryReplacedValue(HKEY opened, const char* name, DWORD* reserved, DWORD* foundType,
                                  BYTE* data, DWORD* foundSize) {
    if (data) {
        UniqueKey other;
        RegOpenKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, KEY_WRITE, other.Receive());
        RegSetValueExA(other.Get(), name, 0, type, reinterpret_cast<const BYTE*>("0123456789"), size);
    }
    static const auto original = Original<decltype(RegQueryValueExA)>("RegQueryValueExA");
    return original(opened, name, reserved, foundType, data, foundSize);
}

LSTATUS WINAPI RefuseToSet(HKEY, const char*, DWORD, DWORD, const BYTE*, DWORD) {
    return ERROR_ACCESS_DENIED;
}

/// RegConnectRegistryA as it answers for another machine: with a key that is not predefined.
LSTATUS WINAPI ConnectToSoftware(const char*, HKEY root, HKEY* connected) {
    return RegOpenKeyExA(root, "Software", 0, KEY_ALL_ACCESS, connected);
}

/// The access that was asked for, call by call.
std::vector<REGSAM> askedAccess;

LSTATUS WINAPI NoteOpen(HKEY root, const char* path, DWORD options, REGSAM access, HKEY* opened) {
    static const auto original = Original<decltype(RegOpenKeyExA)>("RegOpenKeyExA");
    askedAccess.push_back(access);
    return original(root, path, options, access, opened);
}

LSTATUS WINAPI NoteCreate(HKEY root, const char* path, DWORD reserved, char* type, DWORD options,
                          REGSAM access, SECURITY_ATTRIBUTES* security, HKEY* opened, DWORD* disposition) {
    static const auto original = Original<decltype(RegCreateKeyExA)>("RegCreateKeyExA");
    EXPECT_EQ(0u, options);
    askedAccess.push_back(access);
    return original(root, path, reserved, type, options, access, security, opened, disposition);
}

TEST_F(RegistryAccess, ReadsBackWhatItWrote) {
    EXPECT_TRUE(registry_.SetStringValue(key, "text",
                                         "Gr\xF6\xDF"
                                         "e"));
    EXPECT_EQ(
        "Gr\xF6\xDF"
        "e",
        ReadString(key, "text"));

    const DWORD written = 0x89ABCDEF;
    EXPECT_TRUE(registry_.SetDWORDValue(key, "number", &written));
    DWORD number = 0;
    EXPECT_TRUE(registry_.GetDWORDValue(key, "number", &number));
    EXPECT_EQ(written, number);

    EXPECT_TRUE(registry_.SetBinaryValue(key, "bytes", "a\0b", 3));
    char bytes[3] = {};
    EXPECT_TRUE(registry_.GetBinaryValue(key, "bytes", bytes, 3));
    EXPECT_EQ("a\0b"s, std::string(bytes, 3));
}

TEST_F(RegistryAccess, WritesEachTypeOfValue) {
    struct Case {
        RegistryValue value;
        DWORD type;
    };
    for (const Case& each :
         {Case{RegistryValue(7u), REG_DWORD}, Case{RegistryValue("x"s), REG_SZ},
          Case{RegistryValue("%TEMP%"s, true), REG_EXPAND_SZ}, Case{RegistryValue("\x01\x02", 2), REG_BINARY},
          Case{RegistryValue(nullptr, 0), REG_BINARY},
          Case{RegistryValue(std::vector<std::string>{"a", "b"}), REG_MULTI_SZ}}) {
        ASSERT_TRUE(registry_.SetValue(key, "value", each.value)) << each.type;
        RegistryValue read;
        ASSERT_TRUE(registry_.QueryValue(key, "value", &read)) << each.type;
        EXPECT_EQ(each.type, read.Type());
        ASSERT_EQ(each.value.Size(), read.Size()) << each.type;
        EXPECT_TRUE(std::equal(read.Data(), read.Data() + read.Size(), each.value.Data())) << each.type;
    }
}

TEST_F(RegistryAccess, CreatesTheKeysOfAPathWithAWrite) {
    EXPECT_TRUE(registry_.SetStringValue(key + "\\a\\b\\c", "x", "y"));
    EXPECT_EQ("y", ReadString(key + "\\a\\b\\c", "x"));
}

TEST_F(RegistryAccess, ReadsTheDefaultValueByItsEmptyName) {
    registry_.SetStringValue(key, "", "default");
    EXPECT_EQ("default", ReadString(key, ""));
}

TEST_F(RegistryAccess, ReadsWhateverTheCaseOfTheNames) {
    registry_.SetStringValue(key, "Name", "x");
    EXPECT_EQ("x", ReadString("SOFTWARE\\NUXSTDPARTSAXTESTS\\registry", "nAME"));
}

TEST_F(RegistryAccess, LeavesTheValueAsItWasWhenTheKeyOrTheValueIsMissing) {
    registry_.SetStringValue(key, "there", "x");
    RegistryValue value("before"s);
    EXPECT_FALSE(registry_.QueryValue(key, "missing", &value));
    EXPECT_FALSE(registry_.QueryValue(key + "\\missing", "there", &value));
    const char* text = nullptr;
    ASSERT_TRUE(value.AsString(&text));
    EXPECT_STREQ("before", text);
}

TEST_F(RegistryAccess, ReadsANumberOfANumberOnly) {
    registry_.SetStringValue(key, "text", "12");
    registry_.SetBinaryValue(key, "bytes", "\x01\x00\x00\x00", 4);
    DWORD number = 99;
    EXPECT_FALSE(registry_.GetDWORDValue(key, "text", &number));
    EXPECT_FALSE(registry_.GetDWORDValue(key, "bytes", &number));
    EXPECT_FALSE(registry_.GetDWORDValue(key, "missing", &number));
    EXPECT_EQ(99u, number);
}

TEST_F(RegistryAccess, ReadsBytesOfTheirExactSizeOnly) {
    registry_.SetBinaryValue(key, "bytes", "abcd", 4);
    char bytes[6] = "12345";
    EXPECT_FALSE(registry_.GetBinaryValue(key, "bytes", bytes, 3));
    EXPECT_FALSE(registry_.GetBinaryValue(key, "bytes", bytes, 5));
    EXPECT_STREQ("12345", bytes);
    const DWORD number = 1;
    registry_.SetDWORDValue(key, "number", &number);
    EXPECT_FALSE(registry_.GetBinaryValue(key, "number", bytes, 4));
    EXPECT_STREQ("12345", bytes);
}

TEST_F(RegistryAccess, GivesNoStringForANumber) {
    const DWORD number = 0x41414141;
    registry_.SetDWORDValue(key, "number", &number);
    EXPECT_EQ("missing", ReadString(key, "number"));
}

TEST_F(RegistryAccess, ReadsAStringThatIsStoredWithoutTerminator) {
    WriteRaw(key, L"cut", REG_SZ, L"text", 4 * sizeof(wchar_t));
    EXPECT_EQ("text", ReadString(key, "cut"));
    WriteRaw(key, L"empty", REG_SZ, L"", 0);
    EXPECT_EQ("", ReadString(key, "empty"));
}

TEST_F(RegistryAccess, TellsTheSizeOfTheBytesThatItRead) {
    WriteRaw(key, L"text", REG_SZ, L"\x8868\x8868\x8868", 4 * sizeof(wchar_t));
    RegistryValue value;
    ASSERT_TRUE(registry_.QueryValue(key, "text", &value));
    const char* text = nullptr;
    ASSERT_TRUE(value.AsString(&text));
    EXPECT_EQ(std::string(text).size() + 1, value.Size());
}

TEST_F(RegistryAccess, ReadsALongValue) {
    const std::string text(100'000, 'x');
    ASSERT_TRUE(registry_.SetStringValue(key, "long", text));
    EXPECT_EQ(text, ReadString(key, "long"));
}

TEST_F(RegistryAccess, FailsBelowARootThatIsNoKey) {
    CRegistry broken(reinterpret_cast<HKEY>(0x1234));
    RegistryValue value;
    const DWORD number = 1;
    EXPECT_FALSE(broken.QueryValue(key, "x", &value));
    EXPECT_FALSE(broken.SetDWORDValue(key, "x", &number));
    EXPECT_FALSE(broken.Delete(key, "x"));
    EXPECT_FALSE(broken.Delete(key, nullptr));
}

TEST_F(RegistryAccess, DeletesAValueAndNoOther) {
    registry_.SetStringValue(key, "one", "1");
    registry_.SetStringValue(key, "two", "2");
    EXPECT_TRUE(registry_.Delete(key, "one"));
    EXPECT_EQ("missing", ReadString(key, "one"));
    EXPECT_EQ("2", ReadString(key, "two"));
    EXPECT_FALSE(registry_.Delete(key, "one"));
    EXPECT_FALSE(registry_.Delete(key + "\\missing", "two"));
}

TEST_F(RegistryAccess, DeletesTheDefaultValueByItsEmptyName) {
    registry_.SetStringValue(key, "", "default");
    EXPECT_TRUE(registry_.Delete(key, ""));
    EXPECT_EQ("missing", ReadString(key, ""));
    EXPECT_TRUE(KeyExists(key));
}

TEST_F(RegistryAccess, DeletesAKeyWithAllThatIsBelowItForANullName) {
    for (const char* below : {"", "\\a", "\\a\\x", "\\a\\y", "\\a\\y\\z", "\\b",
                              "\\Gr\xF6\xDF"
                              "e"})
        registry_.SetStringValue(key + "\\tree" + below, "value", "x");
    registry_.SetStringValue(key + "\\beside", "value", "x");
    EXPECT_TRUE(registry_.Delete(key + "\\tree", nullptr));
    EXPECT_FALSE(KeyExists(key + "\\tree"));
    EXPECT_EQ("x", ReadString(key + "\\beside", "value"));
    EXPECT_FALSE(registry_.Delete(key + "\\tree", nullptr));
}

TEST_F(RegistryAccess, DeletesSubkeysWithLongNames) {
    const std::string name(200, '\xFC');
    ASSERT_TRUE(registry_.SetStringValue(key + "\\tree\\" + name, "value", "x"));
    EXPECT_TRUE(registry_.Delete(key + "\\tree", nullptr));
    EXPECT_FALSE(KeyExists(key + "\\tree"));
}

TEST_F(RegistryAccess, ClosesARootThatIsNotPredefinedWithEachReadAndWriteThatSucceeds) {
    const DWORD number = 5;
    DWORD read = 0;
    HKEY root = OpenRoot();
    CRegistry writing(root);
    EXPECT_TRUE(writing.SetDWORDValue("Registry", "number", &number));
    EXPECT_FALSE(IsOpen(root));
    EXPECT_FALSE(writing.GetDWORDValue("Registry", "number", &read));

    root = OpenRoot();
    EXPECT_TRUE(CRegistry(root).GetDWORDValue("Registry", "number", &read));
    EXPECT_FALSE(IsOpen(root));

    root = OpenRoot();
    EXPECT_TRUE(CRegistry(root).Delete("Registry", "number"));
    EXPECT_FALSE(IsOpen(root));
}

TEST_F(RegistryAccess, TakesTypeAndSizeOfAValueThatWasReplacedWhileItIsRead) {
    registry_.SetStringValue(key, "value", "a long text");
    RegistryValue value;
    {
        const ReplacedFunction replaced("RegQueryValueExA", QueryReplacedValue<REG_BINARY, 3>);
        EXPECT_TRUE(registry_.QueryValue(key, "value", &value));
    }
    EXPECT_EQ(DWORD{REG_BINARY}, value.Type());
    EXPECT_EQ(3u, value.Size());
    char bytes[3] = {};
    EXPECT_TRUE(value.AsBinary(bytes, 3));
    EXPECT_EQ("012", std::string(bytes, 3));
}

TEST_F(RegistryAccess, EmptiesTheValueAndClosesBothKeysWhenTheValueHasGrownWhileItIsRead) {
    registry_.SetBinaryValue(key, "value", "a", 1);
    RegistryValue value("before"s);
    const unsigned handles = HandleCount();
    const HKEY root = OpenRoot();
    {
        const ReplacedFunction replaced("RegQueryValueExA", QueryReplacedValue<REG_BINARY, 10>);
        EXPECT_FALSE(CRegistry(root).QueryValue("Registry", "value", &value));
    }
    EXPECT_EQ(nullptr, value.Data());
    EXPECT_EQ(0u, value.Size());
    const char* text = nullptr;
    EXPECT_FALSE(value.AsString(&text));
    EXPECT_TRUE(WasClosed(root));
    EXPECT_EQ(handles, HandleCount());
}

TEST_F(RegistryAccess, ClosesTheRootAlsoWhenAValueCannotBeWrittenOrIsNotThereToBeDeleted) {
    registry_.SetStringValue(key, "text", "x");
    HKEY root = OpenRoot();
    {
        const ReplacedFunction replaced("RegSetValueExA", RefuseToSet);
        EXPECT_FALSE(CRegistry(root).SetStringValue("Registry", "text", "y"));
    }
    EXPECT_TRUE(WasClosed(root));
    root = OpenRoot();
    EXPECT_FALSE(CRegistry(root).Delete("Registry", "missing"));
    EXPECT_TRUE(WasClosed(root));
}

TEST_F(RegistryAccess, LeavesTheRootOpenWhenItDeletesAKey) {
    registry_.SetStringValue(key + "\\tree", "text", "x");
    const HKEY root = OpenRoot();
    EXPECT_TRUE(CRegistry(root).Delete("Registry\\tree", nullptr));
    EXPECT_FALSE(WasClosed(root));
}

TEST_F(RegistryAccess, AsksForNoMoreAccessThanItNeeds) {
    RegistryValue value;
    const ReplacedFunction open("RegOpenKeyExA", NoteOpen);
    const ReplacedFunction create("RegCreateKeyExA", NoteCreate);
    const auto access = [](bool succeeded) {
        EXPECT_TRUE(succeeded);
        return std::exchange(askedAccess, {});
    };
    using Access = std::vector<REGSAM>;
    EXPECT_EQ(Access{0x20006}, access(registry_.SetStringValue(key, "text", "x")));
    EXPECT_EQ(Access{0x20019}, access(registry_.QueryValue(key, "text", &value)));
    EXPECT_EQ(Access{0x20019}, access(registry_.QueryCounts(key, nullptr, nullptr)));
    EXPECT_EQ(Access{0x20019}, access(registry_.Enumerate(key.c_str(), 0)));
    EXPECT_EQ(Access{0x2001F}, access(registry_.Delete(key, "text")));
}

TEST_F(RegistryAccess, LeavesTheRootOpenWhenTheKeyOrTheValueIsMissing) {
    const HKEY root = OpenRoot();
    RegistryValue value;
    DWORD count = 0;
    CRegistry reading(root);
    EXPECT_FALSE(reading.QueryValue("missing", "x", &value));
    EXPECT_FALSE(reading.QueryValue("", "missing", &value));
    EXPECT_FALSE(reading.Delete("missing", "x"));
    EXPECT_FALSE(reading.Delete("missing", nullptr));
    reading.QueryCounts("", &count, nullptr);
    EXPECT_TRUE(IsOpen(root));
    RegCloseKey(root);
}

TEST_F(RegistryAccess, CanBeUsedAgainAndAgainOnAPredefinedRoot) {
    for (DWORD i = 0; i < 10; ++i) {
        DWORD read = 0;
        ASSERT_TRUE(registry_.SetDWORDValue(key, "number", &i));
        ASSERT_TRUE(registry_.GetDWORDValue(key, "number", &read));
        ASSERT_EQ(i, read);
    }
}

TEST_F(RegistryAccess, ConnectsToThisMachine) {
    registry_.SetStringValue(key, "text", "x");
    CRegistry connected(HKEY_LOCAL_MACHINE);
    ASSERT_TRUE(connected.Connect(nullptr, HKEY_CURRENT_USER));
    RegistryValue value;
    EXPECT_TRUE(connected.QueryValue(key, "text", &value));
}

TEST_F(RegistryAccess, ServesForOneReadOrWriteOnceItIsConnectedToAnotherMachine) {
    registry_.SetStringValue(key, "text", "x");
    const ReplacedFunction replaced("RegConnectRegistryA", ConnectToSoftware);
    const std::string path = "nuxStdPartsAXTests\\Registry";
    CRegistry connected(HKEY_LOCAL_MACHINE);
    ASSERT_TRUE(connected.Connect("machine", HKEY_CURRENT_USER));
    RegistryValue value;
    EXPECT_TRUE(connected.QueryValue(path, "text", &value));
    EXPECT_FALSE(connected.QueryValue(path, "text", &value));
    ASSERT_TRUE(connected.Connect("machine", HKEY_CURRENT_USER));
    EXPECT_TRUE(connected.SetStringValue(path, "text", "y"));
    EXPECT_FALSE(connected.SetStringValue(path, "text", "z"));
    EXPECT_EQ("y", ReadString(key, "text"));
}

TEST_F(RegistryAccess, StaysOnItsRootWhenItCannotConnect) {
    registry_.SetStringValue(key, "text", "x");
    EXPECT_FALSE(registry_.Connect("\\\\no-such-machine.invalid", HKEY_LOCAL_MACHINE));
    EXPECT_EQ("x", ReadString(key, "text"));
    EXPECT_EQ(HKEY_CURRENT_USER, registry_.SetRootKey(HKEY_CURRENT_USER));
}

TEST_F(RegistryAccess, GivesTheOldRootForANewOne) {
    registry_.SetStringValue(key, "text", "x");
    EXPECT_EQ(HKEY_CURRENT_USER, registry_.SetRootKey(HKEY_LOCAL_MACHINE));
    EXPECT_EQ("missing", ReadString(key, "text"));
    EXPECT_EQ(HKEY_LOCAL_MACHINE, registry_.SetRootKey(HKEY_CURRENT_USER));
    EXPECT_EQ("x", ReadString(key, "text"));
}

TEST_F(RegistryAccess, LeavesNoHandleOpen) {
    registry_.SetStringValue(key + "\\tree\\a", "x", "y");
    registry_.Enumerate(key.c_str(), CRegistry::visitValues);
    const unsigned before = HandleCount();
    for (int i = 0; i < 20; ++i) {
        RegistryValue value;
        registry_.SetStringValue(key + "\\tree\\a", "x", "y");
        registry_.QueryValue(key + "\\tree\\a", "x", &value);
        registry_.QueryValue(key + "\\tree\\a", "missing", &value);
        registry_.QueryCounts(key, nullptr, nullptr);
        registry_.Enumerate(key.c_str(), CRegistry::visitValues | CRegistry::visitKeys);
        registry_.Delete(key + "\\tree\\a", "x");
        registry_.Delete(key + "\\tree\\a", "x");
        registry_.Delete(key + "\\tree", nullptr);
    }
    EXPECT_EQ(before, HandleCount());
}

}  // namespace
}  // namespace nux
