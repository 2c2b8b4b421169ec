#include "framework/ControlPersistence.h"

#include "framework/ComPtr.h"

namespace nux {
namespace {

/// What is saved, in the byte order of the machine.
struct SavedState {
    DWORD version;
    LONG width;   ///< 1/100 mm
    LONG height;  ///< 1/100 mm
};

constexpr DWORD savedVersion = 1;
constexpr wchar_t streamName[] = L"Contents";
constexpr DWORD wholeStream = STGM_SHARE_EXCLUSIVE;

}  // namespace

STDMETHODIMP ControlPersistence::GetClassID(CLSID* classId) {
    if (!classId)
        return E_POINTER;
    *classId = GetIdentity().classId;
    return S_OK;
}

STDMETHODIMP ControlPersistence::Load(IStream* stream) {
    if (!stream)
        return E_POINTER;
    SavedState saved{};
    ULONG read = 0;
    if (FAILED(stream->Read(&saved, sizeof saved, &read)) || read != sizeof saved ||
        saved.version != savedVersion || saved.width < 0 || saved.height < 0)
        return E_FAIL;
    extent_ = {saved.width, saved.height};
    dirty_ = false;
    return S_OK;
}

STDMETHODIMP ControlPersistence::Save(IStream* stream, BOOL clearDirty) {
    if (!stream)
        return E_POINTER;
    const SavedState saved{savedVersion, extent_.cx, extent_.cy};
    ULONG written = 0;
    const HRESULT result = stream->Write(&saved, sizeof saved, &written);
    if (FAILED(result))
        return result;
    if (written != sizeof saved)
        return E_FAIL;
    if (clearDirty)
        dirty_ = false;
    return S_OK;
}

STDMETHODIMP ControlPersistence::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size)
        return E_POINTER;
    size->QuadPart = sizeof(SavedState);
    return S_OK;
}

STDMETHODIMP ControlPersistence::InitNew() {
    return S_OK;
}

STDMETHODIMP ControlPersistence::InitNew(IStorage*) {
    return InitNew();
}

STDMETHODIMP ControlPersistence::Load(IStorage* storage) {
    if (!storage)
        return E_POINTER;
    ComPtr<IStream> stream;
    const HRESULT result =
        storage->OpenStream(streamName, nullptr, STGM_READ | wholeStream, 0, stream.Receive());
    return FAILED(result) ? result : Load(stream.Get());
}

STDMETHODIMP ControlPersistence::Save(IStorage* storage, BOOL sameAsLoad) {
    if (!storage)
        return E_POINTER;
    ComPtr<IStream> stream;
    const HRESULT result =
        storage->CreateStream(streamName, STGM_CREATE | STGM_WRITE | wholeStream, 0, 0, stream.Receive());
    return FAILED(result) ? result : Save(stream.Get(), sameAsLoad);
}

STDMETHODIMP ControlPersistence::SaveCompleted(IStorage*) {
    dirty_ = false;
    return S_OK;
}

}  // namespace nux
