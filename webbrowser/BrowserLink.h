#pragma once

#include <windows.h>

#include <servprov.h>

#include "framework/ComPtr.h"
#include "framework/Implements.h"

namespace nux::webbrowser {

/// The way from objects of a page, which may outlive the control, to the control and what its site provides.
class BrowserLink : public Implements<IServiceProvider> {
public:
    /// @param browser  alive until Cut
    explicit BrowserLink(IServiceProvider& browser) noexcept : browser_(&browser) {}
    virtual ~BrowserLink() = default;

    void Cut() noexcept { browser_ = nullptr; }

    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** object) override {
        if (!object)
            return E_POINTER;
        *object = nullptr;
        const ComPtr<IServiceProvider> browser(browser_);
        return browser ? browser->QueryService(service, iid, object) : E_NOINTERFACE;
    }

private:
    IServiceProvider* browser_;
};

}  // namespace nux::webbrowser
