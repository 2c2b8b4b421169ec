#include "environment/LanguageTable.h"

#include <gtest/gtest.h>

#include <set>

namespace nux {
namespace {

std::string Choose(std::uint16_t id, std::set<std::string_view> folders) {
    return ChooseInterfaceLanguage(id, [&](std::string_view name) { return folders.contains(name); });
}

TEST(LanguageTable, HoldsEachOfItsLanguagesOnce) {
    std::set<std::uint16_t> ids;
    std::set<std::string_view> names;
    for (const Language& language : LanguageTable()) {
        EXPECT_TRUE(ids.insert(language.id).second) << language.name;
        EXPECT_TRUE(names.insert(language.name).second) << language.name;
    }
    EXPECT_EQ(143u, LanguageTable().size());
    EXPECT_EQ("Afrikaans", LanguageTable().front().name);
    EXPECT_EQ("Vietnamese", LanguageTable().back().name);
}

TEST(LanguageTable, KeepsTheOddSpellingsThatAreFolderNames) {
    EXPECT_EQ("Spanish_El Salvador", LanguageName(0x440A));
    EXPECT_EQ("Belarussian", LanguageName(0x0423));
    EXPECT_EQ("Faeroese", LanguageName(0x0438));
}

TEST(LanguageTable, TakesBritishEnglishForAnIdentifierThatItLacks) {
    EXPECT_EQ("English_United_Kingdom", LanguageName(0x0000));
    EXPECT_EQ("English_United_Kingdom", LanguageName(0x7F7F));
}

TEST(LanguageTable, ShortensToExactlyTheseNames) {
    std::set<std::string_view> shortNames;
    for (const Language& language : LanguageTable()) {
        if (const std::string_view name = ShortLanguageName(language.name); !name.empty())
            shortNames.insert(name);
    }
    EXPECT_EQ(
        (std::set<std::string_view>{"Arabic",  "Azeri",     "Chinese",    "Dutch",   "English",    "French",
                                    "German",  "Italian",   "Kashmiri",   "Korean",  "Lithuanian", "Malay",
                                    "Nepali",  "Norwegian", "Portuguese", "Serbian", "Spanish",    "Swahili",
                                    "Swedish", "Tatar",     "Urdu",       "Uzbek"}),
        shortNames);
}

TEST(InterfaceLanguage, IsTheShortNameWhenOnlyAnotherVariantAndTheShortFolderExist) {
    EXPECT_EQ("German", Choose(0x0C07, {"German_Standard", "German"}));
}

TEST(InterfaceLanguage, IsTheExactNameWhenItsFolderExists) {
    EXPECT_EQ("German_Austria", Choose(0x0C07, {"German_Standard", "German", "German_Austria"}));
}

TEST(InterfaceLanguage, IsEmptyWithNeitherFolder) {
    EXPECT_EQ("", Choose(0x0807, {"German_Standard", "English", "English_United_Kingdom"}));
}

TEST(InterfaceLanguage, DoesNotShortenANameWithoutUnderscore) {
    EXPECT_EQ("", Choose(0x0411, {"Japan", "English"}));
    EXPECT_EQ("Japanese", Choose(0x0411, {"Japanese"}));
}

TEST(InterfaceLanguage, IsEnglishForAnUnknownIdentifierWhenAnEnglishFolderExists) {
    EXPECT_EQ("English", Choose(0x7F7F, {"English", "German"}));
}

TEST(LocaleFolder, TakesThePlaceOfTheLastFourCharacters) {
    EXPECT_EQ("C:\\app\\locale\\", LocaleFolderOf("C:\\app\\gui\\"));
    EXPECT_EQ("C:\\applocale\\", LocaleFolderOf("C:\\app\\wiz"));
    EXPECT_EQ("locale\\", LocaleFolderOf("gui\\"));
}

TEST(LocaleFolder, StandsAloneForAShorterPath) {
    EXPECT_EQ("locale\\", LocaleFolderOf("ui\\"));
    EXPECT_EQ("locale\\", LocaleFolderOf(""));
}

}  // namespace
}  // namespace nux
