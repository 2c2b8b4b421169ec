#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "bench/Sizes.h"

// The dimension chooser done step by step in the plainest way: a selection expression for each cell, values
// gathered by a search through those gathered before and put in order by exchanges, sort keys carried in and
// out of the list's items. The component has to beat it and to give the same results.

namespace nux::bench::transcription {

/// Fills the list anew with all rows, or with those whose alternating number is 12.
void FillRows(HWND list, const Sizes& sizes, bool filtered, RowReferences& references);

void Sort(HWND list, int column, bool numeric);

std::vector<double> NumericValues(const Sizes& sizes, int dimension);
std::vector<std::string> TextValues(const Sizes& sizes, int dimension);
std::string FormatNumber(double number);

}  // namespace nux::bench::transcription
