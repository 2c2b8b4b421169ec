#pragma once

#include <memory>
#include <string>

#include "framework/ComObject.h"
#include "framework/ComPtr.h"
#include "host/Application.h"
#include "host/Browser.h"
#include "host/CallRecord.h"
#include "host/EditedComponent.h"
#include "host/ExternalDispatch.h"
#include "host/Side3D.h"
#include "host/StatusBar.h"
#include "nuxStdPartsAX.h"

namespace nux::host {

/// The folders of an installation, each with a closing separator.
struct InstallationFolders {
    std::wstring catalogs;
    std::wstring data;
    std::wstring gui;
    std::wstring custom;
};

/// The host's objects, and the component that works with them.
class HostObjects {
    const std::shared_ptr<CallRecord> record_ = std::make_shared<CallRecord>();

public:
    HostObjects() = default;
    HostObjects(const HostObjects&) = delete;
    HostObjects& operator=(const HostObjects&) = delete;
    ~HostObjects() { Stop(); }

    CallRecord& Record() const noexcept { return *record_; }

    const ComPtr<ComObject<ExternalDispatch>> external = MakeObject<ExternalDispatch>(record_);
    const ComPtr<ComObject<Application>> application = MakeObject<Application>(record_, external);
    const ComPtr<ComObject<Side3D>> side3D = MakeObject<Side3D>(record_, application);
    const ComPtr<ComObject<StatusBar>> statusBar = MakeObject<StatusBar>(record_);
    /// Stands for a web browser where there is none.
    const ComPtr<ComObject<Browser>> browser = MakeObject<Browser>(record_);
    /// The component of the model that is being edited; null for none.
    ComPtr<InuxEditedComponent> edited;

    ComPtr<InuxEditedComponent> Edit(const std::wstring& catalogId, const std::wstring& componentId);

    // The words of a failure are here the name of what has failed.

    /// Makes the component. A former one is let go of. Throws HResultError.
    void Create();
    /// Hands the component all that it needs, in this order: the 3D side, the external dispatch, the folders,
    /// the browser, the status bar. Throws HResultError with the first failure.
    /// @param browserShown  in which pages are shown
    void Start(const InstallationFolders& folders, IDispatch* browserShown);
    /// Lets go of the component.
    void Stop() noexcept;

    /// Null before Create and after Stop.
    InuxStdParts* StdParts() const noexcept { return stdParts_.Get(); }

private:
    ComPtr<InuxStdParts> stdParts_;
    DWORD lifterWizardClass_ = 0;
};

}  // namespace nux::host
