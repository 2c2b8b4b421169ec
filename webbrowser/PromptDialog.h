#pragma once

#include <string>

#include "framework/Dialog.h"

namespace nux::webbrowser {

/// Asks for a line of text, for a page's `prompt`. Ends with IDOK or IDCANCEL.
class PromptDialog : public Dialog {
public:
    /// @param proposal  what stands in the field first
    PromptDialog(std::wstring question, std::wstring proposal)
        : question_(std::move(question)), text_(std::move(proposal)) {}

    /// What was typed, once it has ended with IDOK.
    const std::wstring& Text() const noexcept { return text_; }

private:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    std::wstring question_;
    std::wstring text_;
};

}  // namespace nux::webbrowser
