#include "bench/Transcription.h"

#include <commctrl.h>
#include <mbstring.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "bench/TestFiles.h"
#include "dimensions/nuxDimFilter.h"
#include "environment/Environment.h"
#include "environment/Localisation.h"
#include "framework/Variant.h"

namespace nux::bench::transcription {
namespace {

constexpr char catalogue[] = "Bench";

std::string ValueOf(IXMLDOMNode* node) {
    Variant value;
    if (FAILED(node->get_nodeTypedValue(value.Receive())) || !value.IsString())
        return {};
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "%s", Narrow(value.Text()).c_str());
    return buffer;
}

/// The state of the table's columns.
struct Columns {
    std::vector<nuxDimFilter> filters{SizeFile::dimensions};
    bool numeric[SizeFile::dimensions];
};

/// Whether the row passes; its cells are in `cells` then.
bool ReadRow(IXMLDOMNode* row, Columns& columns, std::vector<std::string>& cells) {
    cells.clear();
    for (int dimension = 0; dimension < SizeFile::dimensions; ++dimension) {
        ComPtr<IXMLDOMNode> attribute;
        if (row->selectSingleNode(Bstr(L"@" + DimensionName(dimension)).Get(), attribute.Receive()) != S_OK)
            return false;
        std::string text = ValueOf(attribute.Get());
        char* end;
        const double number = std::strtod(text.c_str(), &end);
        if (*end != '\0') {
            columns.numeric[dimension] = false;
            text = GetLocalizedMessage(catalogue, text);
        }
        const nuxDimFilter& filter = columns.filters[dimension];
        if (filter.Type() == FilterStringEqual ? !filter.PassesText(text, DatabaseStandard)
                                               : !filter.PassesNumber(number, DatabaseStandard))
            return false;
        cells.push_back(text);
    }
    return true;
}

void InsertRow(HWND list, IXMLDOMNode* row, std::vector<std::string>& cells) {
    LVITEMA item{};
    item.mask = LVIF_IMAGE | LVIF_PARAM;
    item.iItem = ListView_GetItemCount(list);
    item.iImage = 1;
    item.lParam = reinterpret_cast<LPARAM>(row);
    const auto index = SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    item.mask = LVIF_TEXT;
    for (std::string& cell : cells) {
        ++item.iSubItem;
        item.pszText = cell.data();
        SendMessageA(list, LVM_SETITEMTEXTA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    }
}

void GatherValues(const Sizes& sizes, int dimension, std::vector<std::string>& values) {
    sizes.rows->reset();
    ComPtr<IXMLDOMNode> row;
    while (sizes.rows->nextNode(row.Receive()) == S_OK) {
        ComPtr<IXMLDOMNode> child;
        if (row->selectSingleNode(Bstr(DimensionName(dimension)).Get(), child.Receive()) != S_OK)
            return;
        const std::string value = ValueOf(child.Get());
        if (std::find(values.begin(), values.end(), value) == values.end())
            values.push_back(value);
    }
}

template <class Value, class Less>
void ExchangeSort(std::vector<Value>& values, Less less) {
    for (std::size_t i = 0; i + 1 < values.size(); ++i) {
        for (std::size_t j = i + 1; j < values.size(); ++j) {
            if (less(values[j], values[i]))
                std::swap(values[i], values[j]);
        }
    }
}

template <class Key>
struct Pair {
    Key key;
    LPARAM data;
};

int CALLBACK CompareNumbers(LPARAM first, LPARAM second, LPARAM ascending) {
    const auto* a = reinterpret_cast<const Pair<double>*>(first);
    const auto* b = reinterpret_cast<const Pair<double>*>(second);
    if (!a || !b || a->key == b->key)
        return 0;
    return (a->key > b->key) == (ascending != 0) ? 1 : -1;
}

int CALLBACK CompareTexts(LPARAM first, LPARAM second, LPARAM ascending) {
    const auto* a = reinterpret_cast<const Pair<std::string>*>(first);
    const auto* b = reinterpret_cast<const Pair<std::string>*>(second);
    if (!a || !b)
        return 0;
    const int order = _mbsicmp(reinterpret_cast<const unsigned char*>(a->key.c_str()),
                               reinterpret_cast<const unsigned char*>(b->key.c_str()));
    if (order == 0)
        return 0;
    return (order == 1) == (ascending != 0) ? 1 : -1;
}

template <class Key, class KeyOf>
void SortBy(HWND list, int column, PFNLVCOMPARE compare, KeyOf keyOf) {
    LVITEMA item{};
    item.mask = LVIF_PARAM;
    const int count = ListView_GetItemCount(list);
    for (item.iItem = 0; item.iItem < count; ++item.iItem) {
        SendMessageA(list, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        char text[128];
        LVITEMA cell{};
        cell.iSubItem = column;
        cell.pszText = text;
        cell.cchTextMax = sizeof text;
        SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(item.iItem),
                     reinterpret_cast<LPARAM>(&cell));
        item.lParam = reinterpret_cast<LPARAM>(new Pair<Key>{keyOf(text), item.lParam});
        SendMessageA(list, LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
    SendMessageA(list, LVM_SORTITEMS, TRUE, reinterpret_cast<LPARAM>(compare));
    for (item.iItem = 0; item.iItem < count; ++item.iItem) {
        SendMessageA(list, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        const auto* pair = reinterpret_cast<const Pair<Key>*>(item.lParam);
        item.lParam = pair->data;
        SendMessageA(list, LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        delete pair;
    }
}

}  // namespace

void FillRows(HWND list, const Sizes& sizes, bool filtered, RowReferences& references) {
    Columns columns;
    if (filtered)
        columns.filters[SizeFile::alternating].SetNumber(FilterEqual, 12.0, 0.0, DatabaseBoth);
    std::vector<std::string> cells;
    ListView_DeleteAllItems(list);
    references.clear();
    sizes.rows->reset();
    ComPtr<IXMLDOMNode> row;
    while (sizes.rows->nextNode(row.Receive()) == S_OK) {
        if (ReadRow(row.Get(), columns, cells))
            InsertRow(list, references.emplace_back(row).Get(), cells);
    }
}

void Sort(HWND list, int column, bool numeric) {
    if (numeric)
        SortBy<double>(list, column, CompareNumbers,
                       [](const char* text) { return std::strtod(text, nullptr); });
    else
        SortBy<std::string>(list, column, CompareTexts, [](const char* text) { return std::string(text); });
}

std::vector<double> NumericValues(const Sizes& sizes, int dimension) {
    std::vector<std::string> texts;
    GatherValues(sizes, dimension, texts);
    std::vector<double> numbers;
    for (const std::string& text : texts)
        numbers.push_back(std::strtod(text.c_str(), nullptr));
    ExchangeSort(numbers, [](double a, double b) { return a < b; });
    return numbers;
}

std::vector<std::string> TextValues(const Sizes& sizes, int dimension) {
    std::vector<std::string> texts;
    GatherValues(sizes, dimension, texts);
    for (std::string& text : texts)
        text = GetLocalizedMessage(catalogue, text);
    ExchangeSort(texts, [](const std::string& a, const std::string& b) {
        return std::strcmp(a.c_str(), b.c_str()) < 0;
    });
    return texts;
}

std::string FormatNumber(double number) {
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, "%f", number);
    std::string text = buffer;
    const std::size_t last = text.find_last_not_of('0');
    return text.substr(0, last + (IsDecimalSeparator(text[last]) ? 2 : 1));
}

}  // namespace nux::bench::transcription
