// What the control's interfaces answer.

#include <windows.h>

#include <gtest/gtest.h>
#include <objsafe.h>
#include <ocidl.h>
#include <olectl.h>

#include "tests/control/Component.h"
#include "tests/control/ControlSinks.h"
#include "tests/support/ControlSite.h"

namespace nux {
namespace {

constexpr DWORD miscStatus = 131473;

class ControlInterfaces : public PartsTest {
protected:
    template <class Interface>
    ComPtr<Interface> As() {
        const ComPtr<Interface> found = parts.As<Interface>();
        EXPECT_TRUE(found);
        return found;
    }
};

TEST_F(ControlInterfaces, TheExtentIsSavedAndLoadedThroughAStream) {
    const auto object = As<IOleObject>();
    const auto persist = As<IPersistStreamInit>();
    CLSID classId{};
    EXPECT_EQ(S_OK, persist->GetClassID(&classId));
    EXPECT_EQ(CLSID_nuxStdParts, classId);
    EXPECT_EQ(E_POINTER, persist->GetClassID(nullptr));
    EXPECT_EQ(S_OK, persist->InitNew());
    EXPECT_EQ(S_FALSE, persist->IsDirty());

    SIZEL size{1000, 2000};
    EXPECT_EQ(S_OK, object->SetExtent(DVASPECT_CONTENT, &size));
    EXPECT_EQ(S_OK, persist->IsDirty());
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
    EXPECT_EQ(S_OK, persist->Save(stream.Get(), FALSE));
    EXPECT_EQ(S_OK, persist->IsDirty()) << "not asked to be clean";
    EXPECT_EQ(S_OK, persist->Save(stream.Get(), TRUE));
    EXPECT_EQ(S_FALSE, persist->IsDirty());
    ULARGE_INTEGER room{};
    EXPECT_EQ(S_OK, persist->GetSizeMax(&room));
    ULARGE_INTEGER position{};
    stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_CUR, &position);
    EXPECT_EQ(2 * room.QuadPart, position.QuadPart);

    const ComPtr<InuxStdParts> other = CreateParts();
    stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(S_OK, other.As<IPersistStreamInit>()->Load(stream.Get()));
    SIZEL loaded{};
    EXPECT_EQ(S_OK, other.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &loaded));
    EXPECT_EQ(1000, loaded.cx);
    EXPECT_EQ(2000, loaded.cy);
}

TEST_F(ControlInterfaces, AStreamOfSomethingElseIsRefusedAndTheExtentStays) {
    const auto object = As<IOleObject>();
    const auto persist = As<IPersistStreamInit>();
    SIZEL size{1000, 2000};
    object->SetExtent(DVASPECT_CONTENT, &size);
    const DWORD otherVersion[] = {2, 5, 5};
    const DWORD negative[] = {1, 5, static_cast<DWORD>(-5)};
    for (const auto& [bytes, length] :
         {std::pair<const void*, ULONG>{"", 0}, {"short", 5}, {otherVersion, 12}, {negative, 12}}) {
        ComPtr<IStream> stream;
        CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
        stream->Write(bytes, length, nullptr);
        stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
        EXPECT_TRUE(FAILED(persist->Load(stream.Get()))) << length;
    }
    EXPECT_EQ(E_POINTER, persist->Load(nullptr));
    EXPECT_EQ(E_POINTER, persist->Save(nullptr, TRUE));
    SIZEL kept{};
    object->GetExtent(DVASPECT_CONTENT, &kept);
    EXPECT_EQ(1000, kept.cx);
}

TEST_F(ControlInterfaces, TheExtentIsSavedAndLoadedThroughAStorage) {
    ComPtr<ILockBytes> bytes;
    CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Receive());
    ComPtr<IStorage> storage;
    ASSERT_EQ(S_OK,
              StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                           0, storage.Receive()));
    const auto persist = As<IPersistStorage>();
    EXPECT_EQ(S_OK, persist->InitNew(storage.Get()));
    SIZEL size{300, 400};
    As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(S_OK, persist->IsDirty());
    EXPECT_EQ(S_OK, persist->Save(storage.Get(), TRUE));
    EXPECT_EQ(S_OK, persist->SaveCompleted(nullptr));
    EXPECT_EQ(S_FALSE, persist->IsDirty());
    EXPECT_EQ(S_OK, persist->HandsOffStorage());

    const ComPtr<InuxStdParts> other = CreateParts();
    EXPECT_EQ(S_OK, other.As<IPersistStorage>()->Load(storage.Get()));
    SIZEL loaded{};
    other.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &loaded);
    EXPECT_EQ(300, loaded.cx);
    EXPECT_EQ(400, loaded.cy);
    EXPECT_EQ(E_POINTER, persist->Load(nullptr));
    EXPECT_EQ(E_POINTER, persist->Save(nullptr, TRUE));
}

