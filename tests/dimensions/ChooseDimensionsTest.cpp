// ChooseDimensions as hosts call it: its arguments, its results, its parent window.

#include "driver/Controls.h"
#include "tests/control/ControlSinks.h"
#include "tests/dimensions/DimensionChooserFixture.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/RawVariant.h"
#include "tests/support/TestedThreadWindow.h"
#include "tests/support/ThreadLocale.h"
#include "tests/support/WithUser.h"

namespace nux {
namespace {

class Bridge : public DimensionChooserFixture {
protected:
    Bridge() {
        const ComPtr<IXMLDOMDocument> document = ParseXml("<r><s A='1'/><s A='2'/></r>");
        document_ = document.As<IDispatch>();
        node_ = RootOf(document).As<IDispatch>();
        list_ = SelectNodes(RootOf(document), L"s").As<IDispatch>();
        names_ = SelectNodes(RootOf(ParseXml("<n><A/></n>")), L"*").As<IDispatch>();
    }

    static VARIANT Holding(IDispatch* object) {
        VARIANT variant{};
        variant.vt = VT_DISPATCH;
        variant.pdispVal = object;
        return variant;
    }

    /// A call that must fail at once.
    void ExpectRefused(IDispatch* names, const VARIANT& defaults, const VARIANT& standard,
                       const VARIANT& users) {
        auto* const untouched = reinterpret_cast<IDispatch*>(this);
        IDispatch* chosen = untouched;
        WithUser(
            [&] {
                EXPECT_EQ(E_INVALIDARG, Object().ChooseDimensions(nullptr, nullptr, names, defaults, standard,
                                                                  users, &chosen));
            },
            [](driver::User&) {});
        EXPECT_EQ(chosen, untouched);
        EXPECT_FALSE(KeyExists(Key("", "Default", "Default"))) << "a dialog was there";
    }

    /// The number of rows that a call shows.
    int RowsShown(const VARIANT& defaults, const VARIANT& standard, const VARIANT& users) {
        int rows = -1;
        IDispatch* chosen = nullptr;
        WithUser(
            [&] {
                EXPECT_EQ(S_OK, Object().ChooseDimensions(nullptr, nullptr, names_.Get(), defaults, standard,
                                                          users, &chosen));
            },
            [&](driver::User& user) {
                const DimensionChooser chooser(user);
                rows = chooser.List().RowCount();
                chooser.Cancel();
            });
        return rows;
    }

