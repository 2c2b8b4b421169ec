#include <gtest/gtest.h>

#include <string>

#include "environment/Registry.h"
#include "environment/Settings.h"
#include "resources/resource.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFolders.h"

namespace nux {
namespace {

const std::string productKey = "Software\\Orvenna\\Exec\\Tarnvale";
const std::string settingsKey = "Software\\Orvenna\\Tarnvale\\";
const std::string version = "9.9-test";

/// A value of the registry that the test may change: it is put back at the end.
class ChangedValue {
public:
    ChangedValue(HKEY root, std::string key, std::string name)
        : root_(root),
          key_(std::move(key)),
          name_(std::move(name)),
          existed_(Registry().QueryValue(key_, name_, &old_)) {}
    ChangedValue(const ChangedValue&) = delete;
    ChangedValue& operator=(const ChangedValue&) = delete;
    ~ChangedValue() {
        if (existed_)
            Set(old_);
        else
            Remove();
    }

    void Set(const RegistryValue& value) const {
        EXPECT_TRUE(Registry().SetValue(key_, name_, value)) << key_;
    }
    void Set(const std::string& text) const { Set(RegistryValue(text)); }
    void Remove() const { Registry().Delete(key_, name_.c_str()); }

private:
    CRegistry Registry() const { return CRegistry(root_); }

    HKEY root_;
    std::string key_;
    std::string name_;
    RegistryValue old_;
    bool existed_;
};

class EnvironmentStart : public testing::Test {
protected:
    ~EnvironmentStart() override { CRegistry(HKEY_LOCAL_MACHINE).Delete(settingsKey + version, nullptr); }

    /// What a process tells in which the environment starts for the first time.
    static std::string FreshStart(const std::string& guiPath = "C:\\no such folder\\gui\\\\") {
        const Ended ended = RunProgram("fresh_process", "started \"" + guiPath + "\"");
        EXPECT_EQ(0u, ended.exitCode);
        return ended.output;
    }
    static std::string ProjectName() {
        char text[64] = "";
        LoadStringA(ResourceModule(), IDS_PROJECT_NAME, text, sizeof text);
        return text;
    }
    /// The module of the German resources, which the build leaves beside the folder of the tests.
    static std::string GermanModule() {
        char path[MAX_PATH];
        GetModuleFileNameA(nullptr, path, sizeof path);
        std::string folder = path;
        folder.resize(folder.rfind('\\') + 1);
        return folder + "..\\locale\\German\\resource.dll";
    }
    static void InstallResources(const std::string& language, const LanguageFolders& folders) {
        const std::string target = folders.Folder().MakeFolder("locale\\" + language) + "resource.dll";
        EXPECT_TRUE(CopyFileA(GermanModule().c_str(), target.c_str(), FALSE));
    }

