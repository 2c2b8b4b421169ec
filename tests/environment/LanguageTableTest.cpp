#include "environment/LanguageTable.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>

namespace nux {
namespace {

/// Written out a second time: names and identifiers lead to folders on users' disks.
constexpr Language expectedLanguages[] = {
    {"Afrikaans", 0x0436},
    {"Albanian", 0x041C},
    {"Arabic_Saudi_Arabia", 0x0401},
    {"Arabic_Iraq", 0x0801},
    {"Arabic_Egypt", 0x0C01},
    {"Arabic_Libya", 0x1001},
    {"Arabic_Algeria", 0x1401},
    {"Arabic_Morocco", 0x1801},
    {"Arabic_Tunisia", 0x1C01},
    {"Arabic_Oman", 0x2001},
    {"Arabic_Yemen", 0x2401},
    {"Arabic_Syria", 0x2801},
    {"Arabic_Jordan", 0x2C01},
    {"Arabic_Lebanon", 0x3001},
    {"Arabic_Kuwait", 0x3401},
    {"Arabic_U_A_E", 0x3801},
    {"Arabic_Bahrain", 0x3C01},
    {"Arabic_Qatar", 0x4001},
    {"Armenian", 0x042B},
    {"Assamese", 0x044D},
    {"Azeri_Latin", 0x042C},
    {"Azeri_Cyrillic", 0x082C},
    {"Basque", 0x042D},
    {"Belarussian", 0x0423},
    {"Bengali", 0x0445},
    {"Bulgarian", 0x0402},
    {"Burmese", 0x0455},
    {"Catalan", 0x0403},
    {"Chinese_Taiwan", 0x0404},
    {"Chinese_PRC", 0x0804},
    {"Chinese_Hong_Kong_SAR_PRC", 0x0C04},
    {"Chinese_Singapore", 0x1004},
    {"Chinese_Macau_SAR", 0x1404},
    {"Croatian", 0x041A},
    {"Czech", 0x0405},
    {"Danish", 0x0406},
    {"Dutch_Netherlands", 0x0413},
    {"Dutch_Belgium", 0x0813},
    {"English_United_States", 0x0409},
    {"English_United_Kingdom", 0x0809},
    {"English_Australian", 0x0C09},
    {"English_Canadian", 0x1009},
    {"English_New_Zealand", 0x1409},
    {"English_Ireland", 0x1809},
    {"English_South_Africa", 0x1C09},
    {"English_Jamaica", 0x2009},
    {"English_Caribbean", 0x2409},
    {"English_Belize", 0x2809},
    {"English_Trinidad", 0x2C09},
    {"English_Zimbabwe", 0x3009},
    {"English_Philippines", 0x3409},
    {"Estonian", 0x0425},
    {"Faeroese", 0x0438},
    {"Farsi", 0x0429},
    {"Finnish", 0x040B},
    {"French_Standard", 0x040C},
    {"French_Belgian", 0x080C},
    {"French_Canadian", 0x0C0C},
    {"French_Switzerland", 0x100C},
    {"French_Luxembourg", 0x140C},
    {"French_Monaco", 0x180C},
    {"Georgian", 0x0437},
    {"German_Standard", 0x0407},
    {"German_Switzerland", 0x0807},
    {"German_Austria", 0x0C07},
    {"German_Luxembourg", 0x1007},
    {"German_Liechtenstein", 0x1407},
    {"Greek", 0x0408},
    {"Gujarati", 0x0447},
    {"Hebrew", 0x040D},
    {"Hindi", 0x0439},
    {"Hungarian", 0x040E},
    {"Icelandic", 0x040F},
    {"Indonesian", 0x0421},
    {"Italian_Standard", 0x0410},
    {"Italian_Switzerland", 0x0810},
    {"Japanese", 0x0411},
    {"Kannada", 0x044B},
    {"Kashmiri_India", 0x0860},
    {"Kazakh", 0x043F},
    {"Konkani", 0x0457},
    {"Korean", 0x0412},
    {"Korean_Johab", 0x0812},
    {"Latvian", 0x0426},
    {"Lithuanian", 0x0427},
    {"Lithuanian_Classic", 0x0827},
    {"Macedonian", 0x042F},
    {"Malay_Malaysian", 0x043E},
    {"Malay_Brunei_Darussalam", 0x083E},
    {"Malayalam", 0x044C},
    {"Manipuri", 0x0458},
    {"Marathi", 0x044E},
    {"Nepali_India", 0x0861},
    {"Norwegian_Bokmal", 0x0414},
    {"Norwegian_Nynorsk", 0x0814},
    {"Oriya", 0x0448},
    {"Polish", 0x0415},
    {"Portuguese_Brazilian", 0x0416},
    {"Portuguese_Standard", 0x0816},
    {"Punjabi", 0x0446},
    {"Romanian", 0x0418},
    {"Russian", 0x0419},
    {"Sanskrit", 0x044F},
    {"Serbian_Cyrillic", 0x0C1A},
    {"Serbian_Latin", 0x081A},
    {"Sindhi", 0x0459},
    {"Slovak", 0x041B},
    {"Slovenian", 0x0424},
    {"Spanish_Traditional_Sort", 0x040A},
    {"Spanish_Mexican", 0x080A},
    {"Spanish_Modern_Sort", 0x0C0A},
    {"Spanish_Guatemala", 0x100A},
    {"Spanish_Costa_Rica", 0x140A},
    {"Spanish_Panama", 0x180A},
    {"Spanish_Dominican_Republic", 0x1C0A},
    {"Spanish_Venezuela", 0x200A},
    {"Spanish_Colombia", 0x240A},
    {"Spanish_Peru", 0x280A},
    {"Spanish_Argentina", 0x2C0A},
    {"Spanish_Ecuador", 0x300A},
    {"Spanish_Chile", 0x340A},
    {"Spanish_Uruguay", 0x380A},
    {"Spanish_Paraguay", 0x3C0A},
    {"Spanish_Bolivia", 0x400A},
    {"Spanish_El Salvador", 0x440A},
    {"Spanish_Honduras", 0x480A},
    {"Spanish_Nicaragua", 0x4C0A},
    {"Spanish_Puerto_Rico", 0x500A},
    {"Sutu", 0x0430},
    {"Swahili_Kenya", 0x0441},
    {"Swedish", 0x041D},
    {"Swedish_Finland", 0x081D},
    {"Tamil", 0x0449},
    {"Tatar_Tatarstan", 0x0444},
    {"Telugu", 0x044A},
    {"Thai", 0x041E},
    {"Turkish", 0x041F},
    {"Ukrainian", 0x0422},
    {"Urdu_Pakistan", 0x0420},
    {"Urdu_India", 0x0820},
    {"Uzbek_Latin", 0x0443},
    {"Uzbek_Cyrillic", 0x0843},
    {"Vietnamese", 0x042A},
};

std::string Choose(std::uint16_t id, std::set<std::string_view> folders) {
    return ChooseInterfaceLanguage(id, [&](std::string_view name) { return folders.contains(name); });
}

TEST(LanguageTable, HoldsExactlyTheseLanguagesInThisOrder) {
    ASSERT_EQ(std::size(expectedLanguages), LanguageTable().size());
    for (std::size_t row = 0; row < std::size(expectedLanguages); ++row) {
        EXPECT_EQ(expectedLanguages[row].name, LanguageTable()[row].name) << "row " << row;
        EXPECT_EQ(expectedLanguages[row].id, LanguageTable()[row].id) << expectedLanguages[row].name;
    }
}

TEST(LanguageTable, HoldsEachOfItsLanguagesOnce) {
    std::set<std::uint16_t> ids;
    std::set<std::string_view> names;
    for (const Language& language : LanguageTable()) {
        EXPECT_TRUE(ids.insert(language.id).second) << language.name;
        EXPECT_TRUE(names.insert(language.name).second) << language.name;
        EXPECT_EQ(language.name, LanguageName(language.id));
    }
    EXPECT_EQ(143u, names.size());
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

}  // namespace
}  // namespace nux
