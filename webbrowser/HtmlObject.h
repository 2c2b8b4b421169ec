#pragma once

#include <windows.h>

#include <dispex.h>
#include <mshtml.h>

#include <array>
#include <concepts>
#include <functional>
#include <span>
#include <string_view>

#include "framework/ComObject.h"
#include "framework/ErrorInfo.h"
#include "framework/Implements.h"
#include "framework/Variant.h"
#include "webbrowser/PageObject.h"

namespace nux::webbrowser {

// Values of the platform's interfaces as a page takes them. Throw std::bad_alloc.

Variant ToVariant(BSTR text);
Variant ToVariant(const wchar_t* text);
Variant ToVariant(LONG number);
Variant ToVariant(float number);
Variant ToVariant(const VARIANT& value);
Variant ToVariant(IDispatch* object);

// Values of a page in the types of the platform's interfaces; what has no value is empty, 0, false, null.
// Throw HResultError (DISP_E_TYPEMISMATCH, E_NOINTERFACE) for one that isn't of the type.

void Store(Variant value, BSTR* result);
void Store(Variant value, LONG* result);
void Store(Variant value, VARIANT_BOOL* result);  ///< which is also `short`: a number stays one
void Store(Variant value, float* result);
void Store(Variant value, VARIANT* result);
void Store(const Variant& value, REFIID iid, void** result);
template <class Interface>
void Store(Variant value, Interface** result) {
    Store(value, IdOf<Interface>(), reinterpret_cast<void**>(result));
}

/// An object of a page behind the platform's interfaces for its kind: what their members do, told in the
/// words of the page. Each of these functions returns what the member returns, with words for a failure;
/// a result is set on each path.
///
/// By name, the interfaces' own members are found through the platform's description of them, where that is
/// registered; all others, and those that the interface refuses with E_NOTIMPL, by the page (PageMembers).
class HtmlObject : public PageObject, public Implements<ISupportErrorInfo> {
public:
    using PageObject::PageObject;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** typeInfo) override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override;
    STDMETHODIMP GetDispID(BSTR name, DWORD flags, DISPID* id) override;
    STDMETHODIMP InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO* exception, IServiceProvider* caller) override;
    STDMETHODIMP GetMemberProperties(DISPID id, DWORD asked, DWORD* properties) override;
    STDMETHODIMP GetMemberName(DISPID id, BSTR* name) override;
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }

    /// The first of its interfaces for automation.
    IDispatch* Self() noexcept { return static_cast<IDispatchEx*>(this); }

