#pragma once

#include <windows.h>

#include <mshtmhst.h>
#include <ole2.h>

#include <string>

#include "framework/ComPtr.h"
#include "framework/Variant.h"

namespace nux::webbrowser {

/// What a browser control finds in its container beyond a site: how it wants pages to be shown. Each question
/// is put to the site when it comes up, so that a container may change its mind.
class DocumentHost {
public:
    /// @param site  may be null: then there is a container without wishes
    explicit DocumentHost(ComPtr<IUnknown> site) noexcept : site_(std::move(site)) {}

    /// Its interface for documents' hosts; null without one.
    ComPtr<IDocHostUIHandler> Handler() const noexcept { return Query<IDocHostUIHandler>(site_.Get()); }
    /// DOCHOSTUIFLAG_ values; 0 if it tells none.
    DWORD Flags() const noexcept;
    /// What pages find as window.external; null for nothing.
    ComPtr<IDispatch> External() const noexcept;
    /// Where a navigation goes that a page has asked for. @return the address as it was, or another
    std::wstring Translated(const std::wstring& address) const;
    /// Whether it has shown a menu of its own, or wants none.
    /// @param kind     CONTEXT_MENU_ value
    /// @param at       screen pixels
    /// @param element  under the pointer; may be null
    bool ShowsContextMenu(DWORD kind, POINT at, IUnknown* commands, IDispatch* element) const noexcept;
    /// Whether it has taken a key for itself.
    bool TakesKey(MSG& message) const noexcept;
    /// Whether it has shown a message of its own. @param answer  of the user, IDOK and the like
    bool ShowsMessage(HWND window, const std::wstring& text, const std::wstring& caption, UINT style,
                      int& answer) const;
    /// Tells that a modal window is open in the control, or closed again.
    void EnableModeless(bool enable) const noexcept;

    /// An ambient property; empty if it tells none.
    Variant Ambient(DISPID id) const noexcept;
    /// Whether users work here, and not the developers of a form.
    bool IsUserMode() const noexcept;
    /// Whether pages' questions are to be answered without the user.
    bool IsSilent() const noexcept;
    /// Whether a page may make objects of registered classes, by the word of its security manager too, if it
    /// has one.
    bool AllowsObjects(const std::wstring& address) const noexcept;

private:
    /// DLCTL_ values; 0 if it tells none.
    DWORD DownloadControl() const noexcept;

    ComPtr<IUnknown> site_;
};

/// A modal window's time, in which the container and the frame's other windows are disabled.
class ModalTime {
public:
    ModalTime(DocumentHost host, ComPtr<IOleInPlaceFrame> frame) noexcept;
    ModalTime(const ModalTime&) = delete;
    ModalTime& operator=(const ModalTime&) = delete;
    ~ModalTime();

private:
    void Enable(bool enable) const noexcept;

    DocumentHost host_;
    ComPtr<IOleInPlaceFrame> frame_;
};

}  // namespace nux::webbrowser
