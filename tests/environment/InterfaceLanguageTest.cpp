// Run once for each locale, whose name is the program's argument: the environment of the process must have
// it.

#include <cstdlib>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/LanguageFolders.h"

namespace nux {
namespace {

struct Expected {
    const char* locale;
    LANGID language;
    const char* exactName;
    const char* shortName;  ///< empty if the exact name has no shorter form
    const char* otherName;  ///< a language with the same short name
    const char* separator;
    UINT codePage;
};

// Welsh and Galician are languages that the component has no folder name for.
constexpr Expected expectations[] = {
    {"de_AT", 0x0C07, "German_Austria", "German", "German_Standard", ",", 1252},
    {"de_CH", 0x0807, "German_Switzerland", "German", "German_Standard", ".", 1252},
    {"de_DE", 0x0407, "German_Standard", "German", "German_Austria", ",", 1252},
    {"en_US", 0x0409, "English_United_States", "English", "English_United_Kingdom", ".", 1252},
    {"ja_JP", 0x0411, "Japanese", "", "Japanese_Standard", ".", 932},
    {"cy_GB", 0x0452, "English_United_Kingdom", "English", "Welsh", ".", 1252},
    {"gl_ES", 0x0456, "English_United_Kingdom", "English", "Galician", ",", 1252},
};

class InterfaceLanguageTest : public testing::Test {
protected:
    void SetUp() override {
        for (const Expected& expected : expectations) {
            if (__argc > 1 && std::string(expected.locale) == __argv[1])
                expected_ = &expected;
        }
        ASSERT_NE(nullptr, expected_) << "no locale, or an unknown one, as argument";
    }

    const std::string& Start(std::initializer_list<std::string> folders) {
        folders_.Folder().MakeFolder("locale");
        for (const std::string& folder : folders) {
            if (!folder.empty())
                folders_.Folder().MakeFolder("locale\\" + folder);
        }
        EXPECT_TRUE(InitEnvironment());
        return InterfaceLanguage();
    }

    const LanguageFolders folders_;
    const Expected* expected_ = nullptr;
};

TEST_F(InterfaceLanguageTest, BelongsToTheUserThatThePlatformTells) {
    EXPECT_EQ(expected_->language, GetUserDefaultLangID());
    EXPECT_EQ(expected_->codePage, GetACP());
}

TEST_F(InterfaceLanguageTest, IsTheExactOneIfItsFolderIsThere) {
    EXPECT_EQ(expected_->exactName,
              Start({expected_->exactName, expected_->shortName, expected_->otherName}));
}

TEST_F(InterfaceLanguageTest, IsTheShortenedOneIfOnlyItsFolderIsThere) {
    EXPECT_EQ(expected_->shortName, Start({expected_->shortName, expected_->otherName}));
}

TEST_F(InterfaceLanguageTest, IsNoneWithNeitherFolder) {
    EXPECT_EQ("", Start({expected_->otherName}));
    EXPECT_EQ("OK", GetLocalizedMessage("", "OK"));
}

TEST_F(InterfaceLanguageTest, IsNoneWithoutALocaleFolder) {
    EXPECT_TRUE(InitEnvironment());
    EXPECT_EQ("", InterfaceLanguage());
}

TEST_F(InterfaceLanguageTest, BringsItsMessages) {
    folders_.Folder().Write(std::string("locale\\") + expected_->exactName + "\\Pins_Msgs.xml",
                            "<Messages>" + Pair("Pin", "translated") + "</Messages>");
    Start({});
    EXPECT_EQ("translated", GetLocalizedMessage("Pins", "Pin"));
}

TEST_F(InterfaceLanguageTest, ComesWithTheDecimalSeparatorOfTheUser) {
    Start({});
    EXPECT_STREQ(expected_->separator, DecimalSeparator());
    EXPECT_EQ(expected_->separator[0] == ',', IsDecimalSeparator(','));
    EXPECT_EQ(expected_->separator[0] == '.', IsDecimalSeparator('.'));
}

}  // namespace
}  // namespace nux
