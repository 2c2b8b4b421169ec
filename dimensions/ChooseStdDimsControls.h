#pragma once

// Controls of the dialog IDD_CHOOSE_DIMENSIONS, for its source and its templates only. OK and Cancel have the
// system's identifiers.

#define IDC_SIZES 205
#define IDC_ALL_FILTERS_OFF 230
