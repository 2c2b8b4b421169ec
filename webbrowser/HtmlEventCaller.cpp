#include "webbrowser/HtmlEventCaller.h"

#include <dispex.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "framework/ComObject.h"
#include "framework/Implements.h"
#include "webbrowser/PageObject.h"

namespace nux::webbrowser {
namespace {

class EventCaller : public Implements<IDispatch> {
public:
    explicit EventCaller(ComPtr<IDispatch> handler) : handler_(std::move(handler)) {}
    virtual ~EventCaller() = default;

    // Without a type description, by which the page would ask for the name's meaning.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** typeInfo) override {
        *typeInfo = nullptr;
        return DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        std::fill_n(ids, count, DISPID_UNKNOWN);
        if (count != 1 || std::wstring_view(names[0]) != L"call")
            return DISP_E_UNKNOWNNAME;
        ids[0] = callMember;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argumentError) override {
        if (id != callMember || !(flags & DISPATCH_METHOD))
            return DISP_E_MEMBERNOTFOUND;
        if (parameters->cArgs != 2)
            return DISP_E_BADPARAMCOUNT;
        const ComPtr<IDispatch> self(this);
        VARIANT& event = parameters->rgvarg[0];
        VARIANT given[] = {parameters->rgvarg[1], event};
        const UINT events = event.vt == VT_NULL ? 0 : 1;
        const ComPtr<IDispatchEx> extended = handler_.As<IDispatchEx>();
        if (!extended) {
            DISPPARAMS arguments{&event, nullptr, events, 0};
            return handler_->Invoke(DISPID_VALUE, IID_NULL, locale, DISPATCH_METHOD, &arguments, result,
                                    exception, argumentError);
        }
        DISPID thisArgument = DISPID_THIS;
        DISPPARAMS arguments{given, &thisArgument, events + 1, 1};
        return extended->InvokeEx(DISPID_VALUE, locale, DISPATCH_METHOD, &arguments, result, exception,
                                  nullptr);
    }

private:
    static constexpr DISPID callMember = 1;

    ComPtr<IDispatch> handler_;
};

}  // namespace

Variant MakeEventCaller(const Variant& handler, const PageReference& page) {
    Variant caller;
    if (handler.Type() != VT_DISPATCH || !handler.Object())
        return caller;
    const ComPtr<IPageObject> own = Query<IPageObject>(handler.Object());
    if (!own || own->Reference().Owner() != page.Owner())
        caller.SetObject(MakeObject<EventCaller>(handler.Object()));
    return caller;
}

}  // namespace nux::webbrowser
