#include "dialogs/nuxError.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/User.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ImportPatch.h"
#include "tests/support/LanguageFolders.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

constexpr int messageControl = 0xffff;
constexpr std::uint32_t minusOne = 0xFFFFFFFF;

/// What a box has shown, and what came of it.
struct Shown {
    std::string text;
    std::vector<std::string> buttons;
    HICON icon = nullptr;
    HWND owner = nullptr;
    int result = -1;
};

std::vector<std::string> ButtonsOf(HWND box) {
    std::vector<std::string> texts;
    for (const int id : {IDOK, IDYES, IDNO, IDCANCEL}) {
        if (const HWND button = GetDlgItem(box, id); button && IsWindowVisible(button))
            texts.push_back(driver::ControlText(button));
    }
    return texts;
}

/// The icon beside the text.
HICON IconOf(HWND box) {
    for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (driver::ClassOf(child) == "Static" &&
            (GetWindowLongPtrA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            return reinterpret_cast<HICON>(driver::Ask(child, STM_GETICON));
    }
    return nullptr;
}

/// Shows the error and presses a button of the box.
Shown Show(const nuxError& error, int button, HWND parent = nullptr) {
    Shown shown;
    WithUser([&] { shown.result = error.Show(parent); },
             [&](driver::User& user) {
                 const HWND box = user.Dialog("Tarnvale");
                 shown.text = driver::ControlText(driver::Item(box, messageControl));
                 shown.buttons = ButtonsOf(box);
                 shown.icon = IconOf(box);
                 shown.owner = GetWindow(box, GW_OWNER);
                 driver::Click(driver::Item(box, button));
                 driver::WaitUntilGone(box);
             });
    return shown;
}

TEST(Error, ShowsItsMessageAsItStands) {
    const Shown shown = Show(nuxError(0, "100 %s of\n%d"), IDOK);
    EXPECT_EQ("100 %s of\n%d", shown.text);
    EXPECT_EQ(1u, shown.buttons.size());
    EXPECT_EQ(LoadIconA(nullptr, IDI_HAND), shown.icon);
    EXPECT_EQ(0, shown.result);
}

TEST(Error, WithoutAMessageShowsThatItIsUnspecified) {
    EXPECT_EQ("An unspecified error has occurred!", Show(nuxError(), IDOK).text);
    EXPECT_EQ("An unspecified error has occurred!\nContinue?", Show(nuxErrorWQ(), IDNO).text);
}

TEST(Error, ItsStandardTextIsLocalisedAndItsMessageAndCaptionAreNot) {
    const LanguageFolders languages;
    const std::string standard = "An unspecified error has occurred!";
    languages.WriteMessages("COMMON_Msgs.xml",
                            Pair(standard, "Unbekannter Fehler!") +
                                Pair(standard + "\nContinue?", "Unbekannter Fehler! Weiter?") +
                                Pair("Given", "No") + Pair("Tarnvale", "No"));
    languages.StartInUserLanguage();
    EXPECT_EQ("Unbekannter Fehler!", Show(nuxError(), IDOK).text);
    EXPECT_EQ("Unbekannter Fehler! Weiter?", Show(nuxErrorWQ(), IDNO).text);
    EXPECT_EQ("Given", Show(nuxError(0, "Given"), IDOK).text);
    EXPECT_EQ("Given", Show(nuxErrorWQ(0, "Given"), IDNO).text);
}

TEST(Error, HasTheGivenOwner) {
    const HWND owner = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                                       nullptr, nullptr);
    EXPECT_EQ(owner, Show(nuxError(0, "x"), IDOK, owner).owner);
    DestroyWindow(owner);
}

TEST(Error, KeepsCodeAndMessage) {
    nuxError error(7, "seven");
    const nuxError copy(error);
    EXPECT_EQ(7, copy.Code());
    EXPECT_EQ("seven", copy.Message());
    error.Assign(8, "eight");
    EXPECT_EQ(8, error.Code());
    EXPECT_EQ("eight", error.Message());
    EXPECT_EQ(0, nuxError().Code());
    EXPECT_EQ("", nuxError().Message());
}

