#pragma once

namespace nux {

/// How many handles of the system this process holds.
unsigned HandleCount();

}  // namespace nux
