#include "framework/ConnectionPoints.h"

#include <gtest/gtest.h>

#include <set>

#include "framework/ComObject.h"

namespace nux {
namespace {

// Any two interfaces that no other object of the test offers.
const IID& firstEvents = IID_IPropertyNotifySink;
const IID& secondEvents = IID_IPersist;

class Source : public ConnectionPoints {
public:
    Source() : ConnectionPoints({firstEvents, secondEvents}) {}
    using ConnectionPoints::Sinks;

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IConnectionPointContainer || iid == IID_IUnknown
                   ? static_cast<IConnectionPointContainer*>(this)
                   : nullptr;
    }
};

class Sink : public IPropertyNotifySink {
public:
    STDMETHODIMP OnChanged(DISPID) override { return S_OK; }
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IPropertyNotifySink || iid == IID_IUnknown ? static_cast<IPropertyNotifySink*>(this)
                                                                     : nullptr;
    }
};

/// Takes its last connection away itself when it is released, as a sink does that cleans up at its end.
class Reentering : public Sink {
public:
    Reentering(IConnectionPoint* point, HRESULT& answer) : point_(point), answer_(answer) {}

protected:
    ~Reentering() { answer_ = point_->Unadvise(1); }

private:
    IConnectionPoint* point_;
    HRESULT& answer_;
};

class ConnectionPointTest : public testing::Test {
protected:
    ConnectionPointTest() : source_(MakeObject<Source>()) {
        source_->FindConnectionPoint(firstEvents, point_.Receive());
    }

    std::set<DWORD> Cookies() {
        ComPtr<IEnumConnections> enumeration;
        EXPECT_EQ(S_OK, point_->EnumConnections(enumeration.Receive()));
        std::set<DWORD> cookies;
        CONNECTDATA data;
        while (enumeration->Next(1, &data, nullptr) == S_OK) {
            cookies.insert(data.dwCookie);
            data.pUnk->Release();
        }
        return cookies;
    }

    ComPtr<ComObject<Source>> source_;
    ComPtr<IConnectionPoint> point_;
};

TEST_F(ConnectionPointTest, IsFoundByItsOutgoingInterface) {
    IID iid{};
    ASSERT_EQ(S_OK, point_->GetConnectionInterface(&iid));
    EXPECT_EQ(firstEvents, iid);
    ComPtr<IConnectionPoint> second;
    ASSERT_EQ(S_OK, source_->FindConnectionPoint(secondEvents, second.Receive()));
    ASSERT_EQ(S_OK, second->GetConnectionInterface(&iid));
    EXPECT_EQ(secondEvents, iid);
}

TEST_F(ConnectionPointTest, IsNullForAnInterfaceThatIsNotOutgoing) {
    IConnectionPoint* point = point_.Get();
    EXPECT_EQ(CONNECT_E_NOCONNECTION, source_->FindConnectionPoint(IID_IDispatch, &point));
    EXPECT_EQ(nullptr, point);
}

TEST_F(ConnectionPointTest, HasAnIdentityApartFromItsContainer) {
    EXPECT_TRUE(point_.As<IUnknown>());
    EXPECT_TRUE(point_.As<IConnectionPoint>());
    void* found = point_.Get();
    EXPECT_EQ(E_NOINTERFACE, point_->QueryInterface(IID_IConnectionPointContainer, &found));
    EXPECT_EQ(nullptr, found);
    ComPtr<IConnectionPointContainer> container;
    ASSERT_EQ(S_OK, point_->GetConnectionPointContainer(container.Receive()));
    EXPECT_EQ(source_.Get(), container.Get());
}

TEST_F(ConnectionPointTest, ItsContainerFindsTheSinksOfAnInterface) {
    const ComPtr<ComObject<Sink>> sink = MakeObject<Sink>();
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, point_->Advise(sink.Get(), &cookie));
    ASSERT_EQ(1u, source_->Sinks(firstEvents).size());
    EXPECT_EQ(sink.Get(), source_->Sinks(firstEvents)[0].Get());
    EXPECT_TRUE(source_->Sinks(secondEvents).empty());
    EXPECT_TRUE(source_->Sinks(IID_IDispatch).empty()) << "an interface that isn't outgoing";
}

TEST_F(ConnectionPointTest, KeepsItsContainerAlive) {
    const long before = LiveObjects();
    source_.Reset();
    EXPECT_EQ(before, LiveObjects());
    IID iid{};
    EXPECT_EQ(S_OK, point_->GetConnectionInterface(&iid));
    point_.Reset();
    EXPECT_EQ(before - 1, LiveObjects());
}

TEST_F(ConnectionPointTest, HoldsASinkUntilItIsUnadvised) {
    const long before = LiveObjects();
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, point_->Advise(MakeObject<Sink>().Get(), &cookie));
    EXPECT_NE(0u, cookie);
    EXPECT_EQ(before + 1, LiveObjects());
    EXPECT_EQ(S_OK, point_->Unadvise(cookie));
    EXPECT_EQ(before, LiveObjects());
}

