#include "tests/control/ScriptEngine.h"

#include <gtest/gtest.h>

#include "framework/ComObject.h"

namespace nux {
namespace {

constexpr CLSID classOfJScript{0xf414c260, 0x6ac0, 0x11cf, {0xb6, 0xd1, 0x00, 0xaa, 0x00, 0xbb, 0xbb, 0x58}};
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
    STDMETHODIMP GetLCID(LCID*) override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR, DWORD, IUnknown**, ITypeInfo**) override {
        return TYPE_E_ELEMENTNOTFOUND;
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
};

}  // namespace

ScriptEngine::ScriptEngine() {
    EXPECT_EQ(S_OK, CoCreateInstance(classOfJScript, nullptr, CLSCTX_INPROC_SERVER, idOfActiveScript,
                                     engine_.ReceiveVoid()));
    parser_ = engine_.As<IActiveScriptParse>(idOfScriptParse);
    EXPECT_TRUE(parser_);
    EXPECT_EQ(S_OK, parser_->InitNew());
    EXPECT_EQ(S_OK, engine_->SetScriptSite(MakeObject<ScriptSite>().Get()));
    EXPECT_EQ(S_OK, engine_->SetScriptState(SCRIPTSTATE_STARTED));
}

ScriptEngine::~ScriptEngine() {
    engine_->Close();
}

HRESULT ScriptEngine::Evaluate(const std::wstring& expression, Variant& value) {
    return parser_->ParseScriptText(expression.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                    SCRIPTTEXT_ISEXPRESSION, value.Receive(), nullptr);
}

ComPtr<IDispatch> ScriptEngine::Object(const std::wstring& expression) {
    Variant value;
    EXPECT_EQ(S_OK, Evaluate(expression, value));
    EXPECT_EQ(VT_DISPATCH, value.vt);
    return ComPtr<IDispatch>(value.vt == VT_DISPATCH ? value.pdispVal : nullptr);
}

}  // namespace nux