    const ChangedValue currentVersion_{HKEY_LOCAL_MACHINE, productKey, "CurrentVersion"};
    const ChangedValue logOfVersion_{HKEY_LOCAL_MACHINE, settingsKey + version, "DebugOutputFile"};
    const ChangedValue logWithoutVersion_{HKEY_LOCAL_MACHINE, settingsKey, "DebugOutputFile"};
    const LanguageFolders languages_;
};

TEST_F(EnvironmentStart, IsPrecededByIdsForMessagesAndNothingElse) {
    currentVersion_.Set(version);
    const Ended ended = RunProgram("fresh_process", "unstarted");
    EXPECT_EQ("version:\r\nroot:" + settingsKey + "\r\nlanguage:\r\nlogging:0\r\nseparator:\r\nOK is:OK\r\n",
              ended.output);
}

TEST_F(EnvironmentStart, ReadsTheVersionAsTheLastElementOfTheSettingsKey) {
    currentVersion_.Set(version);
    EXPECT_TRUE(InitEnvironment());
    EXPECT_EQ(version, ProductVersion());
    EXPECT_EQ(settingsKey + version, GetRegistryRoot());
}

TEST_F(EnvironmentStart, LeavesTheSettingsKeyEndingInItsBackslashWithoutAVersion) {
    currentVersion_.Remove();
    EXPECT_NE(std::string::npos, FreshStart().find("version:\r\nroot:" + settingsKey + "\r\n"));
}

TEST_F(EnvironmentStart, KeepsTheOldVersionWhenThereIsNoneAnyMoreOrItIsNoString) {
    currentVersion_.Set(version);
    InitEnvironment();
    currentVersion_.Remove();
    InitEnvironment();
    EXPECT_EQ(version, ProductVersion());
    currentVersion_.Set(RegistryValue(DWORD{12}));
    InitEnvironment();
    EXPECT_EQ(version, ProductVersion());
    currentVersion_.Set(RegistryValue("bytes", 5));
    InitEnvironment();
    EXPECT_EQ(version, ProductVersion());
}

TEST_F(EnvironmentStart, TakesAnEmptyVersionAndOneOfAnyTypeOfString) {
    currentVersion_.Set(RegistryValue(version, true));
    InitEnvironment();
    EXPECT_EQ(version, ProductVersion());
    currentVersion_.Set("");
    InitEnvironment();
    EXPECT_EQ(settingsKey, GetRegistryRoot());
}

TEST_F(EnvironmentStart, SetsTheLogFileThatTheSettingsOfTheVersionTell) {
    currentVersion_.Set(version);
    logOfVersion_.Set(languages_.Folder().Path() + "log");
    InitEnvironment();
    EXPECT_TRUE(IsLoggingEnabled());
    WriteLogEntry(false, 0, 0, 0, "text");
    EXPECT_EQ("text", languages_.Folder().Read("log"));
}

TEST_F(EnvironmentStart, SetsTheLogFileAlsoWithoutAVersion) {
    currentVersion_.Remove();
    logWithoutVersion_.Set("C:\\log");
    EXPECT_NE(std::string::npos, FreshStart().find("logging:1"));
}

TEST_F(EnvironmentStart, ReplacesTheLogFileOnlyIfTheSettingIsThereAsAString) {
    currentVersion_.Set(version);
    SetLogFile(languages_.Folder().Path() + "before");
    InitEnvironment();
    EXPECT_TRUE(IsLoggingEnabled());
    logOfVersion_.Set(RegistryValue(DWORD{1}));
    InitEnvironment();
    WriteLogEntry(false, 0, 0, 0, "x");
    EXPECT_EQ("x", languages_.Folder().Read("before"));
    logOfVersion_.Set(languages_.Folder().Path() + "after");
    InitEnvironment();
    WriteLogEntry(false, 0, 0, 0, "y");
    EXPECT_EQ("x", languages_.Folder().Read("before"));
    EXPECT_EQ("y", languages_.Folder().Read("after"));
    logOfVersion_.Set("");
    InitEnvironment();
    EXPECT_FALSE(IsLoggingEnabled());
}

TEST_F(EnvironmentStart, ReadsTheDecimalSeparatorOfTheUser) {
    EXPECT_TRUE(InitEnvironment());
    char expected[5];
    GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, expected, sizeof expected);
    EXPECT_STREQ(expected, DecimalSeparator());
    EXPECT_TRUE(IsDecimalSeparator(expected[0]));
    EXPECT_FALSE(IsDecimalSeparator('\0'));
    EXPECT_FALSE(IsDecimalSeparator('0'));
}

TEST_F(EnvironmentStart, TakesEachCharacterOfALongDecimalSeparator) {
    ASSERT_TRUE(SetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, ";:"));
    EXPECT_TRUE(InitEnvironment());
    const bool both = IsDecimalSeparator(';') && IsDecimalSeparator(':');
    const bool point = IsDecimalSeparator('.') || IsDecimalSeparator(',');
    SetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, ".");
    EXPECT_TRUE(both);
    EXPECT_FALSE(point);
}

TEST_F(EnvironmentStart, SucceedsWithTheLongestDecimalSeparatorAndFailsWithALongerOne) {
    const ChangedValue separator(HKEY_CURRENT_USER, "Control Panel\\International", "sDecimal");
    separator.Set(";;;;");
    EXPECT_NE(std::string::npos, FreshStart().find("separator:;;;;\r\n"));
    separator.Set(";;;;;");
    logWithoutVersion_.Set("C:\\log");
    currentVersion_.Set("");
    const std::string told = FreshStart();
    EXPECT_NE(std::string::npos, told.find("start:0\r\n")) << told;
    EXPECT_NE(std::string::npos, told.find("separator:\r\n")) << told;
    EXPECT_NE(std::string::npos, told.find("logging:1\r\n")) << "all the rest is done: " << told;
}

int WINAPI TellNothing(LCID, LCTYPE, char* text, int size) {
    if (size > 1)
        text[0] = '#';  // as a platform does that writes as much as there is room for
    return 0;
}

