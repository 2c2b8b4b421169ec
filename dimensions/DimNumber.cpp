#include "dimensions/DimNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace nux {
namespace {

struct Conversion {
    double value = 0.0;
    std::size_t length = 0;  // 0: the text starts with no number
};

/// Whether a number that is too large or too small for a double is too small. `number` is not 0.
bool IsTooSmall(std::string_view number, std::chars_format format) {
    const bool hexadecimal = format == std::chars_format::hex;
    const std::size_t mark = number.find_first_of(hexadecimal ? "pP" : "eE");
    const std::string_view digits = number.substr(0, mark);

    long long exponent = 0;
    if (mark != std::string_view::npos) {
        std::string_view text = number.substr(mark + 1);
        const bool negative = text.front() == '-';
        if (text.front() == '+')
            text.remove_prefix(1);
        if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc())
            return negative;
    }

    // Digits from the first that counts to the point: below 0 if only zeros stand between them.
    const auto point = static_cast<long long>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<long long>(digits.find_first_not_of("0."));
    const long long magnitude = first < point ? point - first : point - first + 1;
    return exponent < -magnitude * (hexadecimal ? 4 : 1);
}

Conversion Convert(std::string_view text, std::chars_format format) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, format);
    if (error == std::errc::invalid_argument)
        return {};
    const auto length = static_cast<std::size_t>(end - text.data());
    if (error == std::errc::result_out_of_range)
        value = IsTooSmall(text.substr(0, length), format) ? 0.0 : std::numeric_limits<double>::infinity();
    return {value, length};
}

Conversion ConvertUnsigned(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X")) {
        const std::string_view digits = text.substr(2);
        // The test keeps out a second sign and the words, which the conversion would take.
        if (digits.find_first_of("0123456789abcdefABCDEF.") == 0) {
            const Conversion hexadecimal = Convert(digits, std::chars_format::hex);
            if (hexadecimal.length != 0)
                return {hexadecimal.value, hexadecimal.length + 2};
        }
    }
    if (text.starts_with('-'))
        return {};
    return Convert(text, std::chars_format::general);
}

}  // namespace

// std::from_chars and std::to_chars do the work: they know no locale, they are exact, and they give the same
// result everywhere. The C functions of the Windows run-time libraries differ from the standard and from each
// other in "nan", infinities and hexadecimal numbers.

DimNumber ReadDimNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
    if (start == std::string_view::npos)
        return {0.0, text.empty()};
    std::string_view number = text.substr(start);
    const bool negative = number.front() == '-';
    if (negative || number.front() == '+')
        number.remove_prefix(1);
    const Conversion conversion = ConvertUnsigned(number);
    if (conversion.length == 0)
        return {0.0, false};
    return {negative ? -conversion.value : conversion.value, conversion.length == number.size()};
}

std::string FormatDimNumber(double number, std::string_view separators) {
    char buffer[1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + 6];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed, 6).ptr;
    // Only the first 127 characters of a huge number are kept, and only then its zeros are cut off.
    const std::string_view printed =
        std::string_view(buffer, static_cast<std::size_t>(end - buffer)).substr(0, longestCellText);

    // A number always holds a point or a digit other than 0.
    const std::size_t last = printed.find_last_not_of('0');
    // The number is printed with a point and the test asks for the user's separator. That a whole number then
    // reads "12." where the separator is a comma is wanted: stored filters and shown texts have that form.
    const bool endsInSeparator = separators.find(printed[last]) != std::string_view::npos;
    return std::string(printed.substr(0, last + (endsInSeparator ? 2 : 1)));
}

}  // namespace nux
