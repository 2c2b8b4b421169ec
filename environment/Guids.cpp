// Defines the identifiers of the host's interfaces.

#include <windows.h>

#include <initguid.h>

#include "Inux3D.h"