TEST_F(ConnectionPointTest, ReleasesItsSinksWithItsContainer) {
    const long before = LiveObjects();
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, point_->Advise(MakeObject<Sink>().Get(), &cookie));
    point_.Reset();
    source_.Reset();
    EXPECT_EQ(before - 1, LiveObjects());
}

TEST_F(ConnectionPointTest, RefusesASinkWithoutTheOutgoingInterface) {
    DWORD cookie = 5;
    EXPECT_EQ(CONNECT_E_CANNOTCONNECT, point_->Advise(source_.Get(), &cookie));
    EXPECT_EQ(0u, cookie);
    EXPECT_TRUE(Cookies().empty());
}

TEST_F(ConnectionPointTest, GivesEachConnectionACookieThatIsNotUsedAgain) {
    const auto sink = MakeObject<Sink>();
    DWORD first = 0;
    DWORD second = 0;
    DWORD third = 0;
    point_->Advise(sink.Get(), &first);
    point_->Advise(sink.Get(), &second);
    EXPECT_EQ((std::set<DWORD>{first, second}), Cookies());
    EXPECT_EQ(S_OK, point_->Unadvise(second));
    point_->Advise(sink.Get(), &third);
    EXPECT_NE(second, third);
    EXPECT_EQ((std::set<DWORD>{first, third}), Cookies());
}

TEST_F(ConnectionPointTest, RefusesACookieThatItDoesNotKnow) {
    DWORD cookie = 0;
    point_->Advise(MakeObject<Sink>().Get(), &cookie);
    EXPECT_EQ(CONNECT_E_NOCONNECTION, point_->Unadvise(cookie + 1));
    EXPECT_EQ(S_OK, point_->Unadvise(cookie));
    EXPECT_EQ(CONNECT_E_NOCONNECTION, point_->Unadvise(cookie));
}

TEST_F(ConnectionPointTest, HasForgottenAConnectionWhenItsSinkReenters) {
    HRESULT answer = S_OK;
    DWORD cookie = 0;
    ASSERT_EQ(S_OK, point_->Advise(MakeObject<Reentering>(point_.Get(), answer).Get(), &cookie));
    ASSERT_EQ(1u, cookie);
    EXPECT_EQ(S_OK, point_->Unadvise(cookie));
    EXPECT_EQ(CONNECT_E_NOCONNECTION, answer);
}

TEST_F(ConnectionPointTest, RefusesNullArguments) {
    DWORD cookie = 0;
    EXPECT_EQ(E_POINTER, point_->Advise(nullptr, &cookie));
    EXPECT_EQ(E_POINTER, point_->Advise(MakeObject<Sink>().Get(), nullptr));
    EXPECT_EQ(E_POINTER, point_->EnumConnections(nullptr));
    EXPECT_EQ(E_POINTER, point_->GetConnectionInterface(nullptr));
    EXPECT_EQ(E_POINTER, point_->GetConnectionPointContainer(nullptr));
    EXPECT_EQ(E_POINTER, point_->QueryInterface(IID_IUnknown, nullptr));
    EXPECT_EQ(E_POINTER, source_->FindConnectionPoint(firstEvents, nullptr));
    EXPECT_EQ(E_POINTER, source_->EnumConnectionPoints(nullptr));
}

TEST_F(ConnectionPointTest, EnumeratesTheSinksOfTheMomentWithTheOutgoingInterface) {
    const auto sink = MakeObject<Sink>();
    DWORD cookie = 0;
    point_->Advise(sink.Get(), &cookie);
    ComPtr<IEnumConnections> enumeration;
    ASSERT_EQ(S_OK, point_->EnumConnections(enumeration.Receive()));
    point_->Unadvise(cookie);
    CONNECTDATA data{};
    ASSERT_EQ(S_OK, enumeration->Next(1, &data, nullptr));
    EXPECT_EQ(static_cast<IPropertyNotifySink*>(sink.Get()), data.pUnk);
    EXPECT_EQ(cookie, data.dwCookie);
    data.pUnk->Release();
}

TEST_F(ConnectionPointTest, IsEnumeratedOncePerOutgoingInterface) {
    ComPtr<IEnumConnectionPoints> enumeration;
    ASSERT_EQ(S_OK, source_->EnumConnectionPoints(enumeration.Receive()));
    IConnectionPoint* points[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(S_FALSE, enumeration->Next(3, points, &fetched));
    ASSERT_EQ(2u, fetched);
    EXPECT_EQ(point_.Get(), points[0]);
    for (IConnectionPoint* point : {points[0], points[1]})
        point->Release();
}

}  // namespace
}  // namespace nux
