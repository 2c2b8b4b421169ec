#pragma once

#include <windows.h>

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "framework/Variant.h"
#include "webbrowser/ScriptValue.h"

namespace nux::webbrowser {

class Page;

/// Holds an object of a page: an element, a list, a function, an array, any other. The page keeps the object
/// until the last copy of the reference is gone, or until it shows another document: then every use fails
/// with RPC_E_DISCONNECTED, as it does after the page's end. Two references on one object compare equal.
///
/// Operations run in the page and throw HResultError: what the script threw (its `number` if it has one, or
/// E_FAIL, with the message as words), or RPC_E_DISCONNECTED.
class PageReference {
public:
    PageReference() noexcept = default;

    explicit operator bool() const noexcept { return held_ != nullptr; }
    bool operator==(const PageReference& other) const noexcept = default;

    /// What the object is: element, function, list and so on.
    PageObjectKind Kind() const noexcept;
    /// The name of its class in the page, such as "HTMLDivElement", "Array", "Object".
    const std::string& ClassName() const noexcept;
    /// Throws RPC_E_DISCONNECTED if the page is gone.
    std::shared_ptr<Page> Owner() const;
    /// Whether the document that it belongs to is still shown. Asks nobody.
    bool IsAlive() const noexcept;

    /// The value of a property; empty (VT_EMPTY) for undefined.
    Variant Get(std::wstring_view name) const;
    void Put(std::wstring_view name, const VARIANT& value) const;
    bool Has(std::wstring_view name) const;
    /// Calls a method; of a function, with an empty name, the function itself.
    /// @param arguments  in the order in which a script writes them
    Variant Call(std::wstring_view name, std::span<const Variant> arguments = {}) const;

    /// The element `index` of a list or array, and how many there are.
    Variant Item(int index) const;
    int Length() const;

private:
    friend class PageMembers;
    friend class ScriptBridge;
    struct Held;
    explicit PageReference(std::shared_ptr<Held> held) noexcept : held_(std::move(held)) {}
    Variant Use(std::string_view function, std::initializer_list<Variant> rest) const;

    std::shared_ptr<Held> held_;
};

}  // namespace nux::webbrowser
