// What scripts hand over: values of any type, arrays that are none, arguments of the wrong kind.

#include <memory>

#include "control/nuxStdParts.h"
#include "environment/InstallationPaths.h"
#include "environment/XMLAccess.h"
#include "tests/mutations/Documents.h"
#include "tests/mutations/Reader.h"
#include "tests/support/Dom.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

/// A value of any type with what it refers to. It is such as a script engine can hand over: a type may be one
/// that doesn't exist, and content may be missing, but no pointer leads into nowhere.
class AnyVariant {
public:
    AnyVariant(Random& random, const std::vector<std::string>& texts, IDispatch* object, int depth = 0) {
        switch (random.Below(12)) {
            case 0:
            case 1:
                SetText(value_, MutatedText(random, texts));
                break;
            case 2:
                value_.vt = VT_I4;
                value_.lVal = static_cast<LONG>(random.OneIn(2) ? random.Below(10) : random.Next());
                break;
            case 3:
                value_.vt = VT_R8;
                value_.dblVal = static_cast<double>(random.Next()) / 3;
                break;
            case 4:
                value_.vt = random.OneIn(2) ? VT_DISPATCH : VT_UNKNOWN;
                value_.pdispVal = random.OneIn(3) ? nullptr : object;
                if (value_.pdispVal)
                    object->AddRef();
                break;
            case 5:
            case 6:
                MakeArray(random, texts, object, depth);
                break;
            case 7:
                if (depth < 3) {
                    target_ = std::make_unique<AnyVariant>(random, texts, object, depth + 1);
                    value_.vt = VT_BYREF | VT_VARIANT;
                    value_.pvarVal = &target_->value_;
                }
                break;
            case 8:
                if (depth < 3) {
                    target_ = std::make_unique<AnyVariant>(random, texts, object, depth + 1);
                    const VARTYPE type = target_->value_.vt;
                    if (!(type & VT_BYREF) && type != VT_EMPTY && type != VT_NULL && type != VT_DECIMAL) {
                        value_.vt = type | VT_BYREF;
                        value_.byref = &target_->value_.llVal;  // the content's place, whatever the type
                    }
                }
                break;
            case 9: {  // a number of some type
                constexpr VARTYPE types[] = {VT_EMPTY, VT_NULL, VT_I1,   VT_I2,   VT_I8,   VT_UI1,
                                             VT_UI2,   VT_UI4,  VT_UI8,  VT_INT,  VT_UINT, VT_R4,
                                             VT_BOOL,  VT_CY,   VT_DATE, VT_ERROR};
                value_.vt = random.Pick(types);
                value_.llVal = static_cast<LONGLONG>(random.Next());
                break;
            }
            case 10:
                value_.decVal.Lo64 = random.Next();
                value_.decVal.scale = static_cast<BYTE>(random.Below(40));
                value_.vt = VT_DECIMAL;
                break;
            case 11:
                value_.vt = static_cast<VARTYPE>(random.Next() & ~VT_BYREF);
                break;
        }
    }
    AnyVariant(const AnyVariant&) = delete;
    AnyVariant& operator=(const AnyVariant&) = delete;

    RawVariant& Get() noexcept { return value_; }

    static void SetText(VARIANT& variant, const std::string& text) {
        variant.vt = VT_BSTR;
        variant.bstrVal = text.empty() ? nullptr : Bstr(text, CP_ACP).Detach();
    }

private:
    void MakeArray(Random& random, const std::vector<std::string>& texts, IDispatch* object, int depth) {
        constexpr VARTYPE types[] = {VT_VARIANT, VT_VARIANT,  VT_VARIANT, VT_I4,
                                     VT_BSTR,    VT_DISPATCH, VT_R8,      VT_UI1};
        const VARTYPE type = random.Pick(types);
        SAFEARRAYBOUND bounds[3];
        const UINT dimensions = random.OneIn(4) ? 1 + static_cast<UINT>(random.Below(3)) : 1;
        for (SAFEARRAYBOUND& bound : bounds)
            bound = {static_cast<ULONG>(random.Below(5)), static_cast<LONG>(random.Below(7)) - 3};
        SAFEARRAY* array = random.OneIn(16) ? nullptr : SafeArrayCreate(type, dimensions, bounds);
        if (array && type == VT_VARIANT && dimensions == 1 && depth < 3) {
            VARIANT* elements = nullptr;
            SafeArrayAccessData(array, reinterpret_cast<void**>(&elements));
            for (ULONG element = 0; element < bounds[0].cElements; ++element) {
                AnyVariant made(random, texts, object, depth + 2);
                if (!(made.value_.vt & VT_BYREF))
                    VariantCopy(&elements[element], &made.value_);
            }
            SafeArrayUnaccessData(array);
        }
        value_.vt = VT_ARRAY | type;
        value_.parray = array;
    }

    std::unique_ptr<AnyVariant> target_;  // outlives the value, which refers to it
    RawVariant value_;
};

