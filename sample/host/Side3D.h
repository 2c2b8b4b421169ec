#pragma once

#include "Inux3D.h"
#include "host/HostObject.h"

namespace nux::host {

/// The 3D side, which models nothing here: it writes down what it is asked to do.
class Side3D : public HostDispatch<Inux3D>, public Implements<Inux3DReady> {
public:
    /// @param application  what GetApplication answers
    Side3D(Record record, ComPtr<IDispatch> application)
        : HostDispatch(std::move(record)), application_(std::move(application)) {}
    virtual ~Side3D() = default;

    STDMETHODIMP AttachHost(IDispatch*) override { return Noted(Call::AttachHost); }
    STDMETHODIMP SetCommandFlag(LONG flag) override {
        return Noted(Call::SetCommandFlag, std::to_wstring(flag));
    }
    STDMETHODIMP RunDieWizard(LONG mode) override { return Noted(Call::RunDieWizard, std::to_wstring(mode)); }
    STDMETHODIMP CreateDieBlock() override { return Noted(Call::CreateDieBlock); }
    STDMETHODIMP GetApplication(IDispatch** application) override {
        return record_->RunForObject(Call::GetApplication, application_.Get(), application);
    }
    STDMETHODIMP RunSlideWizard() override { return Noted(Call::RunSlideWizard); }

protected:
    void* FindInterface(REFIID iid) noexcept {
        if (iid == IdOf<Inux3DReady>())
            return Noted(Call::Inux3DReady) == S_OK ? static_cast<Inux3DReady*>(this) : nullptr;
        return Dispatch::FindInterface(iid);
    }

private:
    ComPtr<IDispatch> application_;
};

}  // namespace nux::host
