#pragma once

#include <windows.h>

#include <ocidl.h>

#include "framework/ControlState.h"
#include "framework/Implements.h"

namespace nux {

/// Saving and loading: the only state is the extent.
class ControlPersistence : public virtual ControlState,
                           public Implements<AlsoAs<IPersistStreamInit, IPersist>, IPersistStorage> {
public:
    STDMETHODIMP GetClassID(CLSID* classId) override;
    STDMETHODIMP IsDirty() override { return dirty_ ? S_OK : S_FALSE; }

    /// E_FAIL for a stream that holds no state of this control; the state then stays.
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew() override;

    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override { return S_OK; }
};

}  // namespace nux