class ScriptReader : public Reader {
public:
    explicit ScriptReader(const Samples& samples)
        : samples_(samples), document_(Parsed(samples.dimensions.front())) {
        const auto root = GetRootNode(document_.Get());
        root->get_childNodes(rows_.Receive());
        MakeObject<NamedProperties>().CopyTo(foreign_.Receive());
    }

protected:
    /// An object that operations want, or one that they don't.
    IDispatch* AnyObject(Random& random) const noexcept {
        switch (random.Below(4)) {
            case 0:
                return rows_.Get();
            case 1:
                return document_.Get();
            default:
                return foreign_.Get();
        }
    }

    const Samples& samples_;
    const ComPtr<ComObject<nuxStdParts>> parts_ = MakeObject<nuxStdParts>();
    const ComPtr<IXMLDOMDocument> document_;
    ComPtr<IXMLDOMNodeList> rows_;
    ComPtr<IDispatch> foreign_;
};

/// Values that outlive a page: GlobalData, and those of the DataManager.
class Values : public ScriptReader {
public:
    explicit Values(const Samples& samples) : ScriptReader(samples) {
        ComPtr<IDispatch> manager;
        parts_->get_DataManager(manager.Receive());
        manager_ = manager.As<InuxDataManager>();
    }

    bool Read(Random& random) override {
        AnyVariant given(random, samples_.texts, AnyObject(random));
        RawVariant got;
        HRESULT put = S_OK;
        if (random.OneIn(2)) {
            put = parts_->put_GlobalData(given.Get());
            const HRESULT read = parts_->get_GlobalData(&got);
            Require(FAILED(read) || FAILED(put) || !(got.vt & VT_BYREF),
                    "a value that leads into a caller's");
            Require(SUCCEEDED(put) || got.vt == VT_ERROR, "a failure that leaves no error");
            parts_->put_GlobalData(RawVariant());
        } else if (random.OneIn(2)) {
            put = manager_->put_CavityPlateSizes(given.Get());
            const HRESULT read = manager_->get_CavityPlateSizes(&got);
            Require(FAILED(read) || got.vt == (VT_ARRAY | VT_VARIANT), "sizes of another kind");
            manager_->put_CorePlateSizes(given.Get());
            manager_->ClearData();
        } else {
            put = manager_->put_Units(given.Get());
            const HRESULT read = manager_->get_Units(&got);
            Require(FAILED(read) || got.vt == VT_BSTR, "a text of another kind");
            RawVariant empty;
            AnyVariant::SetText(empty, "");
            manager_->put_Units(empty);
        }
        return SUCCEEDED(put);
    }

private:
    ComPtr<InuxDataManager> manager_;
};

/// An object that a script takes for an array: some elements are missing, some fail, the length may be
/// anything.
class MutatedArray : public HostDispatch {
public:
    MutatedArray(Random& random, const std::vector<std::string>& texts, IDispatch* object)
        : random_(random), texts_(texts), object_(object), holes_(random.OneIn(3)) {}

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (count != 1 || (holes_ && random_.OneIn(20)))
            return DISP_E_UNKNOWNNAME;
        *ids = std::wstring_view(names[0]) == L"length" ? lengthId : 1;
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id == lengthId && !random_.OneIn(4)) {
            result->vt = VT_I4;
            result->lVal = static_cast<LONG>(random_.Below(30));
            if (random_.OneIn(50)) {
                result->lVal = static_cast<LONG>(random_.Next());
                holes_ = true;  // or the test would have to provide that many elements
            }
            return S_OK;
        }
        if (holes_ && random_.OneIn(20))
            return E_FAIL;
        AnyVariant element(random_, texts_, object_);
        if (element.Get().vt & VT_BYREF)
            return S_OK;
        if (id == lengthId && element.Get().vt == VT_I4)
            holes_ = true;
        *result = element.Get();
        element.Get().vt = VT_EMPTY;
        return S_OK;
    }

private:
    static constexpr DISPID lengthId = 7;

    Random& random_;
    const std::vector<std::string>& texts_;
    IDispatch* object_;
    bool holes_;
};

class Arrays : public ScriptReader {
public:
    using ScriptReader::ScriptReader;

    bool Read(Random& random) override {
        ComPtr<IDispatch> array = MakeObject<MutatedArray>(random, samples_.texts, AnyObject(random));
        if (random.OneIn(20))
            array = ComPtr<IDispatch>(AnyObject(random));
        RawVariant result;
        const HRESULT made = parts_->JSArray2SafeArray(array.Get(), &result);
        Require(result.vt == (SUCCEEDED(made) ? VT_ARRAY | VT_VARIANT : VT_EMPTY),
                "a result of another kind");
        return SUCCEEDED(made);
    }
};

/// The chooser's arguments, of which one at least is refused: no dialog opens.
class ChoosersArguments : public ScriptReader {
public:
    using ScriptReader::ScriptReader;

