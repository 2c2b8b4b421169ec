#include "tests/support/DescribedType.h"

#include <gtest/gtest.h>

#include <vector>

#include "framework/Automation.h"

namespace nux {
namespace {

/// Owns the description of an operation.
class Operation {
public:
    Operation(ITypeInfo* type, UINT index) : type_(type) {
        EXPECT_EQ(S_OK, type->GetFuncDesc(index, &description_)) << index;
    }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    ~Operation() { type_->ReleaseFuncDesc(description_); }
    const FUNCDESC* operator->() const noexcept { return description_; }

private:
    ComPtr<ITypeInfo> type_;
    FUNCDESC* description_ = nullptr;
};

std::string TypeName(ITypeInfo* type, const TYPEDESC& description) {
    switch (description.vt) {
        case VT_PTR: {
            const std::string target = TypeName(type, *description.lptdesc);
            return target + "*";
        }
        case VT_USERDEFINED: {
            ComPtr<ITypeInfo> referred;
            EXPECT_EQ(S_OK, type->GetRefTypeInfo(description.hreftype, referred.Receive()));
            return NameOf(referred.Get(), MEMBERID_NIL);
        }
        case VT_DISPATCH:
            return "IDispatch*";
        case VT_BSTR:
            return "BSTR";
        case VT_VARIANT:
            return "VARIANT";
        case VT_I4:
            return "long";
        case VT_BOOL:
            return "VARIANT_BOOL";
        default:
            return "type " + std::to_string(description.vt);
    }
}

std::string Direction(USHORT flags) {
    switch (flags) {
        case PARAMFLAG_FIN:
            return "";
        case PARAMFLAG_FOUT | PARAMFLAG_FRETVAL:
            return "out ";
        default:
            return "flags " + std::to_string(flags) + " ";
    }
}

std::string Kind(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_FUNC:
            return "";
        case INVOKE_PROPERTYGET:
            return "get ";
        case INVOKE_PROPERTYPUT:
            return "put ";
        default:
            return "kind " + std::to_string(kind) + " ";
    }
}

}  // namespace

TypeAttributes::TypeAttributes(ITypeInfo* type) : type_(type) {
    EXPECT_EQ(S_OK, type->GetTypeAttr(&attributes_));
}

OperationOffset::OperationOffset(ITypeInfo* type, UINT index) {
    const Operation operation(type, index);
    bytes = operation->oVft;
    isVirtual = operation->funckind == FUNC_PUREVIRTUAL;
    standardCall = operation->callconv == CC_STDCALL;
    returnsHResult = operation->elemdescFunc.tdesc.vt == VT_HRESULT;
}

std::string NameOf(ITypeInfo* type, MEMBERID member) {
    BSTR name = nullptr;
    EXPECT_EQ(S_OK, type->GetDocumentation(member, &name, nullptr, nullptr, nullptr));
    const std::string narrow = Narrow(name);
    SysFreeString(name);
    return narrow;
}

ComPtr<ITypeInfo> VirtualTable(ITypeInfo* dispatch) {
    constexpr UINT partnerOfADual = static_cast<UINT>(-1);
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    EXPECT_EQ(S_OK, dispatch->GetRefTypeOfImplType(partnerOfADual, &reference));
    EXPECT_EQ(S_OK, dispatch->GetRefTypeInfo(reference, table.Receive()));
    return table;
}

std::string Describe(ITypeInfo* type, UINT index, bool withArgumentNames) {
    const Operation operation(type, index);
    std::vector<BSTR> names(1 + static_cast<std::size_t>(operation->cParams), nullptr);
    UINT count = 0;
    EXPECT_EQ(S_OK, type->GetNames(operation->memid, names.data(), static_cast<UINT>(names.size()), &count));

    std::string text = std::to_string(operation->memid) + " " + Kind(operation->invkind) +
                       NameOf(type, operation->memid) + "(";
    for (SHORT i = 0; i < operation->cParams; ++i) {
        const ELEMDESC& argument = operation->lprgelemdescParam[i];
        text += i == 0 ? "" : ", ";
        text += Direction(argument.paramdesc.wParamFlags) + TypeName(type, argument.tdesc);
        if (withArgumentNames)
            text += " " + Narrow(names[static_cast<std::size_t>(i) + 1]);
    }
    for (const BSTR name : names)
        SysFreeString(name);
    return text + ")";
}

}  // namespace nux
