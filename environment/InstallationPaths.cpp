#include "environment/InstallationPaths.h"

#include <shlwapi.h>

#include <utility>

#include "Inux3D.h"
#include "framework/ComPtr.h"
#include "framework/DebugOutput.h"
#include "framework/DispatchClient.h"
#include "framework/Text.h"

namespace nux {
namespace {

constexpr DISPID folderOfCatalogue = 47;

/// The 3D side that counts, and who has set it.
struct OwnedHost {
    const void* owner = nullptr;
    IDispatch* host = nullptr;
    bool rootIsTold = false;  ///< to a debugger
};

OwnedHost current;

/// A path with a drive or server, with backslashes and without "." and ".."; empty if it can't be had.
std::wstring FullPath(const wchar_t* path) {
    std::wstring full(GetFullPathNameW(path, 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path, static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

}  // namespace

InstallationPaths& Installation() noexcept {
    static InstallationPaths installation;
    return installation;
}

bool IsOfInstallation(const std::wstring& url) {
    std::wstring path(url.size() + MAX_PATH, L'\0');
    auto length = static_cast<DWORD>(path.size());
    if (FAILED(PathCreateFromUrlW(url.c_str(), path.data(), &length, 0)))
        return false;
    path = FullPath(path.c_str());
    const InstallationPaths& paths = Installation();
    const auto isBelow = [&](const std::string& folder) {
        if (folder.empty())
            return false;
        std::wstring full = FullPath(Widen(folder).c_str());
        if (!full.empty() && full.back() != L'\\')
            full += L'\\';
        return !full.empty() && path.size() > full.size() &&
               CompareStringOrdinal(path.c_str(), static_cast<int>(full.size()), full.c_str(),
                                    static_cast<int>(full.size()), TRUE) == CSTR_EQUAL;
    };
    return isBelow(paths.catalog) || isBelow(paths.data) || isBelow(paths.gui) || isBelow(paths.customDims);
}

void SetHost3D(const void* owner, IDispatch* host) noexcept {
    current = {owner, host, false};
}

void WithdrawHost3D(const void* owner) noexcept {
    if (current.owner == owner)
        current = {};
}

std::string GetCatalogFolder(const std::string& catalogId) {
    const auto takeRoot = [&](const wchar_t* why) {
        // Once for each host: a catalogue is asked for again and again.
        if (!std::exchange(current.rootIsTold, true))
            TellDebugger(std::wstring(L"the folder of catalogue \"") + Widen(catalogId) +
                         L"\" is taken to be the root: " + why + L".");
        return Installation().catalog;
    };
    // References of our own: while it is asked, it may be withdrawn.
    const ComPtr<IDispatch> side(current.host);
    if (!side)
        return takeRoot(L"no host was in nux3D when SetTRNVPaths was called, or it has been taken away");
    const ComPtr<Inux3D> host = side.As<Inux3D>();
    if (!host)
        return takeRoot(L"the object in nux3D does not offer Inux3D");
    ComPtr<IDispatch> application;
    if (FAILED(Received(host->GetApplication(application.Receive()), application)) || !application)
        return takeRoot(L"the 3D side gives no application");

    const Variant argument(catalogId);
    Variant folder;
    if (CallMethod(application.Get(), folderOfCatalogue, {&argument, 1}, &folder) != S_OK ||
        !folder.IsString())
        return takeRoot(L"DISPID 47 of the application gives no text");
    std::string told = Narrow(folder.Text());
    return told.empty() && catalogId.empty() ? Installation().catalog : told;
}

}  // namespace nux
