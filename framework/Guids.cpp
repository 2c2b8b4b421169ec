// Defines the identifiers that the platform's headers only declare and no import library holds.

#include <windows.h>

#include <initguid.h>

#include <ole2.h>

#include <atliface.h>
#include <exdisp.h>
#include <msxml2.h>

// Declared by msxml2.h, defined nowhere.
DEFINE_GUID(CLSID_DOMDocument30, 0xf5078f32, 0xc551, 0x11d3, 0x89, 0xb9, 0x00, 0x00, 0xf8, 0x1f, 0xe2, 0x21);
