#include "framework/SubclassedWindow.h"

#include <cstdio>
#include <memory>
#include <utility>

#include "framework/HResult.h"

namespace nux {
namespace {

// A window keeps its kind: a procedure that is set with the narrow function would make a wide window narrow.

WNDPROC ProcedureOf(HWND window, bool wide) noexcept {
    return reinterpret_cast<WNDPROC>(wide ? GetWindowLongPtrW(window, GWLP_WNDPROC)
                                          : GetWindowLongPtrA(window, GWLP_WNDPROC));
}

void SetProcedure(HWND window, bool wide, WNDPROC procedure) noexcept {
    const auto value = reinterpret_cast<LONG_PTR>(procedure);
    if (wide)
        SetWindowLongPtrW(window, GWLP_WNDPROC, value);
    else
        SetWindowLongPtrA(window, GWLP_WNDPROC, value);
}

}  // namespace

const char* SubclassedWindow::LinkName() noexcept {
    // Another module with this code may subclass the same window: each has a name of its own.
    static char name[32];
    if (!*name)
        std::snprintf(name, sizeof name, "nuxSubclass.%p", reinterpret_cast<void*>(&Procedure));
    return name;
}

void SubclassedWindow::Attach(HWND control) {
    Detach();
    auto* link = static_cast<Link*>(GetPropA(control, LinkName()));
    if (link && link->self)
        throw HResultError(E_UNEXPECTED);
    if (!link) {
        const bool wide = IsWindowUnicode(control);
        auto made = std::make_unique<Link>(Link{nullptr, ProcedureOf(control, wide), wide});
        if (!made->previous || !SetPropA(control, LinkName(), made.get()))
            throw HResultError(E_FAIL);
        link = made.release();
        SetProcedure(control, wide, &Procedure);
    }  // else our procedure is still there, below somebody else's
    link->self = this;
    last_ = *link;
    handle_ = control_ = control;
}

void SubclassedWindow::Detach() noexcept {
    if (!handle_)
        return;
    const HWND control = std::exchange(handle_, nullptr);
    auto* link = static_cast<Link*>(GetPropA(control, LinkName()));
    link->self = nullptr;
    if (ProcedureOf(control, link->wide) != &Procedure)
        return;  // somebody else calls ours: it stays as a way through, until the window goes
    SetProcedure(control, link->wide, link->previous);
    RemovePropA(control, LinkName());
    delete link;
}

LRESULT SubclassedWindow::CallPrevious(const Link& link, HWND handle, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    return link.wide ? CallWindowProcW(link.previous, handle, message, wParam, lParam)
                     : CallWindowProcA(link.previous, handle, message, wParam, lParam);
}

LRESULT SubclassedWindow::Default(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
    return CallPrevious(last_, control_, message, wParam, lParam);
}

LRESULT CALLBACK SubclassedWindow::Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* link = static_cast<Link*>(GetPropA(handle, LinkName()));
    if (!link)
        return DefWindowProcA(handle, message, wParam, lParam);
    SubclassedWindow* self = link->self;
    if (message == WM_NCDESTROY) {
        const Link last = *link;
        if (self)
            self->handle_ = nullptr;
        RemovePropA(handle, LinkName());
        delete link;
        SetProcedure(handle, last.wide, last.previous);
        return CallPrevious(last, handle, message, wParam, lParam);
    }
    if (!self)
        return CallPrevious(*link, handle, message, wParam, lParam);
    return self->Contain(0, [&] { return self->OnMessage(message, wParam, lParam); });
}

}  // namespace nux
