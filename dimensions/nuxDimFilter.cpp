#include "dimensions/nuxDimFilter.h"

namespace nux {

void nuxDimFilter::SetNumber(std::uint32_t type, double lower, double upper, std::uint32_t database) {
    type_ = type;
    lower_ = lower;
    upper_ = upper;
    database_ = database;
}

void nuxDimFilter::SetText(std::uint32_t type, std::string_view text, std::uint32_t database) {
    type_ = type;
    text_ = text;
    database_ = database;
}

bool nuxDimFilter::IsInactive() const {
    return type_ == FilterNone && database_ == DatabaseBoth;
}

bool nuxDimFilter::PassesNumber(double number, std::uint32_t source) const {
    if (!TakesSource(source))
        return false;
    switch (type_) {
        case FilterNone:
            return true;
        case FilterEqual:
            return number == lower_;
        case FilterBetween:
            return lower_ <= number && number <= upper_;
        case FilterSmallerOrEqual:
            return number <= lower_;
        case FilterGreaterOrEqual:
            return number >= lower_;
        default:
            return false;
    }
}

bool nuxDimFilter::PassesText(std::string_view text, std::uint32_t source) const {
    return TakesSource(source) && type_ == FilterStringEqual && text == text_;
}

bool nuxDimFilter::PassesCell(std::string_view text, double number, std::uint32_t source) const {
    return type_ == FilterStringEqual ? PassesText(text, source) : PassesNumber(number, source);
}

bool nuxDimFilter::TakesSource(std::uint32_t source) const {
    return database_ == DatabaseBoth || database_ == source;
}

}  // namespace nux
