#include "driver/Controls.h"

#include "driver/Input.h"
#include "driver/Messages.h"
#include "driver/Waiting.h"

namespace driver {

HWND Item(HWND dialog, int id) {
    const HWND control = GetDlgItem(dialog, id);
    if (!control)
        throw NotSeen("the control " + std::to_string(id));
    return control;
}

std::string ControlText(HWND control) {
    // The system carries this message's text from one process to another by itself.
    std::string text(static_cast<std::size_t>(Ask(control, WM_GETTEXTLENGTH)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        Ask(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

bool IsChecked(HWND button) {
    return Ask(button, BM_GETCHECK) == BST_CHECKED;
}

int CheckedButton(HWND dialog, int firstId, int lastId) {
    for (int id = firstId; id <= lastId; ++id)
        if (IsChecked(Item(dialog, id)))
            return id;
    return 0;
}

HWND EditOf(HWND comboBox) {
    return FindWindowExA(comboBox, nullptr, "Edit", nullptr);
}

std::vector<std::string> Entries(HWND comboBox) {
    std::vector<std::string> entries(Ask(comboBox, CB_GETCOUNT));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        SharedBlock block(comboBox, Ask(comboBox, CB_GETLBTEXTLEN, i) + 1);
        Ask(comboBox, CB_GETLBTEXT, i, block.Address());
        entries[i] = block.ReadText(0);
    }
    return entries;
}

void DropDown(HWND comboBox) {
    RECT client{};
    GetClientRect(comboBox, &client);
    Click(comboBox, {client.right - 4, client.bottom / 2});
    WaitFor("a list that drops down", [&] { return Ask(comboBox, CB_GETDROPPEDSTATE) != 0; });
}

void FoldUp(HWND comboBox) {
    Ask(comboBox, CB_SHOWDROPDOWN, FALSE);
}

void ChooseEntry(HWND comboBox, int entry) {
    DropDown(comboBox);
    const HWND edit = EditOf(comboBox);
    for (int selected; (selected = static_cast<int>(Ask(comboBox, CB_GETCURSEL))) != entry;) {
        PressKey(edit, selected < entry ? VK_DOWN : VK_UP);
        WaitFor("a selection that moves", [&] { return Ask(comboBox, CB_GETCURSEL) != selected; });
    }
    PressKey(edit, VK_RETURN);
    WaitFor("a list that folds up", [&] { return Ask(comboBox, CB_GETDROPPEDSTATE) == 0; });
}

bool HasFocus(HWND control) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &state))
        return false;
    return state.hwndFocus == control || (state.hwndFocus && GetParent(state.hwndFocus) == control);
}

}  // namespace driver
