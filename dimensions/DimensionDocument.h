#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>

namespace nux {

/// Makes the dimension file of this name in a folder: a document with a root "Dimensions" and nothing else,
/// saved, and kept like any document that is loaded. The folder is made if it is missing, its parent isn't.
///
/// It opens a file instead only if folder and name, glued together without a separator, name an existing one.
/// Beware: an existing file that is not found under the glued name is overwritten by an empty one. A file
/// that can't be written, but read, is loaded as it stands.
/// @param document  receives the document with one reference for the caller, or null
/// @return whether there is a document; false also for a null `document`
/// Throws std::bad_alloc.
bool CreateDimensionDocument(std::string folder, const std::string& fileName, IXMLDOMDocument** document);

}  // namespace nux
