#pragma once

#include <windows.h>

#include <string>

namespace nux {

/// Says to a debugger what is passed over in silence by design, so that who writes a catalogue or a host can
/// find out why nothing shows. Callers say a thing once, and not at every call.
/// @param line  an English sentence without an end of line. Throws std::bad_alloc.
inline void TellDebugger(const std::wstring& line) {
    OutputDebugStringW((L"nuxStdPartsAX: " + line + L"\n").c_str());
}

}  // namespace nux
