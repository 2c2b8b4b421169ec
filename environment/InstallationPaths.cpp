#include "environment/InstallationPaths.h"

#include <vector>

#include "Inux3D.h"
#include "framework/ComPtr.h"
#include "framework/DispatchClient.h"

namespace nux {
namespace {

constexpr DISPID folderOfCatalogue = 47;

struct OwnedHost {
    const void* owner;
    IDispatch* host;
};

/// The 3D sides of all owners; the last one counts.
std::vector<OwnedHost>& Hosts() noexcept {
    static std::vector<OwnedHost> hosts;
    return hosts;
}

}  // namespace

InstallationPaths& Installation() noexcept {
    static InstallationPaths installation;
    return installation;
}

void SetHost3D(const void* owner, IDispatch* host) {
    Hosts().reserve(Hosts().size() + 1);  // a failure leaves what was set
    WithdrawHost3D(owner);
    Hosts().push_back({owner, host});
}

void WithdrawHost3D(const void* owner) noexcept {
    std::erase_if(Hosts(), [&](const OwnedHost& owned) { return owned.owner == owner; });
}

std::string GetCatalogFolder(const std::string& catalogId) {
    const std::string& root = Installation().catalog;
    const ComPtr<IDispatch> last(Hosts().empty() ? nullptr : Hosts().back().host);
    const ComPtr<Inux3D> host = last.As<Inux3D>();
    if (!host)
        return root;
    ComPtr<IDispatch> application;
    if (FAILED(host->GetApplication(application.Receive())) || !application)
        return root;

    const Variant argument(catalogId);
    Variant folder;
    if (CallMethod(application.Get(), folderOfCatalogue, {&argument, 1}, &folder) != S_OK ||
        !folder.IsString())
        return root;
    return Narrow(folder.Text());
}

}  // namespace nux
