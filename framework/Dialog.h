#pragma once

#include <windows.h>

#include <optional>

#include "framework/Handles.h"
#include "framework/MessageTarget.h"

namespace nux {

/// Base of the component's dialogs, made from a template of the resource module. The object outlives the
/// window, or destroys it.
class Dialog : public MessageTarget {
public:
    ~Dialog() override;

    /// Shows the dialog and returns when it ends. The module stays loaded meanwhile, whoever is let go of.
    /// @param parent          owner window, or null
    /// @param dialogTemplate  resource ID of the template
    /// @return the code given to End; -1 if the dialog could not be made
    /// Throws what a message handler threw, here or in a child that this owns.
    INT_PTR RunModal(HWND parent, UINT dialogTemplate);

    /// Makes the dialog and returns. Whether it is seen at once is the template's word.
    /// Throws what a message handler threw meanwhile, and HResultError if the platform refuses.
    void CreateModeless(HWND parent, UINT dialogTemplate);

protected:
    explicit Dialog(MessageTarget* owner = nullptr) noexcept : MessageTarget(owner) {}

    /// Handles a message. No value means that the dialog manager does what it does by default.
    virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    /// Ends a modal run with `code`, or destroys a modeless dialog.
    void End(INT_PTR code) noexcept;
    void OnFailure() noexcept override { End(IDABORT); }

    HWND Item(int id) const noexcept { return GetDlgItem(handle_, id); }
    /// Shows an icon of the resource module in the caption.
    void SetIcon(UINT icon) noexcept;
    /// Brings the dialog to the middle of its owner, or of the screen without one, and into the work area.
    void Centre() const noexcept;

private:
    static INT_PTR CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    bool modal_ = false;
    UniqueIcon icon_;
};

}  // namespace nux
