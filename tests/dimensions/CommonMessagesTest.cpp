// The chooser's texts that come from the messages common to all catalogues. A program of its own: a table of
// messages stays as it was at its first use, and every menu uses this one.

#include "tests/dimensions/DimensionChooserFixture.h"

namespace nux {
namespace {

class CommonMessages : public DimensionChooserFixture {};

TEST_F(CommonMessages, AreTheTextsOfTheColumnMenu) {
    Translate("COMMON", {{"Define filter...", "Filter bestimmen..."},
                         {"Turn off filter", "Filter aus"},
                         {"Sort in ascending order", "Aufsteigend"},
                         {"Sort in descending order", "Absteigend"},
                         {"Cancel", "Abbrechen"}});
    Look(Call({{"A"}, {{"1"}}}), [](DimensionChooser& chooser) {
        const driver::PopupMenu menu = chooser.OpenMenu(1);
        EXPECT_EQ("Filter bestimmen...", menu.Text(0));
        EXPECT_EQ("Filter aus", menu.Text(1));
        EXPECT_EQ("Aufsteigend", menu.Text(3));
        EXPECT_EQ("Absteigend", menu.Text(4));
        EXPECT_EQ("Abbrechen", menu.Text(6));
        menu.Escape();
    });
}

}  // namespace
}  // namespace nux
