// The rules by which an object and its interfaces are one: every interface leads to every other, and IUnknown
// is always the same pointer.

#include <windows.h>

#include <exdisp.h>
#include <exdispid.h>
#include <gtest/gtest.h>
#include <objsafe.h>
#include <ocidl.h>
#include <olectl.h>

#include <vector>

#include "tests/control/Component.h"
#include "tests/control/ControlSinks.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

const std::vector<std::pair<const char*, IID>> offered{
    {"IUnknown", IID_IUnknown},
    {"IDispatch", IID_IDispatch},
    {"InuxStdParts", IID_InuxStdParts},
    {"IPersist", IID_IPersist},
    {"IPersistStreamInit", IID_IPersistStreamInit},
    {"IPersistStorage", IID_IPersistStorage},
    {"IOleControl", IID_IOleControl},
    {"IOleObject", IID_IOleObject},
    {"IOleInPlaceActiveObject", IID_IOleInPlaceActiveObject},
    {"IOleWindow", IID_IOleWindow},
    {"IOleInPlaceObject", IID_IOleInPlaceObject},
    {"IOleInPlaceObjectWindowless", IID_IOleInPlaceObjectWindowless},
    {"IViewObject", IID_IViewObject},
    {"IViewObject2", IID_IViewObject2},
    {"IViewObjectEx", IID_IViewObjectEx},
    {"IQuickActivate", IID_IQuickActivate},
    {"IDataObject", IID_IDataObject},
    {"ISpecifyPropertyPages", IID_ISpecifyPropertyPages},
    {"ISupportErrorInfo", IID_ISupportErrorInfo},
    {"IProvideClassInfo", IID_IProvideClassInfo},
    {"IProvideClassInfo2", IID_IProvideClassInfo2},
    {"IObjectSafety", IID_IObjectSafety},
    {"IConnectionPointContainer", IID_IConnectionPointContainer}};

ComPtr<IUnknown> Ask(const ComPtr<IUnknown>& object, REFIID iid) {
    return Query<IUnknown>(object.Get(), iid);
}

using ComIdentity = PartsTest;

TEST_F(ComIdentity, EveryInterfaceLeadsToEveryOtherAndBack) {
    const ComPtr<IUnknown> identity = parts.As<IUnknown>();
    for (const auto& [name, iid] : offered) {
        SCOPED_TRACE(name);
        const ComPtr<IUnknown> one = Ask(identity, iid);
        ASSERT_TRUE(one);
        EXPECT_EQ(one.Get(), Ask(one, iid).Get()) << "itself";
        EXPECT_EQ(identity.Get(), Ask(one, IID_IUnknown).Get()) << "always the same";
        for (const auto& [otherName, otherIid] : offered) {
            const ComPtr<IUnknown> other = Ask(one, otherIid);
            ASSERT_TRUE(other) << otherName;
            EXPECT_TRUE(Ask(other, iid)) << "back from " << otherName;
        }
    }
}

TEST_F(ComIdentity, QueriesAreCounted) {
    const ULONG before = References(parts.Get());
    for (const auto& [name, iid] : offered) {
        const ComPtr<IUnknown> one = Ask(parts.As<IUnknown>(), iid);
        EXPECT_EQ(before + 1, References(parts.Get())) << name;
    }
    EXPECT_EQ(before, References(parts.Get()));
}

TEST_F(ComIdentity, WhatIsNotOfferedIsRefusedWithNull) {
    for (const IID& iid : {IID_IPicture, IID_IOleLink, IID_InuxDataManager, DIID__InuxStdPartsEvents,
                           IID_IMarshal, IID_IConnectionPoint, IID_IClassFactory, GUID_NULL}) {
        void* out = parts.Get();
        EXPECT_EQ(E_NOINTERFACE, parts->QueryInterface(iid, &out));
        EXPECT_EQ(nullptr, out);
    }
    EXPECT_EQ(E_POINTER, parts->QueryInterface(IID_IUnknown, nullptr));
}

TEST_F(ComIdentity, TheDataManagerIsAnObjectOfItsOwn) {
    ComPtr<IDispatch> data;
    parts->get_DataManager(data.Receive());
    const ComPtr<IUnknown> identity = data.As<IUnknown>();
    EXPECT_NE(identity.Get(), parts.As<IUnknown>().Get());
    for (const IID& iid : {IID_IUnknown, IID_IDispatch, IID_InuxDataManager}) {
        const ComPtr<IUnknown> one = Ask(identity, iid);
        ASSERT_TRUE(one);
        EXPECT_EQ(identity.Get(), Ask(one, IID_IUnknown).Get());
    }
    EXPECT_FALSE(data.As<InuxStdParts>());
}

