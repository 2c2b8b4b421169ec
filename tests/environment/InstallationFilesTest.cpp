#include "environment/InstallationFiles.h"

#include <gtest/gtest.h>

namespace nux {
namespace {

TEST(InstallationFiles, AURLIsTheSchemeAndThePathAsItStands) {
    EXPECT_EQ("file://C:\\a b/c.xml", FileURL("C:\\a b/c.xml"));
}

TEST(InstallationFiles, ACatalogueLiesInItsFolderOrBelowTheRootByItsId) {
    EXPECT_EQ("file://D:\\parts\\Catalog.xml", CatalogURL("D:\\parts\\"));
    EXPECT_EQ("file://C:\\c\\SCREWS\\Catalog.xml", CatalogURL("C:\\c\\", "SCREWS"));
    EXPECT_EQ("file://C:\\cSCREWS\\Catalog.xml", CatalogURL("C:\\c", "SCREWS")) << "nothing is mended";
}

TEST(InstallationFiles, DimensionFilesLieInFoldersOfTheirSource) {
    EXPECT_EQ("file://C:\\c\\SCREWS\\StdDimensions\\ISO4762.xml",
              StdDimensionsURL("C:\\c\\", "SCREWS", "ISO4762"));
    EXPECT_EQ("file://C:\\u\\catalogs\\SCREWS\\UsrDimensions\\ISO4762.xml",
              UsrDimensionsURL("C:\\u\\", "SCREWS", "ISO4762"));
}

TEST(InstallationFiles, MessagesAreNamedAfterTheirCatalogueAndTheCommonOnesCommon) {
    EXPECT_EQ("file://C:\\locale\\German\\SCREWS_Msgs.xml", MessagesURL("C:\\locale\\", "German", "SCREWS"));
    EXPECT_EQ("file://C:\\locale\\German\\COMMON_Msgs.xml", MessagesURL("C:\\locale\\", "German", ""));
    EXPECT_EQ("D:\\parts\\locale\\", CatalogLocaleFolder("D:\\parts\\"));
    EXPECT_EQ("C:\\locale\\German\\resource.dll", ResourceModulePath("C:\\locale\\", "German"));
}

TEST(InstallationFiles, TheDefaultLogLiesFourLevelsAboveTheWizardPages) {
    EXPECT_EQ("C:\\app\\gui\\../../../../brask_log", DefaultLogPath("C:\\app\\gui\\"));
}

TEST(InstallationFiles, TheLocaleFolderTakesThePlaceOfTheLastFourCharacters) {
    EXPECT_EQ("C:\\app\\locale\\", LocaleFolder("C:\\app\\gui\\"));
    EXPECT_EQ("C:\\applocale\\", LocaleFolder("C:\\app\\wiz"));
    EXPECT_EQ("locale\\", LocaleFolder("gui\\"));
}

TEST(InstallationFiles, TheLocaleFolderStandsAloneForAShorterPath) {
    EXPECT_EQ("locale\\", LocaleFolder("ui\\"));
    EXPECT_EQ("locale\\", LocaleFolder(""));
}

}  // namespace
}  // namespace nux
