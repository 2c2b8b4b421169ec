#pragma once

#include <oaidl.h>

#include <cstdint>
#include <memory>
#include <string>

#include "webbrowser/PageReference.h"
#include "webbrowser/ScriptBridge.h"

namespace nux::webbrowser {

/// What all references on one object of a page share.
struct PageReference::Held {
    Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held();

    std::weak_ptr<ScriptBridge> bridge;
    PageObjectId id;
    std::int64_t count = 0;       ///< so often it was received, and so often it is given back
    IDispatch* object = nullptr;  ///< the COM object that stands for it; that takes itself away
};

}  // namespace nux::webbrowser
