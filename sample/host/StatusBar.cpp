#include "host/StatusBar.h"

namespace nux::host {

STDMETHODIMP StatusBar::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
    const HRESULT result = Dispatch::GetIDsOfNames(iid, names, count, locale, ids);
    const auto call = SUCCEEDED(result) && count > 0 ? CallNamed(names[0]) : std::nullopt;
    if (!call || !record_->IsHidden(*call))
        return result;
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
}

HRESULT StatusBar::Changed() const {
    if (whenChanged)
        whenChanged();
    return S_OK;
}

STDMETHODIMP StatusBar::SetMessage(BSTR message) {
    return Guarded([&] {
        const std::wstring text = Argument(message);
        return record_->Run(Call::SetMessage, text, [&] {
            text_ = text;
            return Changed();
        });
    });
}

STDMETHODIMP StatusBar::SetProgress(LONG position) {
    return record_->Run(Call::SetProgress, std::to_wstring(position), [&] {
        position_ = position;
        return Changed();
    });
}

HRESULT StatusBar::ShowBar(Call call, bool shown) {
    return record_->Run(call, {}, [&] {
        hasBar_ = shown;
        position_ = 0;
        return Changed();
    });
}

STDMETHODIMP StatusBar::get_Message(BSTR* text) {
    if (!text)
        return E_POINTER;
    return Guarded([&] {
        *text = Bstr(text_).Detach();
        return S_OK;
    });
}

STDMETHODIMP StatusBar::get_Progress(LONG* position) {
    if (!position)
        return E_POINTER;
    *position = position_;
    return S_OK;
}

STDMETHODIMP StatusBar::get_HasProgressBar(VARIANT_BOOL* has) {
    if (!has)
        return E_POINTER;
    *has = hasBar_ ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

}  // namespace nux::host
