#pragma once

#include <string>

namespace nux {

/// The installed version, the last element of the settings key; empty until ReadProductVersion finds it.
const std::string& ProductVersion() noexcept;

/// Reads the version from the only place where it stands, `CurrentVersion` of the product's registry key.
/// If it is not there as a string, the version stays as it was. Throws std::bad_alloc.
void ReadProductVersion();

/// Key of the settings, below a root of the registry. Without a version it ends in the backslash.
/// Throws std::bad_alloc.
std::string GetRegistryRoot();

}  // namespace nux
