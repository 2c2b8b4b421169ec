#pragma once

#include <string>

#include "environment/Registry.h"
#include "framework/DialogLayout.h"

namespace nux {

// The component's settings in the registry. All throw std::bad_alloc.

/// The installed version, the last element of the settings key; empty until ReadProductVersion finds it.
const std::string& ProductVersion() noexcept;

/// Reads the version from the only place where it stands, `CurrentVersion` of the product's registry key.
/// If it is not there as a string, the version stays as it was.
void ReadProductVersion();

/// Key of the settings, below a root of the registry. Without a version it ends in the backslash.
std::string GetRegistryRoot();

/// Where a resizable dialog stood last: "x", "y", "dx" and "dy" of its key.
/// @param initial  stands for what is missing
DialogFrame ReadDialogFrame(CRegistry& registry, const std::string& key, const DialogFrame& initial);
/// A write that fails is ignored.
void WriteDialogFrame(CRegistry& registry, const std::string& key, const DialogFrame& frame);

}  // namespace nux
