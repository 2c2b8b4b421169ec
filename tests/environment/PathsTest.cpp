#include "environment/Paths.h"

#include <gtest/gtest.h>

#include "framework/Handles.h"
#include "tests/support/HandleCount.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

class PathTests : public testing::Test {
protected:
    std::string WithoutSeparator() const { return folder_.Path().substr(0, folder_.Path().size() - 1); }

    const TempFolder folder_;
};

TEST_F(PathTests, FindAFile) {
    EXPECT_FALSE(FileExists(folder_.Path() + "a.txt"));
    folder_.Write("a.txt", "");
    EXPECT_TRUE(FileExists(folder_.Path() + "a.txt"));
}

TEST_F(PathTests, TakeAFolderForAMissingFile) {
    folder_.MakeFolder("folder");
    EXPECT_FALSE(FileExists(folder_.Path() + "folder"));
    EXPECT_FALSE(FileExists(folder_.Path()));
    EXPECT_FALSE(FileExists(""));
}

TEST_F(PathTests, TakeAFileThatIsHeldWithoutReadSharingForMissing) {
    const std::string path = folder_.Write("a.txt", "x");
    UniqueFile held(
        CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(held);
    EXPECT_FALSE(FileExists(path));
    held.Reset();
    EXPECT_TRUE(FileExists(path));
}

TEST_F(PathTests, TakeAFileThatAnotherWritesForMissing) {
    const std::string path = folder_.Write("a.txt", "x");
    const UniqueFile held(
        CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(held);
    EXPECT_FALSE(FileExists(path));
}

TEST_F(PathTests, FindAFileThatIsReadOnlyOrReadByOthers) {
    const std::string path = folder_.Write("a.txt", "x");
    const UniqueFile held(
        CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(FileExists(path));
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(PathTests, FindAFolderWithAndWithoutItsSeparator) {
    EXPECT_TRUE(DirectoryExists(WithoutSeparator()));
    EXPECT_TRUE(DirectoryExists(WithoutSeparator() + "\\"));
    EXPECT_TRUE(DirectoryExists(WithoutSeparator() + "/"));
}

TEST_F(PathTests, TakeOffOneSeparatorOnly) {
    const std::string missing = folder_.Path() + "missing";
    EXPECT_FALSE(DirectoryExists(missing + "\\\\"));
    // What is left ends in a separator, and no such name is in a folder.
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((WithoutSeparator() + "\\").c_str(), &found);
    const bool foundWithOneLeft = search != INVALID_HANDLE_VALUE;
    if (foundWithOneLeft)
        FindClose(search);
    EXPECT_EQ(foundWithOneLeft, DirectoryExists(WithoutSeparator() + "\\\\"));
}

TEST_F(PathTests, DoNotFindAFolderThatIsMissing) {
    EXPECT_FALSE(DirectoryExists(folder_.Path() + "missing"));
    EXPECT_FALSE(DirectoryExists(folder_.Path() + "missing\\"));
    EXPECT_FALSE(DirectoryExists(folder_.Path() + "missing\\below"));
    EXPECT_FALSE(DirectoryExists(""));
    EXPECT_FALSE(DirectoryExists("\\"));
}

TEST_F(PathTests, TakeAPlainFileForAFolderToo) {
    folder_.Write("file", "");
    EXPECT_TRUE(DirectoryExists(folder_.Path() + "file"));
    EXPECT_TRUE(DirectoryExists(folder_.Path() + "file\\"));
}

TEST_F(PathTests, FindTheFileOfAUrlWhateverTheCaseOfItsScheme) {
    const std::string path = folder_.Write("a.htm", "");
    for (const char* scheme : {"file://", "FILE://", "File://"}) {
        EXPECT_TRUE(URLTargetExists(scheme + path)) << scheme;
        EXPECT_FALSE(URLTargetExists(scheme + path + "l")) << scheme;
    }
}

TEST_F(PathTests, TakeTheTargetOfAnyOtherUrlForPresent) {
    for (const char* url : {"http://nowhere.invalid/a.htm", "about:blank", "C:\\missing\\a.htm", "", "file",
                            "file:/", "file:\\\\C:\\missing", "xfile://C:\\missing"})
        EXPECT_TRUE(URLTargetExists(url)) << url;
}

TEST_F(PathTests, TakeTheTargetOfABareSchemeForMissing) {
    EXPECT_FALSE(URLTargetExists("file://"));
    EXPECT_FALSE(URLTargetExists("file://" + folder_.Path()));
}

TEST_F(PathTests, TakeAFolderAndAHeldFileForMissingTargets) {
    folder_.MakeFolder("folder.htm");
    EXPECT_FALSE(URLTargetExists(folder_.Url("folder.htm")));
    EXPECT_FALSE(URLTargetExists(folder_.Url("folder.htm\\")));
    const std::string path = folder_.Write("a.htm", "");
    UniqueFile held(
        CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(held);
    EXPECT_FALSE(URLTargetExists("file://" + path));
    EXPECT_TRUE(URLTargetExists("http://" + path)) << "another scheme is not looked at";
    held.Reset();
    EXPECT_TRUE(URLTargetExists("file://" + path));
}

TEST_F(PathTests, FindATargetWithAnySlashesUmlautsAndBlanks) {
    const std::string name =
        "Gr\xf6\xdf"
        "en 1\\Seite \xfc #2 %20.htm";
    std::string path = folder_.Write(name, "");
    EXPECT_TRUE(URLTargetExists("file://" + path));
    for (char& character : path) {
        if (character == '\\') {
            character = '/';
            EXPECT_TRUE(URLTargetExists("file://" + path)) << path;
        }
    }
    EXPECT_FALSE(URLTargetExists(folder_.Url("Gr%F6%DFen%201\\Seite%20%FC%20%232%20%2520.htm")))
        << "nothing is escaped";
}

TEST_F(PathTests, TellWhetherAPathEndsInASeparator) {
    EXPECT_TRUE(EndsInSeparator("C:\\a\\"));
    EXPECT_TRUE(EndsInSeparator("C:/a/"));
    EXPECT_TRUE(EndsInSeparator("\\"));
    EXPECT_FALSE(EndsInSeparator("C:\\a"));
    EXPECT_FALSE(EndsInSeparator("C:"));
    EXPECT_FALSE(EndsInSeparator(""));
}

TEST_F(PathTests, TakeAThirdSlashForPartOfThePath) {
    const std::string path = folder_.Write("a.htm", "");
    EXPECT_EQ(FileExists("/" + path), URLTargetExists("file:///" + path));
}

TEST_F(PathTests, LeaveNoHandleOpen) {
    const std::string path = folder_.Write("a.txt", "");
    FileExists(path);
    DirectoryExists(folder_.Path());
    const unsigned before = HandleCount();
    for (int i = 0; i < 50; ++i) {
        FileExists(path);
        FileExists(path + "x");
        DirectoryExists(folder_.Path());
        DirectoryExists(folder_.Path() + "missing");
        URLTargetExists("file://" + path);
    }
    EXPECT_EQ(before, HandleCount());
}

}  // namespace
}  // namespace nux
