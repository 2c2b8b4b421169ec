// A small host of nuxStdPartsAX to start from: host.exe FOLDER, an installation's with a closing backslash.
// docs/hosting.md tells how it is compiled, and what each step is for.
#include <initguid.h>  // first: this file defines the identifiers

#include <comdef.h>
#include <msxml2.h>

#include <cstdio>
#include <cstdlib>

#include "Inux3D.h"
#include "nuxStdPartsAX.h"

template <class Interface>
struct HostObject : Interface {  // a global: nobody counts the references on it
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) ||
                           iid == __uuidof(Interface) ||
                           (iid == IID_Inux3DReady && __uuidof(Interface) == IID_Inux3D);  // always ready
        return *object = known ? this : nullptr, known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
        return *id = 1, _wcsicmp(names[0], L"MainWindowHWND") == 0 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
};
struct : HostObject<IDispatch> {  // the host object and the application in one
    _bstr_t catalogs;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* in, VARIANT* value, EXCEPINFO*,
                        UINT*) override {
        *value = id == 9    ? _variant_t(this).Detach()
                 : id == 47 ? _variant_t(catalogs + _bstr_t(in->rgvarg[0].bstrVal) + L"\\").Detach()
                            : _variant_t(HandleToLong(GetConsoleWindow())).Detach();
        return S_OK;
    }
} application;
struct : HostObject<Inux3D> {  // models what wizard pages ask for
    STDMETHODIMP AttachHost(IDispatch*) override { return S_OK; }
    STDMETHODIMP SetCommandFlag(LONG) override { return S_OK; }
    STDMETHODIMP RunDieWizard(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP CreateDieBlock() override { return E_NOTIMPL; }
    STDMETHODIMP GetApplication(IDispatch** object) override { return *object = &application, S_OK; }
    STDMETHODIMP RunSlideWizard() override { return E_NOTIMPL; }
} side3D;
static void Must(HRESULT result) {  // or ends with the words of the component's failure
    if (SUCCEEDED(result))
        return;
    IErrorInfo* info = nullptr;
    GetErrorInfo(0, &info);
    std::exit((std::printf("%ls\n", _com_error(result, info).Description().GetBSTR()), 1));
}
int wmain(int count, wchar_t** arguments) {
    Must(OleInitialize(nullptr));  // until the process ends
    _com_ptr_t<_com_IIID<InuxStdParts, &IID_InuxStdParts>> stdParts;
    _com_ptr_t<_com_IIID<IXMLDOMDocument, &IID_IXMLDOMDocument>> catalogue;
    const _bstr_t folder(count > 1 ? arguments[1] : L"");
    application.catalogs = folder + L"catalogs\\";
    Must(stdParts.CreateInstance(L"Tarnvale.nuxStdParts"));
    Must(stdParts->put_nux3D(&side3D));  // before the two that rely on it
    Must(stdParts->SetExternalDispatch(&application));
    Must(stdParts->SetTRNVPaths(application.catalogs, folder + L"data\\", folder + L"gui\\",
                                folder + L"custom\\"));
    Must(stdParts->GetComponentsDocument(_bstr_t(L"SCREWS"), reinterpret_cast<IDispatch**>(&catalogue)));
    BSTR xml = nullptr;
    Must(catalogue->get_xml(&xml));  // or selectNodes, as pages do
    return std::printf("%ls", _bstr_t(xml, false).GetBSTR()) < 0;
}
