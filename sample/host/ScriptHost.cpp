#include "host/ScriptHost.h"

#include <cstdint>

namespace nux::host {
namespace {

std::wstring TextOf(BSTR text) {
    return std::wstring(text ? text : L"", SysStringLen(text));
}

void LeaveDescription(const std::wstring& text) noexcept {
    ComPtr<ICreateErrorInfo> description;
    if (FAILED(CreateErrorInfo(description.Receive())))
        return;
    description->SetGUID(IdOf<ISampleHost>());
    description->SetSource(const_cast<LPOLESTR>(L"Tarnvale.SampleHost"));
    description->SetDescription(const_cast<LPOLESTR>(text.c_str()));
    SetErrorInfo(0, description.As<IErrorInfo>().Get());
}

Call Known(BSTR name) {
    const std::wstring text = TextOf(name);
    if (const auto call = CallNamed(text))
        return *call;
    throw HResultError(E_INVALIDARG, L"There is no call of the name \"" + text + L"\".");
}

/// What a call can answer in the place of the truth.
enum class Answers { Nothing, Object, AnyValue };

Answers AnswersOf(Call call) noexcept {
    switch (call) {
        case Call::GetApplication:
        case Call::StdParts:
        case Call::Document:
        case Call::Script:
            return Answers::Object;
        case Call::MainObject:
        case Call::CatalogFolder:
        case Call::MainWindowHWND:
            return Answers::AnyValue;
        default:
            return Answers::Nothing;
    }
}

ULONG ReferencesOn(IUnknown* object) noexcept {
    object->AddRef();
    return object->Release();
}

}  // namespace

template <class Body>
HRESULT ScriptHost::Described(Body&& body) noexcept {
    return Guarded([&]() -> HRESULT {
        try {
            body();
            return S_OK;
        } catch (const HResultError& error) {
            LeaveDescription(error.Words());
            return error.Code();
        }
    });
}

STDMETHODIMP ScriptHost::get_StdParts(IDispatch** object) {
    return Give(ComPtr<InuxStdParts>(objects_.StdParts()), object);
}

STDMETHODIMP ScriptHost::Start(BSTR catalogPath, BSTR dataPath, BSTR guiPath, BSTR customDimsPath,
                               IDispatch** component) {
    if (!component)
        return E_POINTER;
    *component = nullptr;
    return Described([&] {
        try {
            objects_.Create();
            objects_.Start({TextOf(catalogPath), TextOf(dataPath), TextOf(guiPath), TextOf(customDimsPath)},
                           objects_.browser.Get());
        } catch (const HResultError& failure) {
            throw HResultError(failure.Code(), failure.Words() + L" has failed.");
        }
        get_StdParts(component);
    });
}

STDMETHODIMP ScriptHost::Stop() {
    objects_.Stop();
    return S_OK;
}

STDMETHODIMP ScriptHost::get_Calls(BSTR* lines) {
    if (!lines)
        return E_POINTER;
    return Described([&] {
        std::wstring text;
        for (const CallRecord::Line& line : objects_.Record().Lines())
            text += (text.empty() ? L"" : L"\n") + host::TextOf(line);
        *lines = Bstr(text).Detach();
    });
}

STDMETHODIMP ScriptHost::ClearCalls() {
    objects_.Record().ClearLines();
    return S_OK;
}

STDMETHODIMP ScriptHost::Fail(BSTR call, double code, LONG nth) {
    return Described([&] {
        if (nth < 0)
            throw HResultError(E_INVALIDARG, L"Calls are counted from 1; 0 stands for every call.");
        // JScript knows codes as numbers above 2^31, VBScript as negative ones.
        objects_.Record().Fail(Known(call), static_cast<HRESULT>(static_cast<std::int64_t>(code)), nth);
    });
}

STDMETHODIMP ScriptHost::Answer(BSTR call, VARIANT value) {
    return Described([&] {
        const Call known = Known(call);
        Variant answer;
        ThrowIfFailed(answer.SetCopy(value));
        const Answers answers = AnswersOf(known);
        if (answers == Answers::Nothing)
            throw HResultError(E_INVALIDARG, std::wstring(NameOf(known)) + L" answers no value.");
        if (answers == Answers::Object && answer.Type() == VT_NULL)
            answer.SetObject(nullptr);  // how JScript says Nothing
        if (answers == Answers::Object && answer.Type() != VT_DISPATCH)
            throw HResultError(E_INVALIDARG, std::wstring(NameOf(known)) + L" answers an object or Nothing.");
        objects_.Record().Answer(known, std::move(answer));
    });
}

STDMETHODIMP ScriptHost::Restore() {
    objects_.Record().Restore();
    return S_OK;
}

STDMETHODIMP ScriptHost::StatusBarLacks(BSTR call) {
    return Described([&] {
        const Call known = Known(call);
        if (known < Call::SetMessage || known > Call::DestroyProgressBar)
            throw HResultError(E_INVALIDARG,
                               std::wstring(NameOf(known)) + L" is no member of the status bar.");
        objects_.Record().Hide(known);
    });
}

STDMETHODIMP ScriptHost::SetCatalogFolder(BSTR catalogId, BSTR folder) {
    return Described([&] { objects_.application->SetFolder(TextOf(catalogId), TextOf(folder)); });
}

STDMETHODIMP ScriptHost::get_WindowHandle(LONG* window) {
    if (!window)
        return E_POINTER;
    *window = HandleToLong(objects_.external->MainWindow());
    return S_OK;
}

STDMETHODIMP ScriptHost::put_WindowHandle(LONG window) {
    objects_.external->SetMainWindow(static_cast<HWND>(LongToHandle(window)));
    return S_OK;
}

STDMETHODIMP ScriptHost::EditComponent(BSTR catalogId, BSTR componentId, IDispatch** edited) {
    if (!edited)
        return E_POINTER;
    *edited = nullptr;
    return Described([&] {
        objects_.edited = objects_.Edit(TextOf(catalogId), TextOf(componentId));
        Give(objects_.edited, edited);
    });
}

STDMETHODIMP ScriptHost::put_Page(IDispatch* script) {
    objects_.browser->script = script;
    return S_OK;
}

STDMETHODIMP ScriptHost::put_BrowserBusy(VARIANT_BOOL busy) {
    objects_.browser->busy = busy != VARIANT_FALSE;
    return S_OK;
}

STDMETHODIMP ScriptHost::put_BrowserDead(VARIANT_BOOL dead) {
    objects_.browser->dead = dead != VARIANT_FALSE;
    return S_OK;
}

STDMETHODIMP ScriptHost::References(BSTR object, LONG* count) {
    if (!count)
        return E_POINTER;
    *count = 0;
    return Described([&] {
        // What the host's own objects hold of each other is not counted.
        struct Owned {
            const wchar_t* name;
            IDispatch* object;
            ULONG own;
        };
        const Owned all[]{{L"Side3D", static_cast<Inux3D*>(objects_.side3D.Get()), 1},
                          {L"Application", static_cast<IDispatch*>(objects_.application.Get()), 2},
                          {L"ExternalDispatch", static_cast<IDispatch*>(objects_.external.Get()), 2},
                          {L"StatusBar", static_cast<IDispatch*>(objects_.statusBar.Get()), 1},
                          {L"EditedComponent", objects_.edited.Get(), 1},
                          {L"Browser", objects_.browser.Get(), 1}};
        const std::wstring name = TextOf(object);
        for (const Owned& owned : all) {
            if (name != owned.name)
                continue;
            if (owned.object)
                *count = static_cast<LONG>(ReferencesOn(owned.object) - owned.own);
            return;
        }
        throw HResultError(E_INVALIDARG, L"The host has no object of the name \"" + name + L"\".");
    });
}

}  // namespace nux::host
