#pragma once

#include <cstddef>
#include <string>

namespace nux::bench {

/// Sets the folder that the files go to, with its closing separator.
void SetTestFolder(const std::string& folder);

/// A path below that folder.
std::string TestPath(const std::string& name);

/// The URL of such a path, as the document layer wants it.
std::string TestUrl(const std::string& name);

void MakeFolder(const std::string& name);
void WriteFile(const std::string& name, const std::string& text);

/// ID and translation number i of a message file.
std::string MessageId(std::size_t i);
std::string Translation(std::size_t i);

/// A message file, its entries in ascending order of their IDs, or in a random order that is always the same.
std::string MessageFile(std::size_t entries, bool shuffled);

/// ID of part number i of a catalogue file.
std::string PartId(std::size_t i);

/// A catalogue file with parts in folders of a hundred.
std::string CatalogueFile(std::size_t parts);

}  // namespace nux::bench
