#pragma once

#include <string>
#include <vector>

#include "nuxStdPartsAX.h"

namespace nux::host {

// What the catalogues of an installation hold, and a size of it. Texts are in the system's code page.

/// @param folder  the installation, with a closing separator
/// @return the names of its catalogues, sorted
std::vector<std::string> CatalogsIn(const std::wstring& folder);

/// @return the IDs of a catalogue's parts in its file's order; none if the component gives no document of it
std::vector<std::string> PartsOf(InuxStdParts* stdParts, const std::string& catalog);

/// Hands the sizes of a part to the component's dimension chooser.
/// @return what ChooseDimensions answers; S_FALSE if the user chose none; E_INVALIDARG if the catalogue has
/// no
///         such part
HRESULT ChooseSize(InuxStdParts* stdParts, const std::string& catalog, const std::string& part);

}  // namespace nux::host
