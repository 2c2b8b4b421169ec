#include "webbrowser/PageObject.h"

#include <map>
#include <vector>

#include "framework/ComObject.h"
#include "framework/ErrorInfo.h"
#include "framework/HResult.h"
#include "framework/Lock.h"
#include "webbrowser/HeldObject.h"
#include "webbrowser/Page.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

/// The numbers of names, for the whole process: clients may keep them.
class MemberNames {
public:
    DISPID NumberOf(std::wstring_view name) {
        Lock lock(lock_);
        const auto found = numbers_.find(name);
        if (found != numbers_.end())
            return found->second;
        const DISPID number = PageMembers::firstMember + static_cast<DISPID>(names_.size());
        names_.push_back(&numbers_.emplace(std::wstring(name), number).first->first);
        return number;
    }
    const std::wstring* NameOf(DISPID number) {
        Lock lock(lock_);
        const auto index = static_cast<std::size_t>(number) - PageMembers::firstMember;
        return number >= PageMembers::firstMember && index < names_.size() ? names_[index] : nullptr;
    }

private:
    SRWLOCK lock_ = SRWLOCK_INIT;
    std::map<std::wstring, DISPID, std::less<>> numbers_;
    std::vector<const std::wstring*> names_;
};

MemberNames memberNames;

/// Elements of a list, for those who walk it.
class ElementEnumeration : public Implements<IEnumVARIANT> {
public:
    ElementEnumeration(PageReference list, int next) : list_(std::move(list)), next_(next) {}
    virtual ~ElementEnumeration() = default;

    STDMETHODIMP Next(ULONG count, VARIANT* elements, ULONG* fetched) override {
        if (fetched)
            *fetched = 0;
        if (!elements || (count > 1 && !fetched))
            return E_POINTER;
        for (ULONG i = 0; i < count; ++i)
            VariantInit(&elements[i]);
        ULONG done = 0;
        const HRESULT result = Guarded([&] {
            const int length = list_.Length();
            for (; done < count && next_ < length; ++done)
                elements[done] = list_.Item(next_++).Detach();
            return done == count ? S_OK : S_FALSE;
        });
        if (FAILED(result)) {
            for (ULONG i = 0; i < done; ++i)
                VariantClear(&elements[i]);
        } else if (fetched) {
            *fetched = done;
        }
        return result;
    }
    STDMETHODIMP Skip(ULONG count) override {
        return Guarded([&] {
            const int length = list_.Length();
            const bool isThere = count <= static_cast<ULONG>(length > next_ ? length - next_ : 0);
            next_ = isThere ? next_ + static_cast<int>(count) : length;
            return isThere ? S_OK : S_FALSE;
        });
    }
    STDMETHODIMP Reset() override {
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** clone) override {
        if (!clone)
            return E_POINTER;
        *clone = nullptr;
        return Guarded([&] {
            *clone = MakeObject<ElementEnumeration>(list_, next_).Detach();
            return S_OK;
        });
    }

private:
    PageReference list_;
    int next_;
};

/// Runs a call of a member; what the page throws is told as scripts expect it.
template <class Body>
HRESULT Told(EXCEPINFO* exception, Body&& body) noexcept {
    try {
        return body();
    } catch (const HResultError& error) {
        if (!exception || error.Code() == RPC_E_DISCONNECTED)
            return error.Code();
        *exception = {};
        exception->scode = error.Code();
        exception->bstrDescription =
            SysAllocStringLen(error.Words().data(), static_cast<UINT>(error.Words().size()));
        return DISP_E_EXCEPTION;
    } catch (...) {
        return CodeOfCurrentException();
    }
}

std::vector<Variant> ArgumentsOf(const DISPPARAMS* parameters) {
    std::vector<Variant> arguments;
    const UINT first = parameters ? parameters->cNamedArgs : 0;
    for (UINT i = parameters ? parameters->cArgs : 0; i > first; --i) {
        Variant argument;
        ThrowIfFailed(argument.SetCopy(parameters->rgvarg[i - 1]));
        arguments.push_back(std::move(argument));
    }
    return arguments;
}

}  // namespace

PageMembers::PageMembers(const PageReference& reference, IDispatch* object) : reference_(reference) {
    if (reference_ && !reference_.held_->object)
        reference_.held_->object = object;
    object_ = object;
}

PageMembers::~PageMembers() {
    if (reference_ && reference_.held_->object == object_)
        reference_.held_->object = nullptr;
}

const wchar_t* PageMembers::NameOf(DISPID id) noexcept {
    const std::wstring* const name = memberNames.NameOf(id);
    return name ? name->c_str() : nullptr;
}

HRESULT PageMembers::Find(std::wstring_view name, bool ensure, DISPID* id) const noexcept {
    *id = DISPID_UNKNOWN;
    return Guarded([&] {
        if (!ensure && !reference_.Has(name))
            return DISP_E_UNKNOWNNAME;
        *id = memberNames.NumberOf(name);
        return S_OK;
    });
}