TEST_F(ComIdentity, TheSinkOfBrowserEventsIsAnObjectOfItsOwnThatKeepsTheControlAlive) {
    auto sink = parts.As<DWebBrowserEvents2>();
    ASSERT_TRUE(sink);
    const ComPtr<IUnknown> identity = sink.As<IUnknown>();
    EXPECT_NE(identity.Get(), parts.As<IUnknown>().Get());
    for (const IID& iid : {IID_IUnknown, IID_IDispatch, DIID_DWebBrowserEvents2}) {
        const ComPtr<IUnknown> one = Query<IUnknown>(sink.Get(), iid);
        ASSERT_TRUE(one);
        EXPECT_EQ(identity.Get(), one.As<IUnknown>().Get());
        EXPECT_TRUE(one.As<DWebBrowserEvents2>());
    }
    EXPECT_FALSE(sink.As<InuxStdParts>()) << "its IDispatch is not the control's";
    void* out = parts.Get();
    EXPECT_EQ(E_NOINTERFACE, sink->QueryInterface(IID_IOleObject, &out));
    EXPECT_EQ(nullptr, out);

    UINT count = 9;
    EXPECT_EQ(S_OK, sink->GetTypeInfoCount(&count));
    EXPECT_EQ(0u, count);
    RawVariant argument;
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    for (DISPID event = DISPID_UNKNOWN; event < 400; ++event)  // those of the interface lie from 102 to 283
        EXPECT_EQ(S_OK, sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                     nullptr, nullptr, nullptr));
    ReleaseParts();
    EXPECT_EQ(S_FALSE, ModuleCanUnload());
    EXPECT_EQ(S_OK, sink->Invoke(DISPID_ONQUIT, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                 nullptr, nullptr, nullptr));
    sink.Reset();
}

class Connections : public PartsTest {
protected:
    void SetUp() override {
        PartsTest::SetUp();
        container = parts.As<IConnectionPointContainer>();
        ASSERT_TRUE(container);
    }
    void TearDown() override {
        container.Reset();
        PartsTest::TearDown();
    }
    ComPtr<IConnectionPoint> Point(REFIID iid) {
        ComPtr<IConnectionPoint> point;
        EXPECT_EQ(S_OK, container->FindConnectionPoint(iid, point.Receive()));
        return point;
    }

    ComPtr<IConnectionPointContainer> container;
};

TEST_F(Connections, ThereAreTwoPoints) {
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(S_OK, container->EnumConnectionPoints(points.Receive()));
    std::vector<IID> found;
    ComPtr<IConnectionPoint> point;
    while (points->Next(1, point.Receive(), nullptr) == S_OK) {
        found.emplace_back();
        EXPECT_EQ(S_OK, point->GetConnectionInterface(&found.back()));
    }
    ASSERT_EQ(2u, found.size());
    EXPECT_EQ(IID_IPropertyNotifySink, found[0]);
    EXPECT_EQ(DIID__InuxStdPartsEvents, found[1]);
    EXPECT_EQ(CONNECT_E_NOCONNECTION,
              container->FindConnectionPoint(DIID_DWebBrowserEvents2, point.Receive()));
    EXPECT_FALSE(point);
}

TEST_F(Connections, SinksAreHeldAndNothingIsEverFired) {
    const auto events = MakeObject<EventSink>();
    const auto properties = MakeObject<PropertySink>();
    DWORD eventCookie = 0;
    DWORD propertyCookie = 0;
    EXPECT_EQ(S_OK, Point(DIID__InuxStdPartsEvents)->Advise(events.Get(), &eventCookie));
    EXPECT_EQ(S_OK, Point(IID_IPropertyNotifySink)->Advise(properties.Get(), &propertyCookie));
    EXPECT_EQ(2u, References(events.Get()));
    EXPECT_EQ(2u, References(properties.Get()));
    parts->put_UserData(Bstr(L"changed").Get());
    parts->put_Initialised(1);
    RawVariant none;
    ComPtr<IDispatch> row;
    parts->ChooseDimensions(nullptr, nullptr, nullptr, none, none, none, row.Receive());
    EXPECT_EQ(0, events->events);
    EXPECT_EQ(0, properties->changes);
    EXPECT_EQ(S_OK, Point(DIID__InuxStdPartsEvents)->Unadvise(eventCookie));
    EXPECT_EQ(1u, References(events.Get()));
    EXPECT_EQ(CONNECT_E_NOCONNECTION, Point(DIID__InuxStdPartsEvents)->Unadvise(eventCookie));
}

TEST_F(Connections, ASinkOfAnotherKindIsRefused) {
    const auto properties = MakeObject<PropertySink>();
    DWORD cookie = 5;
    EXPECT_EQ(CONNECT_E_CANNOTCONNECT, Point(DIID__InuxStdPartsEvents)->Advise(properties.Get(), &cookie));
    EXPECT_EQ(0u, cookie);
    EXPECT_EQ(1u, References(properties.Get()));
}

TEST_F(Connections, SinksThatAreLeftConnectedAreReleasedAtTheEnd) {
    const auto events = MakeObject<EventSink>();
    DWORD cookie = 0;
    EXPECT_EQ(S_OK, Point(DIID__InuxStdPartsEvents)->Advise(events.Get(), &cookie));
    container.Reset();
    ReleaseParts();
    EXPECT_EQ(1u, References(events.Get()));
}

TEST_F(Connections, APointBelongsToItsContainer) {
    const auto point = Point(DIID__InuxStdPartsEvents);
    ComPtr<IConnectionPointContainer> owner;
    EXPECT_EQ(S_OK, point->GetConnectionPointContainer(owner.Receive()));
    EXPECT_EQ(container.Get(), owner.Get());
    EXPECT_FALSE(point.As<InuxStdParts>());
}

}  // namespace
}  // namespace nux
