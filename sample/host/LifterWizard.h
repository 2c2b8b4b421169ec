#pragma once

#include "SampleHost.h"
#include "framework/ComObject.h"
#include "host/HostObject.h"

namespace nux::host {

/// The lifter wizard, which makes nothing here.
class LifterWizard : public HostDispatch<ISampleLifterWizard> {
public:
    explicit LifterWizard(Record record) : HostDispatch(std::move(record)) {}
    virtual ~LifterWizard() = default;

    STDMETHODIMP Run() override { return Noted(Call::Run); }
};

/// The class of lifter wizards, for as long as the host offers it.
class LifterWizardClass : public Implements<IClassFactory>, public HostObject {
public:
    explicit LifterWizardClass(Record record) : HostObject(std::move(record)) {}
    virtual ~LifterWizardClass() = default;

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        return record_->Run(Call::LifterWizard, {},
                            [&] { return MakeObject<LifterWizard>(record_)->QueryInterface(iid, object); });
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

}  // namespace nux::host
