#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <type_traits>

#include "framework/HResult.h"

namespace nux {

// How an operation says why it failed: beside its code it leaves an error object with the thread, where
// scripts find it as `message` or `Err.Description`. Nothing of this runs where nothing fails.

/// The source that the error objects name: the ProgID of the module's one class, which is the component's
/// unless a module says another.
/// @param progId  a literal
void SetErrorSource(const wchar_t* progId) noexcept;
const wchar_t* ErrorSource() noexcept;

/// Leaves the words of the exception that is being handled with the thread. Without words, or without the
/// memory for them, none are left, not even older ones.
/// @param iid  interface of the operation that fails
/// @return the exception's code. To be called in a catch block only.
HRESULT TellCurrentException(REFIID iid) noexcept;

/// Runs the body of an operation of an automation interface: no exception passes this point.
/// @param iid   interface of the operation
/// @param body  returns an HRESULT, or nothing for S_OK. A failure that it returns has no words.
template <class Body>
HRESULT TellFailure(REFIID iid, Body&& body) noexcept {
    try {
        HRESULT result = S_OK;
        if constexpr (std::is_void_v<decltype(body())>)
            body();
        else
            result = body();
        if (FAILED(result))
            SetErrorInfo(0, nullptr);
        return result;
    } catch (...) {
        return TellCurrentException(iid);
    }
}

/// Raises `code` for a caller's pointer that is null.
/// @param name  of the argument
void Require(const void* argument, const wchar_t* name, HRESULT code = E_INVALIDARG);

/// What an object said of the failure that it has just returned, or empty. Takes it from the thread.
/// @param iid  interface of the operation that failed
std::wstring TakeErrorDescription(IUnknown* object, REFIID iid);

/// What the system says of an error of its own, in its language.
/// @param error  of GetLastError
std::wstring SystemMessage(DWORD error);

}  // namespace nux
