#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "driver/User.h"

namespace nux {

/// driver::Play, in which whatever goes wrong is a failure of the test.
inline void WithUser(const std::function<void()>& work, const std::function<void(driver::User&)>& user) {
    for (const std::string& failure : driver::Play(work, user))
        ADD_FAILURE() << failure;
}

}  // namespace nux
