#pragma once

#include <windows.h>

#include <string>

#include "dimensions/nuxDimFilter.h"
#include "environment/Registry.h"

namespace nux {

/// What the dimension chooser remembers of one component, for all users of the machine. A value that is
/// missing or of another kind reads as its default, and a write that fails is ignored. Columns are known by
/// their captions. All operations may throw std::bad_alloc.
class DimensionSettings {
public:
    DimensionSettings(const std::string& catalogId, const std::string& componentId);

    /// A number of the window; `name` is one of DialogValues.
    int Number(const char* name, int fallback);
    void SetNumber(const char* name, int number);

    /// A number of a column; `name` is one of ColumnValues.
    int ColumnNumber(const std::string& caption, const char* name, int fallback);
    void SetColumnNumber(const std::string& caption, const char* name, int number);

    nuxDimFilter Filter(const std::string& caption);
    void SetFilter(const std::string& caption, const nuxDimFilter& filter);

private:
    int NumberAt(const std::string& key, const char* name, int fallback);
    void SetNumberAt(const std::string& key, const char* name, int number);
    double LimitAt(const std::string& key, const char* name);
    std::string TextAt(const std::string& key, const char* name, const char* fallback);

    CRegistry registry_;
    std::string key_;
};

}  // namespace nux
