#include "control/ShellCommand.h"

#include <gtest/gtest.h>

#include <string>

namespace nux {
namespace {

bool NoLeadByte(unsigned char) {
    return false;
}

/// As in code page 932.
bool JapaneseLeadByte(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9f) || (byte >= 0xe0 && byte <= 0xfc);
}

/// The parts joined with "|", or "-" for a path that can't be split.
std::string Split(const std::string& path, IsLeadByte isLeadByte = &NoLeadByte) {
    const auto parts = SplitPath(path, isLeadByte);
    return parts ? parts->drive + "|" + parts->folder + "|" + parts->name + "|" + parts->extension : "-";
}

TEST(SplitPath, TellsDriveFolderNameAndExtension) {
    EXPECT_EQ("C:|\\a\\b c\\|d|.htm", Split("C:\\a\\b c\\d.htm"));
    EXPECT_EQ("C:||d|.htm", Split("C:d.htm"));
    EXPECT_EQ("|a/b\\|c.d|.e", Split("a/b\\c.d.e"));
    EXPECT_EQ("|\\\\server\\share\\|d|", Split("\\\\server\\share\\d"));
    EXPECT_EQ("||name|", Split("name"));
    EXPECT_EQ("|||.htm", Split(".htm"));
    EXPECT_EQ("|a.b\\|c|", Split("a.b\\c")) << "a dot of a folder is no extension";
    EXPECT_EQ("||c|.", Split("c."));
    EXPECT_EQ("|||", Split(""));
    EXPECT_EQ("C:|||", Split("C:"));
}

TEST(SplitPath, SeesNoSeparatorInHalfACharacter) {
    EXPECT_EQ("|a\\|\x95\\b|.c", Split("a\\\x95\\b.c", &JapaneseLeadByte));
    EXPECT_EQ("|a\\\x95\\|b|.c", Split("a\\\x95\\b.c"));
    EXPECT_EQ("||\x95|", Split("\x95", &JapaneseLeadByte)) << "a lone first half";
}

TEST(SplitPath, RefusesAFolderAndAnExtensionThatAreTooLong) {
    EXPECT_NE("-", Split(std::string(254, 'a') + "\\b"));
    EXPECT_EQ("-", Split(std::string(255, 'a') + "\\b"));
    EXPECT_NE("-", Split("a." + std::string(254, 'e')));
    EXPECT_EQ("-", Split("a." + std::string(255, 'e')));
    EXPECT_EQ("||" + std::string(256, 'n') + "|.htm", Split(std::string(256, 'n') + ".htm"));
}

TEST(ProgramOfCommand, IsWhatStandsInQuotesOrBeforeTheFirstBlank) {
    EXPECT_EQ("C:\\Program Files\\x.exe", ProgramOfCommand("\"C:\\Program Files\\x.exe\" -nohome %1"));
    EXPECT_EQ("x.exe", ProgramOfCommand("x.exe %1"));
    EXPECT_EQ("x.exe", ProgramOfCommand("  \t x.exe %1 \t\n"));
    EXPECT_EQ("", ProgramOfCommand("\"\" %1"));
    EXPECT_EQ("x.exe", ProgramOfCommand("\"x.exe\""));
}

TEST(ProgramOfCommand, IsNoneForACommandWithoutAnEnd) {
    EXPECT_EQ(std::nullopt, ProgramOfCommand("\"C:\\x.exe %1"));
    EXPECT_EQ(std::nullopt, ProgramOfCommand("x.exe"));
    EXPECT_EQ(std::nullopt, ProgramOfCommand("x.exe   ")) << "white space at the end is no blank in it";
    EXPECT_EQ(std::nullopt, ProgramOfCommand("x.exe\t%1")) << "a tab is no blank";
    EXPECT_EQ(std::nullopt, ProgramOfCommand(""));
    EXPECT_EQ(std::nullopt, ProgramOfCommand(" \t\r\n"));
    EXPECT_EQ(std::nullopt, ProgramOfCommand("\""));
}

TEST(PathForBrowser, IsAbsolute) {
    const auto path = [](const std::string& file, const std::string& current = "D:\\work") {
        return PathForBrowser(file, *SplitPath(file, &NoLeadByte), current);
    };
    EXPECT_EQ("C:\\a.htm", path("C:\\a.htm"));
    EXPECT_EQ("C:a.htm", path("C:a.htm")) << "a drive is enough";
    EXPECT_EQ("D:\\a\\b.htm", path("\\a\\b.htm"));
    EXPECT_EQ("D:/a/b.htm", path("/a/b.htm"));
    EXPECT_EQ("D:\\work\\a\\b.htm", path("a\\b.htm"));
    EXPECT_EQ("D:\\work\\b.htm", path("b.htm"));
    EXPECT_EQ("D:\\\\b.htm", path("b.htm", "D:\\")) << "a root has a separator already, which does no harm";
    EXPECT_EQ("\\a\\b.htm", path("\\a\\b.htm", "\\\\server\\share")) << "no drive is current";
}

}  // namespace
}  // namespace nux
