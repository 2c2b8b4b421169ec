#include "framework/ComPtr.h"

#include <gtest/gtest.h>

#include <utility>

#include "framework/ComObject.h"

namespace nux {
namespace {

class Thing : public IPersist {
public:
    STDMETHODIMP GetClassID(CLSID*) override { return E_NOTIMPL; }

protected:
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IPersist || iid == IID_IUnknown ? static_cast<IPersist*>(this) : nullptr;
    }
};

/// Empties the field that holds it when it goes, as an object does whose last release re-enters its owner.
class Reentering : public Thing {
public:
    explicit Reentering(ComPtr<IPersist>& holder) : holder_(holder) {}

protected:
    ~Reentering() {
        EXPECT_FALSE(holder_);
        holder_.Reset();
    }

private:
    ComPtr<IPersist>& holder_;
};

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

ComPtr<IPersist> MakeThing() {
    return ComPtr<IPersist>(MakeObject<Thing>().Get());
}

TEST(ComPtr, IsNullByDefault) {
    EXPECT_FALSE(ComPtr<IPersist>());
    EXPECT_FALSE(ComPtr<IPersist>(nullptr));
    EXPECT_EQ(nullptr, ComPtr<IPersist>(static_cast<IPersist*>(nullptr)).Get());
}

TEST(ComPtr, AddsAReferenceOfItsOwn) {
    const ComPtr<IPersist> thing = MakeThing();
    {
        const ComPtr<IPersist> shared(thing.Get());
        EXPECT_EQ(2u, References(thing.Get()));
    }
    EXPECT_EQ(1u, References(thing.Get()));
}

TEST(ComPtr, AddsAReferenceWhenItIsCopied) {
    const ComPtr<IPersist> thing = MakeThing();
    ComPtr<IPersist> copy = thing;
    EXPECT_EQ(2u, References(thing.Get()));
    ComPtr<IPersist> assigned;
    assigned = copy;
    EXPECT_EQ(3u, References(thing.Get()));
}

TEST(ComPtr, ReleasesTheOldObjectWhenItIsAssigned) {
    const long before = LiveObjects();
    ComPtr<IPersist> thing = MakeThing();
    thing = MakeThing();
    EXPECT_EQ(before + 1, LiveObjects());
    thing = nullptr;
    EXPECT_EQ(before, LiveObjects());
}

TEST(ComPtr, SurvivesItsAssignmentToItself) {
    ComPtr<IPersist> thing = MakeThing();
    ComPtr<IPersist>& same = thing;
    thing = same;
    EXPECT_EQ(1u, References(thing.Get()));
}

TEST(ComPtr, GivesItsReferenceAwayWhenItIsMoved) {
    ComPtr<IPersist> thing = MakeThing();
    ComPtr<IPersist> moved = std::move(thing);
    EXPECT_FALSE(thing);
    EXPECT_EQ(1u, References(moved.Get()));
    ComPtr<IPersist> assigned;
    assigned = std::move(moved);
    EXPECT_FALSE(moved);
    EXPECT_EQ(1u, References(assigned.Get()));
}

TEST(ComPtr, TakesOverAReferenceThatIsAttached) {
    const long before = LiveObjects();
    auto* raw = new ComObject<Thing>();
    raw->AddRef();
    ComPtr<IPersist> thing = MakeThing();
    thing.Attach(raw);
    EXPECT_EQ(before + 1, LiveObjects());
    EXPECT_EQ(1u, References(raw));
}

TEST(ComPtr, GivesUpItsReferenceWhenItIsDetached) {
    ComPtr<IPersist> thing = MakeThing();
    IPersist* raw = thing.Detach();
    EXPECT_FALSE(thing);
    EXPECT_EQ(0u, raw->Release());
}

TEST(ComPtr, ReleasesWhatItHoldsBeforeItReceives) {
    const long before = LiveObjects();
    ComPtr<IPersist> thing = MakeThing();
    IPersist** slot = thing.Receive();
    EXPECT_EQ(nullptr, *slot);
    EXPECT_EQ(before, LiveObjects());
    *slot = MakeThing().Detach();
    EXPECT_EQ(1u, References(thing.Get()));
    EXPECT_EQ(nullptr, *thing.ReceiveVoid());
    EXPECT_EQ(before, LiveObjects());
}

TEST(ComPtr, IsNullAlreadyWhenTheReleaseReenters) {
    ComPtr<IPersist> holder;
    holder = ComPtr<IPersist>(MakeObject<Reentering>(holder).Get());
    holder.Reset();
    EXPECT_FALSE(holder);
}

TEST(ComPtr, CopiesAFurtherReferenceToAnOutArgument) {
    const ComPtr<IPersist> thing = MakeThing();
    IPersist* target = nullptr;
    thing.CopyTo(&target);
    EXPECT_EQ(thing.Get(), target);
    EXPECT_EQ(2u, References(target));
    target->Release();
    ComPtr<IPersist>().CopyTo(&target);
    EXPECT_EQ(nullptr, target);
}

TEST(Query, OwnsAReferenceOnTheInterfaceThatItFinds) {
    const ComPtr<IPersist> thing = MakeThing();
    const ComPtr<IUnknown> unknown = Query<IUnknown>(thing.Get());
    EXPECT_TRUE(unknown);
    EXPECT_EQ(2u, References(thing.Get()));
}

TEST(Query, IsNullForANullObjectAndForAnUnknownInterface) {
    EXPECT_FALSE(Query<IDispatch>(nullptr));
    EXPECT_FALSE(Query<IDispatch>(MakeThing().Get()));
    EXPECT_FALSE(ComPtr<IPersist>().As<IDispatch>());
}

/// An object on the stack that leaves a pointer in the out argument of a query that it fails.
class LeavesAPointer : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID, void** object) override {
        *object = this;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    int references = 1;
};

TEST(Query, ReleasesNothingThatAFailedQueryLeft) {
    LeavesAPointer object;
    EXPECT_FALSE(Query<IDispatch>(&object));
    EXPECT_EQ(1, object.references);
}

}  // namespace
}  // namespace nux
