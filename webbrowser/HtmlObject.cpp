#include "webbrowser/HtmlObject.h"

#include "framework/TypeLibrary.h"
#include "webbrowser/HtmlEventCaller.h"
#include "webbrowser/HtmlObjects.h"
#include "webbrowser/Page.h"

namespace nux::webbrowser {
namespace {

/// The platform's own, LIBID_MSHTML, which its headers declare and no import library holds.
constexpr RegisteredLibrary htmlLibrary{
    {0x3050f1c5, 0x98b5, 0x11cf, {0xbb, 0x82, 0x00, 0xaa, 0x00, 0xbd, 0xce, 0x0b}}, 4, 0};

/// A value of a page in the type of a platform's interface. Decimal points, whatever the user's are.
Variant Changed(const Variant& value, VARTYPE type) {
    Variant changed;
    ThrowIfFailed(VariantChangeTypeEx(changed.Receive(), const_cast<VARIANT*>(&value.Get()), LOCALE_INVARIANT,
                                      0, type));
    return changed;
}

bool IsNothing(const Variant& value) {
    return value.Type() == VT_EMPTY || value.Type() == VT_NULL;
}

/// Whether a member's name is that of an event's property.
bool IsEventName(std::wstring_view name) {
    return name.size() > 2 && name.starts_with(L"on");
}

}  // namespace

Variant ToVariant(BSTR text) {
    Variant value;
    value.SetText(Bstr(std::wstring_view(text, SysStringLen(text))));
    return value;
}

Variant ToVariant(const wchar_t* text) {
    Variant value;
    value.SetText(Bstr(std::wstring_view(text)));
    return value;
}

Variant ToVariant(LONG number) {
    Variant value;
    value.SetNumber(number);
    return value;
}

Variant ToVariant(float number) {
    VARIANT value{};
    value.vt = VT_R4;
    value.fltVal = number;
    return ToVariant(value);
}

Variant ToVariant(const VARIANT& value) {
    Variant copy;
    ThrowIfFailed(copy.SetCopy(value));
    return copy;
}

Variant ToVariant(IDispatch* object) {
    Variant value;
    value.SetObject(object);
    return value;
}

void Store(Variant value, BSTR* result) {
    if (!IsNothing(value))
        *result = Changed(value, VT_BSTR).Detach().bstrVal;
}

void Store(Variant value, LONG* result) {
    if (!IsNothing(value))
        *result = Changed(value, VT_I4).Number();
}

void Store(Variant value, VARIANT_BOOL* result) {
    if (!IsNothing(value))
        *result = Changed(value, VT_I2).Get().iVal;
}

void Store(Variant value, float* result) {
    if (!IsNothing(value))
        *result = Changed(value, VT_R4).Get().fltVal;
}

void Store(Variant value, VARIANT* result) {
    *result = value.Detach();
}

void Store(const Variant& value, REFIID iid, void** result) {
    if (IsNothing(value))
        return;
    if (value.Type() != VT_DISPATCH && value.Type() != VT_UNKNOWN)
        throw HResultError(DISP_E_TYPEMISMATCH);
    if (IUnknown* const object = value.Get().punkVal)
        ThrowIfFailed(object->QueryInterface(iid, result));
}

void* HtmlObject::FindInterface(REFIID iid) noexcept {
    void* const found = PageObject::FindInterface(iid);
    return found ? found : Implements<ISupportErrorInfo>::FindInterface(iid);
}

HRESULT HtmlObject::PutTruth(const wchar_t* name, VARIANT_BOOL value) noexcept {
    VARIANT truth{};
    truth.vt = VT_BOOL;
    truth.boolVal = value;
    return Put(name, truth);
}

Variant HtmlObject::Evaluate(std::string_view function, std::span<const Variant> arguments) const {
    return Reference().Owner()->Call(function, arguments);
}

Variant HtmlObject::EvaluateCollection(std::string_view function, std::span<const Variant> arguments) const {
    const std::shared_ptr<Page> page = Reference().Owner();
    const PageReference found = page->CallForObject(function, arguments);
    Variant object;
    if (found)
        object.SetObject(found.Kind() == PageObjectKind::array ? MakeCollection(found)
                                                               : page->ObjectOf(found));
    return object;
}

HRESULT HtmlObject::Enumerate(IUnknown** result) noexcept {
    return Answer(result, [&] {
        Variant enumeration;
        DISPPARAMS none{};
        ThrowIfFailed(PageObject::InvokeEx(DISPID_NEWENUM, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &none,
                                           enumeration.Receive(), nullptr, nullptr));
        return enumeration;
    });
}

// Events

HRESULT HtmlObject::PutHandler(const wchar_t* name, const VARIANT& handler) noexcept {
    return Operation([&] {
        const Variant given = ToVariant(handler);
        Evaluate(
            "(object, name, handler, caller) => {"
            "    let listener = typeof handler === 'string' ? new Function('event', handler) : handler || "
            "null;"
            "    if (caller) {"
            "        listener = function (event) { return caller.call(this, null); };"
            "        listener.handler = handler;"
            "    }"
            "    object[name] = listener;"
            "}",
            Values(Self(), name, given.Get(), MakeEventCaller(given, Reference()).Get()));
    });
}

HRESULT HtmlObject::GetHandler(const wchar_t* name, VARIANT* handler) noexcept {
    return Ask(handler, "(object, name) => object[name]?.handler ?? object[name]", name);
}

HRESULT HtmlObject::AttachHandler(BSTR event, IDispatch* handler, VARIANT_BOOL* result) noexcept {
    if (!handler)
        return E_INVALIDARG;
    Variant caller;
    const HRESULT made = Guarded([&] {
        caller = MakeEventCaller(ToVariant(handler), Reference());
        return S_OK;
    });
    if (FAILED(made))
        return made;
    // Each handler is kept with its listener by the object itself, out of the page's sight.
    return Ask(result,
               "(object, name, handler, caller) => {"
               "    const listener = event => {"
               "        const answer = caller ? caller.call(object, event) : handler.call(window, event);"
               "        if (answer === false)"
               "            event.preventDefault();"
               "    };"
               "    const key = Symbol.for('nux attached handlers');"
               "    if (!object[key])"
               "        Object.defineProperty(object, key, {value: []});"
               "    object[key].push({name, handler, listener});"
               "    object.addEventListener(name.replace(/^on/, ''), listener);"
               "    return true;"
               "}",
               event, handler, caller.Get());
}

HRESULT HtmlObject::DetachHandler(BSTR event, IDispatch* handler) noexcept {
    return Run(
        "(object, name, handler) => {"
        "    const attached = object[Symbol.for('nux attached handlers')] ?? [];"
        "    const at = attached.findIndex(each => each.name === name && each.handler === handler);"
        "    if (at >= 0)"
        "        object.removeEventListener(name.replace(/^on/, ''), attached.splice(at, 1)[0].listener);"
        "}",
        event, handler);
}

// Members by name

bool HtmlObject::FindOwn(LPOLESTR* names, UINT count, bool isExact, DISPID* ids) {
    return VisitInterfaces([&](REFIID iid, IDispatch*) {
        try {
            if (FindMembers(iid, names, count, ids, &htmlLibrary) != S_OK)
                return false;
        } catch (const HResultError&) {
            return false;  // without the platform's description the page answers alone
        }
        return !isExact || NameOfOwn(ids[0]).View() == names[0];
    });
}

Bstr HtmlObject::NameOfOwn(DISPID id) {
    Bstr name;
    VisitInterfaces([&](REFIID iid, IDispatch*) {
        try {
            UINT count = 0;
            return SUCCEEDED(TypeInfoOf(iid, &htmlLibrary)->GetNames(id, name.Receive(), 1, &count)) &&
                   count == 1;
        } catch (const HResultError&) {
            return false;
        }
    });
    return name;
}

/// The number by which the page's own member of that name is reached.
DISPID HtmlObject::PageNumber(DISPID id) {
    const Bstr name = NameOfOwn(id);
    DISPID number = DISPID_UNKNOWN;
    return name && PageObject::GetDispID(name.Get(), 0, &number) == S_OK ? number : id;
}

STDMETHODIMP HtmlObject::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    ComPtr<ITypeInfo> type;
    *count = SUCCEEDED(GetTypeInfo(0, LOCALE_NEUTRAL, type.Receive())) ? 1 : 0;
    return S_OK;
}

