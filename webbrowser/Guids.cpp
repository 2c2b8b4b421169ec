// Defines the identifiers of this module, and those that the platform's headers only declare.

#include <windows.h>

#include <initguid.h>

#include <ole2.h>

#include <dispex.h>
#include <wincodec.h>

// {5F7D5B36-0A3C-4F0E-9C2E-6E8F5B1F2A64}
DEFINE_GUID(IID_IPageObject, 0x5f7d5b36, 0x0a3c, 0x4f0e, 0x9c, 0x2e, 0x6e, 0x8f, 0x5b, 0x1f, 0x2a, 0x64);

// Declared by mshtmhst.h, defined nowhere.
DEFINE_GUID(CGID_MSHTML, 0xde4ba900, 0x59ca, 0x11cf, 0x95, 0x92, 0x44, 0x45, 0x53, 0x54, 0x00, 0x00);
