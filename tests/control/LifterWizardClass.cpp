#include "tests/control/LifterWizardClass.h"

#include <gtest/gtest.h>

#include <utility>

namespace nux {

class LifterWizardClass::Factory : public IClassFactory {
public:
    explicit Factory(Journal* journal) : journal_(journal) {}
    virtual ~Factory() = default;

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        EXPECT_EQ(nullptr, outer);
        EXPECT_EQ(IID_IDispatch, iid);
        ++made;
        if (whileMaking)
            whileMaking();
        return MakeObject<NamedProperties>(journal_, "lifter wizard")->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    int made = 0;
    std::function<void()> whileMaking;

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IClassFactory || iid == IID_IUnknown ? static_cast<IClassFactory*>(this) : nullptr;
    }

private:
    Journal* journal_;
};

LifterWizardClass::LifterWizardClass(Journal* journal, DWORD context)
    : factory_(MakeObject<Factory>(journal)) {
    // Kept apart: else a local server's class would be one of this process as well.
    EXPECT_EQ(S_OK, CoRegisterClassObject(CLSID_nuxLifterWizard, factory_.Get(), context,
                                          REGCLS_MULTI_SEPARATE, &registration_));
}

LifterWizardClass::~LifterWizardClass() {
    CoRevokeClassObject(registration_);
}

void LifterWizardClass::WhileMaking(std::function<void()> work) {
    factory_->whileMaking = std::move(work);
}

int LifterWizardClass::Made() const noexcept {
    return factory_->made;
}

}  // namespace nux