STDMETHODIMP HtmlObject::GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) {
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    return Guarded([&] {
        VisitInterfaces([&](REFIID iid, IDispatch*) {
            *typeInfo = TypeInfoOf(iid, &htmlLibrary).Detach();
            return true;
        });
        return S_OK;
    });
}

STDMETHODIMP HtmlObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
    if (!names || !ids || count == 0)
        return E_POINTER;
    return Guarded([&] {
        return FindOwn(names, count, false, ids) ? S_OK
                                                 : PageObject::GetIDsOfNames(iid, names, count, locale, ids);
    });
}

STDMETHODIMP HtmlObject::GetDispID(BSTR name, DWORD flags, DISPID* id) {
    if (!name || !id)
        return E_POINTER;
    return Guarded([&] {
        return FindOwn(&name, 1, (flags & fdexNameCaseSensitive) != 0, id)
                   ? S_OK
                   : PageObject::GetDispID(name, flags, id);
    });
}

STDMETHODIMP HtmlObject::GetMemberProperties(DISPID id, DWORD asked, DWORD* properties) {
    return Guarded([&] { return PageObject::GetMemberProperties(PageNumber(id), asked, properties); });
}

STDMETHODIMP HtmlObject::GetMemberName(DISPID id, BSTR* name) {
    if (!name)
        return E_POINTER;
    return Guarded([&] {
        *name = NameOfOwn(id).Detach();
        return *name ? S_OK : PageObject::GetMemberName(id, name);
    });
}

