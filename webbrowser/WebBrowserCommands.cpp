// Commands to the page, of containers and of the context menu; and the questions that a page asks.

#include <mshtmcid.h>

#include <utility>

#include "framework/Handles.h"
#include "framework/Text.h"
#include "webbrowser/Clipboard.h"
#include "webbrowser/ControlText.h"
#include "webbrowser/PromptDialog.h"
#include "webbrowser/WebBrowser.h"
#include "webbrowser/resource.h"

namespace nux::webbrowser {
namespace {

/// A command that the page itself carries out, by the name that it has there.
struct EditCommand {
    DWORD id;
    const char* script;
};

constexpr EditCommand editCommands[] = {
    {OLECMDID_CUT, "() => { document.execCommand('cut'); }"},
    {OLECMDID_COPY, "() => { document.execCommand('copy'); }"},
    {OLECMDID_SELECTALL, "() => { document.execCommand('selectAll'); }"},
    {OLECMDID_DELETE, "() => { document.execCommand('delete'); }"},
    {OLECMDID_UNDO, "() => { document.execCommand('undo'); }"},
    {OLECMDID_REDO, "() => { document.execCommand('redo'); }"},
};

const char* ScriptOf(DWORD command) noexcept {
    for (const EditCommand& known : editCommands) {
        if (known.id == command)
            return known.script;
    }
    return nullptr;
}

/// What the platform calls the kind of element under the pointer.
DWORD MenuKindOf(const PageReference& element) noexcept {
    if (!element)
        return CONTEXT_MENU_DEFAULT;
    const std::string& name = element.ClassName();
    if (name == "HTMLImageElement")
        return CONTEXT_MENU_IMAGE;
    if (name == "HTMLInputElement" || name == "HTMLTextAreaElement")
        return CONTEXT_MENU_CONTROL;
    return name == "HTMLAnchorElement" ? CONTEXT_MENU_ANCHOR : CONTEXT_MENU_DEFAULT;
}

}  // namespace

DWORD WebBrowser::StateOf(DWORD command) const noexcept {
    constexpr DWORD supported = OLECMDF_SUPPORTED;
    constexpr DWORD enabled = OLECMDF_SUPPORTED | OLECMDF_ENABLED;
    const bool hasPage = page_ && !isLost_;
    switch (command) {
        case OLECMDID_REFRESH:
            return hasPage || !address_.empty() ? enabled : supported;
        case OLECMDID_STOP:
            return hasPage && page_->IsBusy() ? enabled : supported;
        case OLECMDID_PASTE:
            return hasPage && IsClipboardFormatAvailable(CF_UNICODETEXT) ? enabled : supported;
        default:
            return !ScriptOf(command) ? 0 : hasPage ? enabled : supported;
    }
}

STDMETHODIMP WebBrowser::QueryStatus(const GUID* group, ULONG count, OLECMD* commands, OLECMDTEXT* text) {
    if (!commands)
        return E_POINTER;
    if (group)
        return OLECMDERR_E_UNKNOWNGROUP;
    for (ULONG i = 0; i < count; ++i)
        commands[i].cmdf = StateOf(commands[i].cmdID);
    if (text)
        text->cwActual = 0;
    return S_OK;
}

STDMETHODIMP WebBrowser::Exec(const GUID* group, DWORD command, DWORD, VARIANT* in, VARIANT*) {
    if (group)
        return OLECMDERR_E_UNKNOWNGROUP;
    return Operation([&]() -> HRESULT {
        const DWORD state = StateOf(command);
        if (state == 0)
            return OLECMDERR_E_NOTSUPPORTED;
        if ((state & OLECMDF_ENABLED) == 0)
            return OLECMDERR_E_DISABLED;
        if (command == OLECMDID_REFRESH)
            return Refresh2(in);
        if (command == OLECMDID_STOP)
            return Stop();
        const std::shared_ptr<Page> page = page_;
        if (command == OLECMDID_PASTE) {
            page->InsertText(ClipboardText(Handle()));
        } else {
            page->Post(ScriptOf(command));
        }
        return S_OK;
    });
}

STDMETHODIMP WebBrowser::QueryStatusWB(OLECMDID cmdID, OLECMDF* pcmdf) {
    if (!pcmdf)
        return E_POINTER;
    *pcmdf = static_cast<OLECMDF>(StateOf(cmdID));
    return S_OK;
}

STDMETHODIMP WebBrowser::ExecWB(OLECMDID cmdID, OLECMDEXECOPT cmdexecopt, VARIANT* pvaIn, VARIANT* pvaOut) {
    return Exec(nullptr, cmdID, cmdexecopt, pvaIn, pvaOut);
}

// The context menu

void WebBrowser::ContextMenu(POINT at, const PageReference& element) {
    const ComPtr<IOleObject> self = Held();
    const std::shared_ptr<Page> page = page_;
    if (!page || !Handle())
        return;
    ClientToScreen(Handle(), &at);
    const ComPtr<IDispatch> object = element ? page->ObjectOf(element) : nullptr;
    IOleCommandTarget* const commands = this;
    if (!Host().ShowsContextMenu(MenuKindOf(element), at, commands, object.Get()))
        ShowMenu(at);
}

void WebBrowser::ShowMenu(POINT at) {
    const UniqueMenu menus(LoadMenuW(ThisModule(), MAKEINTRESOURCEW(IDR_CONTEXT_MENU)));
    const HMENU menu = GetSubMenu(menus.Get(), 0);
    const auto enable = [&](UINT item, bool isEnabled) {
        EnableMenuItem(menu, item, MF_BYCOMMAND | (isEnabled ? MF_ENABLED : MF_GRAYED));
    };
    enable(ID_BACK, page_ && page_->CanGoBack());
    enable(ID_FORWARD, page_ && page_->CanGoForward());
    constexpr std::pair<UINT, DWORD> items[] = {{ID_REFRESH, OLECMDID_REFRESH},
                                                {ID_CUT, OLECMDID_CUT},
                                                {ID_COPY, OLECMDID_COPY},
                                                {ID_PASTE, OLECMDID_PASTE},
                                                {ID_SELECT_ALL, OLECMDID_SELECTALL}};
    for (const auto& [item, command] : items)
        enable(item, (StateOf(command) & OLECMDF_ENABLED) != 0);
    const UINT chosen = static_cast<UINT>(
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, Handle(), nullptr));
    if (chosen == ID_BACK)
        GoBack();
    if (chosen == ID_FORWARD)
        GoForward();
    for (const auto& [item, command] : items) {
        if (item == chosen)
            Exec(nullptr, command, OLECMDEXECOPT_DODEFAULT, nullptr, nullptr);
    }
}

// Questions of pages

PageDialogAnswer WebBrowser::AskUser(const PageDialog& question) {
    const bool isAlert = question.kind == PageDialog::Kind::alert;
    const DocumentHost host = Host();
    if (silent_ || host.IsSilent())
        return {isAlert || question.kind == PageDialog::Kind::leave, {}};
    const HWND owner = Handle() ? GetAncestor(Handle(), GA_ROOT) : nullptr;
    const ModalTime modal(host, Frame());
    if (question.kind == PageDialog::Kind::prompt) {
        PromptDialog dialog(question.message, question.text);
        const bool isAccepted = dialog.RunModal(owner, IDD_PROMPT) == IDOK;
        return {isAccepted, isAccepted ? dialog.Text() : std::wstring()};
    }
    const std::wstring caption = ControlText(IDS_MESSAGE_CAPTION);
    const UINT style = isAlert ? MB_OK | MB_ICONWARNING : MB_OKCANCEL | MB_ICONQUESTION;
    int answer = IDCANCEL;
    if (!host.ShowsMessage(owner, question.message, caption, style, answer))
        answer = MessageBoxW(owner, question.message.c_str(), caption.c_str(), style);
    return {isAlert || answer == IDOK, {}};
}

}  // namespace nux::webbrowser
