#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>

#include "framework/ComPtr.h"
#include "tests/mutations/Mutation.h"
#include "tests/support/TempFolder.h"

namespace nux {

/// The document of a text that is parsed in memory, or null. UTF-8 is read as UTF-8, whatever the text says
/// of its encoding.
ComPtr<IXMLDOMDocument> Parsed(const std::string& xml);

/// Keeps a document under the URL of a file that doesn't exist otherwise. One of four is written and loaded
/// by the component itself; the others are parsed in memory, which takes a fraction of the time.
/// @return whether there is a document
bool KeepMutated(const TempFolder& folder, const std::string& file, const std::string& xml, Random& random);

}  // namespace nux