    const VARIANT none{};
    ComPtr<IDispatch> document_, node_, list_, names_;
};

TEST_F(Bridge, NeedsAListOfNames) {
    ExpectRefused(nullptr, none, Holding(list_.Get()), none);
    ExpectRefused(node_.Get(), none, Holding(list_.Get()), none);
    ExpectRefused(document_.Get(), none, none, none);
    ExpectRefused(&Object(), none, none, none);
}

TEST_F(Bridge, RefusesObjectsOfAnotherKind) {
    ExpectRefused(names_.Get(), Holding(list_.Get()), none, none);
    ExpectRefused(names_.Get(), Holding(&Object()), none, none);
    ExpectRefused(names_.Get(), none, Holding(node_.Get()), none);
    ExpectRefused(names_.Get(), none, Holding(&Object()), none);
    ExpectRefused(names_.Get(), none, none, Holding(node_.Get()));
    ExpectRefused(names_.Get(), Holding(node_.Get()), Holding(list_.Get()), Holding(document_.Get()));
}

TEST_F(Bridge, TakesAnythingElseForNone) {
    RawVariant text, number, unknown, empty;
    text.vt = VT_BSTR;
    text.bstrVal = SysAllocString(L"rows");
    number.vt = VT_I4;
    number.lVal = 5;
    unknown.vt = VT_UNKNOWN;
    unknown.punkVal = list_.Get();
    list_->AddRef();
    IDispatch* pointer = list_.Get();
    VARIANT reference{};
    reference.vt = VT_DISPATCH | VT_BYREF;
    reference.ppdispVal = &pointer;
    VARIANT null{};
    null.vt = VT_NULL;
    const VARIANT rows = Holding(list_.Get());
    EXPECT_EQ(2, RowsShown(empty, rows, empty));
    EXPECT_EQ(2, RowsShown(text, empty, rows));
    EXPECT_EQ(4, RowsShown(number, rows, rows));
    EXPECT_EQ(0, RowsShown(null, text, number));
    EXPECT_EQ(0, RowsShown(none, unknown, reference));
    EXPECT_EQ(2, RowsShown(Holding(nullptr), Holding(nullptr), rows));
}

TEST_F(Bridge, EmptyIdentifiersShareTheDefaultKey) {
    EXPECT_EQ(2, RowsShown(none, Holding(list_.Get()), none));
    EXPECT_TRUE(KeyExists(Key("A", "Default", "Default")));
    DimensionsCall call = Call({{"A"}, {{"1"}}});
    call.catalog = "";
    call.component = "PART";
    RowsOf(call);
    EXPECT_TRUE(KeyExists(Key("A", "Default", "PART")));
    call.catalog = "TEST";
    call.component = "";
    RowsOf(call);
    EXPECT_TRUE(KeyExists(Key("A", "TEST", "Default")));
}

TEST_F(Bridge, AnEmptyCatalogueTranslatesAsTheDefaultOne) {
    Translate("Default", {{"A", "Breadth"}});
    DimensionsCall call = Call({{"A"}, {{"1"}}});
    call.catalog = "";
    Look(call, [](DimensionChooser& chooser) { EXPECT_EQ("Breadth", chooser.List().Caption(1)); });
    call.catalog = "TEST";
    Look(call, [](DimensionChooser& chooser) { EXPECT_EQ("A", chooser.List().Caption(1)); });
}

TEST_F(Bridge, IdentifiersBeyondAsciiNameTheKey) {
    DimensionsCall call = Call({{"A"}, {{"1"}}});
    call.catalog = DoubleByteCodePage() ? "\xE8\xA1\xA8" : "Stifte \xC3\xBC";
    call.component = DoubleByteCodePage() ? "\xE7\xA4\xBA" : "Gr\xC3\xB6\xC3\x9F";
    RowsOf(call);
    EXPECT_TRUE(KeyExists(Key("A", Ansi(call.catalog), Ansi(call.component))));
}

TEST_F(Bridge, IdentifiersEndAtTheirFirstNul) {
    DimensionsCall call = Call({{"A"}, {{"1"}}});
    for (const std::string& catalog : {std::string("AB\0CD", 5), std::string("\0x", 2)}) {
        call.catalog = call.component = catalog;
        RowsOf(call);
    }
    EXPECT_TRUE(KeyExists(Key("A", "AB", "AB")));
    EXPECT_TRUE(KeyExists(Key("A", "Default", "Default")));
    EXPECT_FALSE(KeyExists("Software\\Orvenna\\Tarnvale\\1.0\\ChooseStdDimsDlg\\Columns"));
}

TEST_F(Bridge, IdentifiersAreInTheThreadsCodePage) {
    if (DoubleByteCodePage())
        GTEST_SKIP() << "the registry reads such a byte as half a character there";
    const ThreadLocale locale(russian);
    DimensionsCall call = Call({{"A"}, {{"1"}}});
    call.catalog = "\xD0\x96";
    RowsOf(call);
    EXPECT_TRUE(KeyExists(Key("A", "\xC6")));
}

TEST_F(Bridge, FiresNoEvent) {
    const auto sink = MakeObject<EventSink>();
    const auto container = Query<IConnectionPointContainer>(static_cast<IDispatch*>(&Object()));
    ASSERT_TRUE(container);
    ComPtr<IConnectionPoint> events, properties;
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, container->FindConnectionPoint(DIID__InuxStdPartsEvents, events.Receive()));
    ASSERT_EQ(S_OK, events->Advise(sink.Get(), &cookie));
    Choose(Call({{"A"}, {{"1"}}}), [](DimensionChooser& chooser) {
        chooser.Menu(1, MenuItem::SortAscending);
        chooser.Take(0);
    });
    EXPECT_EQ(0, sink->events);
    events->Unadvise(cookie);
}

TEST_F(Bridge, LeavesTheResultUnwrittenOnCancelAndWritesNullWithoutARow) {
    DimensionsCall call = Call({{"A"}, {}});
    const DimensionsResult cancelled = Choose(call, [](DimensionChooser& chooser) { chooser.Cancel(); });
    EXPECT_EQ(S_OK, cancelled.answer);
    EXPECT_FALSE(cancelled.written);
    const DimensionsResult empty = Choose(call, [](DimensionChooser& chooser) { chooser.Ok(); });
    EXPECT_EQ(S_OK, empty.answer);
    EXPECT_TRUE(empty.written);
    EXPECT_FALSE(empty.row);
}

TEST_F(Bridge, WorksWithoutAPlaceForTheResult) {
    WithUser(
        [&] {
            EXPECT_EQ(S_OK, Object().ChooseDimensions(nullptr, nullptr, names_.Get(), none,
                                                      Holding(list_.Get()), none, nullptr));
        },
        [](driver::User& user) { DimensionChooser(user).Ok(); });
}

TEST_F(Bridge, GivesTheRowItselfWithAReferenceForTheCaller) {
    IDispatch* chosen = nullptr;
    WithUser(
        [&] {
            Object().ChooseDimensions(nullptr, nullptr, names_.Get(), none, Holding(list_.Get()), none,
                                      &chosen);
        },
        [](driver::User& user) { DimensionChooser(user).Take(1); });
    ComPtr<IDispatch> owner;
    owner.Attach(chosen);
    const auto row = owner.As<IXMLDOMNode>();
    ASSERT_TRUE(row);
    list_.Reset();
    node_.Reset();
    document_.Reset();
    EXPECT_EQ("2", AttributeOf(row, "A"));
    ComPtr<IXMLDOMNode> parent;
    EXPECT_EQ(S_OK, row->get_parentNode(parent.Receive()));
}

TEST_F(Bridge, TheActiveWindowIsTheParent) {
    const TestedThreadWindow active;
    active.Show();
    SetActiveWindow(active.Handle());
    HWND owner = nullptr;
    bool enabled = true;
    Look(Call({{"A"}, {{"1"}}}), [&](DimensionChooser& chooser) {
        owner = GetWindow(chooser.Window(), GW_OWNER);
        enabled = IsWindowEnabled(active.Handle());
    });
    EXPECT_EQ(owner, active.Handle());
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(IsWindowEnabled(active.Handle()));
}

TEST_F(Bridge, TheHostsMainWindowIsNotTheParent) {
    const TestedThreadWindow main, active;
    main.Show();
    active.Show();
    SetActiveWindow(active.Handle());
    const auto host = MakeObject<NamedProperties>();
    host->SetNumber(L"MainWindowHWND", HandleToLong(main.Handle()));
    const auto side = MakeObject<Host3D>();
    ASSERT_EQ(S_OK, Object().put_nux3D(side.Get()));
    ASSERT_EQ(S_OK, Object().SetExternalDispatch(host.Get()));
    EXPECT_EQ(DISPATCH_PROPERTYGET, host->lastRead.flags) << "the component does not know the main window";
    HWND owner = nullptr;
    Look(Call({{"A"}, {{"1"}}}),
         [&](DimensionChooser& chooser) { owner = GetWindow(chooser.Window(), GW_OWNER); });
    EXPECT_EQ(owner, active.Handle());
}

}  // namespace
}  // namespace nux
