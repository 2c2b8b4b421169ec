#include "host/Questions.h"

#include "host/resource.h"

namespace nux::host {
namespace {

std::string TextOf(HWND control) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(control)) + 1, '\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextA(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool IsEnd(UINT message, WPARAM wParam) noexcept {
    return message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL);
}

void Fill(HWND box, const PartDialog::Names& names) {
    SendMessageA(box, CB_RESETCONTENT, 0, 0);
    for (const std::string& name : names)
        SendMessageA(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
}

}  // namespace

std::optional<std::string> TextDialog::Ask(HWND parent, const std::string& title, const std::string& prompt,
                                           const std::string& first) {
    TextDialog dialog;
    dialog.title_ = title;
    dialog.prompt_ = prompt;
    dialog.text_ = first;
    if (dialog.RunModal(parent, IDD_TEXT) != IDOK)
        return std::nullopt;
    return dialog.text_;
}

std::optional<LRESULT> TextDialog::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        SetWindowTextA(Handle(), title_.c_str());
        SetWindowTextA(Item(IDC_PROMPT), prompt_.c_str());
        SetWindowTextA(Item(IDC_TEXT), text_.c_str());
        Centre();
        return TRUE;
    }
    if (!IsEnd(message, wParam))
        return std::nullopt;
    text_ = TextOf(Item(IDC_TEXT));
    End(LOWORD(wParam));
    return TRUE;
}

bool PartDialog::Ask(HWND parent, const std::string& title, bool asksForPage) {
    title_ = title;
    asksForPage_ = asksForPage;
    return RunModal(parent, IDD_PART) == IDOK;
}

void PartDialog::Open() {
    SetWindowTextA(Handle(), title_.c_str());
    Fill(Item(IDC_CATALOG), catalogs_);
    if (catalog_.empty() && !catalogs_.empty())
        catalog_ = catalogs_.front();
    SetWindowTextA(Item(IDC_CATALOG), catalog_.c_str());
    const std::string last = part_;
    ListParts();
    if (!last.empty())
        SetWindowTextA(Item(IDC_PART), last.c_str());
    CheckDlgButton(Handle(), IDC_OPEN_PAGE, opensPage_ ? BST_CHECKED : BST_UNCHECKED);
    if (!asksForPage_)
        LeaveOutPage();
    Centre();
}

void PartDialog::LeaveOutPage() {
    ShowWindow(Item(IDC_OPEN_PAGE), SW_HIDE);
    const int height = WindowRectangle(Item(IDOK)).top - WindowRectangle(Item(IDC_OPEN_PAGE)).top;
    for (const int id : {IDOK, IDCANCEL}) {
        RECT button = WindowRectangle(Item(id));
        MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&button), 2);
        SetWindowPos(Item(id), nullptr, button.left, button.top - height, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }
    const RECT own = WindowRectangle(Handle());
    SetWindowPos(Handle(), nullptr, 0, 0, own.right - own.left, own.bottom - own.top - height,
                 SWP_NOMOVE | SWP_NOZORDER);
}

void PartDialog::ListParts() {
    Fill(Item(IDC_PART), partsOf_(catalog_));
    SendMessageA(Item(IDC_PART), CB_SETCURSEL, 0, 0);
}

std::optional<LRESULT> PartDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Open();
        return TRUE;
    }
    if (message == WM_COMMAND && LOWORD(wParam) == IDC_CATALOG && HIWORD(wParam) == CBN_SELCHANGE) {
        const LRESULT chosen = SendMessageA(reinterpret_cast<HWND>(lParam), CB_GETCURSEL, 0, 0);
        if (chosen == CB_ERR)
            return TRUE;
        catalog_ = catalogs_[static_cast<std::size_t>(chosen)];
        ListParts();
        return TRUE;
    }
    if (!IsEnd(message, wParam))
        return std::nullopt;
    if (LOWORD(wParam) == IDOK) {
        catalog_ = TextOf(Item(IDC_CATALOG));
        part_ = TextOf(Item(IDC_PART));
        opensPage_ = IsDlgButtonChecked(Handle(), IDC_OPEN_PAGE) == BST_CHECKED;
    }
    End(LOWORD(wParam));
    return TRUE;
}

std::optional<LRESULT> AboutDialog::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        Centre();
        return TRUE;
    }
    if (!IsEnd(message, wParam))
        return std::nullopt;
    End(LOWORD(wParam));
    return TRUE;
}

}  // namespace nux::host
