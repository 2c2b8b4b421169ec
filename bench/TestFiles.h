#pragma once

#include <cstddef>
#include <string>
#include <vector>

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
/// @param more  child elements of each part beside its ID and name
std::string CatalogueFile(std::size_t parts, const std::string& more = {});

/// How many kinds of parts a file of sizes has.
inline constexpr std::size_t partKinds = 20;
std::string PartKind(std::size_t i);

/// A file of sizes: each has ten dimensions, D0 to D9, as attributes and as child elements. Rows stand in a
/// random order that is always the same.
struct SizeFile {
    static constexpr int dimensions = 10;
    // The dimensions that a measurement asks for.
    static constexpr int kindText = 0;         ///< text, one of the part kinds
    static constexpr int alternating = 1;      ///< number, 12 and 16 in turn
    static constexpr int distinctNumbers = 3;  ///< number, half as many different ones as there are rows
    static constexpr int distinctTexts = 4;    ///< text, half as many different ones as there are rows

    explicit SizeFile(std::size_t rows);

    std::string xml;
    /// By row: the place of its value among the sorted values, in each of the two columns of many values.
    std::vector<int> keys;
};

}  // namespace nux::bench
