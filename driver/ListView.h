#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace driver {

/// A report list as its user sees it, of any process. Columns are indices of the list, in whatever order they
/// are shown. Every operation throws NotSeen if the list does not answer.
class ListView {
public:
    explicit ListView(HWND list);

    HWND Handle() const { return list_; }
    HWND Header() const { return header_; }

    int RowCount() const;
    int ColumnCount() const;
    std::string Cell(int row, int column) const;
    /// All cells of a column, from top to bottom.
    std::vector<std::string> Column(int column) const;
    /// Index of the image in front of a row.
    int Image(int row) const;
    /// The selected rows, from top to bottom.
    std::vector<int> Selected() const;
    /// The row with the focus, -1 for none.
    int Focused() const;
    /// Whether the whole row is in sight.
    bool InSight(int row) const;
    /// Pixels of a cell in the client area of the list.
    RECT CellBounds(int row, int column) const;
    /// The point in the middle of a cell.
    POINT CellMiddle(int row, int column) const;

    std::string Caption(int column) const;
    int Width(int column) const;
    /// The columns as they stand, from left to right.
    std::vector<int> Order() const;
    /// HDF_ flags of a column's header.
    int HeaderFormat(int column) const;
    /// Index of the image in a column's header, -1 if it shows none.
    int HeaderImage(int column) const;
    /// Pixels of a column's header in the client area of the header.
    RECT HeaderBounds(int column) const;
    POINT HeaderMiddle(int column) const;
    /// The divider at the right edge of a column, which sizes it.
    POINT Divider(int column) const;

    /// Selects a row by a click on its first dimension.
    void ClickRow(int row) const;
    void ClickHeader(int column) const;

private:
    HWND list_;
    HWND header_;
};

}  // namespace driver
