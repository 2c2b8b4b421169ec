#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "framework/ListView.h"

namespace nux {

/// The list view of the dimension chooser: what it does beyond the control itself. The marker column 0 can be
/// neither sized nor moved, and no other column can be put before it.
class SizeList : public ListView {
public:
    /// The user pressed the right button on a cell of a column from 1 on.
    using CellPressed = std::function<void(int column)>;

    SizeList(MessageTarget* owner, CellPressed cellPressed)
        : ListView(owner), cellPressed_(std::move(cellPressed)) {}

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool AllowsHeader(const NMHEADERA& notification);
    bool AllowsDrop(const NMHEADERA& notification);

    CellPressed cellPressed_;
};

}  // namespace nux
