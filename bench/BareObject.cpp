#include "bench/BareObject.h"

#include <initguid.h>

#include "BareObject_h.h"
#include "framework/ComObject.h"
#include "framework/HResult.h"

namespace nux::bench {
namespace {

class Members : public IBareObject {
public:
    STDMETHODIMP get_Initialised(long* pVal) override {
        *pVal = 1;
        return S_OK;
    }
    STDMETHODIMP get_UserData(BSTR* pVal) override {
        *pVal = SysAllocString(userDataText);
        return S_OK;
    }
    STDMETHODIMP AssertFail() override { return S_OK; }
    STDMETHODIMP GetLocalizedString(BSTR, BSTR MsgID, BSTR* MsgStr) override {
        *MsgStr = SysAllocStringLen(MsgID, SysStringLen(MsgID));
        return S_OK;
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** typeInfo) override {
        *typeInfo = nullptr;
        return DISP_E_BADINDEX;
    }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IBareObject || iid == IID_IDispatch || iid == IID_IUnknown ? this : nullptr;
    }
};

class TypeLibraryObject : public Members {
public:
    TypeLibraryObject() {
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        ComPtr<ITypeLib> library;
        ThrowIfFailed(LoadTypeLibEx(path, REGKIND_NONE, library.Receive()));
        ThrowIfFailed(library->GetTypeInfoOfGuid(IID_IBareObject, typeInfo_.Receive()));
    }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        return typeInfo_->GetIDsOfNames(names, count, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argumentError) override {
        return typeInfo_->Invoke(static_cast<IBareObject*>(this), id, flags, parameters, result, exception,
                                 argumentError);
    }

private:
    ComPtr<ITypeInfo> typeInfo_;
};

class HandWrittenObject : public Members {
public:
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        constexpr const wchar_t* members[] = {L"Initialised", L"UserData", L"AssertFail",
                                              L"GetLocalizedString"};
        for (DISPID id = 1; id <= 4; ++id) {
            if (_wcsicmp(names[0], members[id - 1]) == 0) {
                *ids = id;
                return S_OK;
            }
        }
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        VARIANT unused;
        VARIANT* answer = result ? result : &unused;
        switch (id) {
            case 1:
                answer->vt = VT_I4;
                return get_Initialised(&answer->lVal);
            case 2:
                answer->vt = VT_BSTR;
                return get_UserData(&answer->bstrVal);
            case 3:
                answer->vt = VT_EMPTY;
                return AssertFail();
            case 4:
                if (parameters->cArgs != 2)
                    return DISP_E_BADPARAMCOUNT;
                answer->vt = VT_BSTR;
                return GetLocalizedString(parameters->rgvarg[1].bstrVal, parameters->rgvarg[0].bstrVal,
                                          &answer->bstrVal);
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }
};

template <class Class>
ComPtr<IDispatch> Make() {
    return ComPtr<IDispatch>(MakeObject<Class>().Get());
}

}  // namespace

ComPtr<IDispatch> MakeTypeLibraryObject() {
    return Make<TypeLibraryObject>();
}

ComPtr<IDispatch> MakeHandWrittenObject() {
    return Make<HandWrittenObject>();
}

}  // namespace nux::bench
