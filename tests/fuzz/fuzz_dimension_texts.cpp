// Sort keys of texts: comparing prepared keys is held against a comparison of the raw texts, character by
// character.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <string>

#include "dimensions/DimSort.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

char16_t LowerDouble(char16_t character) {
    return character >= 0x8260 && character <= 0x8279 ? static_cast<char16_t>(character + 0x21) : character;
}

nux::CaseFolding Folding(bool multibyte) {
    nux::CaseFolding folding{};
    folding.multibyte = multibyte;
    folding.lowerDouble = LowerDouble;
    for (int i = 0; i < 256; ++i) {
        folding.lower[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + ('a' - 'A') : i);
        folding.leadByte[i] = (i >= 0x81 && i <= 0x9f) || (i >= 0xe0 && i <= 0xfc);
    }
    return folding;
}

int SingleByteDifference(const char* a, const char* b, const nux::CaseFolding& folding) {
    for (;; ++a, ++b) {
        const int left = folding.lower[static_cast<unsigned char>(*a)];
        const int right = folding.lower[static_cast<unsigned char>(*b)];
        if (left != right || left == 0)
            return left - right;
    }
}

/// The character at the pointer, which moves on. The end of the text is 0.
int NextCharacter(const char*& text, const nux::CaseFolding& folding) {
    const auto byte = static_cast<unsigned char>(*text++);
    if (!folding.leadByte[byte])
        return folding.lower[byte];
    if (*text == '\0')
        return 0;
    return LowerDouble(static_cast<char16_t>(byte << 8 | static_cast<unsigned char>(*text++)));
}

int MultibyteDifference(const char* a, const char* b, const nux::CaseFolding& folding) {
    for (;;) {
        const int left = NextCharacter(a, folding);
        const int right = NextCharacter(b, folding);
        if (left != right)
            return left > right ? 1 : -1;
        if (left == 0)
            return 0;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const nux::CaseFolding foldings[] = {Folding(false), Folding(true)};
    FuzzedDataProvider data(bytes, size);
    const bool multibyte = data.ConsumeBool();
    const bool ascending = data.ConsumeBool();
    const nux::CaseFolding& folding = foldings[multibyte];
    const std::string start = data.ConsumeRandomLengthString(20);
    std::string a = start + data.ConsumeRandomLengthString(20);
    std::string b = start + data.ConsumeRemainingBytesAsString();
    a = a.c_str();
    b = b.c_str();

    const int difference = multibyte ? MultibyteDifference(a.c_str(), b.c_str(), folding)
                                     : SingleByteDifference(a.c_str(), b.c_str(), folding);
    int expected = 0;
    if (difference == 1)
        expected = ascending ? 1 : -1;
    else if (difference != 0)
        expected = ascending ? -1 : 1;

    const std::u16string left = nux::FoldText(a, folding);
    const std::u16string right = nux::FoldText(b, folding);
    Require(nux::CompareTextKeys(&left, &right, multibyte, ascending) == expected);
    return 0;
}
