#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Inux3D.h"
#include "framework/Automation.h"
#include "framework/ComObject.h"

namespace nux {

/// What the doubles of the host's objects have seen, in order.
using Journal = std::vector<std::string>;

/// Base of the doubles: automation by DISPID or name where a double says so, and nothing else.
class HostDispatch : public IDispatch {
public:
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }

protected:
    virtual ~HostDispatch() = default;
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IDispatch || iid == IID_IUnknown ? static_cast<IDispatch*>(this) : nullptr;
    }
};

/// An object with properties that are read by name, such as the external dispatch.
class NamedProperties : public HostDispatch {
public:
    /// @param journal  told "<name> released" when the object goes; may be null
    explicit NamedProperties(Journal* journal = nullptr, std::string name = {})
        : journal_(journal), name_(std::move(name)) {}
    ~NamedProperties() override;

    /// The value of a property; `value` is copied.
    void Set(const std::wstring& name, VARIANT& value);
    void SetNumber(const std::wstring& name, long number);
    void SetText(const std::wstring& name, const std::wstring& text);
    /// Makes the reading of a known property fail.
    void Fail(const std::wstring& name, HRESULT code);

    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argument) override;

    /// The arguments of the last call of each that do not carry the answer.
    struct Call {
        LCID lcid = 0;
        WORD flags = 0;
        UINT arguments = 0;
    };
    LCID lcidOfNames = 0;
    Call lastRead;

private:
    struct Property {
        std::wstring name;
        Variant value;
        HRESULT result = S_OK;
    };
    Property& Find(const std::wstring& name);

    Journal* journal_;
    std::string name_;
    std::map<DISPID, Property> properties_;
};

/// The host's application object: DISPID 47 tells the folder of a catalogue.
class HostApplication : public HostDispatch {
public:
    std::map<std::wstring, std::wstring> folders;
    Variant otherAnswer;    ///< given instead of a folder, unless it is empty
    HRESULT result = S_OK;  ///< of each call, beside the answer
    std::vector<std::wstring> asked;
    LCID lcid = 0;
    WORD flags = 0;

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argument) override;
};

/// The host's 3D side. What it answers can be changed at any time.
class Host3D : public Inux3D, public Inux3DReady {
public:
    explicit Host3D(Journal* journal = nullptr) : journal_(journal) {}
    virtual ~Host3D();

    bool ready = true;            ///< offers Inux3DReady
    bool is3D = true;             ///< offers Inux3D
    HRESULT wizardResult = S_OK;  ///< of the three wizards and of AttachHost
    HRESULT applicationResult = S_OK;
    ComPtr<IDispatch> application;
    Journal calls;
    ComPtr<IDispatch> attached;          ///< given to AttachHost
    std::function<void()> whenAttached;  ///< runs in AttachHost; may be empty

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    STDMETHODIMP AttachHost(IDispatch* host) override;
    STDMETHODIMP SetCommandFlag(long flag) override;
    STDMETHODIMP RunDieWizard(long mode) override;
    STDMETHODIMP CreateDieBlock() override;
    STDMETHODIMP GetApplication(IDispatch** result) override;
    STDMETHODIMP RunSlideWizard() override;

protected:
    void* FindInterface(REFIID iid) noexcept;

private:
    Journal* journal_;
};

/// References that are held on an object, the caller's own included.
ULONG References(IUnknown* object);

}  // namespace nux
