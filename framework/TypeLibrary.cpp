#include "framework/TypeLibrary.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "framework/Module.h"
#include "framework/ProcessWide.h"

namespace nux {
namespace {

/// Lets a name be looked up without a copy of it.
struct NameHash : std::hash<std::wstring_view> {
    using is_transparent = void;
};

struct KnownType {
    GUID id;
    ComPtr<ITypeInfo> typeInfo;
    /// Of the names asked so far, as they were spelled. A script asks at each call, and the type description
    /// compares with name after name.
    std::unordered_map<std::wstring, DISPID, NameHash, std::equal_to<>> members;
};

/// A type has about 50 names; who spells them in ever new ways gets no more of them kept.
constexpr std::size_t mostMembers = 200;

using KnownTypes = std::vector<KnownType>;

KnownTypes& Known() noexcept {
    static ProcessWide<KnownTypes> known;
    return known.Get();
}

KnownType& TypeOf(REFGUID guid) {
    KnownTypes& known = Known();
    for (KnownType& type : known) {
        if (type.id == guid)
            return type;
    }
    ComPtr<ITypeLib> library;
    ThrowIfFailed(LoadTypeLibEx(ThisModulePath().c_str(), REGKIND_NONE, library.Receive()));
    KnownType type{guid, {}, {}};
    ThrowIfFailed(library->GetTypeInfoOfGuid(guid, type.typeInfo.Receive()));
    return known.emplace_back(std::move(type));
}

}  // namespace

ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid) {
    return TypeOf(guid).typeInfo;
}

HRESULT FindMembers(REFGUID guid, LPOLESTR* names, UINT count, DISPID* ids) {
    KnownType& type = TypeOf(guid);
    const bool isMemberAlone = count == 1 && names[0];
    if (isMemberAlone) {
        if (const auto found = type.members.find(std::wstring_view(names[0])); found != type.members.end()) {
            ids[0] = found->second;
            return S_OK;
        }
    }
    const HRESULT result = type.typeInfo->GetIDsOfNames(names, count, ids);
    if (result == S_OK && isMemberAlone && type.members.size() < mostMembers)
        type.members.emplace(names[0], ids[0]);
    return result;
}

bool IsReadableProperty(REFGUID guid, DISPID id) {
    const ComPtr<ITypeInfo2> type = TypeInfoOf(guid).As<ITypeInfo2>();
    UINT index = 0;
    return type && SUCCEEDED(type->GetFuncIndexOfMemId(id, INVOKE_PROPERTYGET, &index));
}

void ReleaseTypeInfos() noexcept {
    KnownTypes().swap(Known());
}

}  // namespace nux
