#include "webbrowser/PromptDialog.h"

#include "webbrowser/ControlText.h"
#include "webbrowser/resource.h"

namespace nux::webbrowser {

std::optional<LRESULT> PromptDialog::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        SetWindowTextW(Handle(), ControlText(IDS_MESSAGE_CAPTION).c_str());
        SetWindowTextW(Item(IDC_PROMPT_QUESTION), question_.c_str());
        SetWindowTextW(Item(IDC_PROMPT_TEXT), text_.c_str());
        Centre();
        return TRUE;
    }
    if (message != WM_COMMAND)
        return std::nullopt;
    if (LOWORD(wParam) == IDOK) {
        text_.resize(static_cast<std::size_t>(GetWindowTextLengthW(Item(IDC_PROMPT_TEXT))) + 1);
        text_.resize(static_cast<std::size_t>(
            GetWindowTextW(Item(IDC_PROMPT_TEXT), text_.data(), static_cast<int>(text_.size()))));
    } else if (LOWORD(wParam) != IDCANCEL) {
        return std::nullopt;
    }
    End(LOWORD(wParam));
    return TRUE;
}

}  // namespace nux::webbrowser
