#include "tests/control/FileDialogs.h"

#include <dlgs.h>

#include "driver/Application.h"
#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/Waiting.h"

namespace nux {

HWND NameField(HWND dialog) {
    const HWND combo = driver::Item(dialog, cmb13);  // a ComboBoxEx32 around a plain one
    const HWND edit = driver::EditOf(FindWindowExA(combo, nullptr, "ComboBox", nullptr));
    if (!edit)
        throw driver::NotSeen("the field of the name");
    return edit;
}

void Save(HWND dialog, const std::string& name) {
    driver::Paste(NameField(dialog), name);
    driver::Click(driver::Item(dialog, IDOK));
}

void Cancel(HWND dialog) {
    driver::Click(driver::Item(dialog, IDCANCEL));
    driver::WaitUntilGone(dialog);
}

Description described;

BOOL WINAPI Describe(OPENFILENAMEA* description) {
    const char* end = description->lpstrFilter;
    while (end[0] || end[1])
        ++end;
    described = {
        *description,
        {description->lpstrFilter, end + 2},
        std::string(description->lpstrTitle) + "|" + description->lpstrFile + "|" + description->lpstrDefExt};
    return FALSE;
}

}  // namespace nux
