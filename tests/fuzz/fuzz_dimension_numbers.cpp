// Number texts: reading is held against the C library's strtod, writing against its printf and the zeros
// skipped one by one.

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "dimensions/DimNumber.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

/// A text without a zero byte. One half of all are made of the characters that numbers have.
std::string Text(FuzzedDataProvider& data) {
    static constexpr char alphabet[] = "00123456789..eE+-xXpPaAfF \tinfINFtyYnan()_,";
    const bool numberLike = data.ConsumeBool();
    std::string text = data.ConsumeRandomLengthString(600);
    if (numberLike) {
        for (char& character : text)
            character = alphabet[static_cast<unsigned char>(character) % (sizeof alphabet - 1)];
    }
    return text.substr(0, text.find('\0'));
}

void CheckReading(const std::string& text) {
    char* end = nullptr;
    const double expected = std::strtod(text.c_str(), &end);
    const nux::DimNumber number = nux::ReadDimNumber(text);
    Require(number.whole == (*end == '\0'));
    Require(std::signbit(number.value) == std::signbit(expected));
    Require(std::isnan(expected) ? std::isnan(number.value) : number.value == expected);
}

void CheckWriting(double number, const std::string& separators) {
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "%f", number);
    char* last = buffer + std::strlen(buffer) - 1;
    while (*last == '0')
        --last;
    if (std::strchr(separators.c_str(), *last) && last[1] != '\0')
        ++last;
    last[1] = '\0';
    Require(nux::FormatDimNumber(number, separators) == buffer);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const auto bits = data.ConsumeIntegral<std::uint64_t>();
    double number;
    std::memcpy(&number, &bits, sizeof number);
    const std::string separators = data.PickValueInArray({".", ",", "", ",.", "5", "f"});
    const std::string text = Text(data);

    CheckReading(text);
    CheckWriting(number, separators);
    CheckWriting(nux::ReadDimNumber(text).value, separators);
    CheckWriting(static_cast<double>(static_cast<std::int64_t>(bits) >> 24) / 1000.0, separators);
    return 0;
}