TEST_F(ControlInterfaces, ExtentsOfOtherAspectsAndBelowZeroAreRefused) {
    const auto object = As<IOleObject>();
    SIZEL size{1, 1};
    EXPECT_EQ(DV_E_DVASPECT, object->SetExtent(DVASPECT_ICON, &size));
    EXPECT_EQ(DV_E_DVASPECT, object->GetExtent(DVASPECT_ICON, &size));
    EXPECT_EQ(E_POINTER, object->SetExtent(DVASPECT_CONTENT, nullptr));
    EXPECT_EQ(E_POINTER, object->GetExtent(DVASPECT_CONTENT, nullptr));
    size.cy = -1;
    EXPECT_TRUE(FAILED(object->SetExtent(DVASPECT_CONTENT, &size)));
}

TEST_F(ControlInterfaces, TheObjectTellsItsClassAndStatus) {
    const auto object = As<IOleObject>();
    CLSID classId{};
    EXPECT_EQ(S_OK, object->GetUserClassID(&classId));
    EXPECT_EQ(CLSID_nuxStdParts, classId);
    LPOLESTR name = nullptr;
    EXPECT_EQ(S_OK, object->GetUserType(USERCLASSTYPE_FULL, &name));
    EXPECT_STREQ(L"nuxStdParts Class", name);
    CoTaskMemFree(name);
    DWORD status = 0;
    EXPECT_EQ(S_OK, object->GetMiscStatus(DVASPECT_CONTENT, &status));
    EXPECT_EQ(miscStatus, status);
    ComPtr<IEnumOLEVERB> verbs;
    EXPECT_EQ(OLEOBJ_E_NOVERBS, object->EnumVerbs(verbs.Receive()));
}

TEST_F(ControlInterfaces, SinksOfTheObjectAreToldOfItsClosing) {
    const auto object = As<IOleObject>();
    const auto sink = MakeObject<AdviseSink>();
    DWORD connection = 0;
    EXPECT_EQ(OLE_E_NOCONNECTION, object->Unadvise(1));
    ASSERT_EQ(S_OK, object->Advise(sink.Get(), &connection));
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ((Journal{"OnClose"}), sink->calls);
    EXPECT_EQ(S_OK, object->Unadvise(connection));
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(1u, sink->calls.size());
    EXPECT_EQ(1u, References(sink.Get()));
}

TEST_F(ControlInterfaces, WhoWatchesTheViewIsToldOfANewExtent) {
    const auto view = As<IViewObjectEx>();
    const auto sink = MakeObject<AdviseSink>();
    EXPECT_EQ(S_OK, view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, sink.Get()));
    EXPECT_EQ((Journal{"OnViewChange"}), sink->calls) << "primed";
    SIZEL size{10, 20};
    As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(2u, sink->calls.size());
    As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(2u, sink->calls.size()) << "nothing has changed";
    ComPtr<IAdviseSink> told;
    DWORD aspects = 0;
    DWORD flags = 0;
    EXPECT_EQ(S_OK, view->GetAdvise(&aspects, &flags, told.Receive()));
    EXPECT_EQ(sink.Get(), told.Get());
    EXPECT_EQ(DVASPECT_CONTENT, static_cast<DVASPECT>(aspects));
    told.Reset();
    EXPECT_EQ(S_OK, view->SetAdvise(DVASPECT_CONTENT, 0, nullptr));
    EXPECT_EQ(1u, References(sink.Get()));
}

