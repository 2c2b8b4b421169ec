#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace nux {

/// The installation as the layers without an automation object know it. Each path carries its closing
/// separator and is appended to as it stands.
struct InstallationPaths {
    std::string catalog;     ///< root of the catalogues
    std::string data;        ///< default page and wizard page
    std::string gui;         ///< wizard pages; the locale folder lies beside it
    std::string customDims;  ///< root of the user's dimension files
};

/// Process-wide: the last call of SetTRNVPaths of any object wins.
InstallationPaths& Installation() noexcept;

/// Whether a URL is a file's below one of the installation paths. Throws std::bad_alloc.
bool IsOfInstallation(const std::wstring& url);

/// Sets the host's 3D side, which is asked for the folders of catalogues. Process-wide, as the paths are: it
/// takes the place of the one that another owner has set.
/// @param owner  whoever sets it. It withdraws it before it lets go of its own reference: none is held here
/// @param host   null for none
void SetHost3D(const void* owner, IDispatch* host) noexcept;

/// Forgets the 3D side if it is this owner's. Then there is none until one is set again: an earlier owner's
/// does not come back, as it never belonged to the paths that are set.
void WithdrawHost3D(const void* owner) noexcept;

/// Folder of a catalogue, as the host tells it, with its closing separator.
/// @param catalogId  catalogue ID; an empty one asks for the root of all catalogues
/// @return the host's answer; the catalogue root itself, without the ID, if there is no host, it is a foreign
///         object, it gives no string, or an empty one for the empty ID. Throws std::bad_alloc.
std::string GetCatalogFolder(const std::string& catalogId);

}  // namespace nux
