#pragma once

#include <windows.h>

namespace nux {

/// Carries out the registry script that lies in this module as resource `resource` of type "REGISTRY":
/// writes its entries when `add` is true, removes them otherwise. In the script, %MODULE% stands for the
/// path of this module. The platform's script registrar does the work, also where its class is not
/// registered.
/// @return S_OK, or the registrar's failure.
HRESULT ApplyRegistryScript(UINT resource, bool add) noexcept;

/// Enters the type library of this module, with its interfaces, for the machine, so that tools find it by its
/// identifier and calls of its interfaces can be marshalled; or takes it away.
/// @return S_OK, also if there was nothing to take away, or the platform's failure.
HRESULT RegisterTypeLibrary(bool add) noexcept;

}  // namespace nux
