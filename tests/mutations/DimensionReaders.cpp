// Dimension files with the table of the chooser behind them, and the chooser itself.

#include <commctrl.h>

#include <algorithm>
#include <cmath>

#include "control/nuxStdParts.h"
#include "dimensions/Columns.h"
#include "dimensions/DimNumber.h"
#include "dimensions/DimensionKeys.h"
#include "dimensions/DimensionTable.h"
#include "dimensions/nuxLVSort.h"
#include "environment/Settings.h"
#include "environment/XMLAccess.h"
#include "resources/resource.h"
#include "tests/mutations/Documents.h"
#include "tests/mutations/Reader.h"
#include "tests/mutations/StoredSettings.h"
#include "tests/support/Dom.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

/// The list of dimension names that fits a file: the attributes of its first row.
std::string NamesOf(const std::string& dimensions) {
    std::string names = "<Dimensions>\n";
    if (const auto document = Parsed(dimensions)) {
        ComPtr<IXMLDOMNodeList> attributes = SelectNodes(RootOf(document), L"Row[0]/@*");
        ForEachNode(attributes.Get(), [&](IXMLDOMNode* attribute) {
            Bstr name;
            attribute->get_nodeName(name.Receive());
            const std::string narrow = Narrow(name.Get());
            names += "<" + narrow + ">" + narrow + ": caption</" + narrow + ">\n";
            return true;
        });
    }
    return names + "</Dimensions>";
}

/// The children of a root: its rows alone, or whatever stands there.
ComPtr<IXMLDOMNodeList> ChildrenOf(IXMLDOMDocument* document, const wchar_t* selected, Random& random) {
    const ComPtr<IXMLDOMNode> root = document ? GetRootNode(document) : nullptr;
    ComPtr<IXMLDOMNodeList> children;
    if (root && random.OneIn(4))
        root->get_childNodes(children.Receive());
    else if (root)
        root->selectNodes(Bstr(selected).Get(), children.Receive());
    return children;
}

class DimensionReader : public Reader {
public:
    explicit DimensionReader(const Samples& samples) : samples_(samples) {
        for (const std::string& dimensions : samples.dimensions)
            names_.push_back(NamesOf(dimensions));
    }

protected:
    /// What a page would hand to the chooser.
    struct Lists {
        ComPtr<IXMLDOMNodeList> names, standard, users;
        ComPtr<IXMLDOMNode> defaults;
    };

    Lists MakeLists(Random& random) const {
        const std::size_t seed = random.Below(samples_.dimensions.size());
        Lists lists;
        std::string names = names_[seed];
        if (random.OneIn(3))
            names = MutatedXml(random, names);
        const auto nameDocument = Parsed(names);
        lists.names = ChildrenOf(nameDocument.Get(), L"*", random);
        if (nameDocument)
            lists.defaults = GetRootNode(nameDocument.Get());
        ComPtr<IXMLDOMDocument> rows;
        if (KeepMutated(folder_, "d.xml", MutatedRows(random, samples_.dimensions[seed]), random))
            LoadXMLDocument(folder_.Url("d.xml"), rows.Receive());
        lists.standard = ChildrenOf(rows.Get(), L"Row", random);
        if (random.OneIn(2))
            lists.users = ChildrenOf(rows.Get(), L"Row", random);
        ClearXMLDocumentCache();
        return lists;
    }

    const Samples& samples_;
    std::vector<std::string> names_;
    const TempFolder folder_;
};

class PlainList : public ListView {
public:
    PlainList() : ListView(nullptr) {
        InitCommonControls();
        // A parent of this thread: the list tells it of every row.
        parent_ =
            CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
        window_ = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | LVS_REPORT, 0, 0, 400, 300, parent_,
                                  nullptr, GetModuleHandleA(nullptr), nullptr);
        Attach(window_);
        SendMessageA(window_, WM_SETREDRAW, FALSE, 0);  // for good: it is never shown
    }
    ~PlainList() override { DestroyWindow(parent_); }

    void RemoveColumns() const {
        DeleteAllRows();
        while (ListView_DeleteColumn(Handle(), 0)) {
        }
    }

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return Default(message, wParam, lParam);
    }

    HWND parent_;
    HWND window_;
};

/// Everything of the chooser but its windows.
class Tables : public DimensionReader {
public:
    using DimensionReader::DimensionReader;

    bool Read(Random& random) override {
        Lists lists = MakeLists(random);
        DimensionTable table("m", lists.names.Get(), lists.standard.Get(), lists.users.Get());
        list_.RemoveColumns();
        table.InitColumns(list_);
        table.FillRows();
        const int all = table.Rows().Count();
        Check(table);
        if (table.ColumnCount() > 1) {
            const int column = 1 + static_cast<int>(random.Below(table.ColumnCount() - 1));
            const bool numeric = random.OneIn(4) ? random.OneIn(2) : table.At(column).numeric;
            nuxLVSort(list_, table.Rows(), column, numeric).Sort(random.OneIn(2));
            Check(table);
            CollectValues(table, column);
            table.SetFilter(column, AnyFilter(random, table, column));
            table.FillRows();
            Require(table.Rows().Count() <= all, "a filter that adds rows");
            Check(table);
        }
        std::vector<StoredColumn> stored;
        for (int column = 0; column < table.ColumnCount(); ++column)
            stored.push_back(
                {column == 0, random.OneIn(8) ? static_cast<std::int32_t>(random.Next()) : column});
        if (const auto order = StoredColumnOrder(stored)) {
            list_.SetColumnOrder(*order);
            Require(list_.ColumnOrder() == *order, "another order of the columns");
        }
        list_.DeleteAllRows();
        table.ReleaseRows();
        return all > 0;
    }

private:
    void Check(const DimensionTable& table) const {
        const int count = ListView_GetItemCount(list_.Handle());
        Require(count == table.Rows().Count(), "rows that the list lacks");
        for (int row = 0; row < count; row += 7)
            Require(static_cast<bool>(table.Rows().Find(list_.RowData(row))), "a row that nobody knows");
    }

