#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "framework/ComPtr.h"

namespace nux {

/// Owns the attributes of a type.
class TypeAttributes {
public:
    explicit TypeAttributes(ITypeInfo* type);
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    ~TypeAttributes() { type_->ReleaseTypeAttr(attributes_); }
    const TYPEATTR* operator->() const noexcept { return attributes_; }

private:
    ComPtr<ITypeInfo> type_;
    TYPEATTR* attributes_ = nullptr;
};

/// How an operation stands in the table of virtual operations.
struct OperationOffset {
    OperationOffset(ITypeInfo* type, UINT index);

    int bytes = 0;
    bool isVirtual = false;
    bool standardCall = false;
    bool returnsHResult = false;
};

/// Name of a type (MEMBERID_NIL) or of one of its members.
std::string NameOf(ITypeInfo* type, MEMBERID member);

/// The interface with the table of virtual operations that belongs to a dual dispatch interface.
ComPtr<ITypeInfo> VirtualTable(ITypeInfo* dispatch);

/// An operation in one line: "6 get nux3D(out IDispatch**)", "85 SaveFile(BSTR FileName, BSTR Data)". An
/// argument that is both out and the result reads "out", one that only goes in has no word; anything else is
/// spelled out.
std::string Describe(ITypeInfo* type, UINT index, bool withArgumentNames);

}  // namespace nux
