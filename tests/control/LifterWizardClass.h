#pragma once

#include <windows.h>

#include <functional>

#include "framework/ComPtr.h"
#include "tests/support/HostDoubles.h"

namespace nux {

/// The host's lifter wizard as a class of this process, for as long as it lives.
class LifterWizardClass {
public:
    /// @param journal  told "lifter wizard released" by each wizard; may be null
    /// @param context  the kind of server that the class is offered as
    explicit LifterWizardClass(Journal* journal = nullptr, DWORD context = CLSCTX_INPROC_SERVER);
    LifterWizardClass(const LifterWizardClass&) = delete;
    LifterWizardClass& operator=(const LifterWizardClass&) = delete;
    ~LifterWizardClass();

    /// Lets this run while a wizard is made.
    void WhileMaking(std::function<void()> work);
    /// How many wizards were made.
    int Made() const noexcept;

private:
    class Factory;
    ComPtr<ComObject<Factory>> factory_;
    DWORD registration_ = 0;
};

}  // namespace nux
