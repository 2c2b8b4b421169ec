#pragma once

#include <windows.h>

#include <dispex.h>

#include "framework/Implements.h"
#include "webbrowser/PageReference.h"

namespace nux::webbrowser {

/// What each COM object offers that stands for an object of a page, so that it goes back as that object. Of
/// this module alone.
struct IPageObject : IUnknown {
    virtual const PageReference& Reference() const noexcept = 0;

protected:
    ~IPageObject() = default;
};

}  // namespace nux::webbrowser

EXTERN_C const IID IID_IPageObject;
template <>
inline const IID& nux::IdOf<nux::webbrowser::IPageObject>() noexcept {
    return IID_IPageObject;
}

namespace nux::webbrowser {

/// Members of a page's object by name: what IDispatchEx does. A class for one kind of object (element,
/// document) has its own interface answered by its type description, and what is not found there by this.
///
/// The number of a name is the same for all objects of the process, at or above `firstMember`.
class PageMembers {
public:
    static constexpr DISPID firstMember = 0x10000;

    /// @param object  the COM object whose member this is: it is the one that stands for the page's object
    PageMembers(const PageReference& reference, IDispatch* object);
    PageMembers(const PageMembers&) = delete;
    PageMembers& operator=(const PageMembers&) = delete;
    ~PageMembers();
    const PageReference& Reference() const noexcept { return reference_; }

    /// @param ensure  whether a name that the object doesn't have gets a number too
    /// @return S_OK, DISP_E_UNKNOWNNAME with DISPID_UNKNOWN, or the failure
    HRESULT Find(std::wstring_view name, bool ensure, DISPID* id) const noexcept;
    /// IDispatchEx::InvokeEx. Knows DISPID_VALUE of a function (calls it) and of others (their text), and
    /// DISPID_NEWENUM of whatever has a length.
    HRESULT Invoke(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* exception) const noexcept;
    HRESULT Delete(std::wstring_view name) const noexcept;
    /// The name of a number. @return null if it has none
    static const wchar_t* NameOf(DISPID id) noexcept;
    /// The next number of an enumeration of the object's own members. @return S_FALSE at the end
    HRESULT Next(DISPID after, DISPID* id) const noexcept;

private:
    PageReference reference_;
    IDispatch* object_;
};

/// Any object of a page, for automation clients.
class PageObject : public Implements<AlsoAs<IDispatchEx, IDispatch>, IPageObject> {
public:
    explicit PageObject(const PageReference& reference) : members_(reference, this) {}
    virtual ~PageObject() = default;

    const PageReference& Reference() const noexcept override { return members_.Reference(); }

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** typeInfo) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override;

    // IDispatchEx
    STDMETHODIMP GetDispID(BSTR name, DWORD flags, DISPID* id) override;
    STDMETHODIMP InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO* exception, IServiceProvider* caller) override;
    STDMETHODIMP DeleteMemberByName(BSTR name, DWORD flags) override;
    STDMETHODIMP DeleteMemberByDispID(DISPID id) override;
    STDMETHODIMP GetMemberProperties(DISPID id, DWORD asked, DWORD* properties) override;
    STDMETHODIMP GetMemberName(DISPID id, BSTR* name) override;
    STDMETHODIMP GetNextDispID(DWORD flags, DISPID after, DISPID* id) override;
    STDMETHODIMP GetNameSpaceParent(IUnknown** parent) override;

private:
    PageMembers members_;
};

}  // namespace nux::webbrowser
