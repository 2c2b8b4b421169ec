#pragma once

#include <windows.h>

#include <ole2.h>

#include "framework/ComPtr.h"

namespace nux::bench {

// What a property and a method call cost when the object behind them does nothing. Both objects answer
// `Initialised`, `UserData`, `AssertFail` and `GetLocalizedString`, which gives back its ID.

/// IDispatch by a type library, with the type description at hand.
ComPtr<IDispatch> MakeTypeLibraryObject();

/// IDispatch written by hand: a comparison of names and a switch.
ComPtr<IDispatch> MakeHandWrittenObject();

/// The text that UserData answers.
inline constexpr wchar_t userDataText[] = L"A note of a page to itself";

}  // namespace nux::bench
