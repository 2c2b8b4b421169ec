#pragma once

#include <functional>
#include <string>
#include <utility>

#include "Inux3D.h"
#include "environment/InstallationPaths.h"
#include "framework/ComObject.h"
#include "framework/Text.h"

namespace nux {

/// IDispatch of a double, which is called by number only.
template <class Interface>
class CalledByNumber : public Interface {
public:
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
};

/// Stands for the host's application object.
class ApplicationDouble : public CalledByNumber<IDispatch> {
public:
    using Answer = std::function<HRESULT(DISPID, WORD, const DISPPARAMS&, VARIANT*)>;

    explicit ApplicationDouble(Answer answer) : answer_(std::move(answer)) {}

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        return answer_(id, flags, *parameters, result);
    }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IDispatch || iid == IID_IUnknown ? static_cast<IDispatch*>(this) : nullptr;
    }

private:
    Answer answer_;
};

/// Stands for the host's 3D side, which hands out the application object.
class HostDouble : public CalledByNumber<Inux3D> {
public:
    /// @param application  null for none
    explicit HostDouble(ComPtr<IDispatch> application, HRESULT result = S_OK)
        : application_(std::move(application)), result_(result) {}

    STDMETHODIMP AttachHost(IDispatch*) override { return E_NOTIMPL; }
    STDMETHODIMP SetCommandFlag(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP RunDieWizard(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP CreateDieBlock() override { return E_NOTIMPL; }
    STDMETHODIMP GetApplication(IDispatch** application) override {
        if (SUCCEEDED(result_))
            application_.CopyTo(application);
        else
            *application = application_.Get();  // nobody's reference
        return result_;
    }
    STDMETHODIMP RunSlideWizard() override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_Inux3D || iid == IID_IDispatch || iid == IID_IUnknown ? static_cast<Inux3D*>(this)
                                                                                : nullptr;
    }

private:
    ComPtr<IDispatch> application_;
    HRESULT result_;
};

/// A host that answers for the folder of a catalogue as `folderOf` does, and is the installation's host
/// meanwhile.
class InstalledHost {
public:
    using FolderOf = std::function<std::string(const std::string& catalogId)>;

    explicit InstalledHost(FolderOf folderOf)
        : InstalledHost(ComPtr<IDispatch>(
              MakeObject<ApplicationDouble>([=](DISPID, WORD, const DISPPARAMS& parameters, VARIANT* result) {
                  result->vt = VT_BSTR;
                  result->bstrVal =
                      Bstr(folderOf(Narrow(parameters.rgvarg[0].bstrVal)), CP_THREAD_ACP).Detach();
                  return S_OK;
              }).Get())) {}
    explicit InstalledHost(ComPtr<IDispatch> application, HRESULT result = S_OK)
        : host_(MakeObject<HostDouble>(std::move(application), result)) {
        SetHost3D(this, host_.Get());
    }
    InstalledHost(const InstalledHost&) = delete;
    InstalledHost& operator=(const InstalledHost&) = delete;
    ~InstalledHost() { WithdrawHost3D(this); }

    ComObject<HostDouble>* Get() const noexcept { return host_.Get(); }

private:
    ComPtr<ComObject<HostDouble>> host_;
};

}  // namespace nux