STDMETHODIMP HtmlObject::Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters,
                                VARIANT* result, EXCEPINFO* exception, UINT*) {
    return InvokeEx(id, locale, flags, parameters, result, exception, nullptr);
}

STDMETHODIMP HtmlObject::InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                  EXCEPINFO* exception, IServiceProvider* caller) {
    return Guarded([&] {
        const ComPtr<IDispatch> self(Self());
        const wchar_t* const pageName = PageMembers::NameOf(id);
        if (pageName && IsEventName(pageName) && flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF) &&
            parameters && parameters->cArgs == 1)
            return PutHandler(pageName, parameters->rgvarg[0]);
        if (pageName)
            return PageObject::InvokeEx(id, locale, flags, parameters, result, exception, caller);

        EXCEPINFO unasked{};
        EXCEPINFO& told = exception ? *exception : unasked;
        told = {};
        HRESULT answer = DISP_E_MEMBERNOTFOUND;
        UINT argumentError = 0;
        VisitInterfaces([&](REFIID iid, IDispatch* described) {
            try {
                answer = InvokeMember(TypeInfoOf(iid, &htmlLibrary).Get(), described, id, locale, flags,
                                      parameters, result, &told, &argumentError);
            } catch (const HResultError&) {
                // Without the platform's description the page answers alone.
            }
            return answer != DISP_E_MEMBERNOTFOUND;
        });
        const bool isRefused =
            answer == DISP_E_MEMBERNOTFOUND || (answer == DISP_E_EXCEPTION && told.scode == E_NOTIMPL);
        const DISPID number = isRefused ? PageNumber(id) : id;
        if (number != id || answer == DISP_E_MEMBERNOTFOUND)
            answer = PageObject::InvokeEx(number, locale, flags, parameters, result, exception, caller);
        SysFreeString(unasked.bstrSource);
        SysFreeString(unasked.bstrDescription);
        SysFreeString(unasked.bstrHelpFile);
        return answer;
    });
}

}  // namespace nux::webbrowser
