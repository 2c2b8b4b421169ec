// Scripts ask their user for files and open some, with the objects of the sample host.

#include <windows.h>

#include <dlgs.h>
#include <gtest/gtest.h>

#include <string>

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/Waiting.h"
#include "environment/Registry.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TempFolder.h"

namespace nux {
namespace {

constexpr char extension[] = ".nuxtest";
constexpr char fileClass[] = "NuxScriptTest";

class ServicesFromScript : public testing::TestWithParam<const char*> {
protected:
    ServicesFromScript() {
        folder_.Write("data\\Tarnvale.htm", "<p>Start</p>");
        folder_.Write("file.nuxtest", "");
        for (const char* name : {"catalogs", "gui", "custom", "work"})
            folder_.MakeFolder(name);
        CRegistry(HKEY_CLASSES_ROOT).SetStringValue(extension, "", fileClass);
        CRegistry(HKEY_CLASSES_ROOT)
            .SetStringValue(std::string(fileClass) + "\\shell\\open\\command", "",
                            "cmd /c copy \"%1\" \"" + folder_.Path() + "opened\"");
    }
    ~ServicesFromScript() override {
        CRegistry(HKEY_CLASSES_ROOT).Delete(extension, nullptr);
        CRegistry(HKEY_CLASSES_ROOT).Delete(fileClass, nullptr);
    }

    /// The next dialog of the script, which is worked until it is gone.
    template <class Work>
    static void InDialog(const ChildProcess& script, const char* caption, Work work) {
        const HWND dialog = script.Windows().Dialog(caption);
        work(dialog);
        driver::WaitUntilGone(dialog);
    }
    static void Cancel(HWND dialog) { driver::Click(driver::Item(dialog, IDCANCEL)); }
    /// The field of a save dialog. The dialog of another process can be seen before it is filled.
    /// @param name  what stands in it at first
    static HWND NameField(HWND dialog, const char* name) {
        return driver::WaitFor(std::string("the name ") + name, [&]() -> HWND {
            HWND field = GetDlgItem(dialog, cmb13);  // a ComboBoxEx32 around a plain one
            for (const char* inner : {"ComboBox", "Edit"})
                field = field ? FindWindowExA(field, nullptr, inner, nullptr) : nullptr;
            return field && driver::ControlText(field) == name ? field : nullptr;
        });
    }
    static void Save(HWND dialog, const char* nameBefore, const std::string& name) {
        driver::Paste(NameField(dialog, nameBefore), name);
        driver::Click(driver::Item(dialog, IDOK));
    }

    TempFolder folder_;
};

TEST_P(ServicesFromScript, AnswersWhatTheUserHasChosen) {
    const std::string work = folder_.Path() + "work\\";
    ChildProcess script(std::string("cscript.exe /nologo \"" NUX_SCRIPTS "/services.") + GetParam() + "\" " +
                        folder_.Path());
    InDialog(script, "Where to?", [&](HWND dialog) { Save(dialog, "first.txt", work + "mine"); });
    InDialog(script, "Where to?", Cancel);
    const char* exportTitle = "Choose a file to export the moldbase to";
    InDialog(script, exportTitle, [&](HWND dialog) { Save(dialog, "moldbase.igs", work + "base"); });
    InDialog(script, exportTitle, [&](HWND dialog) {
        NameField(dialog, "base.igs");
        Cancel(dialog);
    });
    InDialog(script, nullptr, Cancel);

    const Ended ended = script.Wait();
    EXPECT_EQ(0u, ended.exitCode);
    EXPECT_EQ("saved: " + work + "mine.txt\r\n" +                  //
                  "not saved: []\r\n" +                            //
                  "file of an export: " + work + "base.igs\r\n" +  //
                  "none: []\r\n" +                                 //
                  "no folder of an export: []\r\n" +               //
                  "not opened: 80004005 Nothing could be started that opens the file " + folder_.Path() +
                  "none\\file.nuxnone.\r\n" +
                  "no browser: 80004002 The object is no browser: it does not offer IWebBrowser2.\r\n"
                  "attached: null\r\n"
                  "page: data\\Tarnvale.htm\r\n"
                  "asked: []\r\n",
              ended.output);
    EXPECT_NO_THROW(driver::WaitFor("the opened file", [&] {
        return GetFileAttributesA((folder_.Path() + "opened").c_str()) != INVALID_FILE_ATTRIBUTES;
    }));
}

INSTANTIATE_TEST_SUITE_P(InEachLanguage, ServicesFromScript, testing::Values("js", "vbs"),
                         [](const auto& language) { return std::string(language.param); });

}  // namespace
}  // namespace nux
