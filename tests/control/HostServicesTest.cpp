// Files are opened with their applications. What is started is a program of the tests' own, in the folder of
// each test, that opens files of an extension of the tests' own.

#include <windows.h>

#include <gtest/gtest.h>
#include <shellapi.h>

#include <algorithm>
#include <optional>

#include "driver/Waiting.h"
#include "environment/Registry.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/Installation.h"

namespace nux {
namespace {

constexpr char extension[] = ".nuxtest";
constexpr char fileClass[] = "nuxtest.file";

/// What the module asked the platform to start, and what it was answered.
struct Started {
    std::string calls;
    INT_PTR answer = 33;
    INT_PTR answerWithoutVerb = 33;
} started;

std::string Text(const char* text) {
    return text ? text : "null";
}

HINSTANCE WINAPI NoteShellExecute(HWND window, const char* verb, const char* file, const char* parameters,
                                  const char* folder, int show) {
    started.calls += "open<" + Text(verb) + "|" + Text(file) + "|" + Text(parameters) + "|" + Text(folder) +
                     "|" + std::to_string(show) + (window ? "|window" : "") + ">";
    return reinterpret_cast<HINSTANCE>(verb ? started.answer : started.answerWithoutVerb);
}

UINT WINAPI NoteWinExec(const char* command, UINT show) {
    started.calls += "run<" + Text(command) + "|" + std::to_string(show) + ">";
    return static_cast<UINT>(started.answer);
}

class FilesOfApplications : public PartsTest {
protected:
    void TearDown() override {
        SetCurrentDirectoryA(before_);
        CRegistry(HKEY_CLASSES_ROOT).Delete(extension, nullptr);
        CRegistry(HKEY_CLASSES_ROOT).Delete(fileClass, nullptr);
        PartsTest::TearDown();
    }

    /// Lets files of the extension be opened by a command.
    static void Register(const std::string& command) {
        CRegistry(HKEY_CLASSES_ROOT).SetStringValue(extension, "", fileClass);
        CRegistry(HKEY_CLASSES_ROOT)
            .SetStringValue(std::string(fileClass) + "\\shell\\open\\command", "", command);
    }

    HRESULT Execute(const std::string& file) { return parts->ExecuteFileInShell(Bstr(file, CP_ACP).Get()); }

    TempFolder folder;

private:
    struct CurrentFolder {
        CurrentFolder() { GetCurrentDirectoryA(sizeof path, path); }
        operator const char*() const { return path; }
        char path[MAX_PATH] = "";
    };
    const CurrentFolder before_;
};

/// The calls are looked at, and nothing is started.
class WhatIsStarted : public FilesOfApplications {
protected:
    void SetUp() override {
        FilesOfApplications::SetUp();
        started = {};
        SetCurrentDirectoryA(folder.Path().c_str());
    }

    /// What is started to open a file whose class has this command.
    std::string By(const std::string& command, const std::string& file = "a.nuxtest") {
        Register(command);
        return For(file);
    }
    std::string For(const std::string& file) {
        const ImportPatch shell(LoadedModule(), "SHELL32.dll", "ShellExecuteA",
                                reinterpret_cast<void*>(NoteShellExecute));
        const ImportPatch run(LoadedModule(), "KERNEL32.dll", "WinExec",
                              reinterpret_cast<void*>(NoteWinExec));
        EXPECT_TRUE(shell);
        EXPECT_TRUE(run);
        started.calls.clear();
        const HRESULT result = Execute(file);
        return started.calls + (result == S_OK ? "" : result == E_FAIL ? " E_FAIL" : " another code");
    }

    static std::string Opened(const std::string& file) { return "open<open|" + file + "|null|null|1>"; }

