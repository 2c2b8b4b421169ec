#include "framework/TypeLibrary.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "framework/Lock.h"
#include "framework/Module.h"
#include "framework/Variant.h"

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
    SRWLOCK membersLock = SRWLOCK_INIT;
    KnownType* next = nullptr;
};

/// A type has about 50 names; who spells them in ever new ways gets no more of them kept.
constexpr std::size_t mostMembers = 200;

/// A list that only grows while there are objects: every call of every apartment looks here, without a lock.
std::atomic<KnownType*> known{nullptr};
SRWLOCK growing = SRWLOCK_INIT;

KnownType* FindType(REFGUID guid) noexcept {
    KnownType* type = known.load(std::memory_order_acquire);
    while (type && type->id != guid)
        type = type->next;
    return type;
}

KnownType& TypeOf(REFGUID guid, const RegisteredLibrary* registered) {
    if (KnownType* const type = FindType(guid))
        return *type;
    Lock lock(growing);
    if (KnownType* const type = FindType(guid))
        return *type;
    ComPtr<ITypeLib> library;
    ThrowIfFailed(registered ? LoadRegTypeLib(registered->id, registered->major, registered->minor,
                                              LOCALE_NEUTRAL, library.Receive())
                             : LoadTypeLibEx(ThisModulePath().c_str(), REGKIND_NONE, library.Receive()));
    auto type = std::make_unique<KnownType>();
    type->id = guid;
    ThrowIfFailed(library->GetTypeInfoOfGuid(guid, type->typeInfo.Receive()));
    type->next = known.load(std::memory_order_relaxed);
    known.store(type.get(), std::memory_order_release);
    return *type.release();
}

/// Whether the member is a property without arguments of its own.
bool IsPlainProperty(ITypeInfo* type, DISPID id) {
    const ComPtr<ITypeInfo2> indexed = Query<ITypeInfo2>(type);
    UINT index = 0;
    if (!indexed || FAILED(indexed->GetFuncIndexOfMemId(id, INVOKE_PROPERTYGET, &index)))
        return false;
    // That index is not the one of its description: Wine 8.0 counts inherited functions here alone
    // (DispatchTest.ArgumentsOfAPropertyThatHoldsNoObject).
    FUNCDESC* function = nullptr;
    for (index = 0; SUCCEEDED(type->GetFuncDesc(index, &function)); ++index) {
        const bool isGet = function->memid == id && function->invkind == INVOKE_PROPERTYGET;
        // Some descriptions list the result among the arguments.
        const bool isPlain = function->cParams == 0 ||
                             (function->cParams == 1 &&
                              function->lprgelemdescParam[0].paramdesc.wParamFlags & PARAMFLAG_FRETVAL);
        type->ReleaseFuncDesc(function);
        if (isGet)
            return isPlain;
    }
    return false;
}

}  // namespace

ComPtr<ITypeInfo> TypeInfoOf(REFGUID guid, const RegisteredLibrary* library) {
    return TypeOf(guid, library).typeInfo;
}

HRESULT FindMembers(REFGUID guid, LPOLESTR* names, UINT count, DISPID* ids,
                    const RegisteredLibrary* library) {
    KnownType& type = TypeOf(guid, library);
    const bool isMemberAlone = count == 1 && names[0];
    if (isMemberAlone) {
        SharedLock lock(type.membersLock);
        if (const auto found = type.members.find(std::wstring_view(names[0])); found != type.members.end()) {
            ids[0] = found->second;
            return S_OK;
        }
    }
    const HRESULT result = type.typeInfo->GetIDsOfNames(names, count, ids);
    if (result == S_OK && isMemberAlone) {
        Lock lock(type.membersLock);
        if (type.members.size() < mostMembers)
            type.members.emplace(names[0], ids[0]);
    }
    return result;
}

HRESULT InvokeMember(ITypeInfo* type, IDispatch* self, DISPID id, LCID locale, WORD flags,
                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* argumentError) {
    // VBScript's `Set` asks for a put by reference alone.
    if (flags & DISPATCH_PROPERTYPUTREF)
        flags |= DISPATCH_PROPERTYPUT;
    if (!(flags & DISPATCH_PROPERTYGET) || !parameters || parameters->cArgs == 0 ||
        !IsPlainProperty(type, id))
        return type->Invoke(self, id, flags, parameters, result, exception, argumentError);
    // The platform would do the same, but Wine 8.0 does it also where the property holds null, and dies of it
    // (DispatchTest.ArgumentsOfAPropertyThatHoldsNoObject).
    Variant held;
    DISPPARAMS none{};
    const HRESULT read =
        type->Invoke(self, id, DISPATCH_PROPERTYGET, &none, held.Receive(), exception, argumentError);
    if (FAILED(read))
        return read;
    if (held.Type() != VT_DISPATCH || !held.Object())
        return DISP_E_NOTACOLLECTION;
    return held.Object()->Invoke(DISPID_VALUE, IID_NULL, locale, flags, parameters, result, exception,
                                 argumentError);
}

void ReleaseTypeInfos() noexcept {
    std::unique_ptr<KnownType> type(known.exchange(nullptr));
    while (type)
        type.reset(type->next);
}

}  // namespace nux
