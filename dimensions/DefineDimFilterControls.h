#pragma once

// Controls of the dialog IDD_DEFINE_FILTER, for its source and its templates only. OK and Cancel have the
// system's identifiers.

#define IDC_FILTER_NONE 212
#define IDC_FILTER_EQUAL 213
#define IDC_FILTER_BETWEEN 214
#define IDC_FILTER_SMALLER_OR_EQUAL 215
#define IDC_FILTER_GREATER_OR_EQUAL 216
#define IDC_DATABASE_STANDARD 219
#define IDC_DATABASE_USER 220
#define IDC_DATABASE_BOTH 221
#define IDC_SORT_ASCENDING 222
#define IDC_SORT_DESCENDING 223
#define IDC_SORT_NONE 224
#define IDC_LOWER_LIMIT 225
#define IDC_UPPER_LIMIT 226
#define IDC_LOWER_LIMIT_LABEL 227
#define IDC_UPPER_LIMIT_LABEL 228