    const std::string current = folder.Path().substr(0, folder.Path().size() - 1);
};

TEST_F(WhatIsStarted, IsTheShellsChoice) {
    const std::string plain = "a b.nuxtest";
    EXPECT_EQ(Opened(plain), For(plain)) << "an extension that nobody knows";
    EXPECT_EQ(Opened("name"), For("name"));
    EXPECT_EQ(Opened("C:\\x.y\\name"), For("C:\\x.y\\name"));
    EXPECT_EQ(Opened(""), For(""));
    EXPECT_EQ(Opened(plain), By("\"C:\\x\\other.exe\" %1", plain)) << "another program than the browser";
    EXPECT_EQ(Opened(plain), By("\"C:\\x\\iexplore.exe\\other.exe\" %1", plain));
    EXPECT_EQ(Opened(plain), By("iexplore %1", plain));
    EXPECT_EQ(Opened(plain), By("iexplore.exe.exe %1", plain));
    CRegistry(HKEY_CLASSES_ROOT).SetStringValue(extension, "", "");
    EXPECT_EQ(Opened(plain), For(plain)) << "an extension without a class";
    CRegistry(HKEY_CLASSES_ROOT).SetStringValue(extension, "", "nuxtest.missing");
    EXPECT_EQ(Opened(plain), For(plain)) << "a class that is missing";
    CRegistry(HKEY_CLASSES_ROOT).SetStringValue("shell\\open\\command", "", "iexplore.exe %1");
    CRegistry(HKEY_CLASSES_ROOT).SetStringValue(extension, "", "");
    EXPECT_EQ(Opened(plain), For(plain)) << "a command of no class";
    CRegistry(HKEY_CLASSES_ROOT).Delete("shell", nullptr);
    Register("iexplore.exe %1");
    CRegistry(HKEY_CLASSES_ROOT).SetStringValue("", "", fileClass);
    EXPECT_EQ(Opened("name"), For("name")) << "a class of no extension";
    CRegistry(HKEY_CLASSES_ROOT).Delete("", "");
}

TEST_F(WhatIsStarted, IsTheShellsChoiceForACommandWithoutAnEnd) {
    for (const char* command : {"", "   ", "\t\r\n ", "iexplore.exe", "  iexplore.exe  ", "iexplore.exe\t%1",
                                "\"C:\\x\\iexplore.exe %1", "\"", "\"\" %1"})
        EXPECT_EQ(Opened("a.nuxtest"), By(command)) << command;
}

TEST_F(WhatIsStarted, IsTheBrowserWithAnAbsolutePath) {
    const std::string commands[] = {"\"C:\\a b\\IEXPLORE.EXE\" -nohome %1", "C:\\a\\iexplore.exe %1",
                                    "  \tC:\\a\\iExplore.Exe %1 \n ", "\"C:\\a\\IEXPLORE.EXE\""};
    const std::string programs[] = {"C:\\a b\\IEXPLORE.EXE", "C:\\a\\iexplore.exe", "C:\\a\\iExplore.Exe",
                                    "C:\\a\\IEXPLORE.EXE"};
    for (std::size_t i = 0; i < std::size(commands); ++i)
        EXPECT_EQ("run<" + programs[i] + " " + current + "\\a.nuxtest|1>", By(commands[i])) << commands[i];

    Register("iexplore.exe %1");
    const auto path = [&](const std::string& file) {
        std::string call = For(file);
        const std::string start = "run<iexplore.exe ";
        EXPECT_EQ(start, call.substr(0, start.size()));
        call.erase(0, start.size());
        return call.substr(0, call.find('|'));
    };
    const std::string drive = current.substr(0, 2);
    EXPECT_EQ("D:\\x y\\a.nuxtest", path("D:\\x y\\a.nuxtest"));
    EXPECT_EQ("D:a.nuxtest", path("D:a.nuxtest"));
    EXPECT_EQ(drive + "\\x\\a.nuxtest", path("\\x\\a.nuxtest"));
    EXPECT_EQ(drive + "/x/a.nuxtest", path("/x/a.nuxtest"));
    EXPECT_EQ(current + "\\x\\a.nuxtest", path("x\\a.nuxtest"));
    EXPECT_EQ(current +
                  "\\..\\Gr\xf6\xdf"
                  "e 1.NUXTEST",
              path("..\\Gr\xf6\xdf"
                   "e 1.NUXTEST"))
        << "the registry knows no case";
}

TEST_F(WhatIsStarted, FailsByThePlatformsAnswer) {
    Register("iexplore.exe %1");
    started.answer = 32;
    EXPECT_EQ("run<iexplore.exe C:\\a.nuxtest|1>", For("C:\\a.nuxtest"));
    started.answer = 31;
    EXPECT_EQ("run<iexplore.exe C:\\a.nuxtest|1> E_FAIL", For("C:\\a.nuxtest"));
    started.answer = 33;
    EXPECT_EQ(Opened("a.txt"), For("a.txt"));
    for (const INT_PTR failure : {0, 2, 30, 32}) {
        started.answer = failure;
        EXPECT_EQ(Opened("a.txt") + " E_FAIL", For("a.txt")) << failure;
    }
}

TEST_F(WhatIsStarted, IsTheQuestionForAnApplicationWhereNoneIsKnown) {
    const std::string question = "open<null|rundll32.exe|shell32.dll,OpenAs_RunDLL x y.z|null|1>";
    started.answer = SE_ERR_NOASSOC;
    EXPECT_EQ(Opened("x y.z") + question, For("x y.z"));
    started.answerWithoutVerb = 32;
    EXPECT_EQ(Opened("x y.z") + question + " E_FAIL", For("x y.z"));
}

TEST_F(WhatIsStarted, IsTheBrowserForANameOfAnyLength) {
    const std::string name = std::string(300, 'n') + extension;
    EXPECT_EQ("run<iexplore.exe " + current + "\\" + name + "|1>", By("iexplore.exe %1", name));
    const std::string deep = std::string(300, 'n') + "\\a" + extension;
    EXPECT_EQ(Opened(deep), For(deep)) << "a folder that is too long can't be split off";
}

TEST_F(WhatIsStarted, ANullNameIsAnEmptyOne) {
    const ImportPatch shell(LoadedModule(), "SHELL32.dll", "ShellExecuteA",
                            reinterpret_cast<void*>(NoteShellExecute));
    EXPECT_EQ(S_OK, parts->ExecuteFileInShell(nullptr));
    EXPECT_EQ(Opened(""), started.calls);
}

/// Runs with a Japanese locale: the second byte of a character is that of the backslash.
class DoubleByteNames : public WhatIsStarted {
protected:
    void SetUp() override {
        if (GetACP() != 932)
            GTEST_SKIP() << "needs a code page of double-byte characters";
        WhatIsStarted::SetUp();
    }
    void TearDown() override {
        if (parts)
            WhatIsStarted::TearDown();
    }
};

TEST_F(DoubleByteNames, AreNotTakenApartInsideACharacter) {
    const std::string table = "\x95\x5C";
    EXPECT_EQ("run<iexplore.exe " + current + "\\" + table + extension + "|1>",
              By("iexplore.exe %1", table + extension));
    EXPECT_EQ(Opened("a" + std::string(extension) + table + "b"),
              For("a" + std::string(extension) + table + "b"))
        << "the character belongs to the extension";
    EXPECT_EQ(Opened("a.nuxtest"), By("C:\\" + table + "iexplore.exe %1")) << "and to the program's name";
}

/// Programs are really started, which write down their command line.
class StartedPrograms : public FilesOfApplications {
protected:
    void SetUp() override {
        FilesOfApplications::SetUp();
        char own[MAX_PATH];
        GetModuleFileNameA(nullptr, own, sizeof own);
        std::string program = own;
        program.replace(program.rfind('\\') + 1, std::string::npos, "started.exe");
        folder.MakeFolder("a b");
        for (const char* name : {"IEXPLORE.EXE", "a b\\IEXPLORE.EXE", "viewer.exe"})
            ASSERT_TRUE(CopyFileA(program.c_str(), (folder.Path() + name).c_str(), FALSE)) << program;
        folder.Write("file.nuxtest", "");
        folder.Write("a b\\file 1.nuxtest", "");
        SetEnvironmentVariableA("NUX_STARTED", (folder.Path() + "line").c_str());
        SetCurrentDirectoryA(folder.Path().c_str());
    }

