#pragma once

#include <windows.h>

#include <msxml2.h>

#include <string>

namespace nux {

/// Opens the dimension file of this name in a folder, or makes it: a document with a root "Dimensions" and
/// nothing else, saved, and kept like any document that is loaded. The folder is made if it is missing, its
/// parent isn't.
/// @param document  receives the document with one reference for the caller, or null
/// @return whether there is a document; false also for a null `document`
/// Throws std::bad_alloc.
bool CreateDimensionDocument(std::string folder, const std::string& fileName, IXMLDOMDocument** document);

}  // namespace nux
