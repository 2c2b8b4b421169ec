#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "dimensions/QuickFilter.h"
#include "framework/Window.h"

namespace nux {

class nuxQFWindow;

/// The list of the quick filter window: paints the strings and follows the pointer.
class nuxQFWindowChild : public Window {
public:
    nuxQFWindowChild(nuxQFWindow& owner, std::vector<std::string> strings);

    /// Creates the list inside the pager, large enough for all strings.
    void CreateInside(HWND pager);

    /// Sizes of the list, from its creation on.
    const QuickFilterGeometry& Geometry() const noexcept { return geometry_; }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFailure() noexcept override;

private:
    void Track(WPARAM buttons, LPARAM position);
    /// The row at the position of a mouse message, -1 if the pointer is outside the pager.
    int RowAtPointer(LPARAM position) const noexcept;
    void Paint();
    void PaintRow(HDC context, int row) const;

    nuxQFWindow& owner_;
    std::vector<std::string> strings_;
    QuickFilterGeometry geometry_;
    int hotRow_ = 0;
    HWND pager_ = nullptr;
};

/// A popup list for one gesture: it opens under the pointer while the user holds the right button down; the
/// user drags to a value and lets go. One run per object.
class nuxQFWindow : public Window {
public:
    explicit nuxQFWindow(std::vector<std::string> strings);

    /// Shows the window and returns when the button is let go.
    /// @param parent  owner window
    /// @return the row under the pointer, not bounded by the number of strings; -1 for none: beside the
    ///         list, and when the gesture ends in another way (the parent or the mouse is taken away, the
    ///         host quits)
    /// Throws what failed inside, std::bad_alloc above all.
    int RunQuickFilter(HWND parent);

    /// Ends the run; the first result counts.
    void End(int row) noexcept;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnFailure() noexcept override { End(-1); }

private:
    /// The pager. Its scroll buttons take the mouse while they are used, and so see the end of the gesture.
    class Pager : public SubclassedWindow {
    public:
        explicit Pager(nuxQFWindow& owner) : owner_(owner) {}

    protected:
        LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    private:
        nuxQFWindow& owner_;
    };

    void CreatePager();
    void PlaceUnderPointer();
    LRESULT OnPagerNotify(NMHDR& notification);
    void RunMessageLoop();
    bool HasMouse() const noexcept;

    nuxQFWindowChild child_;
    Pager pager_;
    bool ended_ = false;
    int result_ = -1;
};

/// Looks at the messages of a loop before they are dispatched.
class MessageFilter {
public:
    virtual ~MessageFilter() = default;
    /// @return true to keep the message from its window
    virtual bool PreTranslateMessage(const MSG& message) = 0;
};

/// Keeps the messages from all windows but the three of a quick filter: its frame, pager and list. The run of
/// the quick filter does without it, so that the host keeps on working meanwhile.
class nuxQFWindowMessageFilter : public MessageFilter {
public:
    explicit nuxQFWindowMessageFilter(const std::array<HWND, 3>& windows) noexcept : windows_(windows) {}

    bool PreTranslateMessage(const MSG& message) override {
        return message.hwnd && std::find(windows_.begin(), windows_.end(), message.hwnd) == windows_.end();
    }

private:
    std::array<HWND, 3> windows_;
};

}  // namespace nux
