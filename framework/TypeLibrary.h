#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"
#include "framework/HResult.h"

namespace nux {

/// A type library that is registered, such as one of the platform.
struct RegisteredLibrary {
    GUID id;
    WORD major;
    WORD minor;
};

/// Type description of an interface or class, from the type library inside this module or from a registered
/// one. It is loaded at first use and kept, as loading costs far more than a call through it.
/// @param library  null for this module's own
/// Throws HResultError if the library isn't there or holds no description of `guid`. May be called by several
/// threads, as FindMembers may.
ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid, const RegisteredLibrary* library = nullptr);

/// IDispatch::GetIDsOfNames by the type description of `guid`.
/// @param names  a member, or a member and behind it its arguments; `count` of them
/// @param ids    receives `count` numbers
/// @return S_OK, or DISP_E_UNKNOWNNAME; throws as TypeInfoOf does
HRESULT FindMembers(REFGUID guid, LPOLESTR* names, UINT count, DISPID* ids,
                    const RegisteredLibrary* library = nullptr);

/// IDispatch::Invoke of a dual interface by its type description. A put by reference is one by value: a
/// property takes an object either way. Arguments of a property that has none are for the default member of
/// the object that it holds.
/// @param self  the interface that `type` describes
HRESULT InvokeMember(ITypeInfo* type, IDispatch* self, DISPID id, LCID locale, WORD flags,
                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* argumentError);

/// Drops the type descriptions that are kept. Called when the module may be unloaded, so that no other thread
/// asks for one.
void ReleaseTypeInfos() noexcept;

}  // namespace nux
