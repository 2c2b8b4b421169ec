#pragma once

#include <map>
#include <string>

#include "SampleHost.h"
#include "framework/ComPtr.h"
#include "host/HostObject.h"

namespace nux::host {

/// The application object. It alone knows where catalogues lie.
class Application : public HostDispatch<ISampleApplication> {
public:
    /// @param mainObject  what the main window's handle is asked of
    Application(Record record, ComPtr<IDispatch> mainObject)
        : HostDispatch(std::move(record)), mainObject_(std::move(mainObject)) {}
    virtual ~Application() = default;

    /// @param catalogId  empty for the folder of all catalogues
    /// @param folder     with a closing separator
    void SetFolder(const std::wstring& catalogId, const std::wstring& folder) {
        folders_[catalogId] = folder;
    }

    STDMETHODIMP MainObject(VARIANT* object) override {
        return record_->RunForValue(Call::MainObject, {}, object, [&] {
            Variant value;
            value.SetObject(mainObject_);
            return value;
        });
    }
    STDMETHODIMP CatalogFolder(BSTR catalogId, VARIANT* folder) override {
        return Guarded([&] {
            const std::wstring id = Argument(catalogId);
            return record_->RunForValue(Call::CatalogFolder, id, folder, [&] {
                Variant value;
                value.SetText(Bstr(FolderOf(id)));
                return value;
            });
        });
    }

private:
    std::wstring FolderOf(const std::wstring& id) {
        const auto told = folders_.find(id);
        return told != folders_.end() ? told->second : folders_[{}] + id + L'\\';
    }

    ComPtr<IDispatch> mainObject_;
    std::map<std::wstring, std::wstring> folders_;
};

}  // namespace nux::host
