#pragma once

#include <windows.h>

#include <string>

#include "driver/Application.h"

namespace driver {

/// A popup menu of this process that is open. Positions count from 0, separators included. It is worked with
/// the real pointer, which a menu follows in any case. Every operation throws NotSeen.
class PopupMenu {
public:
    /// Waits for the menu of the application.
    explicit PopupMenu(const Application& application);

    HWND Window() const { return window_; }
    int Count() const;
    bool IsSeparator(int position) const;
    bool IsEnabled(int position) const;
    std::string Text(int position) const;
    /// The command that the menu gives for a position.
    UINT Command(int position) const;
    /// Screen pixels of an item.
    RECT Bounds(int position) const;

    /// Takes an item with a click, and waits until the menu is gone. Throws for an item that is grayed.
    void Choose(int position) const;
    /// Moves the pointer onto an item, and waits until the menu marks it.
    void Highlight(int position) const;
    /// Closes the menu without a choice.
    void Escape() const;

private:
    HWND window_;
    HMENU menu_;
};

}  // namespace driver
