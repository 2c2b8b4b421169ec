#pragma once

#include <windows.h>

#include <exdisp.h>
#include <exdispid.h>

#include <functional>
#include <string>
#include <vector>

#include "framework/Implements.h"
#include "framework/Text.h"

namespace nux::webbrowser {

/// A container's sink of browser events, which writes each down with its text, and decides as it is told.
class BrowserSink : public Implements<AlsoAs<DWebBrowserEvents2, IDispatch, DWebBrowserEvents>> {
public:
    virtual ~BrowserSink() = default;

    std::vector<std::wstring> events;
    bool cancels = false;
    ComPtr<IDispatch> window;                               ///< given to NewWindow events
    ComPtr<IDispatch> source;                               ///< of the last event that has one
    std::function<void(const std::wstring& event)> during;  ///< may be empty

    std::vector<std::wstring> Take() { return std::exchange(events, {}); }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        const UINT count = parameters->cArgs;
        const auto argument = [&](UINT index) -> const VARIANT& {
            const VARIANT& value = parameters->rgvarg[count - 1 - index];
            return value.vt == (VT_BYREF | VT_VARIANT) ? *value.pvarVal : value;
        };
        const auto text = [&](UINT index) {
            const VARIANT& value = argument(index);
            return value.vt == VT_BSTR   ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal))
                   : value.vt == VT_BOOL ? std::wstring(value.boolVal ? L"true" : L"false")
                                         : std::to_wstring(value.lVal);
        };
        const auto decide = [&](UINT index) {
            *argument(index).pboolVal = cancels ? VARIANT_TRUE : VARIANT_FALSE;
        };
        switch (id) {
            case DISPID_BEFORENAVIGATE2:
                return Note(L"BeforeNavigate2 " + text(1), argument(0).pdispVal, [&] { decide(6); });
            case DISPID_NAVIGATECOMPLETE2:
                return Note(L"NavigateComplete2 " + text(1), argument(0).pdispVal);
            case DISPID_DOCUMENTCOMPLETE:
                return Note(L"DocumentComplete " + text(1), argument(0).pdispVal);
            case DISPID_NAVIGATEERROR:
                return Note(L"NavigateError " + text(1) + L" " + text(3), argument(0).pdispVal,
                            [&] { decide(4); });
            case DISPID_NEWWINDOW3:
                return Note(L"NewWindow3 " + text(4), nullptr, [&] { Give(argument(0), argument(1)); });
            case DISPID_NEWWINDOW2:
                return Note(L"NewWindow2", nullptr, [&] { Give(argument(0), argument(1)); });
            case DISPID_WINDOWCLOSING:
                return Note(L"WindowClosing", nullptr, [&] { decide(1); });
            case DISPID_DOWNLOADBEGIN:
                return Note(L"DownloadBegin");
            case DISPID_DOWNLOADCOMPLETE:
                return Note(L"DownloadComplete");
            case DISPID_PROGRESSCHANGE:
                return S_OK;
            case DISPID_COMMANDSTATECHANGE:
                return Note(L"CommandStateChange " + text(0) + L" " + text(1));
            case DISPID_TITLECHANGE:
                return Note(L"TitleChange " + text(0));
            case DISPID_STATUSTEXTCHANGE:
                return Note(L"StatusTextChange " + text(0));
            case DISPID_PROPERTYCHANGE:
                return Note(L"PropertyChange " + text(0));
            case DISPID_ONQUIT:
                return Note(L"OnQuit");
            case DISPID_ONVISIBLE:
                return Note(L"OnVisible " + text(0));
            case DISPID_BEFORENAVIGATE:
                return Note(L"BeforeNavigate " + text(0));
            case DISPID_NAVIGATECOMPLETE:
                return Note(L"NavigateComplete " + text(0));
            default:
                return Note(L"event " + std::to_wstring(id));
        }
    }

private:
    HRESULT Note(std::wstring event, IDispatch* from = nullptr,
                 const std::function<void()>& decide = nullptr) {
        events.push_back(event);
        if (from)
            source = ComPtr<IDispatch>(from);
        if (decide)
            decide();
        if (during)
            during(event);
        return S_OK;
    }
    void Give(const VARIANT& object, const VARIANT& cancel) {
        *cancel.pboolVal = cancels ? VARIANT_TRUE : VARIANT_FALSE;
        if (window)
            window.CopyTo(object.ppdispVal);
    }
};

}  // namespace nux::webbrowser
