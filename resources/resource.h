#pragma once

// Resource identifiers. A language's resource module carries its resources under the same ones.

#define IDR_TYPELIB 1
#define IDR_REGISTRY 100

#define IDB_TOOLBOX 101

#define IDD_CHOOSE_DIMENSIONS 217
#define IDD_DEFINE_FILTER 237

#define IDI_COMPONENT_CHOOSER 220
#define IDI_DIMENSION_CHOOSER 221
#define IDI_USER_ROW 222
#define IDI_SORT_ASCENDING 232
#define IDI_SORT_DESCENDING 233
#define IDI_FILTER 234
#define IDI_FILTER_OFF 235
#define IDI_HTML_DIALOG 236

#define IDS_PROJECT_NAME 100

// Controls of the dialogs, for their sources and templates only. OK and Cancel have the system's identifiers,
// and a control that no code asks for has IDC_STATIC.
#define IDC_STATIC (-1)

// IDD_CHOOSE_DIMENSIONS
#define IDC_SIZES 205
#define IDC_ALL_FILTERS_OFF 230

// IDD_DEFINE_FILTER
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
