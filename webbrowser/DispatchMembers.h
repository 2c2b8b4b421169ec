#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
#include <variant>
#include <vector>

#include "framework/Variant.h"

namespace nux::webbrowser {

// Members of another's object as scripts use them: by name, with what the object says of a failure. An empty
// name is the default member. All throw HResultError with the object's code and words.

struct UnknownMember {};
/// A member that wants to be called: a method, or a property with arguments.
struct CallableMember {};

/// Reads a property without arguments.
std::variant<Variant, CallableMember, UnknownMember> ReadMember(IDispatch* object, const std::wstring& name);

/// @param value  goes by reference if it is an object and the property wants that
void WriteMember(IDispatch* object, const std::wstring& name, const VARIANT& value);

/// Calls a method, or reads a property with arguments. A name that is a number is an element: the default
/// member with that argument.
/// @param arguments  in the order in which a script writes them
Variant CallMember(IDispatch* object, const std::wstring& name, const std::vector<Variant>& arguments);

bool HasMember(IDispatch* object, const std::wstring& name);

/// Whether the default member takes arguments, as that of a collection does.
bool IsCallable(IDispatch* object) noexcept;

/// The elements of a collection: those that it enumerates, or those from 0 to its `length`. Empty for an
/// object that is none.
std::vector<Variant> ElementsOf(IDispatch* object);

/// How many elements a collection says it has (`length` or `Count`), 0 for an object that is none.
int ElementCount(IDispatch* object) noexcept;

}  // namespace nux::webbrowser
