#pragma once

#include <windows.h>

#include <objsafe.h>
#include <ocidl.h>

#include "control/ControlState.h"
#include "framework/Implements.h"

namespace nux {

/// What the control tells about itself.
class ControlInformation : public virtual ControlState,
                           public Implements<ISpecifyPropertyPages, ISupportErrorInfo,
                                             AlsoAs<IProvideClassInfo2, IProvideClassInfo>, IObjectSafety> {
public:
    /// There are no property pages: an empty list.
    STDMETHODIMP GetPages(CAUUID* pages) override;
    /// S_FALSE: failures are told by HRESULT alone.
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return S_FALSE; }
    STDMETHODIMP GetClassInfo(ITypeInfo** typeInfo) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;

private:
    DWORD safety_ = 0;
};

}  // namespace nux
