// The filter dialog's fields: its decisions are held against a plain walk through their steps, with the C
// library reading the numbers.

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "dimensions/DimNumber.h"
#include "dimensions/FilterFields.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

std::string Text(FuzzedDataProvider& data) {
    static constexpr char alphabet[] = "0123456789.,-e xn";
    std::string text = data.ConsumeRandomLengthString(140);
    for (char& character : text)
        character = alphabet[static_cast<unsigned char>(character) % (sizeof alphabet - 1)];
    return text;
}

struct Reading {
    double value;
    bool passes;
};

/// Reads a field through a buffer of 128 characters. `passes` leaves out the test of the sign.
Reading Read(const std::string& field) {
    char buffer[128];
    std::strncpy(buffer, field.c_str(), 127);
    buffer[127] = '\0';
    char* end = nullptr;
    const double value = std::strtod(buffer, &end);
    return {value, *end == '\0' && buffer[0] != '\0'};
}

bool Same(double a, double b) {
    return std::isnan(a) ? std::isnan(b) : a == b;
}

void CheckForm(const nux::FilterForm& form, const nux::nuxDimFilter& current) {
    const auto result = nux::ReadFilterForm(form, current);
    const auto* error = std::get_if<nux::FilterFormError>(&result);
    const auto isError = [&](const char* message, nux::FilterFormError::Field field) {
        return error && std::strcmp(error->message, message) == 0 && error->field == field;
    };

    const std::uint32_t type = form.type ? *form.type : current.Type();
    const Reading first = Read(form.lowerText);
    if (type != 0 && !(first.passes && first.value >= 0.0)) {
        Require(isError("A wrong value has been encountered.", nux::FilterFormError::Field::Lower));
        return;
    }
    const Reading second = Read(form.upperText);
    if (type == 2) {
        const bool passes = second.passes && first.value >= 0.0;
        if (!passes || first.value > second.value) {
            Require(isError(passes ? "The upper limit is less than the lower limit."
                                   : "A wrong value has been encountered.",
                            nux::FilterFormError::Field::Upper));
            return;
        }
    }
    Require(!error);
    const auto& defined = std::get<nux::DefinedFilter>(result);
    Require(defined.filter.Type() == type);
    Require(Same(defined.filter.Lower(), first.value));
    Require(Same(defined.filter.Upper(), second.value));
    Require(defined.filter.Database() == (form.database ? *form.database : current.Database()));
    Require(defined.filter.Text() == current.Text());
    Require(defined.sortMode == (form.sort == nux::SortChoice::None ? 0u : 1u));
}

void CheckCharacter(char character, const std::string& text, const std::string& separators) {
    bool expected = (character >= '0' && character <= '9') || character == 8;
    if (!expected && character != '\0' && std::strchr(separators.c_str(), character)) {
        expected = true;
        for (std::size_t i = 0; i < text.size() && i < 127; ++i)
            expected = expected && !std::strchr(separators.c_str(), text[i]);
    }
    Require(nux::TakesCharacter(character, text, separators) == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const auto choice = [&](std::uint32_t first, std::uint32_t last) -> std::optional<std::uint32_t> {
        if (data.ConsumeBool())
            return data.ConsumeIntegralInRange(first, last);
        return std::nullopt;
    };
    nux::nuxDimFilter current;
    current.SetText(data.ConsumeIntegralInRange<std::uint32_t>(0, 7), "text",
                    data.ConsumeIntegralInRange<std::uint32_t>(0, 4));
    nux::FilterForm form;
    form.type = choice(0, 4);
    form.database = choice(1, 3);
    form.sort = static_cast<nux::SortChoice>(data.ConsumeIntegralInRange(0, 2));
    form.lowerText = Text(data);
    form.upperText = Text(data);
    CheckForm(form, current);

    const std::string separators = data.PickValueInArray({".", ",", "", ",."});
    CheckCharacter(static_cast<char>(data.ConsumeIntegral<std::uint8_t>()), form.lowerText, separators);

    std::vector<double> values;
    for (int i = 0; i < 8; ++i)
        values.push_back(data.ConsumeIntegral<std::int8_t>());
    std::vector<std::string> choices;
    for (const double value : values) {
        if (value >= Read(form.lowerText).value)
            choices.push_back(nux::FormatDimNumber(value, separators));
    }
    Require(nux::UpperLimitChoices(values, form.lowerText, separators) == choices);
    return 0;
}
