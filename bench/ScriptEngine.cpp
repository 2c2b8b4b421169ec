#include "bench/ScriptEngine.h"

#include <initguid.h>

#include "framework/ComObject.h"
#include "framework/HResult.h"

namespace nux::bench {
namespace {

// Declared by activscp.h, defined in no import library.
DEFINE_GUID(CLSID_ScriptEngine, 0xf414c260, 0x6ac0, 0x11cf, 0xb6, 0xd1, 0x00, 0xaa, 0x00, 0xbb, 0xbb, 0x58);
DEFINE_GUID(IID_Script, 0xbb1a2ae1, 0xa4f9, 0x11cf, 0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64);
DEFINE_GUID(IID_ScriptSite, 0xdb01a1e3, 0xa42b, 0x11cf, 0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64);
DEFINE_GUID(IID_ScriptParse, 0xc7ef7658, 0xe1ee, 0x480e, 0x97, 0xea, 0xd5, 0x2c, 0xb4, 0xd7, 0x6d, 0x17);

class Site : public IActiveScriptSite {
public:
    explicit Site(const std::map<std::wstring, ComPtr<IDispatch>>& objects) : objects_(objects) {}

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
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_ScriptSite || iid == IID_IUnknown ? this : nullptr;
    }

private:
    std::map<std::wstring, ComPtr<IDispatch>> objects_;
};

}  // namespace

ScriptEngine::ScriptEngine(const std::map<std::wstring, ComPtr<IDispatch>>& objects) {
    ThrowIfFailed(CoCreateInstance(CLSID_ScriptEngine, nullptr, CLSCTX_INPROC_SERVER, IID_Script,
                                   engine_.ReceiveVoid()));
    parser_ = engine_.As<IActiveScriptParse>(IID_ScriptParse);
    if (!parser_)
        throw HResultError(E_NOINTERFACE);
    ThrowIfFailed(engine_->SetScriptSite(MakeObject<Site>(objects).Get()));
    ThrowIfFailed(parser_->InitNew());
    for (const auto& object : objects)
        ThrowIfFailed(engine_->AddNamedItem(object.first.c_str(), SCRIPTITEM_ISVISIBLE));
    ThrowIfFailed(engine_->SetScriptState(SCRIPTSTATE_STARTED));
}

ScriptEngine::~ScriptEngine() {
    engine_->Close();
}

void ScriptEngine::Run(const std::wstring& script) {
    ThrowIfFailed(
        parser_->ParseScriptText(script.c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr));
}

}  // namespace nux::bench
