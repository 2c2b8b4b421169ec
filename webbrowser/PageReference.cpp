#include "webbrowser/PageReference.h"

#include <array>

#include "framework/HResult.h"
#include "webbrowser/HeldObject.h"
#include "webbrowser/Page.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

const std::string noName;

Variant TextValue(std::wstring_view text) {
    Variant value;
    value.SetText(Bstr(text));
    return value;
}

Variant NumberValue(LONG number) {
    Variant value;
    value.SetNumber(number);
    return value;
}

Variant CopyOf(const VARIANT& value) {
    Variant copy;
    ThrowIfFailed(copy.SetCopy(value));
    return copy;
}

}  // namespace

PageReference::Held::~Held() {
    if (const std::shared_ptr<ScriptBridge> owner = bridge.lock())
        owner->Drop(id.number, count, id.document);
}

PageObjectKind PageReference::Kind() const noexcept {
    return held_ ? held_->id.kind : PageObjectKind::object;
}

const std::string& PageReference::ClassName() const noexcept {
    return held_ ? held_->id.className : noName;
}

bool PageReference::IsAlive() const noexcept {
    const std::shared_ptr<ScriptBridge> bridge = held_ ? held_->bridge.lock() : nullptr;
    return bridge && bridge->IsAlive(held_->id.document);
}

std::shared_ptr<Page> PageReference::Owner() const {
    const std::shared_ptr<ScriptBridge> bridge = held_ ? held_->bridge.lock() : nullptr;
    std::shared_ptr<Page> page = bridge ? bridge->OwningPage() : nullptr;
    if (!page)
        throw HResultError(RPC_E_DISCONNECTED, L"The page isn't there any more");
    return page;
}

Variant PageReference::Use(std::string_view function, std::initializer_list<Variant> rest) const {
    const std::shared_ptr<Page> page = Owner();
    std::vector<Variant> arguments(1);
    arguments[0].SetObject(page->ObjectOf(*this));
    for (const Variant& each : rest)
        arguments.push_back(CopyOf(each.Get()));
    return page->Call(function, arguments);
}

Variant PageReference::Get(std::wstring_view name) const {
    return Use("(object, name) => object[name]", {TextValue(name)});
}

void PageReference::Put(std::wstring_view name, const VARIANT& value) const {
    Use("(object, name, value) => { object[name] = value; }", {TextValue(name), CopyOf(value)});
}

bool PageReference::Has(std::wstring_view name) const {
    return Use("(object, name) => name in object", {TextValue(name)}).Get().boolVal != VARIANT_FALSE;
}

Variant PageReference::Call(std::wstring_view name, std::span<const Variant> arguments) const {
    const std::shared_ptr<Page> page = Owner();
    std::vector<Variant> all(2);
    all[0].SetObject(page->ObjectOf(*this));
    all[1] = TextValue(name);
    for (const Variant& each : arguments)
        all.push_back(CopyOf(each.Get()));
    return page->Call(name.empty() ? "(called, name, ...values) => called(...values)"
                                   : "(object, name, ...values) => object[name](...values)",
                      all);
}

Variant PageReference::Item(int index) const {
    return Use("(list, index) => list[index]", {NumberValue(index)});
}

int PageReference::Length() const {
    const Variant length = Use("list => list.length", {});
    return length.Type() == VT_I4 ? static_cast<int>(length.Number()) : 0;
}

}  // namespace nux::webbrowser
