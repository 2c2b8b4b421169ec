#pragma once

// Resources of nuxWebBrowser.dll.
#define IDR_PAGE_SCRIPT 101
#define IDR_START_BROWSER 102
