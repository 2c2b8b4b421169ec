#pragma once

#include <string>

namespace nux::webbrowser {

/// 32 letters and digits that nobody can guess. Throws HResultError if the platform has no random numbers.
std::string RandomName();

}  // namespace nux::webbrowser
