#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"
#include "framework/HResult.h"

namespace nux {

/// Type description of an interface or class, from the type library inside this module. It is loaded at
/// first use and kept, as loading costs far more than a call through it.
/// Throws HResultError if the module holds no description of `guid`.
ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid);

/// IDispatch::GetIDsOfNames by the type description of `guid`.
/// @param names  a member, or a member and behind it its arguments; `count` of them
/// @param ids    receives `count` numbers
/// @return S_OK, or DISP_E_UNKNOWNNAME; throws as TypeInfoOf does
HRESULT FindMembers(REFGUID guid, LPOLESTR* names, UINT count, DISPID* ids);

/// Whether the type described by `guid` has a property of this number that can be read. Throws as TypeInfoOf
/// does.
bool IsReadableProperty(REFGUID guid, DISPID id);

/// Drops the type descriptions that are kept. Called when the module may be unloaded.
void ReleaseTypeInfos() noexcept;

}  // namespace nux