TEST_F(EnvironmentStart, KeepsTheDecimalSeparatorThatItHasReadWhenItCannotReadItAgain) {
    ASSERT_TRUE(InitEnvironment());
    const std::string before = DecimalSeparator();
    ASSERT_NE("", before);
    const ImportPatch patch(GetModuleHandleA(nullptr), "KERNEL32.dll", "GetLocaleInfoA",
                            reinterpret_cast<void*>(TellNothing));
    ASSERT_TRUE(patch);
    EXPECT_FALSE(InitEnvironment());
    EXPECT_EQ(before, DecimalSeparator());
}

TEST_F(EnvironmentStart, ChoosesTheLanguageOfTheUserIfItIsInstalled) {
    languages_.Folder().MakeFolder("locale");
    InitEnvironment();
    EXPECT_EQ("", InterfaceLanguage());
    languages_.StartInUserLanguage();
    EXPECT_EQ(LanguageFolders::UserLanguage(), InterfaceLanguage());
    EXPECT_EQ(InterfaceLanguage(), DetermineInterfaceLanguage());
}

TEST_F(EnvironmentStart, TakesTheFolderBesideThatOfThePagesForTheLocaleFolder) {
    EXPECT_EQ(languages_.Folder().Path() + "locale\\", GetLocaleFolder());
    Installation().gui = "ui\\";
    EXPECT_EQ("locale\\", GetLocaleFolder());
    Installation().gui = "";
    EXPECT_EQ("locale\\", GetLocaleFolder());
    Installation().gui = "C:\\app\\guide\\";
    EXPECT_EQ("C:\\app\\gulocale\\", GetLocaleFolder());
}

TEST_F(EnvironmentStart, TakesTheResourcesOfTheLanguage) {
    InstallResources(LanguageFolders::UserLanguage(), languages_);
    InitEnvironment();
    EXPECT_NE(ThisModule(), ResourceModule());
    EXPECT_EQ("Normteile", ProjectName());
    EXPECT_NE(nullptr, LoadIconA(ResourceModule(), MAKEINTRESOURCEA(IDI_FILTER)));
}

TEST_F(EnvironmentStart, LoadsTheResourcesEachTimeAndNeverFreesThem) {
    InstallResources(LanguageFolders::UserLanguage(), languages_);
    InitEnvironment();
    const HINSTANCE first = ResourceModule();
    InitEnvironment();
    EXPECT_EQ(first, ResourceModule());
    {
        const LanguageFolders others;
        InstallResources(LanguageFolders::UserLanguage(), others);
        InitEnvironment();
        EXPECT_NE(first, ResourceModule());
        EXPECT_EQ("Normteile", ProjectName());
    }
    const auto isLoaded = [&] {
        char path[MAX_PATH];
        return GetModuleFileNameA(first, path, sizeof path) != 0;
    };
    for (int start = 0; start < 2; ++start) {
        ASSERT_TRUE(isLoaded()) << start;
        FreeLibrary(first);
    }
    EXPECT_FALSE(isLoaded()) << "loaded more often than started";
}

TEST_F(EnvironmentStart, KeepsTheBuiltInResourcesIfTheLanguageBringsNone) {
    languages_.StartInUserLanguage();
    EXPECT_EQ(ThisModule(), ResourceModule());
    languages_.WriteMessages("NoResources_Msgs.xml", Pair("Pin", "Stift"));
    EXPECT_EQ("Stift", GetLocalizedMessage("NoResources", "Pin"));
}

TEST_F(EnvironmentStart, KeepsTheBuiltInResourcesIfTheModuleOfTheLanguageCannotBeLoaded) {
    languages_.Folder().Write("locale\\" + LanguageFolders::UserLanguage() + "\\resource.dll", "no module");
    InitEnvironment();
    EXPECT_EQ(ThisModule(), ResourceModule());
    EXPECT_EQ(LanguageFolders::UserLanguage(), InterfaceLanguage());
}

TEST_F(EnvironmentStart, LoadsNoResourcesWithoutALanguage) {
    // With an empty language the path would lead to a module right in the locale folder.
    InstallResources("", languages_);
    InitEnvironment();
    EXPECT_EQ("", InterfaceLanguage());
    EXPECT_EQ(ThisModule(), ResourceModule());
}

TEST_F(EnvironmentStart, KeepsTheResourcesOfTheOldLanguageIfTheNewOneBringsNone) {
    InstallResources(LanguageFolders::UserLanguage(), languages_);
    InitEnvironment();
    const std::string gui = Installation().gui;
    Installation().gui = "C:\\no such folder\\gui\\";
    InitEnvironment();
    EXPECT_EQ("", InterfaceLanguage());
    EXPECT_EQ("Normteile", ProjectName());
    Installation().gui = gui;
}

}  // namespace
}  // namespace nux
