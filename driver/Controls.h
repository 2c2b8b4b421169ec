#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace driver {

// Small controls of a dialog, of any process. All throw NotSeen if the control does not answer.

/// Control of a dialog by its resource ID. Throws NotSeen if there is none.
HWND Item(HWND dialog, int id);

/// The text of any control, an edit field included.
std::string ControlText(HWND control);

bool IsChecked(HWND button);
/// The checked one of the buttons with these IDs, 0 for none.
int CheckedButton(HWND dialog, int firstId, int lastId);

/// The edit field inside a combo box.
HWND EditOf(HWND comboBox);
/// The entries of a combo box's list.
std::vector<std::string> Entries(HWND comboBox);
/// Drops the list down, by a click on the button, and waits until it is in sight.
void DropDown(HWND comboBox);
/// Folds the list up again, without a choice.
void FoldUp(HWND comboBox);
/// Drops the list down and takes an entry with the keyboard.
void ChooseEntry(HWND comboBox, int entry);

/// Whether the keyboard works this control; that of a combo box counts if its edit field has it.
bool HasFocus(HWND control);

}  // namespace driver
