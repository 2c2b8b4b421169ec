#pragma once

#include <windows.h>

#include <msxml2.h>

#include <vector>

#include "bench/Sizes.h"

// What any dimension chooser has to do, and nothing else: the DOM reads that give the cells, each with the
// cheapest call that the DOM has for it, and the messages that bring them into the list. No cell is looked
// at.

namespace nux::bench::floor {

/// Fills the list anew with all rows, or with every second one; of those left out two cells are read.
void FillRows(HWND list, const Sizes& sizes, bool everySecond, RowReferences& references);

/// The same with all rows, and their sort keys in place of the rows themselves.
void FillRowsWithKeys(HWND list, const Sizes& sizes, const std::vector<int>& keys);

/// Sorts a list with keys.
void Sort(HWND list);

/// Reads the values of a dimension in all rows.
void ReadValues(const Sizes& sizes, int dimension);

}  // namespace nux::bench::floor
