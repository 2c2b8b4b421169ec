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

// A control that no code asks for.
#define IDC_STATIC -1
