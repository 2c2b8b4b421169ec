#include "driver/ScriptEngine.h"

#include <utility>

#include "framework/ComObject.h"
#include "framework/HResult.h"

namespace nux {
namespace {

constexpr IID idOfActiveScript{0xbb1a2ae1, 0xa4f9, 0x11cf, {0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64}};
constexpr IID idOfScriptSite{0xdb01a1e3, 0xa42b, 0x11cf, {0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64}};
#ifdef _WIN64
constexpr IID idOfScriptParse{0xc7ef7658, 0xe1ee, 0x480e, {0x97, 0xea, 0xd5, 0x2c, 0xb4, 0xd7, 0x6d, 0x17}};
#else
constexpr IID idOfScriptParse{0xbb1a2ae2, 0xa4f9, 0x11cf, {0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64}};
#endif

/// The least that an engine needs of its host.
class ScriptSite : public IActiveScriptSite {
public:
    explicit ScriptSite(ScriptEngine::Objects objects) : objects_(std::move(objects)) {}

    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** object, ITypeInfo** typeInfo) override {
        const auto found = objects_.find(name);
        if (found == objects_.end())
            return TYPE_E_ELEMENTNOTFOUND;
        if (mask & SCRIPTINFO_IUNKNOWN)
            found->second.CopyTo(object);
        if (mask & SCRIPTINFO_ITYPEINFO)
            *typeInfo = nullptr;
        return S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError*) override { return S_OK; }
    STDMETHODIMP OnEnterScript() override { return S_OK; }
    STDMETHODIMP OnLeaveScript() override { return S_OK; }

protected:
    virtual ~ScriptSite() = default;
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IUnknown || iid == idOfScriptSite ? static_cast<IActiveScriptSite*>(this) : nullptr;
    }

private:
    ScriptEngine::Objects objects_;
};

}  // namespace

ScriptEngine::ScriptEngine(const wchar_t* progId, Objects objects) {
    CLSID classId;
    ThrowIfFailed(CLSIDFromProgID(progId, &classId));
    ThrowIfFailed(
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, idOfActiveScript, engine_.ReceiveVoid()));
    parser_ = engine_.As<IActiveScriptParse>(idOfScriptParse);
    if (!parser_)
        throw HResultError(E_NOINTERFACE);
    ThrowIfFailed(parser_->InitNew());
    ThrowIfFailed(engine_->SetScriptSite(MakeObject<ScriptSite>(objects).Get()));
    for (const auto& object : objects)
        ThrowIfFailed(engine_->AddNamedItem(object.first.c_str(), SCRIPTITEM_ISVISIBLE));
    ThrowIfFailed(engine_->SetScriptState(SCRIPTSTATE_STARTED));
}

ScriptEngine::~ScriptEngine() {
    engine_->Close();
}

HRESULT ScriptEngine::Run(const std::wstring& statements) {
    return parser_->ParseScriptText(statements.c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr);
}

HRESULT ScriptEngine::Evaluate(const std::wstring& expression, Variant& value) {
    return parser_->ParseScriptText(expression.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                    SCRIPTTEXT_ISEXPRESSION, value.Receive(), nullptr);
}

ComPtr<IDispatch> ScriptEngine::Object(const std::wstring& expression) {
    Variant value;
    ThrowIfFailed(Evaluate(expression, value));
    if (value.vt != VT_DISPATCH)
        throw HResultError(DISP_E_TYPEMISMATCH);
    return ComPtr<IDispatch>(value.pdispVal);
}

}  // namespace nux
