// Every reference that the chooser takes on a row is given back, and every name is read from its node.

#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/DomDoubles.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/RawVariant.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class GivenReferences : public DimensionChooserFixture {
protected:
    /// Two rows that are one node, which nobody else holds: what the chooser leaves behind shows in its
    /// count.
    void ExpectAllGivenBack(const std::function<void(DimensionChooser&)>& deeds) {
        const auto row = RootOf(ParseXml("<s A='1' B='x'><A>1</A><B>x</B></s>"));
        const auto rows = MakeObject<NodeListDouble>(std::vector<IXMLDOMNode*>{row.Get(), row.Get()});
        const auto name = RootOf(ParseXml("<A/>"));
        const auto names = MakeObject<NodeListDouble>(std::vector<IXMLDOMNode*>{name.Get()});
        ASSERT_EQ(1u, References(row.Get()));
        ComPtr<IDispatch> given(rows.Get());
        DimensionsResult result = ChooseFrom(names.Get(), given, [&](DimensionChooser& chooser) {
            EXPECT_EQ(2, chooser.List().RowCount());
            EXPECT_GE(References(row.Get()), 3u) << "the list holds each of its rows";
            deeds(chooser);
        });
        EXPECT_EQ(S_OK, result.answer);
        if (result.written) {
            EXPECT_EQ(2u, References(row.Get())) << "one for the caller";
        }
        result.row.Reset();
        given.Reset();
        EXPECT_EQ(1u, References(row.Get()));
        EXPECT_EQ(1u, References(rows.Get()));
        EXPECT_EQ(1u, References(name.Get()));
        EXPECT_EQ(1u, References(names.Get()));
    }
};

TEST_F(GivenReferences, AreGivenBackAfterCancel) {
    ExpectAllGivenBack([](DimensionChooser& chooser) { chooser.Cancel(); });
}

TEST_F(GivenReferences, AreGivenBackAfterOkButOneForTheChosenRow) {
    ExpectAllGivenBack([](DimensionChooser& chooser) { chooser.Take(1); });
}

TEST_F(GivenReferences, AreGivenBackAfterRefillsAndSorts) {
    ExpectAllGivenBack([](DimensionChooser& chooser) {
        for (const char* value : {"2", "1"}) {
            const FilterDialog dialog = chooser.DefineFilter(1);
            dialog.Check(IDC_FILTER_EQUAL);
            dialog.SetLower(value);
            dialog.Ok();
        }
        EXPECT_EQ(chooser.Rows(), (Texts{"1", "1"}));
        chooser.Menu(1, MenuItem::SortDescending);
        QuickFilterGesture(chooser, 0, 1).Release();
        chooser.TurnOffAll();
        chooser.Cancel();
    });
}

TEST_F(GivenReferences, AreGivenBackOnTheDefaultsAndTheUsersRowsToo) {
    const auto name = RootOf(ParseXml("<A/>"));
    const auto names = MakeObject<NodeListDouble>(std::vector<IXMLDOMNode*>{name.Get()});
    const auto row = RootOf(ParseXml("<s A='1'/>"));
    const auto rows = MakeObject<NodeListDouble>(std::vector<IXMLDOMNode*>{row.Get()});
    const auto defaults = RootOf(ParseXml("<d><A>1</A></d>"));
    RawVariant none, defaultValues, users;
    defaultValues.vt = users.vt = VT_DISPATCH;
    defaults.As<IDispatch>().CopyTo(&defaultValues.pdispVal);
    ComPtr<IDispatch>(rows.Get()).CopyTo(&users.pdispVal);
    const unsigned defaultsBefore = References(defaults.Get()), rowsBefore = References(rows.Get());
    WithUser(
        [&] {
            ComPtr<IDispatch> chosen;
            EXPECT_EQ(S_OK, Object().ChooseDimensions(nullptr, nullptr, names.Get(), defaultValues, none,
                                                      users, chosen.Receive()));
        },
        [&](driver::User& user) {
            const DimensionChooser chooser(user);
            EXPECT_GT(References(defaults.Get()), defaultsBefore)
                << "the chooser holds what it may read again";
            EXPECT_GT(References(rows.Get()), rowsBefore);
            chooser.Take(0);
        });
    EXPECT_EQ(References(defaults.Get()), defaultsBefore);
    EXPECT_EQ(References(rows.Get()), rowsBefore);
    EXPECT_EQ(1u, References(row.Get()));
}

class Names : public DimensionChooserFixture {
protected:
    /// The captions that a list of names gives whose second node is this one.
    Texts CaptionsWith(IXMLDOMNode* second) {
        const auto first = RootOf(ParseXml("<A/>"));
        const auto third = RootOf(ParseXml("<C/>"));
        const auto names =
            MakeObject<NodeListDouble>(std::vector<IXMLDOMNode*>{first.Get(), second, third.Get()});
        Texts captions;
        ChooseFrom(names.Get(), nullptr, [&](DimensionChooser& chooser) {
            for (int column = 1; column < chooser.List().ColumnCount(); ++column)
                captions.push_back(chooser.List().Caption(column));
            chooser.Cancel();
        });
        return captions;
    }
};

TEST_F(Names, EndAtANodeWhoseNameIsEmptyOrCanNotBeRead) {
    EXPECT_EQ(CaptionsWith(MakeObject<NameDouble>(L"B").Get()), (Texts{"A", "B", "C"}));
    EXPECT_EQ(CaptionsWith(MakeObject<NameDouble>(L"").Get()), (Texts{"A"}));
    EXPECT_EQ(CaptionsWith(MakeObject<NameDouble>(std::nullopt).Get()), (Texts{"A"}));
    EXPECT_EQ(CaptionsWith(nullptr), (Texts{"A"}));
}

TEST_F(Names, WithATextWhoseValueIsNoStringHaveAnEmptyCaption) {
    const auto number = MakeObject<NameDouble>(L"#text");
    number->value.SetNumber(5);
    const auto name = MakeObject<NameDouble>(L"B");
    name->text = number.Get();
    EXPECT_EQ(CaptionsWith(name.Get()), (Texts{"A", "", "C"}));
}

}  // namespace
}  // namespace nux
