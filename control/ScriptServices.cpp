#include <cwchar>
#include <vector>

#include "control/nuxStdParts.h"
#include "environment/DiagnosticLog.h"
#include "environment/InstallationFiles.h"
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

/// An element of a script's array, which is found by its index as name.
HRESULT ReadElement(IDispatch* array, long index, Variant* element) noexcept {
    wchar_t name[12];
    std::swprintf(name, sizeof name / sizeof *name, L"%ld", index);
    return GetDispatchProperty(array, name, element);
}

/// The elements as an array of VARIANT from index 0, empty without memory. They are moved: `elements` is left
/// empty.
UniqueSafeArray MakeArray(std::vector<Variant>& elements) noexcept {
    SAFEARRAYBOUND bound{static_cast<ULONG>(elements.size()), 0};
    UniqueSafeArray array(SafeArrayCreate(VT_VARIANT, 1, &bound));
    VARIANT* targets = nullptr;
    if (!array || FAILED(SafeArrayAccessData(array.Get(), reinterpret_cast<void**>(&targets))))
        return {};
    for (Variant& element : elements)
        *targets++ = element.Detach();
    SafeArrayUnaccessData(array.Get());
    return array;
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
            SetLogFile(DefaultLogPath(m_GUIPath));
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
    return m_GlobalData.CopyTo(pVal);
}

STDMETHODIMP nuxStdParts::put_GlobalData(VARIANT newVal) {
    HRESULT copied = m_GlobalData.SetCopy(newVal);
    if (copied == E_INVALIDARG)
        copied = DISP_E_BADVARTYPE;
    if (FAILED(copied))
        m_GlobalData.SetError(copied);
    return copied;
}

STDMETHODIMP nuxStdParts::JSArray2SafeArray(IDispatch* JSArray, VARIANT* SafeArray) {
    if (!JSArray || !SafeArray)
        return E_INVALIDARG;
    VariantClear(SafeArray);
    return Guarded([&]() -> HRESULT {
        Variant length;
        if (FAILED(GetDispatchProperty(JSArray, L"length", &length)) || length.Type() != VT_I4)
            return E_INVALIDARG;
        // The length is the script's word: memory is taken as elements are found.
        std::vector<Variant> elements;
        for (long index = 0; index < length.Number(); ++index) {
            if (FAILED(ReadElement(JSArray, index, &elements.emplace_back())))
                return E_FAIL;
        }
        UniqueSafeArray array = length.Number() < 0 ? UniqueSafeArray() : MakeArray(elements);
        if (!array)
            return E_FAIL;
        SafeArray->vt = VT_ARRAY | VT_VARIANT;
        SafeArray->parray = array.Detach();
        return S_OK;
    });
}

STDMETHODIMP nuxStdParts::RunDieWizard(long Mode) {
    const ComPtr<Inux3D> host = m_3D.As<Inux3D>();
    return host ? host->RunDieWizard(Mode) : E_FAIL;
}

STDMETHODIMP nuxStdParts::CreateDieBlock() {
    const ComPtr<Inux3D> host = m_3D.As<Inux3D>();
    return host ? host->CreateDieBlock() : E_FAIL;
}

STDMETHODIMP nuxStdParts::RunSlideWizard() {
    if (!m_3D)
        return E_FAIL;
    // A foreign 3D side and a wizard that fails are both successes here: pages do not handle them.
    if (const ComPtr<Inux3D> host = m_3D.As<Inux3D>())
        host->RunSlideWizard();
    return S_OK;
}

STDMETHODIMP nuxStdParts::get_LifterWizard(IDispatch** pVal) {
    if (!pVal)
        return E_INVALIDARG;
    *pVal = nullptr;
    const ComPtr<InuxStdParts> self(this);  // making it may call back
    if (!m_LifterWizard) {
        ComPtr<IDispatch> wizard;
        if (FAILED(CreateObject(CLSID_nuxLifterWizard, wizard, CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER)))
            return S_FALSE;
        if (!m_LifterWizard)
            m_LifterWizard = std::move(wizard);
    }
    m_LifterWizard.CopyTo(pVal);
    return S_OK;
}

}  // namespace nux
