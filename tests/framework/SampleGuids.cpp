// Defines the identifiers of the sample interface.

#include <windows.h>

#include <initguid.h>

#include "Sample.h"
