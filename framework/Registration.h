#pragma once

#include <windows.h>

namespace nux {

/// Carries out the registry script that lies in this module as resource `resource` of type "REGISTRY":
/// writes its entries when `add` is true, removes them otherwise. In the script, %MODULE% stands for the
/// path of this module. The platform's script registrar does the work.
/// @return S_OK, or the registrar's failure.
HRESULT ApplyRegistryScript(UINT resource, bool add) noexcept;

}  // namespace nux
