#pragma once

#include <windows.h>

#include "framework/MessageTarget.h"

namespace nux {

/// A control of the platform whose messages pass through here first. Detaches itself when the control or the
/// object goes, whichever is first.
///
/// It takes the control's window procedure: the common controls' own functions for this have no name that a
/// host without a manifest can rely on. One object a window; somebody else may take the procedure on top of
/// it.
class SubclassedWindow : public MessageTarget {
public:
    ~SubclassedWindow() override { Detach(); }

    /// Throws HResultError if the platform refuses, std::bad_alloc without memory.
    void Attach(HWND control);
    void Detach() noexcept;

protected:
    explicit SubclassedWindow(MessageTarget* owner) noexcept : MessageTarget(owner) {}

    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    /// What the control itself does with a message, past this object; also when a handler has detached
    /// meanwhile.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const noexcept;

private:
    /// What the window keeps of its subclass, until it is destroyed: others may hold on to our procedure.
    struct Link {
        SubclassedWindow* self;  ///< null once detached
        WNDPROC previous;
        bool wide;  ///< the window's kind, which decides how texts of messages are spelled
    };

    static const char* LinkName() noexcept;
    static LRESULT CallPrevious(const Link& link, HWND handle, UINT message, WPARAM wParam,
                                LPARAM lParam) noexcept;
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

    HWND control_ = nullptr;  ///< the last control that was attached, and what it kept
    Link last_{};
};

}  // namespace nux
