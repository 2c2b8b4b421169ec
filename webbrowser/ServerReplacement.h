#pragma once

#include <windows.h>

#include <string>

namespace nux::webbrowser {

/// Takes the place of the in-process server of a class that another module has, for the machine, and keeps
/// beside it which that was.
/// @param classId  in braces, as it is registered
/// @param module   path of the new server
/// @return S_OK, also if it has the place already, or the failure of the registry; then nothing has changed
HRESULT TakeServerPlace(const std::wstring& classId, const std::wstring& module) noexcept;

/// Gives the place back to the server that had it before; without one the class isn't registered any more.
/// @return S_OK, also if the place was never taken
HRESULT GiveServerPlaceBack(const std::wstring& classId) noexcept;

}  // namespace nux::webbrowser
