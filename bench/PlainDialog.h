#pragma once

#include <windows.h>

#include <functional>

namespace nux::bench {

/// Gives a list view the chooser's styles and images.
void PrepareList(HWND list);

/// Inserts the marker column and the columns of the dimensions.
void MakeColumns(HWND list);

/// Shows the chooser's dialog, with a prepared list and nothing else behind its template, until it is closed.
/// `fill` fills the list at the start, and anew when the button that turns off all filters is pressed.
void RunPlainDialog(HWND parent, const std::function<void(HWND list)>& fill);

}  // namespace nux::bench