    static void CollectValues(const DimensionTable& table, int column) {
        const std::vector<double> numbers = table.CollectNumericValues(column);
        const std::vector<std::string> texts = table.CollectTextValues(column);
        Require(numbers.size() == texts.size(), "values that are missing");
        Require(std::is_sorted(texts.begin(), texts.end()), "texts out of order");
        const bool ordered =
            std::any_of(numbers.begin(), numbers.end(), [](double number) { return std::isnan(number); }) ||
            std::is_sorted(numbers.begin(), numbers.end());
        Require(ordered, "numbers out of order");
    }

    static nuxDimFilter AnyFilter(Random& random, const DimensionTable& table, int column) {
        nuxDimFilter filter;
        const auto number = [&] { return ReadDimNumber(Token(random)).value; };
        const auto database =
            static_cast<std::uint32_t>(random.OneIn(4) ? random.Next() : 1 + random.Below(3));
        std::string text(Token(random));
        if (const std::size_t rows = table.Rows().Count(); rows > 0 && random.OneIn(2))
            text = table.Rows().Cell(random.Below(rows), static_cast<std::size_t>(column - 1));
        filter.SetNumber(static_cast<std::uint32_t>(random.Below(7)),
                         random.OneIn(2) ? ReadDimNumber(text).value : number(), number(), database);
        if (random.OneIn(3))
            filter.SetText(FilterStringEqual, text, database);
        return filter;
    }

    PlainList list_;
};

/// Ends the dialogs of this thread as they come, with the button that is asked for.
class ClosingDialogs {
public:
    explicit ClosingDialogs(std::vector<WORD> buttons) {
        Buttons() = std::move(buttons);
        timer_ = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Close);
    }
    ClosingDialogs(const ClosingDialogs&) = delete;
    ClosingDialogs& operator=(const ClosingDialogs&) = delete;
    ~ClosingDialogs() { KillTimer(nullptr, timer_); }

private:
    static std::vector<WORD>& Buttons() {
        static std::vector<WORD> buttons;
        return buttons;
    }
    static BOOL CALLBACK Press(HWND window, LPARAM) {
        char name[16];
        GetClassNameA(window, name, sizeof name);
        if (std::string_view(name) == "#32770") {
            for (const WORD button : Buttons())
                PostMessageA(window, WM_COMMAND, button, 0);
        }
        return TRUE;
    }
    static void CALLBACK Close(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(GetCurrentThreadId(), &Press, 0);
    }

    UINT_PTR timer_;
};

/// The dialog, opened over stored settings of any kind and closed at once.
class Choosers : public DimensionReader {
public:
    using DimensionReader::DimensionReader;

    bool Read(Random& random) override {
        const Lists lists = MakeLists(random);
        const StoredSettings stored(DimensionsKey(GetRegistryRoot(), "m", "m"));
        stored.Mutate(random, "", StoredSettings::ofFrame);
        ForEachNode(lists.names.Get(), [&](IXMLDOMNode* name) {
            stored.Mutate(random, "Columns\\" + GetNodeText(name).substr(0, 200), StoredSettings::ofColumn);
            return true;
        });
        std::vector<WORD> pressed;
        if (random.OneIn(3))
            pressed.push_back(IDC_ALL_FILTERS_OFF);
        pressed.push_back(random.OneIn(2) ? IDOK : IDCANCEL);
        const ClosingDialogs closing(pressed);
        RawVariant defaults, standard, users;
        const auto set = [](RawVariant& variant, const auto& object) {
            variant.vt = VT_DISPATCH;
            ComPtr<IDispatch>(object).CopyTo(&variant.pdispVal);
        };
        set(defaults, lists.defaults);
        set(standard, lists.standard);
        set(users, lists.users);
        ComPtr<IDispatch> chosen;
        const ComPtr<IDispatch> names = lists.names;
        const HRESULT result = parts_->ChooseDimensions(Bstr(L"m").Get(), Bstr(L"m").Get(), names.Get(),
                                                        defaults, standard, users, chosen.Receive());
        Require(result == (names ? S_OK : E_INVALIDARG), "a result of another kind");
        Require(!chosen || Query<IXMLDOMNode>(chosen.Get()), "a chosen row that is no node");
        return static_cast<bool>(chosen);
    }

private:
    const ComPtr<ComObject<nuxStdParts>> parts_ = MakeObject<nuxStdParts>();
};

constexpr ReaderKind kinds[] = {
    {"tables", "dimension files, names and filters behind a list view", 300, 0, Make<Tables>},
    {"choosers", "the dialog over such files and stored settings of any kind", 3, 0, Make<Choosers>}};

}  // namespace

std::span<const ReaderKind> DimensionReaders() noexcept {
    return kinds;
}

}  // namespace nux
