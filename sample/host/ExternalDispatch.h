#pragma once

#include "SampleHost.h"
#include "framework/ComPtr.h"
#include "host/HostObject.h"

namespace nux::host {

/// The object that pages reach as window.external, and through it the component.
class ExternalDispatch : public HostDispatch<ISampleExternal> {
public:
    explicit ExternalDispatch(Record record) : HostDispatch(std::move(record)) {}
    virtual ~ExternalDispatch() = default;

    HWND MainWindow() const noexcept { return mainWindow_; }
    void SetMainWindow(HWND window) noexcept { mainWindow_ = window; }
    /// The component holds this object in turn: null at the end, or neither goes.
    void SetStdParts(ComPtr<IDispatch> component) noexcept { component_ = std::move(component); }

    STDMETHODIMP get_MainWindowHWND(VARIANT* window) override {
        return record_->RunForValue(Call::MainWindowHWND, {}, window, [&] {
            Variant value;
            value.SetNumber(HandleToLong(mainWindow_));
            return value;
        });
    }
    STDMETHODIMP get_StdParts(IDispatch** component) override {
        return record_->RunForObject(Call::StdParts, component_.Get(), component);
    }

private:
    HWND mainWindow_ = nullptr;
    ComPtr<IDispatch> component_;
};

}  // namespace nux::host
