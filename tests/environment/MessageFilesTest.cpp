// Message tables stay for the process, so each test asks for a catalogue of its own.

#include <gtest/gtest.h>

#include <string>

#include "environment/Environment.h"
#include "environment/Localisation.h"
#include "tests/support/HostDouble.h"
#include "tests/support/LanguageFolders.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

class MessageFiles : public testing::Test {
protected:
    MessageFiles() { languages_.StartInUserLanguage(); }

    /// Path of a catalogue's own message file, relative to the test's folder.
    static std::string SecondPlace(const std::string& catalogFolder, const std::string& file) {
        return catalogFolder + "locale\\" + LanguageFolders::UserLanguage() + "\\" + file;
    }
    void WriteSecondPlace(const std::string& catalogFolder, const std::string& file,
                          const std::string& pairs) {
        languages_.Folder().Write(SecondPlace(catalogFolder, file), "<Messages>" + pairs + "</Messages>");
    }

    const LanguageFolders languages_;
    const InstalledHost host_{
        [this](const std::string& id) { return languages_.Folder().Path() + "catalogs\\" + id + "\\"; }};
};

TEST_F(MessageFiles, TranslateAMessageOfTheirCatalogue) {
    languages_.WriteMessages("First_Msgs.xml", Pair("Pin", "Stift") + Pair("Screw", "Schraube"));
    EXPECT_EQ("Stift", GetLocalizedMessage("First", "Pin"));
    EXPECT_EQ("Schraube", GetLocalizedMessage("First", "Screw"));
}

TEST_F(MessageFiles, GiveTheIdBackForAMessageThatIsMissing) {
    languages_.WriteMessages("Missing_Msgs.xml", Pair("Pin", "Stift"));
    EXPECT_EQ("Screw\n%s", GetLocalizedMessage("Missing", "Screw\n%s"));
}

TEST_F(MessageFiles, GiveTheIdBackForATextThatIsEmpty) {
    languages_.WriteMessages("Empty_Msgs.xml", Pair("Pin", "") + "<MsgID>Screw</MsgID><Text/>");
    EXPECT_EQ("Pin", GetLocalizedMessage("Empty", "Pin"));
    EXPECT_EQ("Screw", GetLocalizedMessage("Empty", "Screw"));
}

TEST_F(MessageFiles, AreComparedWithTheirCaseKept) {
    languages_.WriteMessages("Case_Msgs.xml", Pair("OK", "upper") + Pair("Ok", "mixed"));
    EXPECT_EQ("upper", GetLocalizedMessage("Case", "OK"));
    EXPECT_EQ("mixed", GetLocalizedMessage("Case", "Ok"));
    EXPECT_EQ("ok", GetLocalizedMessage("Case", "ok"));
}

TEST_F(MessageFiles, KeepTheFirstOfTwoEqualIds) {
    languages_.WriteMessages("Twice_Msgs.xml", Pair("Pin", "first") + Pair("Pin", "second") +
                                                   Pair("Screw", "") +
                                                   Pair("Screw", "hidden by the empty one"));
    EXPECT_EQ("first", GetLocalizedMessage("Twice", "Pin"));
    EXPECT_EQ("Screw", GetLocalizedMessage("Twice", "Screw"));
}

TEST_F(MessageFiles, GiveAnEmptyTextForAnEmptyIdWithoutOpeningAFile) {
    languages_.WriteMessages("Unopened_Msgs.xml", Pair("", "text"));
    EXPECT_EQ("", GetLocalizedMessage("Unopened", ""));
    // Had the file been looked for, its table would stay.
    languages_.WriteMessages("Unopened_Msgs.xml", Pair("Pin", "Stift"));
    EXPECT_EQ("Stift", GetLocalizedMessage("Unopened", "Pin"));
}

TEST_F(MessageFiles, GiveTheIdBackWithAnEmptyLanguageWithoutOpeningAFile) {
    const std::string gui = Installation().gui;
    languages_.WriteMessages("NoLanguage_Msgs.xml", Pair("Pin", "Stift"));
    Installation().gui = "C:\\no such folder\\gui\\";
    InitEnvironment();
    EXPECT_EQ("", InterfaceLanguage());
    EXPECT_EQ("Pin", GetLocalizedMessage("NoLanguage", "Pin"));
    Installation().gui = gui;
    InitEnvironment();
    EXPECT_EQ("Stift", GetLocalizedMessage("NoLanguage", "Pin"));
}

TEST_F(MessageFiles, LieWithTheirCatalogueInTheSecondPlace) {
    WriteSecondPlace("catalogs\\Second\\", "Second_Msgs.xml", Pair("Pin", "of the catalogue"));
    EXPECT_EQ("of the catalogue", GetLocalizedMessage("Second", "Pin"));
}

