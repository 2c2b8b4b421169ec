#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nux {

/// Numbers that follow from a seed alone, on every platform.
class Random {
public:
    explicit Random(std::uint64_t seed) noexcept : state_(seed) {}

    std::uint64_t Next() noexcept;
    /// From 0 to below `bound`, which is above 0.
    std::size_t Below(std::size_t bound) noexcept { return static_cast<std::size_t>(Next() % bound); }
    bool OneIn(std::size_t cases) noexcept { return Below(cases) == 0; }
    template <class Container>
    const auto& Pick(const Container& choices) noexcept {
        return choices[Below(std::size(choices))];
    }

private:
    std::uint64_t state_;
};

/// The random numbers of one input of a reader.
Random RandomOf(std::uint64_t seed, std::string_view reader, std::uint64_t number) noexcept;

/// A text that readers have reason to stumble over: a number, a part of XML, a path, a name.
std::string_view Token(Random& random) noexcept;

/// A short text: a token, one of `known` whole or mutated, or random bytes.
std::string MutatedText(Random& random, const std::vector<std::string>& known);

/// Bytes with some changes: bits flipped, chunks cut, doubled and swapped, tokens and NULs put in; rarely a
/// huge text.
std::string MutatedBytes(Random& random, std::string bytes);

/// An XML file with some changes. Half of them leave it well formed as a rule: values are replaced, lines
/// cut, doubled and swapped. The others are those of MutatedBytes, another encoding, or a nesting that is
/// deep.
std::string MutatedXml(Random& random, std::string xml);

/// The same of a file that is shortened before in most cases: of its lines the first two, the last, and a
/// dozen in a row are left. The time of an input goes with its length, and most of what can go wrong needs a
/// few rows.
std::string MutatedRows(Random& random, const std::string& xml);

}  // namespace nux
