#include "environment/InstallationPaths.h"

#include "Inux3D.h"
#include "framework/Automation.h"
#include "framework/ComPtr.h"

namespace nux {
namespace {

constexpr DISPID folderOfCatalogue = 47;

IDispatch* host3D = nullptr;

}  // namespace

InstallationPaths& Installation() noexcept {
    static InstallationPaths installation;
    return installation;
}

void SetHost3D(IDispatch* host) noexcept {
    host3D = host;
}

void WithdrawHost3D(const IDispatch* host) noexcept {
    if (host3D == host)
        host3D = nullptr;
}

std::string GetCatalogFolder(const std::string& catalogId) {
    const std::string& root = Installation().catalog;
    const ComPtr<Inux3D> host = Query<Inux3D>(host3D, IID_Inux3D);
    if (!host)
        return root;
    ComPtr<IDispatch> application;
    if (FAILED(host->GetApplication(application.Receive())) || !application)
        return root;

    Variant argument;
    argument.bstrVal = Bstr(catalogId, CP_THREAD_ACP).Detach();
    argument.vt = VT_BSTR;
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    Variant folder;
    const HRESULT result = application->Invoke(folderOfCatalogue, IID_NULL, LOCALE_SYSTEM_DEFAULT,
                                               DISPATCH_METHOD, &parameters, &folder, nullptr, nullptr);
    if (result != S_OK || !folder.IsString())
        return root;
    return Narrow(folder.bstrVal);
}

}  // namespace nux
