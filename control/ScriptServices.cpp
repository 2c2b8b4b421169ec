#include <cwchar>
#include <limits>

#include "control/nuxStdParts.h"
#include "environment/DiagnosticLog.h"
#include "framework/DispatchClient.h"
#include "framework/Handles.h"

namespace nux {
namespace {

HRESULT GetText(const std::string& text, BSTR* pVal) noexcept {
    if (!pVal)
        return E_INVALIDARG;
    return Guarded([&] {
        ReplaceString(pVal, text);
        return S_OK;
    });
}

HRESULT PutText(std::string& text, BSTR newVal) noexcept {
    return Guarded([&] {
        text = Narrow(newVal);
        return S_OK;
    });
}

struct ArrayTraits {
    using Type = SAFEARRAY*;
    static Type Empty() noexcept { return nullptr; }
    static void Close(Type array) noexcept { SafeArrayDestroy(array); }
};
using UniqueArray = UniqueHandle<ArrayTraits>;

/// Copies a value. A script may hand over a reference to its variable; what is kept must not point there.
HRESULT CopyValue(VARIANT& target, VARIANT& source) noexcept {
    const HRESULT copied = VariantCopyInd(&target, &source);
    return copied == E_INVALIDARG ? DISP_E_BADVARTYPE : copied;
}

/// Not every platform refuses an array that is longer than its memory can be: some make it too short.
constexpr long longestArray = std::numeric_limits<long>::max() / long{sizeof(VARIANT)};

/// Copies the elements of a script's array, found by their index as name. Fails at the first that is missing.
HRESULT CopyElements(IDispatch* source, SAFEARRAY* target, long count) noexcept {
    VARIANT* elements = nullptr;
    const HRESULT locked = SafeArrayAccessData(target, reinterpret_cast<void**>(&elements));
    if (FAILED(locked))
        return locked;
    HRESULT result = S_OK;
    for (long index = 0; index < count && SUCCEEDED(result); ++index) {
        wchar_t name[12];
        std::swprintf(name, sizeof name / sizeof *name, L"%ld", index);
        Variant element;
        result = GetDispatchProperty(source, name, &element);
        if (SUCCEEDED(result))
            result = VariantCopy(&elements[index], &element);
    }
    SafeArrayUnaccessData(target);
    return result;
}

}  // namespace

STDMETHODIMP nuxStdParts::WriteDebugString(BSTR DebugString) {
    return Guarded([&] {
        WriteStampedLogEntry(Narrow(DebugString));
        return S_OK;
    });
}

STDMETHODIMP nuxStdParts::get_DebugSessionStatus(long* pVal) {
    if (!pVal)
        return E_INVALIDARG;
    *pVal = m_DebugSessionStatus;
    return S_OK;
}

STDMETHODIMP nuxStdParts::put_DebugSessionStatus(long newVal) {
    return Guarded([&] {
        if (newVal != 0 && !IsLoggingEnabled())
            SetLogFile(m_GUIPath + "../../../../brask_log");
        m_DebugSessionStatus = newVal != 0 ? 1 : 0;
        return S_OK;
    });
}

STDMETHODIMP nuxStdParts::put_DebugSessionStatusAndLogFile(BSTR newVal) {
    return Guarded([&] {
        const std::string path = Narrow(newVal);
        if (!path.empty())
            SetLogFile(path);
        m_DebugSessionStatus = path.empty() ? 0 : 1;
        return S_OK;
    });
}

STDMETHODIMP nuxStdParts::SaveFile(BSTR FileName, BSTR Data) {
    return Guarded([&]() -> HRESULT {
        const std::string path = Narrow(FileName);
        const std::string text = Narrow(Data);
        const UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                          CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file)
            return E_FAIL;
        DWORD written = 0;
        if (!WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) ||
            written != text.size())
            return E_FAIL;
        return S_OK;
    });
}

STDMETHODIMP nuxStdParts::get_UserData(BSTR* pVal) {
    return GetText(m_UserData, pVal);
}

STDMETHODIMP nuxStdParts::put_UserData(BSTR newVal) {
    return PutText(m_UserData, newVal);
}

STDMETHODIMP nuxStdParts::get_LastRVCCmdResult(BSTR* pVal) {
    return GetText(m_LastRVCCmdResult, pVal);
}

STDMETHODIMP nuxStdParts::put_LastRVCCmdResult(BSTR newVal) {
    return PutText(m_LastRVCCmdResult, newVal);
}

STDMETHODIMP nuxStdParts::get_GlobalData(VARIANT* pVal) {
    if (!pVal)
        return E_INVALIDARG;
    return VariantCopy(pVal, &m_GlobalData);
}

STDMETHODIMP nuxStdParts::put_GlobalData(VARIANT newVal) {
    Variant value;
    const HRESULT copied = CopyValue(value, newVal);
    if (FAILED(copied)) {
        value.vt = VT_ERROR;
        value.scode = copied;
    }
    m_GlobalData.Swap(value);  // the old value goes last: its release may call back
    return copied;
}

STDMETHODIMP nuxStdParts::JSArray2SafeArray(IDispatch* JSArray, VARIANT* SafeArray) {
    if (!JSArray || !SafeArray)
        return E_INVALIDARG;
    VariantClear(SafeArray);
    Variant length;
    if (FAILED(GetDispatchProperty(JSArray, L"length", &length)) || length.vt != VT_I4)
        return E_INVALIDARG;
    if (length.lVal < 0 || length.lVal > longestArray)
        return E_FAIL;
    SAFEARRAYBOUND bound{static_cast<ULONG>(length.lVal), 0};
    UniqueArray array(SafeArrayCreate(VT_VARIANT, 1, &bound));
    if (!array || FAILED(CopyElements(JSArray, array.Get(), length.lVal)))
        return E_FAIL;
    SafeArray->vt = VT_ARRAY | VT_VARIANT;
    SafeArray->parray = array.Detach();
    return S_OK;
}

STDMETHODIMP nuxStdParts::RunDieWizard(long Mode) {
    const ComPtr<Inux3D> host = m_3D.As<Inux3D>(IID_Inux3D);
    return host ? host->RunDieWizard(Mode) : E_FAIL;
}

STDMETHODIMP nuxStdParts::CreateDieBlock() {
    const ComPtr<Inux3D> host = m_3D.As<Inux3D>(IID_Inux3D);
    return host ? host->CreateDieBlock() : E_FAIL;
}

STDMETHODIMP nuxStdParts::RunSlideWizard() {
    if (!m_3D)
        return E_FAIL;
    // A foreign 3D side and a wizard that fails are both successes here: pages do not handle them.
    if (const ComPtr<Inux3D> host = m_3D.As<Inux3D>(IID_Inux3D))
        host->RunSlideWizard();
    return S_OK;
}

STDMETHODIMP nuxStdParts::get_LifterWizard(IDispatch** pVal) {
    if (!pVal)
        return E_INVALIDARG;
    *pVal = nullptr;
    if (!m_LifterWizard) {
        ComPtr<IDispatch> wizard;
        if (FAILED(CoCreateInstance(CLSID_nuxLifterWizard, nullptr,
                                    CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER, IID_IDispatch,
                                    wizard.ReceiveVoid())))
            return S_FALSE;
        if (!m_LifterWizard)  // making it may have called back
            m_LifterWizard = std::move(wizard);
    }
    m_LifterWizard.CopyTo(pVal);
    return S_OK;
}

}  // namespace nux
