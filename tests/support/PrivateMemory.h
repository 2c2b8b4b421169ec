#pragma once

namespace nux {

/// Bytes of memory that the process has for itself alone. Counted region by region, as not every platform
/// fills the process's own counter.
long long PrivateMemory();

}  // namespace nux
