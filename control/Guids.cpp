// Defines the identifiers of the component's and the host's own interfaces.

#include <windows.h>

#include <initguid.h>

#include "Inux3D.h"
#include "nuxStdPartsAX.h"
