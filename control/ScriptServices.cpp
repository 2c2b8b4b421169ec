#include <cwchar>
#include <vector>

#include "control/nuxStdParts.h"
#include "environment/DiagnosticLog.h"
#include "environment/InstallationFiles.h"
#include "framework/DispatchClient.h"
#include "framework/Handles.h"

namespace nux {
namespace {

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

/// Raises E_FAIL with the system's last error.
[[noreturn]] void FailToWrite(const std::string& path) {
    const DWORD error = GetLastError();
    throw HResultError(E_FAIL, L"The file " + Widen(path) + L" can't be written: " + SystemMessage(error));
}

/// Raises the failure of a wizard of the 3D side.
void ThrowIfWizardFailed(HRESULT result, const ComPtr<Inux3D>& host, const wchar_t* wizard) {
    if (SUCCEEDED(result))
        return;
    const std::wstring said = TakeErrorDescription(host.Get(), IdOf<Inux3D>());
    throw HResultError(result, std::wstring(L"The 3D side failed in ") + wizard + L"." +
                                   (said.empty() ? said : L" It says: " + said));
}

}  // namespace

STDMETHODIMP nuxStdParts::WriteDebugString(BSTR DebugString) {
    return Operation([&] { WriteStampedLogEntry(Narrow(DebugString)); });
}

STDMETHODIMP nuxStdParts::get_DebugSessionStatus(long* pVal) {
    return Operation([&] {
        Require(pVal, L"pVal");
        *pVal = m_DebugSessionStatus;
    });
}

STDMETHODIMP nuxStdParts::put_DebugSessionStatus(long newVal) {
    return Operation([&] {
        if (newVal != 0 && !IsLoggingEnabled())
            SetLogFile(DefaultLogPath(m_GUIPath));
        m_DebugSessionStatus = newVal != 0 ? 1 : 0;
    });
}

STDMETHODIMP nuxStdParts::put_DebugSessionStatusAndLogFile(BSTR newVal) {
    return Operation([&] {
        const std::string path = Narrow(newVal);
        if (!path.empty())
            SetLogFile(path);
        m_DebugSessionStatus = path.empty() ? 0 : 1;
    });
}

STDMETHODIMP nuxStdParts::SaveFile(BSTR FileName, BSTR Data) {
    return Operation([&] {
        const std::string path = Narrow(FileName);
        const std::string text = Narrow(Data);
        const UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                          CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file)
            FailToWrite(path);
        DWORD written = 0;
        if (!WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) ||
            written != text.size())
            FailToWrite(path);
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

HRESULT nuxStdParts::GetText(const std::string& text, BSTR* pVal) noexcept {
    return Operation([&] {
        Require(pVal, L"pVal");
        ReplaceString(pVal, text);
    });
}

HRESULT nuxStdParts::PutText(std::string& text, BSTR newVal) noexcept {
    return Operation([&] { text = Narrow(newVal); });
}

STDMETHODIMP nuxStdParts::get_GlobalData(VARIANT* pVal) {
    return Operation([&] {
        Require(pVal, L"pVal");
        if (const HRESULT copied = m_GlobalData.CopyTo(pVal); FAILED(copied))
            throw HResultError(copied, L"GlobalData can't be copied.");
    });
}

STDMETHODIMP nuxStdParts::put_GlobalData(VARIANT newVal) {
    return Operation([&] {
        HRESULT copied = m_GlobalData.SetCopy(newVal);
        if (copied == E_INVALIDARG)
            copied = DISP_E_BADVARTYPE;
        if (FAILED(copied)) {
            m_GlobalData.SetError(copied);
            throw HResultError(copied, L"GlobalData takes no value that can't be copied.");
        }
    });
}

STDMETHODIMP nuxStdParts::JSArray2SafeArray(IDispatch* JSArray, VARIANT* SafeArray) {
    return Operation([&] {
        Require(JSArray, L"JSArray");
        Require(SafeArray, L"SafeArray");
        VariantClear(SafeArray);
        Variant length;
        if (FAILED(GetDispatchProperty(JSArray, L"length", &length)) || length.Type() != VT_I4)
            throw HResultError(E_INVALIDARG, L"JSArray has no whole number as its length.");
        if (length.Number() < 0)
            throw HResultError(E_FAIL, L"JSArray has a length below 0.");
        // The length is the script's word: memory is taken as elements are found.
        std::vector<Variant> elements;
        for (long index = 0; index < length.Number(); ++index) {
            if (FAILED(ReadElement(JSArray, index, &elements.emplace_back())))
                throw HResultError(E_FAIL, L"JSArray lacks the element " + std::to_wstring(index) +
                                               L", or it can't be read.");
        }
        UniqueSafeArray array = MakeArray(elements);
        if (!array)
            throw HResultError(E_FAIL, L"There is no memory for the array.");
        SafeArray->vt = VT_ARRAY | VT_VARIANT;
        SafeArray->parray = array.Detach();
    });
}

ComPtr<Inux3D> nuxStdParts::Host3DOrFail() const {
    if (!m_3D)
        throw HResultError(E_FAIL, L"nux3D has to be set before.");
    ComPtr<Inux3D> host = m_3D.As<Inux3D>();
    if (!host)
        throw HResultError(E_FAIL, L"The object in nux3D is no 3D side: it does not offer Inux3D.");
    return host;
}

STDMETHODIMP nuxStdParts::RunDieWizard(long Mode) {
    return Operation([&] {
        const ComPtr<Inux3D> host = Host3DOrFail();
        const HRESULT result = host->RunDieWizard(Mode);
        ThrowIfWizardFailed(result, host, L"RunDieWizard");
        return result;
    });
}

STDMETHODIMP nuxStdParts::CreateDieBlock() {
    return Operation([&] {
        const ComPtr<Inux3D> host = Host3DOrFail();
        const HRESULT result = host->CreateDieBlock();
        ThrowIfWizardFailed(result, host, L"CreateDieBlock");
        return result;
    });
}

STDMETHODIMP nuxStdParts::RunSlideWizard() {
    return Operation([&] {
        if (!m_3D)
            throw HResultError(E_FAIL, L"nux3D has to be set before.");
        // A foreign 3D side and a wizard that fails are both successes here: pages do not handle them.
        if (const ComPtr<Inux3D> host = m_3D.As<Inux3D>())
            host->RunSlideWizard();
    });
}

STDMETHODIMP nuxStdParts::get_LifterWizard(IDispatch** pVal) {
    return Operation([&]() -> HRESULT {
        Require(pVal, L"pVal");
        *pVal = nullptr;
        if (!m_LifterWizard) {
            ComPtr<IDispatch> wizard;
            if (FAILED(CreateObject(CLSID_nuxLifterWizard, wizard,
                                    CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER)))
                return S_FALSE;
            if (!m_LifterWizard)  // making it may have called back
                m_LifterWizard = std::move(wizard);
        }
        m_LifterWizard.CopyTo(pVal);
        return S_OK;
    });
}

}  // namespace nux
