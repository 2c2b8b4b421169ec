#pragma once

#include <string>

#include "Inux3D.h"
#include "framework/Text.h"
#include "host/HostObject.h"

namespace nux::host {

/// A component of the model that is being edited.
class EditedComponent : public HostDispatch<InuxEditedComponent> {
public:
    EditedComponent(Record record, std::wstring catalogId, std::wstring componentId)
        : HostDispatch(std::move(record)),
          catalogId_(std::move(catalogId)),
          componentId_(std::move(componentId)) {}
    virtual ~EditedComponent() = default;

    STDMETHODIMP Close() override { return Noted(Call::Close); }
    /// E_INVALIDARG for a name other than "Catalog" and "ID".
    STDMETHODIMP GetValue(BSTR name, BSTR* value) override {
        if (!value)
            return E_POINTER;
        *value = nullptr;
        return Guarded([&] {
            const std::wstring asked = Argument(name);
            return record_->Run(Call::GetValue, asked, [&]() -> HRESULT {
                if (asked != L"Catalog" && asked != L"ID")
                    return E_INVALIDARG;
                *value = Bstr(asked == L"ID" ? componentId_ : catalogId_).Detach();
                return S_OK;
            });
        });
    }

private:
    std::wstring catalogId_;
    std::wstring componentId_;
};

}  // namespace nux::host
