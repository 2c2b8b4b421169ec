// Defines the identifiers of the component's own interfaces.

#include <windows.h>

#include <initguid.h>

#include "nuxStdPartsAX.h"
