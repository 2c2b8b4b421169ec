#include "environment/RegistryValue.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace nux {
namespace {

using namespace std::string_literals;

std::string Bytes(const RegistryValue& value) {
    return value.Data() ? std::string(reinterpret_cast<const char*>(value.Data()), value.Size()) : "none";
}

/// A value of any type, as the registry may hold it.
RegistryValue Raw(DWORD type, const std::string& bytes) {
    RegistryValue value;
    std::memcpy(value.Allocate(type, static_cast<DWORD>(bytes.size())), bytes.data(), bytes.size());
    return value;
}

TEST(RegistryValueTest, IsEmptyByDefault) {
    const RegistryValue value;
    EXPECT_EQ(DWORD{REG_NONE}, value.Type());
    EXPECT_EQ(0u, value.Size());
    EXPECT_EQ(nullptr, value.Data());
}

TEST(RegistryValueTest, IsMadeOfANumber) {
    const RegistryValue value(0x01020304u);
    EXPECT_EQ(DWORD{REG_DWORD}, value.Type());
    EXPECT_EQ("\x04\x03\x02\x01", Bytes(value));
}

TEST(RegistryValueTest, IsMadeOfAStringWithItsTerminator) {
    EXPECT_EQ(DWORD{REG_SZ}, RegistryValue("text"s).Type());
    EXPECT_EQ("text\0"s, Bytes(RegistryValue("text"s)));
    EXPECT_EQ("\0"s, Bytes(RegistryValue(""s)));
}

TEST(RegistryValueTest, IsMadeOfAStringWithVariables) {
    const RegistryValue value("%TEMP%"s, true);
    EXPECT_EQ(DWORD{REG_EXPAND_SZ}, value.Type());
    EXPECT_EQ("%TEMP%\0"s, Bytes(value));
}

TEST(RegistryValueTest, IsMadeOfBytes) {
    const RegistryValue value("a\0b", 3);
    EXPECT_EQ(DWORD{REG_BINARY}, value.Type());
    EXPECT_EQ("a\0b"s, Bytes(value));
}

TEST(RegistryValueTest, IsMadeOfAListOfStringsWithTwoZerosAtItsEnd) {
    const RegistryValue value(std::vector<std::string>{"one", "two"});
    EXPECT_EQ(DWORD{REG_MULTI_SZ}, value.Type());
    EXPECT_EQ("one\0two\0\0"s, Bytes(value));
    EXPECT_EQ("\0"s, Bytes(RegistryValue(std::vector<std::string>{})));
}

TEST(RegistryValueTest, HasNoBytesWhenItIsEmptyWhateverItsType) {
    const RegistryValue value(nullptr, 0);
    EXPECT_EQ(DWORD{REG_BINARY}, value.Type());
    EXPECT_EQ(0u, value.Size());
    EXPECT_EQ(nullptr, value.Data());
}

TEST(RegistryValueTest, DropsWhatItHeldWhenItIsSet) {
    RegistryValue value("a long text"s);
    value.SetNumber(1);
    EXPECT_EQ(4u, value.Size());
    EXPECT_EQ(DWORD{REG_DWORD}, value.Type());
    value.SetString("x");
    EXPECT_EQ("x\0"s, Bytes(value));
    value.SetStrings({"y"});
    EXPECT_EQ("y\0\0"s, Bytes(value));
    value.SetBinary("z", 1);
    EXPECT_EQ("z", Bytes(value));
    value.Clear();
    EXPECT_EQ(nullptr, value.Data());
    EXPECT_EQ(DWORD{REG_NONE}, value.Type());
}

TEST(RegistryValueTest, IsACopyOfItsOwn) {
    RegistryValue value("text"s);
    const RegistryValue copy = value;
    value.SetNumber(1);
    EXPECT_EQ("text\0"s, Bytes(copy));
}

TEST(RegistryValueTest, ReadsAsAStringForTheTypesOfStringsOnly) {
    for (DWORD type = REG_NONE; type <= REG_QWORD; ++type) {
        const RegistryValue value = Raw(type, "text\0"s);
        const char* text = "untouched";
        const bool isString =
            type == REG_SZ || type == REG_EXPAND_SZ || type == REG_LINK || type == REG_MULTI_SZ;
        EXPECT_EQ(isString, value.AsString(&text)) << type;
        EXPECT_STREQ(isString ? "text" : "untouched", text) << type;
    }
}

TEST(RegistryValueTest, ReadsAsANumberForTheTypesOfNumbersOnly) {
    for (DWORD type = REG_NONE; type <= REG_QWORD; ++type) {
        const RegistryValue value = Raw(type, "\x04\x03\x02\x01");
        DWORD number = 99;
        const bool isNumber = type == REG_DWORD || type == REG_DWORD_BIG_ENDIAN;
        EXPECT_EQ(isNumber, value.AsNumber(&number)) << type;
        // The bytes are taken as they lie, also those of a big-endian number.
        EXPECT_EQ(isNumber ? 0x01020304u : 99u, number) << type;
    }
}

TEST(RegistryValueTest, ReadsAsBytesForTheTypesOfBytesOnly) {
    for (DWORD type = REG_NONE; type <= REG_QWORD; ++type) {
        const RegistryValue value = Raw(type, "abc");
        char bytes[4] = "xyz";
        const bool isBinary =
            type == REG_BINARY || type == REG_RESOURCE_LIST || type == REG_FULL_RESOURCE_DESCRIPTOR;
        EXPECT_EQ(isBinary, value.AsBinary(bytes, 3)) << type;
        EXPECT_STREQ(isBinary ? "abc" : "xyz", bytes) << type;
    }
}

TEST(RegistryValueTest, ReadsAsBytesForItsExactSizeOnly) {
    const RegistryValue value("abc", 3);
    char bytes[5] = "wxyz";
    EXPECT_FALSE(value.AsBinary(bytes, 2));
    EXPECT_FALSE(value.AsBinary(bytes, 4));
    EXPECT_FALSE(value.AsBinary(bytes, 0));
    EXPECT_STREQ("wxyz", bytes);
    EXPECT_TRUE(value.AsBinary(bytes, 3));
    EXPECT_STREQ("abcz", bytes);
    EXPECT_TRUE(RegistryValue(nullptr, 0).AsBinary(nullptr, 0));
}

TEST(RegistryValueTest, ReadsTheFirstBytesOfANumberThatIsTooLongAndRefusesOneThatIsTooShort) {
    DWORD number = 99;
    EXPECT_TRUE(Raw(REG_DWORD, "\x01\x00\x00\x00\xFF\xFF"s).AsNumber(&number));
    EXPECT_EQ(1u, number);
    number = 99;
    EXPECT_FALSE(Raw(REG_DWORD, "\x01\x02\x03"s).AsNumber(&number));
    EXPECT_FALSE(Raw(REG_DWORD, "").AsNumber(&number));
    EXPECT_EQ(99u, number);
}

TEST(RegistryValueTest, TerminatesAStringThatIsStoredWithoutTerminator) {
    const char* text = nullptr;
    const RegistryValue unterminated = Raw(REG_SZ, "text");
    EXPECT_EQ(4u, unterminated.Size());
    ASSERT_TRUE(unterminated.AsString(&text));
    EXPECT_STREQ("text", text);
    const RegistryValue list = Raw(REG_MULTI_SZ, "one");
    ASSERT_TRUE(list.AsString(&text));
    EXPECT_EQ("one\0\0"s, std::string(text, 5));
    const RegistryValue empty = Raw(REG_SZ, "");
    ASSERT_TRUE(empty.AsString(&text));
    EXPECT_STREQ("", text);
}

}  // namespace
}  // namespace nux