TEST_F(MessageFiles, AreTakenFromTheFirstPlaceAlone) {
    languages_.WriteMessages("Both_Msgs.xml", Pair("Pin", "first place"));
    WriteSecondPlace("catalogs\\Both\\", "Both_Msgs.xml",
                     Pair("Pin", "second place") + Pair("Screw", "unseen"));
    EXPECT_EQ("first place", GetLocalizedMessage("Both", "Pin"));
    EXPECT_EQ("Screw", GetLocalizedMessage("Both", "Screw"));
}

TEST_F(MessageFiles, AreTakenFromTheSecondPlaceIfTheFirstIsBroken) {
    languages_.Folder().Write("locale\\" + LanguageFolders::UserLanguage() + "\\Broken_Msgs.xml",
                              "<Messages>");
    WriteSecondPlace("catalogs\\Broken\\", "Broken_Msgs.xml", Pair("Pin", "second place"));
    EXPECT_EQ("second place", GetLocalizedMessage("Broken", "Pin"));
}

TEST_F(MessageFiles, OfFeaturesAreThoseOfAutoFeatures) {
    languages_.WriteMessages("Features_Msgs.xml", Pair("Pin", "never seen") + Pair("Screw", "never seen"));
    languages_.WriteMessages("AutoFeatures_Msgs.xml", Pair("Pin", "Stift"));
    EXPECT_EQ("Stift", GetLocalizedMessage("Features", "Pin"));
    EXPECT_EQ("Screw", GetLocalizedMessage("Features", "Screw"));
    EXPECT_EQ("Stift", GetLocalizedMessage("AutoFeatures", "Pin"));
}

TEST_F(MessageFiles, AreLookedForOncePerProcess) {
    EXPECT_EQ("Pin", GetLocalizedMessage("Late", "Pin"));
    languages_.WriteMessages("Late_Msgs.xml", Pair("Pin", "too late"));
    ClearXMLDocumentCache();
    EXPECT_EQ("Pin", GetLocalizedMessage("Late", "Pin"));
}

TEST_F(MessageFiles, StayAsTheyWereReadWhenTheCacheIsCleared) {
    languages_.WriteMessages("Read_Msgs.xml", Pair("Pin", "Stift"));
    EXPECT_EQ("Stift", GetLocalizedMessage("Read", "Pin"));
    languages_.WriteMessages("Read_Msgs.xml", Pair("Pin", "changed"));
    ClearXMLDocumentCache();
    EXPECT_EQ("Stift", GetLocalizedMessage("Read", "Pin"));
}

TEST_F(MessageFiles, AreLookedForInFullUnderACatalogueIdThatDiffersInCase) {
    languages_.WriteMessages("Spelling_Msgs.xml", Pair("Pin", "Stift"));
    EXPECT_EQ("Stift", GetLocalizedMessage("Spelling", "Pin"));
    languages_.WriteMessages("Spelling_Msgs.xml", Pair("Pin", "changed"));
    EXPECT_EQ("changed", GetLocalizedMessage("SPELLING", "Pin"));
}

TEST_F(MessageFiles, GiveTheIdBackForAFileThatIsNotWellFormedOrHoldsNoMessages) {
    const std::string folder = "locale\\" + LanguageFolders::UserLanguage() + "\\";
    languages_.Folder().Write(folder + "Torn_Msgs.xml", "<Messages><MsgID>Pin</MsgID><Text>Stift");
    languages_.Folder().Write(folder + "Foreign_Msgs.xml",
                              "<Other><MsgID>Pin</MsgID><Text>Stift</Text></Other>");
    languages_.Folder().Write(folder + "Deeper_Msgs.xml",
                              "<Messages><Group><MsgID>Pin</MsgID><Text>Stift</Text></Group></Messages>");
    for (const char* catalog : {"Torn", "Foreign", "Deeper"})
        EXPECT_EQ("Pin", GetLocalizedMessage(catalog, "Pin")) << catalog;
}

TEST_F(MessageFiles, TakeTheVeryNextNodeForTheTextWhateverItIs) {
    languages_.WriteMessages("Siblings_Msgs.xml",
                             "<MsgID>Any</MsgID><Anything>any name</Anything>"
                             "<MsgID>Comment</MsgID><!--a comment--><Text>behind it</Text>"
                             "<MsgID>Next</MsgID><MsgID>Follower</MsgID><Text>x</Text>"
                             "<MsgID>Deep</MsgID><Text>one <b>two</b></Text>"
                             "<Text>before</Text><MsgID>Last</MsgID>");
    EXPECT_EQ("any name", GetLocalizedMessage("Siblings", "Any"));
    EXPECT_EQ("a comment", GetLocalizedMessage("Siblings", "Comment"));
    EXPECT_EQ("Follower", GetLocalizedMessage("Siblings", "Next"));
    EXPECT_EQ("x", GetLocalizedMessage("Siblings", "Follower"));
    EXPECT_EQ("one two", GetLocalizedMessage("Siblings", "Deep"));
    EXPECT_EQ("Last", GetLocalizedMessage("Siblings", "Last"));
}

