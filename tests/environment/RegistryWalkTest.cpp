#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "environment/Registry.h"
#include "framework/Handles.h"
#include "tests/environment/RegistryFunctions.h"

namespace nux {
namespace {

const std::string top = "Software\\nuxStdPartsAXTests\\Walk";
constexpr unsigned both = CRegistry::visitValues | CRegistry::visitKeys;

/// Notes its walk, and stops it at the note that the test tells.
class Walker : public CRegistry {
public:
    using CRegistry::CRegistry;

    int OnValue(const std::string& keyPath, const std::string& name, const RegistryValue& value,
                int depth) override {
        DWORD number = 0;
        const char* text = "";
        std::string content;
        if (value.AsNumber(&number))
            content = std::to_string(number);
        else if (value.AsString(&text))
            content = text;
        return Note(std::to_string(depth) + " " + keyPath.substr(std::min(top.size(), keyPath.size())) + ":" +
                    name + "=" + content);
    }
    int OnKey(const std::string& name, int depth) override {
        return Note(std::to_string(depth) + " [" + name + "]");
    }

    std::vector<std::string> notes;
    std::string stopAt;

private:
    int Note(std::string note) {
        notes.push_back(std::move(note));
        return notes.back() != stopAt;
    }
};

using Notes = std::vector<std::string>;

class RegistryWalk : public testing::Test {
protected:
    RegistryWalk() {
        const DWORD number = 5;
        walker_.SetStringValue(top, "first", "1");
        walker_.SetDWORDValue(top, "second", &number);
        walker_.SetStringValue(top + "\\a", "inner", "x");
        walker_.SetStringValue(top + "\\a\\deep", "deepest", "y");
        walker_.SetStringValue(top + "\\b", "", "default");
    }
    ~RegistryWalk() override { RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\nuxStdPartsAXTests"); }

    Walker walker_{HKEY_CURRENT_USER};
};

TEST_F(RegistryWalk, GoesThroughTheValuesOfAKeyAndThenThroughEachSubkey) {
    EXPECT_TRUE(walker_.Enumerate(top.c_str(), both));
    EXPECT_EQ((Notes{"0 :first=1", "0 :second=5", "0 [a]", "1 \\a:inner=x", "1 [deep]",
                     "2 \\a\\deep:deepest=y", "0 [b]", "1 \\b:=default"}),
              walker_.notes);
}

TEST_F(RegistryWalk, VisitsOnlyWhatItsFlagsTell) {
    EXPECT_TRUE(walker_.Enumerate(top.c_str(), CRegistry::visitValues));
    EXPECT_EQ(
        (Notes{"0 :first=1", "0 :second=5", "1 \\a:inner=x", "2 \\a\\deep:deepest=y", "1 \\b:=default"}),
        walker_.notes);
    walker_.notes.clear();
    EXPECT_TRUE(walker_.Enumerate(top.c_str(), CRegistry::visitKeys));
    EXPECT_EQ((Notes{"0 [a]", "1 [deep]", "0 [b]"}), walker_.notes);
    walker_.notes.clear();
    EXPECT_TRUE(walker_.Enumerate(top.c_str(), 0));
    EXPECT_TRUE(walker_.notes.empty());
}

TEST_F(RegistryWalk, EndsWithItsFailureWhenAValueStopsIt) {
    walker_.stopAt = "0 :first=1";
    EXPECT_FALSE(walker_.Enumerate(top.c_str(), both));
    EXPECT_EQ(Notes{"0 :first=1"}, walker_.notes);
}

TEST_F(RegistryWalk, EndsWithItsFailureWhenAKeyStopsIt) {
    walker_.stopAt = "0 [a]";
    EXPECT_FALSE(walker_.Enumerate(top.c_str(), CRegistry::visitKeys));
    EXPECT_EQ(Notes{"0 [a]"}, walker_.notes);
}

TEST_F(RegistryWalk, EndsAsAWholeWhenItIsStoppedInTheDepth) {
    walker_.stopAt = "2 \\a\\deep:deepest=y";
    EXPECT_FALSE(walker_.Enumerate(top.c_str(), both));
    EXPECT_EQ(walker_.stopAt, walker_.notes.back());
}

TEST_F(RegistryWalk, IsStoppedByTheBaseClassAtItsFirstVisit) {
    CRegistry plain(HKEY_CURRENT_USER);
    EXPECT_FALSE(plain.Enumerate(top.c_str(), CRegistry::visitValues));
    EXPECT_FALSE(plain.Enumerate(top.c_str(), CRegistry::visitKeys));
    EXPECT_TRUE(plain.Enumerate(top.c_str(), 0));
}

LSTATUS WINAPI EnumValueButTheFirst(HKEY key, DWORD index, char* name, DWORD* nameLength, DWORD* reserved,
                                    DWORD* type, BYTE* data, DWORD* size) {
    static const auto original = Original<decltype(RegEnumValueA)>("RegEnumValueA");
    return index == 0 ? ERROR_ACCESS_DENIED
                      : original(key, index, name, nameLength, reserved, type, data, size);
}

LSTATUS WINAPI EnumKeyButTheFirst(HKEY key, DWORD index, char* name, DWORD size) {
    static const auto original = Original<decltype(RegEnumKeyA)>("RegEnumKeyA");
    return index == 0 ? ERROR_ACCESS_DENIED : original(key, index, name, size);
}

TEST_F(RegistryWalk, SkipsAValueThatCannotBeRead) {
    const ReplacedFunction replaced("RegEnumValueA", EnumValueButTheFirst);
    EXPECT_TRUE(walker_.Enumerate(top.c_str(), both));
    EXPECT_EQ((Notes{"0 :second=5", "0 [a]", "1 [deep]", "0 [b]"}), walker_.notes);
}

TEST_F(RegistryWalk, SkipsASubkeyThatCannotBeRead) {
    const ReplacedFunction replaced("RegEnumKeyA", EnumKeyButTheFirst);
    EXPECT_TRUE(walker_.Enumerate(top.c_str(), both));
    EXPECT_EQ((Notes{"0 :first=1", "0 :second=5", "0 [b]", "1 \\b:=default"}), walker_.notes);
}

TEST_F(RegistryWalk, FailsForAKeyThatIsMissing) {
    EXPECT_FALSE(walker_.Enumerate((top + "\\missing").c_str(), both));
    EXPECT_TRUE(walker_.notes.empty());
}

TEST_F(RegistryWalk, StartsAtTheRootForANullPath) {
    HKEY root = nullptr;
    RegOpenKeyExA(HKEY_CURRENT_USER, (top + "\\a").c_str(), 0, KEY_READ, &root);
    Walker walker(root);
    EXPECT_TRUE(walker.Enumerate(nullptr, both));
    EXPECT_EQ((Notes{"0 :inner=x", "0 [deep]", "1 :deepest=y"}), walker.notes);
    RegCloseKey(root);
}

TEST_F(RegistryWalk, FailsBelowARootThatIsNoKey) {
    Walker walker(reinterpret_cast<HKEY>(0x1234));
    EXPECT_FALSE(walker.Enumerate(nullptr, both));
}

TEST_F(RegistryWalk, GivesLongNamesAndValuesWhole) {
    const std::string name(200, '\xFC');
    const std::string text(10'000, '\xDF');
    walker_.SetStringValue(top + "\\b\\" + name, name, text);
    EXPECT_TRUE(walker_.Enumerate((top + "\\b").c_str(), both));
    ASSERT_EQ(3u, walker_.notes.size());
    EXPECT_EQ("0 [" + name + "]", walker_.notes[1]);
    EXPECT_EQ("1 \\b\\" + name + ":" + name + "=" + text, walker_.notes[2]);
}

TEST_F(RegistryWalk, GivesTheExactBytesAndTypeOfAValue) {
    class Witness : public CRegistry {
    public:
        using CRegistry::CRegistry;
        int OnValue(const std::string&, const std::string&, const RegistryValue& value, int) override {
            EXPECT_EQ(DWORD{REG_BINARY}, value.Type());
            EXPECT_EQ(3u, value.Size());
            char bytes[3] = {};
            EXPECT_TRUE(value.AsBinary(bytes, 3));
            EXPECT_EQ(std::string("a\0b", 3), std::string(bytes, 3));
            ++seen;
            return 1;
        }
        int seen = 0;
    };
    walker_.SetBinaryValue(top + "\\bytes", "x", "a\0b", 3);
    Witness witness(HKEY_CURRENT_USER);
    EXPECT_TRUE(witness.Enumerate((top + "\\bytes").c_str(), CRegistry::visitValues));
    EXPECT_EQ(1, witness.seen);
}

TEST_F(RegistryWalk, EndsAlsoWhenTheKeyIsDeletedMeanwhile) {
    class Deleting : public CRegistry {
    public:
        using CRegistry::CRegistry;
        int OnValue(const std::string&, const std::string&, const RegistryValue&, int) override {
            RegDeleteTreeA(HKEY_CURRENT_USER, top.c_str());
            return ++visits < 1000;
        }
        int visits = 0;
    };
    Deleting deleting(HKEY_CURRENT_USER);
    deleting.Enumerate(top.c_str(), CRegistry::visitValues);
    EXPECT_EQ(1, deleting.visits);
}

TEST_F(RegistryWalk, CountsSubkeysAndValues) {
    DWORD subkeys = 99;
    DWORD values = 99;
    EXPECT_TRUE(walker_.QueryCounts(top, &subkeys, &values));
    EXPECT_EQ(2u, subkeys);
    EXPECT_EQ(2u, values);
    EXPECT_TRUE(walker_.QueryCounts(top, nullptr, nullptr));
    EXPECT_TRUE(walker_.QueryCounts(top + "\\b", &subkeys, nullptr));
    EXPECT_EQ(0u, subkeys);
    EXPECT_TRUE(walker_.QueryCounts(top + "\\a", nullptr, &values));
    EXPECT_EQ(1u, values);
}

TEST_F(RegistryWalk, CountsNothingInAKeyThatIsEmptyOrMissing) {
    walker_.SetStringValue(top + "\\empty", "x", "y");
    walker_.Delete(top + "\\empty", "x");
    for (const char* path : {"\\empty", "\\missing"}) {
        DWORD subkeys = 99;
        DWORD values = 99;
        EXPECT_FALSE(walker_.QueryCounts(top + path, &subkeys, &values)) << path;
        EXPECT_EQ(0u, subkeys) << path;
        EXPECT_EQ(0u, values) << path;
        EXPECT_FALSE(walker_.QueryCounts(top + path, nullptr, nullptr)) << path;
    }
}

TEST_F(RegistryWalk, CountsAKeyThatHasSubkeysOnly) {
    walker_.SetStringValue(top + "\\outer\\inner", "x", "y");
    DWORD subkeys = 0;
    DWORD values = 99;
    EXPECT_TRUE(walker_.QueryCounts(top + "\\outer", &subkeys, &values));
    EXPECT_EQ(1u, subkeys);
    EXPECT_EQ(0u, values);
}

}  // namespace
}  // namespace nux
