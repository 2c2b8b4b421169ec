#include <gtest/gtest.h>

#include "framework/Handles.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

class SaveFile : public PartsTest {
protected:
    HRESULT Save(const std::string& name, const std::wstring& text) {
        return parts->SaveFile(Bstr(folder.Path() + name, CP_ACP).Get(), Bstr(text).Get());
    }

    TempFolder folder;
};

TEST_F(SaveFile, WritesTheNarrowedTextWithoutATerminator) {
    EXPECT_EQ(S_OK, Save("new.txt", L"line 1\r\nGr\u00f6\u00dfe \u20ac \u4e2d\n"));
    EXPECT_EQ(
        "line 1\r\nGr\xf6\xdf"
        "e \x80 ?\n",
        folder.Read("new.txt"));
}

TEST_F(SaveFile, ReplacesAFile) {
    folder.Write("old.txt", "something much longer");
    EXPECT_EQ(S_OK, Save("old.txt", L"short"));
    EXPECT_EQ("short", folder.Read("old.txt"));
}

TEST_F(SaveFile, AnEmptyTextMakesAnEmptyFile) {
    folder.Write("old.txt", "content");
    EXPECT_EQ(S_OK, Save("old.txt", L""));
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesA((folder.Path() + "old.txt").c_str()));
    EXPECT_EQ("", folder.Read("old.txt"));
    EXPECT_EQ(S_OK, parts->SaveFile(Bstr(folder.Path() + "null.txt", CP_ACP).Get(), nullptr));
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesA((folder.Path() + "null.txt").c_str()));
}

TEST_F(SaveFile, KeepsZerosInsideTheText) {
    EXPECT_EQ(S_OK, Save("zero.txt", std::wstring(L"a\0b", 3)));
    EXPECT_EQ(std::string("a\0b", 3), folder.Read("zero.txt"));
}

TEST_F(SaveFile, AFileNameWithUmlautsIsFound) {
    EXPECT_EQ(S_OK, Save("Gr\xf6\xdf"
                         "e.txt",
                         L"x"));
    EXPECT_NE(INVALID_FILE_ATTRIBUTES,
              GetFileAttributesW((Widen(folder.Path()) + L"Gr\u00f6\u00dfe.txt").c_str()));
}

TEST_F(SaveFile, TheTextIsNarrowedToTheCodePageOfTheThread) {
    const ThreadLocale locale(russian);
    EXPECT_EQ(S_OK, Save("russian.txt", L"\u0416"));
    EXPECT_EQ("\xc6", folder.Read("russian.txt"));
}

BOOL WINAPI WriteHalf(HANDLE file, const void* bytes, DWORD size, DWORD* written, OVERLAPPED* overlapped) {
    return WriteFile(file, bytes, size / 2, written, overlapped);
}

BOOL WINAPI WriteAllAndFail(HANDLE file, const void* bytes, DWORD size, DWORD* written,
                            OVERLAPPED* overlapped) {
    WriteFile(file, bytes, size, written, overlapped);
    return FALSE;
}

TEST_F(SaveFile, AnythingButAFullWriteFailsWithTheFileClosed) {
    for (const auto& write : {WriteHalf, WriteAllAndFail}) {
        {
            const ImportPatch patch(LoadedModule(), "KERNEL32.dll", "WriteFile",
                                    reinterpret_cast<void*>(write));
            ASSERT_TRUE(patch);
            EXPECT_EQ(E_FAIL, Save("part.txt", L"text"));
        }
        EXPECT_TRUE(DeleteFileA((folder.Path() + "part.txt").c_str()));
    }
}

/// Which of two ways of opening the file work while it is being written.
struct OpenedMeanwhile {
    std::string path;
    bool forReading = false;
    bool forWriting = false;
} meanwhile;

BOOL WINAPI OpenAndWrite(HANDLE file, const void* bytes, DWORD size, DWORD* written, OVERLAPPED* overlapped) {
    const auto opens = [](DWORD access) {
        return static_cast<bool>(
            UniqueFile(CreateFileA(meanwhile.path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   nullptr, OPEN_EXISTING, 0, nullptr)));
    };
    meanwhile.forReading = opens(GENERIC_READ);
    meanwhile.forWriting = opens(GENERIC_WRITE);
    return WriteFile(file, bytes, size, written, overlapped);
}

TEST_F(SaveFile, OthersMayReadTheFileMeanwhileAndNotWriteIt) {
    meanwhile = {folder.Path() + "shared.txt"};
    const ImportPatch patch(LoadedModule(), "KERNEL32.dll", "WriteFile",
                            reinterpret_cast<void*>(OpenAndWrite));
    ASSERT_TRUE(patch);
    EXPECT_EQ(S_OK, Save("shared.txt", L"text"));
    EXPECT_TRUE(meanwhile.forReading);
    EXPECT_FALSE(meanwhile.forWriting);
}

TEST_F(SaveFile, AFileThatAnotherHoldsFailsAndStays) {
    const std::string path = folder.Write("held.txt", "held");
    {
        const UniqueFile held(
            CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(E_FAIL, Save("held.txt", L"new"));
        EXPECT_EQ("held", folder.Read("held.txt"));
    }
    EXPECT_EQ(S_OK, Save("held.txt", L"new"));
}

TEST_F(SaveFile, NoFolderIsCreated) {
    EXPECT_EQ(E_FAIL, Save("missing\\file.txt", L"x"));
    EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA((folder.Path() + "missing").c_str()));
}

TEST_F(SaveFile, AFolderAnEmptyNameAndANullNameFail) {
    folder.MakeFolder("taken");
    EXPECT_EQ(E_FAIL, Save("taken", L"x"));
    EXPECT_EQ(E_FAIL, parts->SaveFile(Bstr(L"").Get(), Bstr(L"x").Get()));
    EXPECT_EQ(E_FAIL, parts->SaveFile(nullptr, Bstr(L"x").Get()));
}

TEST_F(SaveFile, TheFileIsClosedAfterwards) {
    EXPECT_EQ(S_OK, Save("closed.txt", L"x"));
    const UniqueFile alone(CreateFileA((folder.Path() + "closed.txt").c_str(), GENERIC_READ | GENERIC_WRITE,
                                       0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_TRUE(alone);
}

}  // namespace
}  // namespace nux