TEST_F(ControlInterfaces, TheViewDrawsNothingAndIsHitInsideItsBounds) {
    const auto view = As<IViewObjectEx>();
    const RECTL bounds{0, 0, 100, 50};
    const RECT rect{0, 0, 100, 50};
    EXPECT_EQ(S_OK, view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr,
                               nullptr, 0));
    EXPECT_EQ(DV_E_DVASPECT, view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, nullptr, &bounds,
                                        nullptr, nullptr, 0));
    DWORD status = 1;
    EXPECT_EQ(S_OK, view->GetViewStatus(&status));
    EXPECT_EQ(0u, status) << "transparent";
    DWORD hit = 0;
    EXPECT_EQ(S_OK, view->QueryHitPoint(DVASPECT_CONTENT, &rect, POINT{0, 0}, 0, &hit));
    EXPECT_EQ(static_cast<DWORD>(HITRESULT_HIT), hit);
    EXPECT_EQ(S_OK, view->QueryHitPoint(DVASPECT_CONTENT, &rect, POINT{100, 0}, 0, &hit));
    EXPECT_EQ(static_cast<DWORD>(HITRESULT_OUTSIDE), hit);
    const RECT touching{90, 40, 200, 200};
    EXPECT_EQ(S_OK, view->QueryHitRect(DVASPECT_CONTENT, &rect, &touching, 0, &hit));
    EXPECT_EQ(static_cast<DWORD>(HITRESULT_HIT), hit);
    SIZEL size{};
    EXPECT_EQ(S_OK, view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size));
    EXPECT_EQ(5080, size.cx);
}

TEST_F(ControlInterfaces, TheDataObjectHasNoFormatAndTellsItsSinksOfChanges) {
    const auto data = As<IDataObject>();
    FORMATETC format{CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    EXPECT_EQ(DV_E_FORMATETC, data->QueryGetData(&format));
    EXPECT_EQ(DV_E_FORMATETC, data->GetData(&format, &medium));
    const auto sink = MakeObject<AdviseSink>();
    DWORD connection = 0;
    EXPECT_EQ(OLE_E_NOCONNECTION, data->DUnadvise(1));
    ASSERT_EQ(S_OK, data->DAdvise(&format, ADVF_NODATA, sink.Get(), &connection));
    SIZEL size{10, 20};
    As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ((Journal{"OnDataChange"}), sink->calls);
    EXPECT_EQ(S_OK, data->DUnadvise(connection));
    EXPECT_EQ(1u, References(sink.Get()));
}

TEST_F(ControlInterfaces, QuickActivationConnectsAllAtOnce) {
    const auto quick = As<IQuickActivate>();
    const auto site = MakeObject<ControlSite>(nullptr);
    const auto view = MakeObject<AdviseSink>();
    const auto properties = MakeObject<PropertySink>();
    const auto events = MakeObject<EventSink>();
    QACONTAINER container{};
    container.cbSize = sizeof container;
    container.pClientSite = site.Get();
    container.pAdviseSink = view.Get();  // IAdviseSinkEx is not asked for
    container.pPropertyNotifySink = properties.Get();
    container.pUnkEventSink = events.Get();
    QACONTROL control{};
    control.cbSize = sizeof control;
    ASSERT_EQ(S_OK, quick->QuickActivate(&container, &control));
    EXPECT_EQ(miscStatus, control.dwMiscStatus);
    EXPECT_EQ(0u, control.dwViewStatus);
    EXPECT_NE(0u, control.dwEventCookie);
    EXPECT_NE(0u, control.dwPropNotifyCookie);
    EXPECT_EQ(2u, References(static_cast<IOleClientSite*>(site.Get())));
    EXPECT_EQ(2u, References(view.Get()));
    EXPECT_EQ(2u, References(properties.Get()));
    EXPECT_EQ(2u, References(events.Get()));
    SIZEL size{77, 88};
    EXPECT_EQ(S_OK, quick->SetContentExtent(&size));
    EXPECT_EQ((Journal{"OnViewChange"}), view->calls);
    SIZEL told{};
    EXPECT_EQ(S_OK, quick->GetContentExtent(&told));
    EXPECT_EQ(77, told.cx);
    EXPECT_EQ(E_POINTER, quick->QuickActivate(nullptr, &control));
    EXPECT_EQ(E_POINTER, quick->QuickActivate(&container, nullptr));

    As<IOleObject>()->SetClientSite(nullptr);
    EXPECT_EQ(1u, References(static_cast<IOleClientSite*>(site.Get())));
}

TEST_F(ControlInterfaces, ItTellsItsClassAndItsEvents) {
    const auto information = As<IProvideClassInfo2>();
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(S_OK, information->GetClassInfo(type.Receive()));
    TYPEATTR* attributes = nullptr;
    type->GetTypeAttr(&attributes);
    EXPECT_EQ(CLSID_nuxStdParts, attributes->guid);
    type->ReleaseTypeAttr(attributes);
    GUID guid{};
    EXPECT_EQ(S_OK, information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid));
    EXPECT_EQ(DIID__InuxStdPartsEvents, guid);
    EXPECT_EQ(E_INVALIDARG, information->GetGUID(99, &guid));
    EXPECT_EQ(E_POINTER, information->GetClassInfo(nullptr));
    EXPECT_EQ(E_POINTER, information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr));
}

