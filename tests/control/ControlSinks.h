#pragma once

#include <windows.h>

#include <ocidl.h>

#include <functional>

#include "nuxStdPartsAX.h"
#include "tests/support/HostDoubles.h"

namespace nux {

/// A container's sink of changes, which writes down what it is told.
class AdviseSink : public IAdviseSinkEx {
public:
    virtual ~AdviseSink() = default;

    Journal calls;
    std::function<void()> during;  ///< runs while a change is told; may be empty

    STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override { Note("OnDataChange"); }
    STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { Note("OnViewChange"); }
    STDMETHODIMP_(void) OnRename(IMoniker*) override { calls.push_back("OnRename"); }
    STDMETHODIMP_(void) OnSave() override { calls.push_back("OnSave"); }
    STDMETHODIMP_(void) OnClose() override { calls.push_back("OnClose"); }
    STDMETHODIMP_(void) OnViewStatusChange(DWORD) override { calls.push_back("OnViewStatusChange"); }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IUnknown || iid == IID_IAdviseSink || iid == IID_IAdviseSinkEx
                   ? static_cast<IAdviseSinkEx*>(this)
                   : nullptr;
    }

private:
    void Note(const char* change) {
        calls.push_back(change);
        if (during)
            during();
    }
};

class PropertySink : public IPropertyNotifySink {
public:
    virtual ~PropertySink() = default;

    int changes = 0;  ///< announced or made

    STDMETHODIMP OnChanged(DISPID) override { return Count(); }
    STDMETHODIMP OnRequestEdit(DISPID) override { return Count(); }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IUnknown || iid == IID_IPropertyNotifySink ? static_cast<IPropertyNotifySink*>(this)
                                                                     : nullptr;
    }

private:
    HRESULT Count() {
        ++changes;
        return S_OK;
    }
};

/// A sink of the component's events.
class EventSink : public HostDispatch {
public:
    int events = 0;

    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        ++events;
        return S_OK;
    }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == DIID__InuxStdPartsEvents ? static_cast<IDispatch*>(this)
                                               : HostDispatch::FindInterface(iid);
    }
};

}  // namespace nux
