// Defines the identifiers of the host's interfaces and classes.

#include <windows.h>

#include <initguid.h>

#include <ole2.h>

#include "Inux3D.h"
#include "SampleHost.h"
