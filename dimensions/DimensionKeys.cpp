#include "dimensions/DimensionKeys.h"

namespace nux {

std::string DimensionsKey(std::string_view registryRoot, std::string_view catalogId,
                          std::string_view componentId) {
    std::string key(registryRoot);
    key.append("\\ChooseStdDimsDlg\\").append(catalogId).append("\\").append(componentId);
    return key;
}

std::string DimensionColumnKey(std::string_view chooserKey, std::string_view caption) {
    std::string key(chooserKey);
    key.append("\\Columns\\").append(caption);
    return key;
}

}  // namespace nux
