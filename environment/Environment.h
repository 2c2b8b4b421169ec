#pragma once

namespace nux {

/// Starts what depends on the installation paths: product version, interface language and its resource
/// module, decimal separator, log file. Called each time the paths are set.
/// @return false if the decimal separator could not be read: it stays as it was, and all the rest is done
/// Throws std::bad_alloc.
bool InitEnvironment();

/// The user's decimal separator: at most four bytes; empty until InitEnvironment has read it.
const char* DecimalSeparator() noexcept;

/// Whether the character is one of those of the user's decimal separator.
bool IsDecimalSeparator(char character) noexcept;

}  // namespace nux