protected:
    /// Calls `visit` with each interface that has a description, until one answers true.
    using Visitor = std::function<bool(REFIID iid, IDispatch* self)>;
    virtual bool VisitInterfaces(const Visitor&) { return false; }

    void* FindInterface(REFIID iid) noexcept;

    // Properties and methods that the page has by this name.

    template <class Result>
    HRESULT Get(const wchar_t* name, Result* result) noexcept {
        return Answer(result, [&] { return Reference().Get(name); });
    }
    template <class Value>
    HRESULT Put(const wchar_t* name, const Value& value) noexcept {
        return Operation([&] { Reference().Put(name, ToVariant(value).Get()); });
    }
    HRESULT PutTruth(const wchar_t* name, VARIANT_BOOL value) noexcept;
    template <class... Arguments>
    HRESULT Call(const wchar_t* method, const Arguments&... arguments) noexcept {
        return Operation([&] { Reference().Call(method, Values(arguments...)); });
    }
    template <class Result, class... Arguments>
    HRESULT CallFor(Result* result, const wchar_t* method, const Arguments&... arguments) noexcept {
        return Answer(result, [&] { return Reference().Call(method, Values(arguments...)); });
    }

    // What the page has otherwise: a function in its language, "(object, ...) => ...".

    template <class... Arguments>
    HRESULT Run(std::string_view function, const Arguments&... arguments) noexcept {
        return Operation([&] { Evaluate(function, Values(Self(), arguments...)); });
    }
    template <class Result, class... Arguments>
    HRESULT Ask(Result* result, std::string_view function, const Arguments&... arguments) noexcept {
        return Answer(result, [&] { return Evaluate(function, Values(Self(), arguments...)); });
    }
    /// The same for a function that gives an object; an array of elements becomes a collection.
    template <class Interface, class... Arguments>
    HRESULT AskForCollection(Interface** result, std::string_view function,
                             const Arguments&... arguments) noexcept {
        return Answer(result, [&] { return EvaluateCollection(function, Values(Self(), arguments...)); });
    }

    /// The elements of a list, one after the other.
    HRESULT Enumerate(IUnknown** result) noexcept;

    // Events as properties, and those that several may handle. A handler is a function of the page or an
    // object of C++ whose default member is called (HtmlEventCaller.h).

    HRESULT PutHandler(const wchar_t* name, const VARIANT& handler) noexcept;
    HRESULT GetHandler(const wchar_t* name, VARIANT* handler) noexcept;
    HRESULT AttachHandler(BSTR event, IDispatch* handler, VARIANT_BOOL* result) noexcept;
    HRESULT DetachHandler(BSTR event, IDispatch* handler) noexcept;

    /// A member that isn't offered: E_NOTIMPL.
    template <class... Results>
    HRESULT Refuse(Results*... results) noexcept {
        (void(results && (*results = Results{}, true)), ...);
        return Operation([] { return E_NOTIMPL; });
    }

    /// Runs the body of a member and holds the object meanwhile: what the page calls may let go of it.
    template <class Body>
    HRESULT Operation(Body&& body) noexcept {
        return TellFailure(IdOf<IDispatch>(), [&] {
            const ComPtr<IDispatch> self(Self());
            return body();
        });
    }

private:
    template <class... Arguments>
    static std::array<Variant, sizeof...(Arguments)> Values(const Arguments&... arguments) {
        return {ToVariant(arguments)...};
    }
    template <class Result, class Body>
    HRESULT Answer(Result* result, Body&& body) noexcept {
        if (!result)
            return E_POINTER;
        *result = Result{};
        return Operation([&] { Store(body(), result); });
    }
    Variant Evaluate(std::string_view function, std::span<const Variant> arguments) const;
    Variant EvaluateCollection(std::string_view function, std::span<const Variant> arguments) const;

    bool FindOwn(LPOLESTR* names, UINT count, bool isExact, DISPID* ids);
    Bstr NameOfOwn(DISPID id);
    DISPID PageNumber(DISPID id);
};

/// Adds interfaces to a class of objects: derives it from each and finds each by its identifier. Those that
/// are for automation are found by their members' names too, before those of the base.
template <class Base, class... Offers>
class Extends : public Base, public Implements<Offers...> {
public:
    using Base::Base;

    // Of all these interfaces.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return Base::GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** typeInfo) override {
        return Base::GetTypeInfo(index, locale, typeInfo);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return Base::GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* argumentError) override {
        return Base::Invoke(id, iid, locale, flags, parameters, result, exception, argumentError);
    }

protected:
    bool VisitInterfaces(const HtmlObject::Visitor& visit) override {
        return (... || Visit<typename OfferedInterface<Offers>::Type>(visit)) || Base::VisitInterfaces(visit);
    }

    void* FindInterface(REFIID iid) noexcept {
        void* const found = Base::FindInterface(iid);
        return found ? found : Implements<Offers...>::FindInterface(iid);
    }

private:
    template <class Interface>
    bool Visit(const HtmlObject::Visitor& visit) {
        if constexpr (std::derived_from<Interface, IDispatch>)
            return visit(IdOf<Interface>(), static_cast<Interface*>(this));
        return false;
    }
};

/// Makes an object of one of these classes, with one reference, owned by the result.
template <class Class>
ComPtr<IDispatch> MakeHtmlObject(const PageReference& reference) {
    return MakeObject<Class>(reference)->Self();
}

}  // namespace nux::webbrowser
