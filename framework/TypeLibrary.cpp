#include "framework/TypeLibrary.h"

#include <utility>
#include <vector>

#include "framework/Module.h"
#include "framework/ProcessWide.h"

namespace nux {
namespace {

using KnownTypes = std::vector<std::pair<GUID, ComPtr<ITypeInfo>>>;

KnownTypes& Known() noexcept {
    static ProcessWide<KnownTypes> known;
    return known.Get();
}

}  // namespace

ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid) {
    KnownTypes& known = Known();
    for (const auto& [id, typeInfo] : known) {
        if (id == guid)
            return typeInfo;
    }
    ComPtr<ITypeLib> library;
    ThrowIfFailed(LoadTypeLibEx(ThisModulePath().c_str(), REGKIND_NONE, library.Receive()));
    ComPtr<ITypeInfo> typeInfo;
    ThrowIfFailed(library->GetTypeInfoOfGuid(guid, typeInfo.Receive()));
    known.emplace_back(guid, typeInfo);
    return typeInfo;
}

void ReleaseTypeInfos() noexcept {
    KnownTypes().swap(Known());
}

}  // namespace nux
