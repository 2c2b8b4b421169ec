#include "dimensions/DimensionSettings.h"

#include "dimensions/DimNumber.h"
#include "dimensions/DimensionKeys.h"
#include "environment/Localisation.h"
#include "environment/Settings.h"

namespace nux {

DimensionSettings::DimensionSettings(const std::string& catalogId, const std::string& componentId)
    : registry_(HKEY_CURRENT_USER), key_(DimensionsKey(GetRegistryRoot(), catalogId, componentId)) {
    registry_.SetRootKey(HKEY_LOCAL_MACHINE);
}

int DimensionSettings::Number(const char* name, int fallback) {
    return NumberAt(key_, name, fallback);
}

void DimensionSettings::SetNumber(const char* name, int number) {
    SetNumberAt(key_, name, number);
}

int DimensionSettings::ColumnNumber(const std::string& caption, const char* name, int fallback) {
    return NumberAt(DimensionColumnKey(key_, caption), name, fallback);
}

void DimensionSettings::SetColumnNumber(const std::string& caption, const char* name, int number) {
    SetNumberAt(DimensionColumnKey(key_, caption), name, number);
}

nuxDimFilter DimensionSettings::Filter(const std::string& caption) {
    const std::string key = DimensionColumnKey(key_, caption);
    const auto type = static_cast<DWORD>(NumberAt(key, ColumnValues::filterType, FilterNone));
    const auto database = static_cast<DWORD>(NumberAt(key, ColumnValues::database, DatabaseBoth));
    nuxDimFilter filter;
    if (type == FilterStringEqual)
        filter.SetText(type, TextAt(key, ColumnValues::filterString, ""), database);
    else
        filter.SetNumber(type, LimitAt(key, ColumnValues::lowerLimit), LimitAt(key, ColumnValues::upperLimit),
                         database);
    return filter;
}

void DimensionSettings::SetFilter(const std::string& caption, const nuxDimFilter& filter) {
    const std::string key = DimensionColumnKey(key_, caption);
    SetNumberAt(key, ColumnValues::filterType, static_cast<int>(filter.Type()));
    SetNumberAt(key, ColumnValues::database, static_cast<int>(filter.Database()));
    if (filter.Type() == FilterStringEqual) {
        registry_.SetStringValue(key, ColumnValues::filterString, filter.Text());
        return;
    }
    registry_.SetStringValue(key, ColumnValues::lowerLimit,
                             FormatDimNumber(filter.Lower(), DecimalSeparator()));
    registry_.SetStringValue(key, ColumnValues::upperLimit,
                             FormatDimNumber(filter.Upper(), DecimalSeparator()));
}

int DimensionSettings::NumberAt(const std::string& key, const char* name, int fallback) {
    DWORD number = 0;
    return registry_.GetDWORDValue(key, name, &number) ? static_cast<int>(number) : fallback;
}

void DimensionSettings::SetNumberAt(const std::string& key, const char* name, int number) {
    const auto stored = static_cast<DWORD>(number);
    registry_.SetDWORDValue(key, name, &stored);
}

double DimensionSettings::LimitAt(const std::string& key, const char* name) {
    return ReadDimNumber(TextAt(key, name, ColumnValues::defaultLimit)).value;
}

std::string DimensionSettings::TextAt(const std::string& key, const char* name, const char* fallback) {
    RegistryValue value;
    const char* text = fallback;
    if (registry_.QueryValue(key, name, &value))
        value.AsString(&text);
    return text;
}

}  // namespace nux
