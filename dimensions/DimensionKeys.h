#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nux {

/// The registry key of the dimension chooser for one component. `registryRoot` is the key of the product and
/// its version.
std::string DimensionsKey(std::string_view registryRoot, std::string_view catalogId,
                          std::string_view componentId);

/// The key of one column below a DimensionsKey. `caption` is the text as shown; columns with equal captions
/// share a key, and another language has its own.
std::string DimensionColumnKey(std::string_view chooserKey, std::string_view caption);

/// Value names, and what stands for a value that is missing. Numbers are 32 bits wide, limits are texts of
/// FormatDimNumber. "x" and "y" default to the window's first position.
namespace DialogValues {
inline constexpr char left[] = "x";
inline constexpr char top[] = "y";
inline constexpr char widthAboveMinimum[] = "dx";
inline constexpr char heightAboveMinimum[] = "dy";
inline constexpr std::uint32_t defaultAboveMinimum = 0;
}  // namespace DialogValues

/// The same for the values of a column.
namespace ColumnValues {
inline constexpr char width[] = "Width";
inline constexpr std::int32_t defaultWidth = 50;
inline constexpr std::int32_t markerWidth = 20;  ///< Of the column without a caption, which stores nothing.
inline constexpr char order[] = "Order";
inline constexpr std::int32_t defaultOrder = -1;
inline constexpr char filterType[] = "FilterType";  // default FilterNone
inline constexpr char database[] = "Database";      // default DatabaseBoth
inline constexpr char filterString[] = "FilterString";
inline constexpr char lowerLimit[] = "LowerLimit";
inline constexpr char upperLimit[] = "UpperLimit";
inline constexpr char defaultLimit[] = "0";
}  // namespace ColumnValues

}  // namespace nux