HRESULT PageMembers::Invoke(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                            EXCEPINFO* exception) const noexcept {
    return Told(exception, [&]() -> HRESULT {
        const std::wstring* const name =
            id == DISPID_VALUE || id == DISPID_NEWENUM ? nullptr : memberNames.NameOf(id);
        if (!name && id != DISPID_VALUE && id != DISPID_NEWENUM)
            return DISP_E_MEMBERNOTFOUND;
        Variant value;
        if (id == DISPID_NEWENUM) {
            VARIANT enumeration{};
            enumeration.vt = VT_UNKNOWN;
            enumeration.punkVal = MakeObject<ElementEnumeration>(reference_, 0).Detach();
            *value.Receive() = enumeration;
        } else if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
            if (!parameters || parameters->cArgs != 1)
                return DISP_E_BADPARAMCOUNT;
            if (!name)
                return DISP_E_MEMBERNOTFOUND;
            Variant put;
            ThrowIfFailed(put.SetCopy(parameters->rgvarg[0]));
            reference_.Put(*name, put.Get());
            return S_OK;
        } else {
            std::vector<Variant> arguments = ArgumentsOf(parameters);
            // Who may mean either reads what isn't a function, and names an element of what is a list.
            const bool mayRead = (flags & DISPATCH_PROPERTYGET) != 0;
            const bool mayCall = (flags & (DISPATCH_METHOD | DISPATCH_CONSTRUCT)) != 0;
            Variant choice;
            choice.SetNumber((mayRead ? 1 : 0) | (mayCall ? 2 : 0) | (flags & DISPATCH_CONSTRUCT ? 4 : 0));
            Variant text;
            if (name)
                text.SetText(Bstr(*name));
            const std::shared_ptr<Page> page = reference_.Owner();
            Variant self;
            self.SetObject(page->ObjectOf(reference_));
            std::vector<Variant> all;
            all.push_back(std::move(self));
            all.push_back(std::move(text));
            all.push_back(std::move(choice));
            for (Variant& argument : arguments)
                all.push_back(std::move(argument));
            value = page->Call(R"((object, name, choice, ...values) => {
                const member = name === undefined ? object : object[name];
                if (choice & 4)
                    return new member(...values);
                if (choice & 2 && typeof member === 'function')
                    return name === undefined ? member(...values) : member.apply(object, values);
                if (!(choice & 1) || (values.length > 0 && (member === null || typeof member !== 'object')))
                    throw Object.assign(new Error("Object doesn't support this property or method"),
                        {number: -2146827850});
                if (values.length > 0)
                    return member[values[0]];
                return name === undefined ? String(object) : member;
            })",
                               all);
        }
        if (result)
            *result = value.Detach();
        return S_OK;
    });
}

HRESULT PageMembers::Delete(std::wstring_view name) const noexcept {
    return Guarded([&] {
        std::vector<Variant> arguments(2);
        const std::shared_ptr<Page> page = reference_.Owner();
        arguments[0].SetObject(page->ObjectOf(reference_));
        arguments[1].SetText(Bstr(name));
        return page->Call("(object, name) => delete object[name]", arguments).Get().boolVal ? S_OK : S_FALSE;
    });
}

HRESULT PageMembers::Next(DISPID after, DISPID* id) const noexcept {
    *id = DISPID_UNKNOWN;
    return Guarded([&] {
        std::vector<Variant> arguments(2);
        const std::shared_ptr<Page> page = reference_.Owner();
        arguments[0].SetObject(page->ObjectOf(reference_));
        if (after != DISPID_STARTENUM) {
            const wchar_t* const name = NameOf(after);
            if (!name)
                return E_INVALIDARG;
            arguments[1].SetText(Bstr(name));
        }
        const Variant name = page->Call(R"((object, after) => {
                const names = Object.keys(object);
                return names[after === undefined ? 0 : names.indexOf(after) + 1];
            })",
                                        arguments);
        if (!name.IsString())
            return S_FALSE;
        *id = memberNames.NumberOf({name.Text(), SysStringLen(name.Text())});
        return S_OK;
    });
}

STDMETHODIMP PageObject::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP PageObject::GetTypeInfo(UINT, LCID, ITypeInfo** typeInfo) {
    if (!typeInfo)
        return E_POINTER;
    *typeInfo = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP PageObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0)
        return E_POINTER;
    // Arguments have no names.
    for (UINT i = 1; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    const HRESULT result = members_.Find(names[0], false, &ids[0]);
    return SUCCEEDED(result) && count > 1 ? DISP_E_UNKNOWNNAME : result;
}

STDMETHODIMP PageObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                EXCEPINFO* exception, UINT*) {
    return members_.Invoke(id, flags, parameters, result, exception);
}

STDMETHODIMP PageObject::GetDispID(BSTR name, DWORD flags, DISPID* id) {
    if (!name || !id)
        return E_POINTER;
    return members_.Find({name, SysStringLen(name)}, (flags & fdexNameEnsure) != 0, id);
}

STDMETHODIMP PageObject::InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                  EXCEPINFO* exception, IServiceProvider*) {
    return members_.Invoke(id, flags, parameters, result, exception);
}

STDMETHODIMP PageObject::DeleteMemberByName(BSTR name, DWORD) {
    return name ? members_.Delete({name, SysStringLen(name)}) : E_POINTER;
}

STDMETHODIMP PageObject::DeleteMemberByDispID(DISPID id) {
    const wchar_t* const name = PageMembers::NameOf(id);
    return name ? members_.Delete(name) : DISP_E_MEMBERNOTFOUND;
}

STDMETHODIMP PageObject::GetMemberProperties(DISPID, DWORD, DWORD* properties) {
    if (properties)
        *properties = 0;
    return E_NOTIMPL;
}

STDMETHODIMP PageObject::GetMemberName(DISPID id, BSTR* name) {
    if (!name)
        return E_POINTER;
    const wchar_t* const found = PageMembers::NameOf(id);
    *name = found ? SysAllocString(found) : nullptr;
    return found ? S_OK : DISP_E_MEMBERNOTFOUND;
}

STDMETHODIMP PageObject::GetNextDispID(DWORD, DISPID after, DISPID* id) {
    return id ? members_.Next(after, id) : E_POINTER;
}

STDMETHODIMP PageObject::GetNameSpaceParent(IUnknown** parent) {
    if (!parent)
        return E_POINTER;
    *parent = nullptr;
    return S_OK;
}

}  // namespace nux::webbrowser