TEST(Error, KeepsItsMessageOnItsWay) {
    try {
        throw nuxError(0, "thrown");
    } catch (const nuxError& error) {
        EXPECT_EQ("thrown", nuxError(error).Message());
    }
}

TEST(ErrorQuestion, AnswersWithTheButton) {
    const nuxErrorWQ question(0, "Go on?");
    const Shown yes = Show(question, IDYES);
    EXPECT_EQ("Go on?", yes.text);
    EXPECT_EQ(2u, yes.buttons.size());
    EXPECT_EQ(IDYES, yes.result);
    EXPECT_EQ(IDNO, Show(question, IDNO).result);
}

TEST(ErrorQuestion, ACopyTakesNothingOver) {
    const nuxErrorWQ question(7, "Go on?");
    const nuxErrorWQ copy(question);
    EXPECT_EQ(0, copy.Code());
    EXPECT_EQ("", copy.Message());
    EXPECT_EQ("An unspecified error has occurred!\nContinue?", Show(copy, IDNO).text);
}

/// What the platform's message box was given, and what it answers.
struct Asked {
    HWND parent;
    std::string text;
    std::string caption;
    UINT style;

    bool operator==(const Asked&) const = default;
};
Asked asked;
int answer = 0;

int WINAPI Note(HWND parent, const char* text, const char* caption, UINT style) {
    asked = {parent, text, caption, style};
    return answer;
}

TEST(ErrorBox, HasItsOwnStyleAndAnswer) {
    const ImportPatch patch(GetModuleHandleA(nullptr), "USER32.dll", "MessageBoxA",
                            reinterpret_cast<void*>(&Note));
    ASSERT_TRUE(patch);
    const HWND parent = GetDesktopWindow();
    for (const int given : {0, IDOK, IDCANCEL, IDYES, IDNO}) {
        answer = given;
        EXPECT_EQ(0, nuxError(0, "Broken").Show(parent));
        EXPECT_EQ((Asked{parent, "Broken", "Tarnvale", 16}), asked);
        EXPECT_EQ(given, nuxErrorWQ(0, "Go on?").Show(nullptr));
        EXPECT_EQ((Asked{nullptr, "Go on?", "Tarnvale", 20}), asked);
    }
}

/// Shows an error in a process of its own that has a log.
class ErrorWithLog : public testing::Test {
protected:
    Ended Run(const std::string& kindAndText) const {
        return RunProgram("show_error", "\"" + folder.Path() + "log\" " + kindAndText);
    }

    const TempFolder folder;
};

TEST_F(ErrorWithLog, WritesTheTextAndEndsTheProcess) {
    folder.Write("log", "before|");
    const Ended ended = Run("error \"100 %s\"");
    EXPECT_EQ(minusOne, ended.exitCode);
    EXPECT_EQ("", ended.output) << "no exit handler runs, and nothing comes after";
    EXPECT_EQ("before|100 %s\n", folder.Read("log"));
}

TEST_F(ErrorWithLog, WritesTheStandardText) {
    EXPECT_EQ(minusOne, Run("error").exitCode);
    EXPECT_EQ("An unspecified error has occurred!\n", folder.Read("log"));
}

TEST_F(ErrorWithLog, AQuestionLeavesTwoCharactersAndEndsTheProcess) {
    const Ended ended = Run("question \"Go on?\"");
    EXPECT_EQ(minusOne, ended.exitCode);
    EXPECT_EQ("", ended.output);
    EXPECT_EQ("%s\n", folder.Read("log"));
}

TEST_F(ErrorWithLog, ALogThatCannotBeOpenedEndsTheProcessToo) {
    const Ended ended = RunProgram("show_error", "\"" + folder.Path() + "none\\log\" error x");
    EXPECT_EQ(minusOne, ended.exitCode);
    EXPECT_EQ("exit handlers ran\r\n", ended.output);
}

}  // namespace
}  // namespace nux
