#include "dimensions/QuickFilterChoice.h"

#include <gtest/gtest.h>

namespace nux {
namespace {

TEST(QuickFilterChoice, AChosenNumberGivesAFilterEqualToIt) {
    const nuxDimFilter filter = FilterOfChosenNumber(1, {2.0, 3.5});
    EXPECT_EQ(filter.Type(), FilterEqual);
    EXPECT_EQ(filter.Lower(), 3.5);
    EXPECT_EQ(filter.Upper(), 0.0);
    EXPECT_EQ(filter.Database(), DatabaseBoth);
}

TEST(QuickFilterChoice, AChosenTextGivesAFilterEqualToIt) {
    const nuxDimFilter filter = FilterOfChosenText(0, {"steel", "brass"});
    EXPECT_EQ(filter.Type(), FilterStringEqual);
    EXPECT_EQ(filter.Text(), "steel");
    EXPECT_EQ(filter.Database(), DatabaseBoth);
}

TEST(QuickFilterChoice, ARowBeyondTheValuesGivesAnInactiveFilter) {
    EXPECT_TRUE(FilterOfChosenNumber(2, {2.0, 3.5}).IsInactive());
    EXPECT_TRUE(FilterOfChosenNumber(0, {}).IsInactive());
    EXPECT_TRUE(FilterOfChosenText(2, {"steel", "brass"}).IsInactive());
    EXPECT_TRUE(FilterOfChosenText(0, {}).IsInactive());
}

}  // namespace
}  // namespace nux
