#include "framework/ComObject.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

#include "framework/ClassFactory.h"

namespace nux {
namespace {

struct Life {
    int constructed = 0;
    int destroyed = 0;
};

/// An object of IPersist, which tells of its birth and death.
class Witness : public IPersist {
public:
    Witness() = default;
    explicit Witness(Life& life) : life_(&life) { ++life_->constructed; }

    STDMETHODIMP GetClassID(CLSID*) override { return E_NOTIMPL; }

protected:
    ~Witness() {
        if (life_)
            ++life_->destroyed;
    }
    void* FindInterface(REFIID iid) noexcept {
        return iid == IID_IPersist || iid == IID_IUnknown ? static_cast<IPersist*>(this) : nullptr;
    }

private:
    Life* life_ = nullptr;
};

/// Hands itself out once more at its end, as an object does that tells a sink of it.
class HandedOutAtItsEnd : public Witness {
public:
    using Witness::Witness;

protected:
    void OnLastRelease() noexcept {
        const ComPtr<IPersist> reference(this);
        EXPECT_TRUE(reference.As<IPersist>());
    }
};

template <class Error>
class Unborn : public Witness {
public:
    Unborn() { throw Error(); }
};

struct NotPersistent : std::exception {};

TEST(ComObject, StartsWithoutAReference) {
    Life life;
    auto* object = new ComObject<Witness>(life);
    EXPECT_EQ(1u, object->AddRef());
    EXPECT_EQ(2u, object->AddRef());
    EXPECT_EQ(1u, object->Release());
    EXPECT_EQ(0, life.destroyed);
    EXPECT_EQ(0u, object->Release());
    EXPECT_EQ(1, life.destroyed);
}

TEST(ComObject, IsMadeWithOneReferenceThatTheResultOwns) {
    Life life;
    {
        const auto object = MakeObject<Witness>(life);
        EXPECT_EQ(1, life.constructed);
        object->AddRef();
        EXPECT_EQ(1u, object->Release());
    }
    EXPECT_EQ(1, life.destroyed);
}

TEST(ComObject, CountsAsAliveFromItsConstructionToItsLastRelease) {
    const long before = LiveObjects();
    Life life;
    ComPtr<IPersist> object(MakeObject<Witness>(life).Get());
    EXPECT_EQ(before + 1, LiveObjects());
    ComPtr<IPersist> second = object;
    object.Reset();
    EXPECT_EQ(before + 1, LiveObjects());
    second.Reset();
    EXPECT_EQ(before, LiveObjects());
}

TEST(ComObject, WhoseConstructorThrowsDoesNotCountAsAlive) {
    const long before = LiveObjects();
    EXPECT_THROW(MakeObject<Unborn<std::bad_alloc>>(), std::bad_alloc);
    EXPECT_EQ(before, LiveObjects());
}

TEST(ComObject, IsDestroyedOnceWhenItIsHandedOutAtItsEnd) {
    Life life;
    MakeObject<HandedOutAtItsEnd>(life).Reset();
    EXPECT_EQ(1, life.destroyed);
}

TEST(QueryInterface, AddsAReferenceForAnInterfaceThatIsOffered) {
    Life life;
    const auto object = MakeObject<Witness>(life);
    void* found = nullptr;
    ASSERT_EQ(S_OK, object->QueryInterface(IID_IPersist, &found));
    EXPECT_EQ(static_cast<IPersist*>(object.Get()), found);
    EXPECT_EQ(1u, object->Release());
}

TEST(QueryInterface, GivesOneIdentityWhateverInterfaceIsAsked) {
    const auto object = MakeObject<Witness>();
    const ComPtr<IPersist> persist = object.As<IPersist>();
    EXPECT_EQ(object.As<IUnknown>().Get(), persist.As<IUnknown>().Get());
}

TEST(QueryInterface, SetsTheOutArgumentToNullForAnUnknownInterface) {
    const auto object = MakeObject<Witness>();
    void* found = object.Get();
    EXPECT_EQ(E_NOINTERFACE, object->QueryInterface(IID_IDispatch, &found));
    EXPECT_EQ(nullptr, found);
    object->AddRef();
    EXPECT_EQ(1u, object->Release());
}

TEST(QueryInterface, RefusesANullOutArgument) {
    EXPECT_EQ(E_POINTER, MakeObject<Witness>()->QueryInterface(IID_IUnknown, nullptr));
}

TEST(ClassFactory, MakesAnObjectWithOneReference) {
    const long before = LiveObjects();
    const auto factory = MakeObject<ClassFactory<Witness>>();
    ComPtr<IPersist> object;
    ASSERT_EQ(S_OK, factory->CreateInstance(nullptr, IID_IPersist, object.ReceiveVoid()));
    EXPECT_EQ(before + 2, LiveObjects());
    object->AddRef();
    EXPECT_EQ(1u, object->Release());
}

TEST(ClassFactory, OffersItsInterfaceAndIUnknownOnly) {
    const auto factory = MakeObject<ClassFactory<Witness>>();
    EXPECT_TRUE(factory.As<IClassFactory>());
    EXPECT_TRUE(factory.As<IUnknown>());
    EXPECT_FALSE(factory.As<IPersist>());
}

TEST(ClassFactory, RefusesANullOutArgument) {
    EXPECT_EQ(E_POINTER, MakeObject<ClassFactory<Witness>>()->CreateInstance(nullptr, IID_IUnknown, nullptr));
}

TEST(ClassFactory, RefusesToBeAggregated) {
    const auto factory = MakeObject<ClassFactory<Witness>>();
    const auto outer = MakeObject<Witness>();
    void* object = outer.Get();
    EXPECT_EQ(CLASS_E_NOAGGREGATION, factory->CreateInstance(outer.Get(), IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
}

TEST(ClassFactory, LeavesNoObjectBehindWhenTheInterfaceIsUnknown) {
    const auto factory = MakeObject<ClassFactory<Witness>>();
    const long before = LiveObjects();
    void* object = factory.Get();
    EXPECT_EQ(E_NOINTERFACE, factory->CreateInstance(nullptr, IID_IDispatch, &object));
    EXPECT_EQ(nullptr, object);
    EXPECT_EQ(before, LiveObjects());
}

TEST(ClassFactory, TurnsAnExceptionOfTheConstructorIntoItsCode) {
    void* object = nullptr;
    EXPECT_EQ(E_OUTOFMEMORY, MakeObject<ClassFactory<Unborn<std::bad_alloc>>>()->CreateInstance(
                                 nullptr, IID_IUnknown, &object));
    EXPECT_EQ(E_UNEXPECTED, MakeObject<ClassFactory<Unborn<NotPersistent>>>()->CreateInstance(
                                nullptr, IID_IUnknown, &object));
    EXPECT_EQ(nullptr, object);
}

TEST(ClassFactory, HoldsTheModuleWhileItIsLocked) {
    const auto factory = MakeObject<ClassFactory<Witness>>();
    const long before = LiveObjects();
    EXPECT_EQ(S_OK, factory->LockServer(TRUE));
    EXPECT_EQ(S_OK, factory->LockServer(TRUE));
    EXPECT_EQ(before + 2, LiveObjects());
    EXPECT_EQ(S_OK, factory->LockServer(FALSE));
    EXPECT_EQ(S_OK, factory->LockServer(FALSE));
    EXPECT_EQ(before, LiveObjects());
}

TEST(LiveObject, CountsEachCopyAndNoAssignment) {
    const long before = LiveObjects();
    const LiveObject one;
    LiveObject two = one;
    EXPECT_EQ(before + 2, LiveObjects());
    two = one;
    EXPECT_EQ(before + 2, LiveObjects());
}

TEST(Module, TellsTheFullPathOfItsFile) {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::wstring told = ThisModulePath();
    EXPECT_EQ(std::string(path), std::string(told.begin(), told.end()));
}

TEST(Module, IsTheSourceOfResourcesUntilAnotherTakesItsPlace) {
    EXPECT_EQ(ThisModule(), ResourceModule());
    const HINSTANCE other = GetModuleHandleA("user32.dll");
    SetResourceModule(other);
    EXPECT_EQ(other, ResourceModule());
    SetResourceModule(nullptr);
    EXPECT_EQ(ThisModule(), ResourceModule());
}

}  // namespace
}  // namespace nux
