#pragma once

#include <new>

namespace nux {

/// Storage of a process-wide object that is made at first use and never destroyed. For what holds references
/// on objects of other modules: at the end of the process those modules may be gone before this one.
template <class Class>
class ProcessWide {
public:
    Class& Get() noexcept(noexcept(Class())) {
        if (!made_) {
            new (storage_) Class();
            made_ = true;
        }
        return *std::launder(reinterpret_cast<Class*>(storage_));
    }

private:
    alignas(Class) unsigned char storage_[sizeof(Class)];
    bool made_ = false;
};

}  // namespace nux
