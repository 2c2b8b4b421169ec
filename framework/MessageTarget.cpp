#include "framework/MessageTarget.h"

#include <utility>

namespace nux {

void MessageTarget::RethrowFailure() {
    if (const std::exception_ptr failure = std::exchange(Outermost().failure_, nullptr))
        std::rethrow_exception(failure);
}

void MessageTarget::Keep(std::exception_ptr failure) noexcept {
    MessageTarget& outermost = Outermost();
    if (!outermost.failure_)
        outermost.failure_ = std::move(failure);
    for (MessageTarget* target = this; target; target = target->owner_)
        target->OnFailure();
}

}  // namespace nux
