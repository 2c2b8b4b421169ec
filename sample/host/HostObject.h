#pragma once

#include <memory>
#include <string>
#include <utility>

#include "framework/Dispatch.h"
#include "host/CallRecord.h"

namespace nux::host {

/// What the host's objects share: the record of what the component asks of them, which lives as long as the
/// last of them.
class HostObject {
protected:
    using Record = std::shared_ptr<CallRecord>;

    explicit HostObject(Record record) noexcept : record_(std::move(record)) {}

    /// A call that does nothing but be written down.
    HRESULT Noted(Call call, std::wstring arguments = {}) noexcept {
        return record_->Run(call, std::move(arguments), [] { return S_OK; });
    }
    /// An argument as it is written down; a null string is an empty one.
    static std::wstring Argument(BSTR text) { return std::wstring(text ? text : L"", SysStringLen(text)); }

    const Record record_;
};

/// One of the host's objects with its interface. A call by number answers the very code of a failure, not
/// just that there was one: callers that want no description see what they were to see.
template <class Interface>
class HostDispatch : public Dispatch<Interface>, public HostObject {
public:
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO*, UINT* argumentError) override {
        EXCEPINFO exception{};
        const HRESULT code = Dispatch<Interface>::Invoke(id, iid, locale, flags, parameters, result,
                                                         &exception, argumentError);
        for (const BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile})
            SysFreeString(text);
        return code == DISP_E_EXCEPTION && FAILED(exception.scode) ? exception.scode : code;
    }

protected:
    using HostObject::HostObject;
};

}  // namespace nux::host
