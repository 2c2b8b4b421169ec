#pragma once

#include <functional>

namespace nux {

/// Serves the thread's messages until `isSo`, at most for twenty seconds. @return whether it came to be so
bool Await(const std::function<bool()>& isSo);

}  // namespace nux
