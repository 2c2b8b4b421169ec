#include "framework/Enumeration.h"

#include <gtest/gtest.h>
#include <ole2.h>

#include <vector>

namespace nux {
namespace {

/// Hands out a number as a VARIANT.
struct NumberItem {
    LONG number;
    void CopyTo(VARIANT* target) const noexcept {
        target->vt = VT_I4;
        target->lVal = number;
    }
};
using Numbers = Enumeration<IEnumVARIANT, NumberItem, VARIANT>;

ComPtr<IEnumVARIANT> OneToFive() {
    auto items = std::make_shared<Numbers::Items>();
    for (LONG number = 1; number <= 5; ++number)
        items->push_back({number});
    return ComPtr<IEnumVARIANT>(MakeObject<Numbers>(items, 0u).Get());
}

/// What `count` elements are left, by one call.
std::vector<LONG> Take(IEnumVARIANT* enumeration, ULONG count, HRESULT expected) {
    std::vector<VARIANT> values(count);
    ULONG fetched = 99;
    EXPECT_EQ(expected, enumeration->Next(count, values.data(), &fetched));
    std::vector<LONG> numbers;
    for (ULONG i = 0; i < fetched; ++i)
        numbers.push_back(values[i].lVal);
    return numbers;
}

TEST(Enumeration, GivesItsItemsInTheirOrder) {
    const auto numbers = OneToFive();
    EXPECT_EQ((std::vector<LONG>{1, 2}), Take(numbers.Get(), 2, S_OK));
    EXPECT_EQ((std::vector<LONG>{3, 4, 5}), Take(numbers.Get(), 3, S_OK));
}

TEST(Enumeration, TellsThatFewerItemsWereLeft) {
    const auto numbers = OneToFive();
    EXPECT_EQ((std::vector<LONG>{1, 2, 3, 4, 5}), Take(numbers.Get(), 9, S_FALSE));
    EXPECT_EQ(std::vector<LONG>{}, Take(numbers.Get(), 1, S_FALSE));
}

TEST(Enumeration, NeedsNoPlaceForTheNumberOfASingleItem) {
    const auto numbers = OneToFive();
    VARIANT values[2]{};
    EXPECT_EQ(S_OK, numbers->Next(1, values, nullptr));
    EXPECT_EQ(1, values[0].lVal);
    EXPECT_EQ(E_POINTER, numbers->Next(2, values, nullptr));
    EXPECT_EQ(E_POINTER, numbers->Next(1, nullptr, nullptr));
    EXPECT_EQ((std::vector<LONG>{2}), Take(numbers.Get(), 1, S_OK));
}

TEST(Enumeration, SkipsItems) {
    const auto numbers = OneToFive();
    EXPECT_EQ(S_OK, numbers->Skip(3));
    EXPECT_EQ((std::vector<LONG>{4}), Take(numbers.Get(), 1, S_OK));
    EXPECT_EQ(S_FALSE, numbers->Skip(2));
    EXPECT_EQ(std::vector<LONG>{}, Take(numbers.Get(), 1, S_FALSE));
}

TEST(Enumeration, StartsAgainAfterAReset) {
    const auto numbers = OneToFive();
    numbers->Skip(5);
    EXPECT_EQ(S_OK, numbers->Reset());
    EXPECT_EQ((std::vector<LONG>{1}), Take(numbers.Get(), 1, S_OK));
}

TEST(Enumeration, ClonesWithItsPositionAndGoesOnAlone) {
    auto numbers = OneToFive();
    numbers->Skip(2);
    ComPtr<IEnumVARIANT> clone;
    ASSERT_EQ(S_OK, numbers->Clone(clone.Receive()));
    EXPECT_EQ((std::vector<LONG>{3, 4}), Take(clone.Get(), 2, S_OK));
    EXPECT_EQ((std::vector<LONG>{3}), Take(numbers.Get(), 1, S_OK));
    numbers.Reset();
    EXPECT_EQ((std::vector<LONG>{5}), Take(clone.Get(), 1, S_OK));
    EXPECT_EQ(E_POINTER, clone->Clone(nullptr));
}

TEST(Enumeration, OffersItsInterfaceAndIUnknownOnly) {
    const auto numbers = OneToFive();
    EXPECT_TRUE(numbers.As<IEnumVARIANT>());
    EXPECT_TRUE(numbers.As<IUnknown>());
    EXPECT_FALSE(numbers.As<IEnumUnknown>());
}

}  // namespace
}  // namespace nux
