// DimensionChoosers in choosers, two objects, and a host that goes away while the chooser is open.

#include "driver/Controls.h"
#include "driver/Input.h"
#include "driver/Waiting.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/RawVariant.h"
#include "tests/support/TestedThreadWindow.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

using Texts = std::vector<std::string>;

class Nesting : public DimensionChooserFixture {
protected:
    /// One call on an object of its own.
    struct Run {
        ComPtr<ComObject<nuxStdParts>> object = MakeObject<nuxStdParts>();
        HRESULT answer = E_UNEXPECTED;
        ComPtr<IDispatch> chosen;
        bool returned = false;

        void Choose(const SizeTable& table) {
            const auto names = SelectNodes(RootOf(ParseXml(table.Names())), L"*");
            const auto rows = SelectNodes(RootOf(ParseXml(table.Xml())), L"*");
            RawVariant none, standard;
            standard.vt = VT_DISPATCH;
            rows.CopyTo(&standard.pdispVal);
            const Bstr catalog(L"TEST"), component(L"PART");
            answer = object->ChooseDimensions(catalog.Get(), component.Get(), names.Get(), none, standard,
                                              none, chosen.Receive());
            returned = true;
        }
        std::string Value(const char* name) const { return AttributeOf(chosen.As<IXMLDOMNode>(), name); }
    };

    /// Opens the outer chooser, from within its message loop the inner one, and lets the user do `deeds`.
    void OpenOneInTheOther(const std::function<void(const DimensionChooser& first,
                                                    const DimensionChooser& second, driver::User&)>& deeds) {
        const TestedThreadWindow host;
        const std::function<void()> openInner = [&] { inner.Choose(innerTable); };
        WithUser([&] { outer.Choose(outerTable); },
                 [&](driver::User& user) {
                     const DimensionChooser first(user);
                     host.Do(openInner);
                     driver::WaitFor("a disabled outer chooser",
                                     [&] { return !IsWindowEnabled(first.Window()); });
                     const DimensionChooser second(user);
                     deeds(first, second, user);
                 });
    }

    const SizeTable outerTable{{"A"}, {{"1"}, {"2"}}};
    const SizeTable innerTable{{"A"}, {{"10"}, {"20"}, {"30"}}};
    Run outer, inner;
};

TEST_F(Nesting, AChooserOpensFromWithinAChooser) {
    OpenOneInTheOther([](const DimensionChooser& first, const DimensionChooser& second, driver::User& user) {
        ASSERT_NE(second.Window(), first.Window());
        EXPECT_EQ(GetWindow(second.Window(), GW_OWNER), first.Window());
        second.Menu(1, MenuItem::SortDescending);
        EXPECT_EQ(second.Rows(), (Texts{"30", "20", "10"}));
        EXPECT_EQ(first.Rows(), (Texts{"1", "2"}));
        second.Take(1);
        user.Settle();
        EXPECT_TRUE(IsWindowEnabled(first.Window()));
        first.Take(1);
    });
    EXPECT_EQ(S_OK, inner.answer);
    EXPECT_EQ("20", inner.Value("A"));
    EXPECT_EQ(S_OK, outer.answer);
    EXPECT_EQ("2", outer.Value("A"));
}

TEST_F(Nesting, AFilterOfTheInnerOneLeavesTheOuterAlone) {
    OpenOneInTheOther([](const DimensionChooser& first, const DimensionChooser& second, driver::User& user) {
        const FilterDialog dialog = second.DefineFilter(1);
        dialog.Check(IDC_FILTER_EQUAL);
        dialog.SetLower("20");
        dialog.Ok();
        EXPECT_EQ(second.Rows(), (Texts{"20"}));
        second.Cancel();
        user.Settle();
        EXPECT_EQ(first.Rows(), (Texts{"1", "2"}));
        first.Cancel();
    });
    // Both write under one key; the outer one closes last.
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
}

class HostGone : public Nesting {
protected:
    /// Opens the chooser on a host window, lets the user do `deeds`, and destroys the host's window.
    void DestroyHost(const std::function<void(DimensionChooser&)>& deeds) {
        TestedThreadWindow host;
        host.Show();
        SetActiveWindow(host.Handle());
        const std::function<void()> destroy = [&] { DestroyWindow(host.Handle()); };
        WithUser([&] { outer.Choose(outerTable); },
                 [&](driver::User& user) {
                     DimensionChooser chooser(user);
                     ASSERT_EQ(GetWindow(chooser.Window(), GW_OWNER), host.Handle());
                     deeds(chooser);
                     host.Do(destroy);
                     driver::WaitUntilGone(chooser.Window());
                 });
        EXPECT_TRUE(outer.returned);
        EXPECT_EQ(S_OK, outer.answer);
        EXPECT_FALSE(outer.chosen);
        const driver::Application here = driver::Application::OfThread(GetCurrentThreadId());
        EXPECT_TRUE(here.Windows().empty());
    }
};

TEST_F(HostGone, EndsTheChooserWithoutARowAndKeepsItsSettings) {
    DestroyHost([](DimensionChooser& chooser) { chooser.Menu(1, MenuItem::SortAscending); });
    EXPECT_TRUE(KeyExists(Key("A")));
    // The next one opens as if nothing had happened.
    EXPECT_EQ(RowsOf(Call(outerTable)), (Texts{"1", "2"}));
}

TEST_F(HostGone, EndsTheFilterDialogToo) {
    DestroyHost([](DimensionChooser& chooser) {
        const FilterDialog dialog = chooser.DefineFilter(1);
        dialog.Check(IDC_FILTER_EQUAL);
    });
    EXPECT_EQ(0u, StoredNumber("A", "FilterType"));
}

TEST_F(HostGone, EndsAnOpenMenuToo) {
    DestroyHost([](DimensionChooser& chooser) { chooser.OpenMenu(1); });
}

TEST_F(HostGone, EndsTheQuickFilterToo) {
    std::optional<QuickFilterGesture> gesture;
    DestroyHost([&](DimensionChooser& chooser) { gesture.emplace(chooser, 0, 1); });
}

TEST_F(HostGone, EndsChoosersInChoosers) {
    TestedThreadWindow host;
    host.Show();
    SetActiveWindow(host.Handle());
    const std::function<void()> destroy = [&] { DestroyWindow(host.Handle()); };
    OpenOneInTheOther([&](const DimensionChooser& first, const DimensionChooser&, driver::User&) {
        host.Do(destroy);
        driver::WaitUntilGone(first.Window());
    });
    EXPECT_TRUE(inner.returned);
    EXPECT_TRUE(outer.returned);
    EXPECT_FALSE(inner.chosen);
    EXPECT_FALSE(outer.chosen);
}

}  // namespace
}  // namespace nux
