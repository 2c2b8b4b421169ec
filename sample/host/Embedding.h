#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComObject.h"
#include "framework/ComPtr.h"
#include "host/ControlFrame.h"

namespace nux::host {

/// A control in the client area of a window of the program.
class Embedding {
public:
    Embedding() = default;
    Embedding(const Embedding&) = delete;
    Embedding& operator=(const Embedding&) = delete;
    ~Embedding() { Close(); }

    /// Activates the control in the whole client area of a window.
    /// @param control    a control that is not embedded yet
    /// @param container  window that it gets as its parent
    /// @param frame      the program's main window
    /// @param external   what a browser control gives to its pages as window.external; null for none
    /// Throws HResultError if the control refuses.
    void Open(IUnknown* control, HWND container, HWND frame, IDispatch* external);
    /// Fits the control to the client area.
    void Resize() const noexcept;
    /// Takes the control out of the window.
    void Close() noexcept;

    /// The control's own window; null without a control.
    HWND Window() const noexcept;
    /// Lets an active control have a key before the program. @return whether it took it
    bool TranslateKey(MSG& message) const noexcept;

private:
    HWND container_ = nullptr;
    ComPtr<IOleObject> object_;
    ComPtr<ComObject<ControlFrame>> frame_;
};

}  // namespace nux::host
