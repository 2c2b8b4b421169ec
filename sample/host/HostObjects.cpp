#include "host/HostObjects.h"

#include <utility>

#include "host/LifterWizard.h"

namespace nux::host {
namespace {

constexpr wchar_t componentProgId[] = L"Tarnvale.nuxStdParts";

void Require(HRESULT result, const wchar_t* what) {
    if (FAILED(result))
        throw HResultError(result, what);
}

}  // namespace

ComPtr<InuxEditedComponent> HostObjects::Edit(const std::wstring& catalogId,
                                              const std::wstring& componentId) {
    return MakeObject<EditedComponent>(record_, catalogId, componentId);
}

void HostObjects::Create() {
    Stop();
    CLSID classId{};
    Require(CLSIDFromProgID(componentProgId, &classId), componentProgId);
    Require(CreateObject(classId, stdParts_), componentProgId);
    external->SetStdParts(stdParts_);
    Require(CoRegisterClassObject(CLSID_nuxLifterWizard, MakeObject<LifterWizardClass>(record_).Get(),
                                  CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &lifterWizardClass_),
            L"LifterWizard");
}

void HostObjects::Start(const InstallationFolders& folders, IDispatch* browserShown) {
    application->SetFolder({}, folders.catalogs);
    // The two that come next rely on the 3D side.
    Require(stdParts_->put_nux3D(side3D.Get()), L"nux3D");
    Require(stdParts_->SetExternalDispatch(external.Get()), L"SetExternalDispatch");
    Require(stdParts_->SetTRNVPaths(Bstr(folders.catalogs).Get(), Bstr(folders.data).Get(),
                                    Bstr(folders.gui).Get(), Bstr(folders.custom).Get()),
            L"SetTRNVPaths");
    Require(stdParts_->AttachBrowser(browserShown), L"AttachBrowser");
    Require(stdParts_->put_StatusBar(statusBar.Get()), L"StatusBar");
}

void HostObjects::Stop() noexcept {
    if (const DWORD offered = std::exchange(lifterWizardClass_, 0))
        CoRevokeClassObject(offered);
    external->SetStdParts(nullptr);
    stdParts_.Reset();
}

}  // namespace nux::host