    bool Read(Random& random) override {
        const std::size_t wrong = random.Below(4);
        ComPtr<IDispatch> names = rows_;
        RawVariant arguments[3];
        for (std::size_t i = 0; i < 3; ++i) {
            AnyVariant any(random, samples_.texts, foreign_.Get());
            if (!(any.Get().vt & VT_BYREF))
                arguments[i].Swap(any.Get());
        }
        if (wrong == 3) {
            names = random.OneIn(2) ? nullptr : (random.OneIn(2) ? foreign_ : ComPtr<IDispatch>(document_));
        } else {
            VariantClear(&arguments[wrong]);
            arguments[wrong].vt = VT_DISPATCH;
            foreign_.CopyTo(&arguments[wrong].pdispVal);
        }
        const Bstr catalog(MutatedText(random, samples_.ids), CP_ACP);
        const Bstr component(MutatedText(random, samples_.ids), CP_ACP);
        ComPtr<IDispatch> chosen;
        const HRESULT result =
            parts_->ChooseDimensions(catalog.Get(), component.Get(), names.Get(), arguments[0], arguments[1],
                                     arguments[2], chosen.Receive());
        Require(result == E_INVALIDARG && !chosen, "arguments that must be refused");
        return false;
    }
};

/// Operations called as scripts call them, by number, with any values in any number. Those that would open a
/// window, start a program, write a file, end the process or keep what they are given for good are left out.
class Calls : public ScriptReader {
public:
    explicit Calls(const Samples& samples) : ScriptReader(samples) {
        constexpr const wchar_t* names[] = {L"UserData",
                                            L"LastRVCCmdResult",
                                            L"GlobalData",
                                            L"Initialised",
                                            L"DataManager",
                                            L"EditedComponent",
                                            L"Version",
                                            L"JSArray2SafeArray",
                                            L"GetLocalizedString",
                                            L"GetInterfaceLanguage",
                                            L"GetComponentsDocument",
                                            L"GetXMLDocument",
                                            L"GetStdDimensionNode",
                                            L"AssertFail",
                                            L"RunDieWizard",
                                            L"CreateDieBlock",
                                            L"RunSlideWizard",
                                            L"nux3D",
                                            L"SetExternalDispatch",
                                            L"Navigate",
                                            L"SetStatusMessage",
                                            L"NewComponent",
                                            L"UpdateProgressBar",
                                            L"MessageBoxHTML",
                                            L"SetEditedComponent",
                                            L"StatusBar",
                                            L"WebBrowser",
                                            L"ComponentID"};
        for (const wchar_t* name : names) {
            LPOLESTR text = const_cast<LPOLESTR>(name);
            DISPID id = DISPID_UNKNOWN;
            Require(SUCCEEDED(parts_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_SYSTEM_DEFAULT, &id)),
                    "a name");
            operations_.push_back(id);
        }
    }

    bool Read(Random& random) override {
        const ULONG references = References(foreign_.Get());
        const HRESULT called = Call(random);
        parts_->put_GlobalData(RawVariant());
        parts_->put_nux3D(nullptr);
        parts_->SetExternalDispatch(nullptr);
        parts_->UnLoadStatusBar();
        ClearXMLDocumentCache();
        // Where Wine 8.0 refuses arguments itself, it keeps a reference on one that it has converted before.
        const bool reached = SUCCEEDED(called) || called == DISP_E_EXCEPTION;
        while (!reached && References(foreign_.Get()) > references)
            foreign_->Release();
        Require(References(foreign_.Get()) == references, "a reference that is kept");
        return SUCCEEDED(called);
    }

private:
    HRESULT Call(Random& random) {
        const DISPID operation = random.Pick(operations_);
        std::vector<std::unique_ptr<AnyVariant>> made;
        std::vector<VARIANT> arguments;
        for (std::size_t count = random.Below(5); count > 0; --count) {
            made.push_back(std::make_unique<AnyVariant>(random, samples_.texts, AnyObject(random)));
            arguments.push_back(made.back()->Get());
        }
        DISPID named = DISPID_PROPERTYPUT;
        const bool put = random.OneIn(3);
        DISPPARAMS parameters{arguments.data(), put ? &named : nullptr, static_cast<UINT>(arguments.size()),
                              put && !arguments.empty() ? 1u : 0u};
        const WORD flags = put ? (random.OneIn(2) ? DISPATCH_PROPERTYPUT : DISPATCH_PROPERTYPUTREF)
                               : DISPATCH_METHOD | (random.OneIn(2) ? DISPATCH_PROPERTYGET : 0);
        RawVariant result;
        return parts_->Invoke(operation, IID_NULL, LOCALE_SYSTEM_DEFAULT, flags, &parameters,
                              random.OneIn(4) ? nullptr : &result, nullptr, nullptr);
    }

    std::vector<DISPID> operations_;
};

constexpr ReaderKind kinds[] = {
    {"arrays", "script arrays given to JSArray2SafeArray", 1500, 0, Make<Arrays>},
    {"values", "GlobalData and the values of the DataManager", 2000, 0, Make<Values>},
    {"arguments", "arguments of ChooseDimensions that are refused", 800, 0, Make<ChoosersArguments>},
    {"calls", "calls by number with any arguments", 1167, 0, Make<Calls>}};

}  // namespace

std::span<const ReaderKind> ScriptReaders() noexcept {
    return kinds;
}

}  // namespace nux
