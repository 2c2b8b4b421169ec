#pragma once

#include <windows.h>

#include <exception>
#include <optional>

namespace nux {

/// What windows, dialogs and subclassed controls share: the handle, and the way of an exception through the
/// platform's code. No exception leaves a message procedure; the first one is kept, and whoever started the
/// window raises it again with RethrowFailure once the platform has returned.
class MessageTarget {
public:
    MessageTarget(const MessageTarget&) = delete;
    MessageTarget& operator=(const MessageTarget&) = delete;

    /// The window, or null while there is none.
    HWND Handle() const noexcept { return handle_; }

    /// Raises the exception that a message handler threw, if one did.
    void RethrowFailure();

protected:
    MessageTarget() noexcept = default;
    virtual ~MessageTarget() = default;

    /// Told after a handler threw; the exception is kept already.
    virtual void OnFailure() noexcept {}

    /// Runs a handler. An exception is kept, and `fallback` is the answer.
    template <class Handler>
    LRESULT Contain(LRESULT fallback, Handler&& handler) noexcept {
        try {
            return handler();
        } catch (...) {
            if (!failure_)
                failure_ = std::current_exception();
            OnFailure();
            return fallback;
        }
    }

    HWND handle_ = nullptr;

private:
    std::exception_ptr failure_;
};

/// A registered window class. It lives as long as the module, and goes with it.
class WindowClass {
public:
    /// @param name        class name, a literal
    /// @param style       CS_ flags
    /// @param background  brush, or a system colour index plus 1, or null if the window paints all of itself
    WindowClass(const char* name, UINT style, HBRUSH background) noexcept;
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass();

    const char* Name() const noexcept { return name_; }

private:
    const char* name_;
};

/// Base of the component's own windows. The object outlives the window, or destroys it.
class Window : public MessageTarget {
public:
    ~Window() override { Destroy(); }

    /// Creates the window; `bounds` are screen pixels, or client pixels of the parent for a child.
    /// Throws what a message handler threw meanwhile, and HResultError if the platform refuses.
    void Create(const WindowClass& windowClass, HWND parent, const RECT& bounds, DWORD style,
                DWORD extendedStyle = 0);

    /// Destroys the window if there is one.
    void Destroy() noexcept;

protected:
    /// Handles a message, or passes it on to Default.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
        return Default(message, wParam, lParam);
    }
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
        return DefWindowProcA(handle_, message, wParam, lParam);
    }

private:
    friend class WindowClass;
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
};

/// Base of the component's modal dialogs, made from a template of the resource module.
class Dialog : public MessageTarget {
public:
    /// Shows the dialog and returns when it ends.
    /// @param parent       owner window, or null
    /// @param dialogTemplate  resource ID of the template
    /// @return the code given to End; -1 if the dialog could not be made
    /// Throws what a message handler threw.
    INT_PTR RunModal(HWND parent, UINT dialogTemplate);

protected:
    /// Handles a message. No value means that the dialog manager does what it does by default.
    virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    /// Ends the modal run with `code`.
    void End(INT_PTR code) noexcept { EndDialog(handle_, code); }
    HWND Item(int id) const noexcept { return GetDlgItem(handle_, id); }
    void OnFailure() noexcept override { End(IDABORT); }

private:
    static INT_PTR CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
};

/// A control of the platform whose messages pass through here first. Detaches itself when the control or the
/// object goes, whichever is first.
class SubclassedWindow : public MessageTarget {
public:
    ~SubclassedWindow() override { Detach(); }

    /// Throws HResultError if the platform refuses.
    void Attach(HWND control);
    void Detach() noexcept;

protected:
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    /// What the control itself does with a message, also when the handler has detached meanwhile.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

private:
    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR self);

    HWND control_ = nullptr;  ///< the last control that was attached
};

}  // namespace nux
