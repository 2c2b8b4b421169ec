#pragma once

#include <functional>
#include <string>

#include "SampleHost.h"
#include "host/HostObject.h"

namespace nux::host {

/// What the component's status bar shows. Whoever draws it is told of each change.
class StatusBar : public HostDispatch<ISampleStatusBar> {
public:
    explicit StatusBar(Record record) : HostDispatch(std::move(record)) {}
    virtual ~StatusBar() = default;

    std::function<void()> whenChanged;  ///< may be empty
    const std::wstring& Text() const noexcept { return text_; }
    bool HasBar() const noexcept { return hasBar_; }
    /// In percent.
    long Position() const noexcept { return position_; }

    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP SetMessage(BSTR message) override;
    STDMETHODIMP SetProgress(LONG position) override;
    STDMETHODIMP CreateProgressBar() override { return ShowBar(Call::CreateProgressBar, true); }
    STDMETHODIMP DestroyProgressBar() override { return ShowBar(Call::DestroyProgressBar, false); }
    STDMETHODIMP get_Message(BSTR* text) override;
    STDMETHODIMP get_Progress(LONG* position) override;
    STDMETHODIMP get_HasProgressBar(VARIANT_BOOL* has) override;

private:
    HRESULT ShowBar(Call call, bool shown);
    HRESULT Changed() const;

    std::wstring text_;
    long position_ = 0;
    bool hasBar_ = false;
};

}  // namespace nux::host