    /// The command line of the program that opens a file, without quotes.
    std::string LineOf(const std::string& file) {
        DeleteFileA((folder.Path() + "line").c_str());
        EXPECT_EQ(S_OK, Execute(file)) << file;
        std::string line;
        EXPECT_NO_THROW(line = driver::WaitFor("a program's command line", [&] { return OneLine(); })->text);
        std::erase(line, '"');
        return line;
    }

private:
    struct Line {
        std::string text;
    };
    std::optional<Line> OneLine() const {
        std::string text = folder.Read("line");
        return text.empty() ? std::nullopt : std::optional(Line{std::move(text)});
    }
};

TEST_F(StartedPrograms, OpenFilesOfTheirClass) {
    const std::string viewer = folder.Path() + "viewer.exe";
    Register("\"" + viewer + "\" -open \"%1\"");
    for (const std::string& file : {folder.Path() + "file.nuxtest", folder.Path() + "a b\\file 1.nuxtest"})
        EXPECT_EQ(viewer + " -open " + file, LineOf(file));
}

TEST_F(StartedPrograms, OfTheBrowsersNameOpenAbsolutePaths) {
    for (const char* name : {"IEXPLORE.EXE", "a b\\IEXPLORE.EXE"}) {
        const std::string browser = folder.Path() + name;
        Register("\"" + browser + "\" -open \"%1\"");
        EXPECT_EQ(browser + " " + folder.Path() + "file.nuxtest", LineOf("file.nuxtest"));
        EXPECT_EQ(browser + " " + folder.Path() + "a b\\file 1.nuxtest", LineOf("a b\\file 1.nuxtest"));
        EXPECT_EQ(browser + " C:/none/file.nuxtest", LineOf("/none/file.nuxtest"));
    }
}

TEST_F(StartedPrograms, ThatAreMissingAreAFailure) {
    Register("\"" + folder.Path() + "none\\IEXPLORE.EXE\" \"%1\"");
    EXPECT_EQ(E_FAIL, Execute("file.nuxtest"));
    EXPECT_EQ(E_FAIL, Execute(folder.Path() + "missing\\file.unknown"));
}

}  // namespace
}  // namespace nux
