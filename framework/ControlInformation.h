#pragma once

#include <windows.h>

#include <objsafe.h>
#include <ocidl.h>

#include "framework/ControlState.h"
#include "framework/Implements.h"

namespace nux {

/// What the control tells about itself.
class ControlInformation
    : public virtual ControlState,
      public Implements<ISpecifyPropertyPages, AlsoAs<IProvideClassInfo2, IProvideClassInfo>, IObjectSafety> {
public:
    /// There are no property pages: an empty list.
    STDMETHODIMP GetPages(CAUUID* pages) override;
    STDMETHODIMP GetClassInfo(ITypeInfo** typeInfo) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;
    /// What can be set is what SupportedSafety tells.
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;

protected:
    /// The options that can be set where the control is: both, unless a class knows better.
    virtual DWORD SupportedSafety() const {
        return INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;
    }

private:
    DWORD safety_ = 0;
};

}  // namespace nux