TEST_F(MessageFiles, GiveTheIdBackForATextThatIsNoString) {
    languages_.Folder().Write("locale\\" + LanguageFolders::UserLanguage() + "\\Typed_Msgs.xml",
                              "<Messages xmlns:dt='urn:schemas-microsoft-com:datatypes'>"
                              "<MsgID>Pin</MsgID><Text dt:dt='i4'>42</Text></Messages>");
    EXPECT_EQ("Pin", GetLocalizedMessage("Typed", "Pin"));
}

TEST_F(MessageFiles, MayHaveLineBreaksBetweenTheirElementsAndLineFeedsInThem) {
    languages_.WriteMessages("Breaks_Msgs.xml",
                             "\n  <MsgID>Cannot open:\n%s</MsgID>\r\n\t\n"
                             "  <Text>Kann nicht\n%s\n&#246;ffnen</Text>\n");
    const std::string text = GetLocalizedMessage("Breaks", "Cannot open:\n%s");
    EXPECT_EQ("Kann nicht\n%s\n", text.substr(0, 14)) << text;
}

TEST_F(MessageFiles, HoldTextsInTheCodePageOfTheSystem) {
    ASSERT_EQ(1252u, GetACP()) << "needs the western code page";
    languages_.WriteMessages("Umlauts_Msgs.xml",
                             Pair("Bush", "F&#252;hrungsb&#252;chse") + Pair("B&#252;gel", "&#8364;"));
    EXPECT_EQ(
        "F\xFChrungsb\xFC"
        "chse",
        GetLocalizedMessage("Umlauts", "Bush"));
    EXPECT_EQ("\x80", GetLocalizedMessage("Umlauts", "B\xFCgel"));
}

TEST_F(MessageFiles, AreFoundByIdsInTheCodePageOfTheThread) {
    const ThreadLocale locale(russian);
    languages_.WriteMessages("Thread_Msgs.xml", Pair("&#x416;", "&#x416;&#xC6;"));
    EXPECT_EQ("?\xC6", GetLocalizedMessage("Thread", "\xC6")) << "the text is in that of the system";
}

TEST_F(MessageFiles, OfOneLanguageStayWhenAnotherIsChosen) {
    languages_.WriteMessages("Stays_Msgs.xml", Pair("Pin", "Stift"));
    EXPECT_EQ("Stift", GetLocalizedMessage("Stays", "Pin"));
    const std::string other(ShortLanguageName(LanguageFolders::UserLanguage()));
    ASSERT_NE("", other);
    const LanguageFolders others;
    others.Folder().Write("locale\\" + other + "\\Stays_Msgs.xml",
                          "<Messages>" + Pair("Pin", "other") + "</Messages>");
    others.Folder().Write("locale\\" + other + "\\Newcomer_Msgs.xml",
                          "<Messages>" + Pair("Pin", "other") + "</Messages>");
    InitEnvironment();
    EXPECT_EQ(other, InterfaceLanguage());
    EXPECT_EQ("Stift", GetLocalizedMessage("Stays", "Pin"));
    EXPECT_EQ("other", GetLocalizedMessage("Newcomer", "Pin"));
}

TEST_F(MessageFiles, OfTheCommonCatalogueLieWithAllCataloguesInTheirSecondPlace) {
    // The host gives the folder of the empty ID: two separators, which are one.
    WriteSecondPlace("catalogs\\\\", "COMMON_Msgs.xml", Pair("OK", "common"));
    WriteSecondPlace("catalogs\\COMMON\\", "COMMON_Msgs.xml", Pair("OK", "a catalogue of that name"));
    EXPECT_EQ("common", GetLocalizedMessage("", "OK"));
    EXPECT_EQ("a catalogue of that name", [&] {
        ClearXMLDocumentCache();
        return GetLocalizedMessage("COMMON", "OK");
    }());
}

TEST_F(MessageFiles, MayBeAskedForWhileTheHostTellsAFolder) {
    WriteSecondPlace("catalogs\\Outer\\", "Outer_Msgs.xml", Pair("Pin", "outer"));
    languages_.WriteMessages("Inner_Msgs.xml", Pair("Pin", "inner"));
    std::string inner;
    const InstalledHost asking([&](const std::string& id) {
        inner = GetLocalizedMessage("Inner", "Pin");
        return languages_.Folder().Path() + "catalogs\\" + id + "\\";
    });
    EXPECT_EQ("outer", GetLocalizedMessage("Outer", "Pin"));
    EXPECT_EQ("inner", inner);
}

TEST_F(MessageFiles, AreMissingToAHostThatAsksForThemWhileItTellsTheirFolder) {
    WriteSecondPlace("catalogs\\Again\\", "Again_Msgs.xml", Pair("Pin", "Stift"));
    std::string inner;
    const InstalledHost asking([&](const std::string& id) {
        inner = GetLocalizedMessage(id, "Pin");
        return languages_.Folder().Path() + "catalogs\\" + id + "\\";
    });
    EXPECT_EQ("Stift", GetLocalizedMessage("Again", "Pin"));
    EXPECT_EQ("Pin", inner);
}

}  // namespace
}  // namespace nux