TEST_F(ControlInterfaces, ItHasNoPropertyPages) {
    CAUUID pages{5, nullptr};
    EXPECT_EQ(S_OK, As<ISpecifyPropertyPages>()->GetPages(&pages));
    EXPECT_EQ(0u, pages.cElems);
}

TEST_F(ControlInterfaces, ASinkMayLetGoOfTheControlAndOfItselfWhileItIsCalled) {
    SIZEL size{77, 88};
    FORMATETC format{};
    DWORD connection = 0;
    const auto letGo = [&] {
        parts.Reset();
        EXPECT_EQ(S_FALSE, ModuleCanUnload()) << "the call goes on in it";
    };
    for (const bool ofView : {true, false}) {
        const auto sink = MakeObject<AdviseSink>();
        IOleObject* const object = As<IOleObject>().Get();
        if (ofView)
            As<IViewObject>()->SetAdvise(DVASPECT_CONTENT, 0, sink.Get());
        else
            EXPECT_EQ(S_OK, As<IDataObject>()->DAdvise(&format, ADVF_NODATA, sink.Get(), &connection));
        sink->during = letGo;
        EXPECT_EQ(S_OK, object->SetExtent(DVASPECT_CONTENT, &size));
        EXPECT_EQ((Journal{ofView ? "OnViewChange" : "OnDataChange"}), sink->calls);
        EXPECT_EQ(1u, References(sink.Get()));
        parts = CreateParts();
    }
    for (const bool ofView : {true, false}) {  // told while it is connected
        const auto sink = MakeObject<AdviseSink>();
        sink->during = letGo;
        if (ofView)
            As<IViewObject>().Get()->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, sink.Get());
        else
            As<IDataObject>().Get()->DAdvise(&format, ADVF_PRIMEFIRST | ADVF_NODATA, sink.Get(), &connection);
        EXPECT_EQ(1u, References(sink.Get()));
        parts = CreateParts();
    }
}

TEST_F(ControlInterfaces, ItIsSafeForScriptsAndData) {
    const auto safety = As<IObjectSafety>();
    constexpr DWORD both = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;
    DWORD supported = 0;
    DWORD enabled = 99;
    EXPECT_EQ(S_OK, safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &enabled));
    EXPECT_EQ(both, supported);
    EXPECT_EQ(0u, enabled);
    EXPECT_EQ(S_OK,
              safety->SetInterfaceSafetyOptions(IID_IDispatch, both, INTERFACESAFE_FOR_UNTRUSTED_CALLER));
    safety->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &enabled);
    EXPECT_EQ(static_cast<DWORD>(INTERFACESAFE_FOR_UNTRUSTED_CALLER), enabled);
    EXPECT_EQ(E_FAIL, safety->SetInterfaceSafetyOptions(IID_IDispatch, 0x80, 0x80)) << "an unknown option";
    EXPECT_EQ(E_NOINTERFACE, safety->GetInterfaceSafetyOptions(IID_IPicture, &supported, &enabled));
    EXPECT_EQ(0u, supported);
    EXPECT_EQ(E_NOINTERFACE, safety->SetInterfaceSafetyOptions(IID_IPicture, both, both));
    EXPECT_EQ(E_POINTER, safety->GetInterfaceSafetyOptions(IID_IDispatch, nullptr, &enabled));
}

TEST_F(ControlInterfaces, TheOleControlAndTheActiveObjectAnswerQuietly) {
    const auto control = As<IOleControl>();
    EXPECT_EQ(S_OK, control->OnAmbientPropertyChange(DISPID_UNKNOWN));
    EXPECT_EQ(S_OK, control->FreezeEvents(TRUE));
    EXPECT_EQ(S_OK, control->FreezeEvents(FALSE));
    const auto active = As<IOleInPlaceActiveObject>();
    MSG message{};
    EXPECT_EQ(S_FALSE, active->TranslateAccelerator(&message));
    EXPECT_EQ(S_OK, active->OnFrameWindowActivate(TRUE));
    EXPECT_EQ(S_OK, active->OnDocWindowActivate(FALSE));
    EXPECT_EQ(S_OK, active->EnableModeless(FALSE));
}

}  // namespace
}  // namespace nux
