#pragma once

// Resources of the test program itself.

#define IDR_TYPELIB 1
#define IDR_SAMPLE_REGISTRY 100
#define IDR_BROKEN_REGISTRY 101
#define IDD_SAMPLE 300
#define IDC_SAMPLE_EDIT 301
#define IDI_SAMPLE 302
