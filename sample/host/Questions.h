#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "framework/Dialog.h"

namespace nux::host {

/// Asks for one text.
class TextDialog : public Dialog {
public:
    /// @return what the user has written, or nothing if they cancelled
    static std::optional<std::string> Ask(HWND parent, const std::string& title, const std::string& prompt,
                                          const std::string& first);

protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::string title_;
    std::string prompt_;
    std::string text_;
};

/// Asks for a component of a catalogue. It remembers what was chosen last.
class PartDialog : public Dialog {
public:
    using Names = std::vector<std::string>;

    /// @param catalogs  the catalogues that the user can choose from
    /// @param partsOf   tells the components of one
    PartDialog(Names catalogs, std::function<Names(const std::string&)> partsOf)
        : catalogs_(std::move(catalogs)), partsOf_(std::move(partsOf)) {}

    /// @param asksForPage  whether it is asked too if its page is to be opened
    /// @return whether the user has chosen
    bool Ask(HWND parent, const std::string& title, bool asksForPage);

    const std::string& Catalog() const noexcept { return catalog_; }
    const std::string& Part() const noexcept { return part_; }
    bool OpensPage() const noexcept { return opensPage_; }

protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Open();
    /// Takes the question for the page out of the dialog, with its room.
    void LeaveOutPage();
    void ListParts();

    Names catalogs_;
    std::function<Names(const std::string&)> partsOf_;
    std::string title_;
    bool asksForPage_ = false;
    std::string catalog_;
    std::string part_;
    bool opensPage_ = true;
};

/// Shows a dialog that only says something.
class AboutDialog : public Dialog {
protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace nux::host
