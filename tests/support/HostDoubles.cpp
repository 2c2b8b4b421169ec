#include "tests/support/HostDoubles.h"
#include "tests/support/RawVariant.h"

#include <gtest/gtest.h>

namespace nux {

NamedProperties::~NamedProperties() {
    if (journal_)
        journal_->push_back(name_ + " released");
}

NamedProperties::Property& NamedProperties::Find(const std::wstring& name) {
    for (auto& [id, property] : properties_) {
        if (property.name == name)
            return property;
    }
    Property& added = properties_[static_cast<DISPID>(1000 + properties_.size())];
    added.name = name;
    return added;
}

void NamedProperties::Set(const std::wstring& name, VARIANT& value) {
    VariantCopy(&Find(name).value, &value);
}

void NamedProperties::SetNumber(const std::wstring& name, long number) {
    RawVariant value;
    value.vt = VT_I4;
    value.lVal = number;
    Set(name, value);
}

void NamedProperties::SetText(const std::wstring& name, const std::wstring& text) {
    RawVariant value;
    value.bstrVal = Bstr(text).Detach();
    value.vt = VT_BSTR;
    Set(name, value);
}

void NamedProperties::Fail(const std::wstring& name, HRESULT code) {
    Find(name).result = code;
}

STDMETHODIMP NamedProperties::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID lcid, DISPID* ids) {
    lcidOfNames = lcid;
    for (const auto& [id, property] : properties_) {
        if (count == 1 && property.name == names[0]) {
            *ids = id;
            return S_OK;
        }
    }
    *ids = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP NamedProperties::Invoke(DISPID id, REFIID, LCID lcid, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) {
    lastRead = {lcid, flags, parameters->cArgs};
    const auto found = properties_.find(id);
    if (found == properties_.end())
        return DISP_E_MEMBERNOTFOUND;
    VariantCopy(result, &found->second.value);
    return found->second.result;
}

STDMETHODIMP HostApplication::Invoke(DISPID id, REFIID, LCID givenLcid, WORD givenFlags,
                                     DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO*, UINT*) {
    EXPECT_EQ(47, id);
    EXPECT_EQ(1u, parameters->cArgs);
    EXPECT_EQ(VT_BSTR, parameters->rgvarg[0].vt);
    lcid = givenLcid;
    flags = givenFlags;
    const BSTR catalogue = parameters->rgvarg[0].bstrVal;
    asked.emplace_back(catalogue, SysStringLen(catalogue));
    if (otherAnswer.vt != VT_EMPTY) {
        VariantCopy(answer, &otherAnswer);
    } else {
        answer->vt = VT_BSTR;
        answer->bstrVal = Bstr(folders[asked.back()]).Detach();
    }
    return result;
}

Host3D::~Host3D() {
    if (journal_)
        journal_->push_back("3D released");
}

void* Host3D::FindInterface(REFIID iid) noexcept {
    if (iid == IID_IUnknown || iid == IID_IDispatch || (iid == IID_Inux3D && is3D))
        return static_cast<Inux3D*>(this);
    if (iid == IID_Inux3DReady && ready)
        return static_cast<Inux3DReady*>(this);
    return nullptr;
}

STDMETHODIMP Host3D::AttachHost(IDispatch* host) {
    calls.push_back("AttachHost");
    attached = ComPtr<IDispatch>(host);
    if (whenAttached)
        whenAttached();
    return wizardResult;
}

STDMETHODIMP Host3D::SetCommandFlag(long flag) {
    calls.push_back("SetCommandFlag " + std::to_string(flag));
    return S_OK;
}

STDMETHODIMP Host3D::RunDieWizard(long mode) {
    calls.push_back("RunDieWizard " + std::to_string(mode));
    return wizardResult;
}

STDMETHODIMP Host3D::CreateDieBlock() {
    calls.push_back("CreateDieBlock");
    return wizardResult;
}

STDMETHODIMP Host3D::GetApplication(IDispatch** result) {
    calls.push_back("GetApplication");
    if (SUCCEEDED(applicationResult))
        application.CopyTo(result);
    else
        *result = application.Get();  // nobody's reference
    return applicationResult;
}

STDMETHODIMP Host3D::RunSlideWizard() {
    calls.push_back("RunSlideWizard");
    return wizardResult;
}

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

}  // namespace nux
