#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nux {

/// What a filter asks of a cell. The values are those of the stored form.
enum DimFilterType : std::uint32_t {
    FilterNone = 0,
    FilterEqual = 1,
    FilterBetween = 2,
    FilterSmallerOrEqual = 3,
    FilterGreaterOrEqual = 4,
    FilterStringEqual = 5,
};

/// Which rows a filter accepts. The first two are at the same time the codes of a row's source.
enum DimDatabase : std::uint32_t {
    DatabaseStandard = 1,
    DatabaseUser = 2,
    DatabaseBoth = 3,
};

/// The filter of one dimension column. A new one is inactive.
///
/// Type and database are plain numbers, since a stored filter may carry any. A type of none of the values
/// above refuses every row.
class nuxDimFilter {
public:
    /// Sets a filter by number. `lower` is the filter value, or the lower limit of FilterBetween; only
    /// FilterBetween uses `upper`. The text stays.
    void SetNumber(std::uint32_t type, double lower, double upper, std::uint32_t database);

    /// Sets a filter by text. The two limits stay.
    void SetText(std::uint32_t type, std::string_view text, std::uint32_t database);

    std::uint32_t Type() const { return type_; }
    double Lower() const { return lower_; }
    double Upper() const { return upper_; }
    const std::string& Text() const { return text_; }
    std::uint32_t Database() const { return database_; }

    /// True if the filter refuses nothing. FilterNone with one database only is active: it hides rows.
    bool IsInactive() const;

    /// Whether a cell with this number in a row of this source stays. False for FilterStringEqual.
    bool PassesNumber(double number, std::uint32_t source) const;

    /// Whether a cell with this text in a row of this source stays: the texts are equal byte for byte. False
    /// for every type but FilterStringEqual.
    bool PassesText(std::string_view text, std::uint32_t source) const;

    /// Whether a cell that shows `text` and counts as `number` stays. The filter's type alone decides which
    /// of the two is looked at, whatever the kind of the column.
    bool PassesCell(std::string_view text, double number, std::uint32_t source) const;

private:
    bool TakesSource(std::uint32_t source) const;

    std::uint32_t type_ = FilterNone;
    double lower_ = 0.0;
    double upper_ = 0.0;
    std::string text_;
    std::uint32_t database_ = DatabaseBoth;
};

}  // namespace nux
