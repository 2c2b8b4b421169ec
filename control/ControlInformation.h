#pragma once

#include <windows.h>

#include <objsafe.h>
#include <ocidl.h>

#include "control/ControlState.h"
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
    /// Safe for scripts and data, but in a document that is no file of the installation: there nothing is.
    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) override;
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) override;

private:
    /// The options that can be set where the control is.
    DWORD SupportedSafety() const;

    DWORD safety_ = 0;
};

}  // namespace nux
