#include "framework/Variant.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <new>
#include <utility>

#include "framework/ComObject.h"
#include "framework/Implements.h"

namespace nux {
namespace {

class Plain : public Implements<IUnknown> {
public:
    virtual ~Plain() = default;
};

TEST(Variant, IsEmptyByDefault) {
    const Variant value;
    EXPECT_EQ(VT_EMPTY, value.Type());
    EXPECT_FALSE(value.IsString());
}

TEST(Variant, OfATextLeavesAloneWhatItsMemoryHeldBefore) {
    VARIANT before{};
    before.vt = VT_UNKNOWN;
    const auto object = MakeObject<Plain>();
    before.punkVal = object.Get();
    alignas(Variant) unsigned char memory[sizeof(Variant)];
    std::memcpy(memory, &before, sizeof before);
    Variant* const made = new (memory) Variant("text");
    EXPECT_STREQ(L"text", made->Text());
    made->~Variant();
    object->AddRef();
    EXPECT_EQ(1u, object->Release());
}

TEST(Variant, HoldsWhatItWasSetTo) {
    Variant value("text");
    ASSERT_TRUE(value.IsString());
    EXPECT_STREQ(L"text", value.Text());
    value.SetText(Bstr(L"other"));
    ASSERT_TRUE(value.IsString());
    EXPECT_STREQ(L"other", value.Text());
    value.SetNumber(-5);
    EXPECT_EQ(VT_I4, value.Type());
    EXPECT_EQ(-5, value.Number());
    value.SetError(E_FAIL);
    EXPECT_EQ(VT_ERROR, value.Type());
    EXPECT_EQ(E_FAIL, value.Get().scode);
    value.SetArray(SafeArrayCreateVector(VT_VARIANT, 0, 3));
    EXPECT_EQ(VT_ARRAY | VT_VARIANT, value.Type());
    EXPECT_EQ(3u, value.Get().parray->rgsabound[0].cElements);
}

/// Counts its references and never goes.
class Counted : public IUnknown {
public:
    virtual ~Counted() = default;
    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    ULONG references = 1;
};

TEST(Variant, OfATextClearsNothingThatHasStoodInItsPlace) {
    Counted object;
    VARIANT left{};
    left.vt = VT_UNKNOWN;
    left.punkVal = &object;
    alignas(Variant) unsigned char place[sizeof(Variant)];
    std::memcpy(place, &left, sizeof left);
    auto* const made = new (place) Variant("text");
    EXPECT_EQ(1u, object.references);
    made->~Variant();
}

TEST(Variant, IsClearedBeforeItReceives) {
    Variant value("old");
    EXPECT_EQ(VT_EMPTY, value.Receive()->vt);
}

TEST(Variant, ExchangesItsContentWithAnother) {
    Variant text("text");
    Variant number;
    number.SetNumber(5);
    text.Swap(number);
    ASSERT_TRUE(number.IsString());
    EXPECT_STREQ(L"text", number.Text());
    EXPECT_EQ(VT_I4, text.Type());
    EXPECT_EQ(5, text.Number());
}

TEST(Variant, IsMovedWithItsContent) {
    Variant text("text");
    const BSTR content = text.Text();
    Variant moved(std::move(text));
    EXPECT_EQ(content, moved.Text());
    EXPECT_EQ(VT_EMPTY, text.Type());
    VARIANT taken = moved.Detach();
    EXPECT_EQ(content, taken.bstrVal);
    EXPECT_EQ(VT_EMPTY, moved.Type());
    VariantClear(&taken);
}

TEST(Variant, CopiesTheValueBehindAReference) {
    LONG number = 7;
    VARIANT reference{};
    reference.vt = VT_I4 | VT_BYREF;
    reference.plVal = &number;
    Variant value;
    ASSERT_EQ(S_OK, value.SetCopy(reference));
    number = 8;
    EXPECT_EQ(VT_I4, value.Type());
    EXPECT_EQ(7, value.Number());
}

TEST(Variant, KeepsItsContentWhenTheCopyFails) {
    Variant value("kept");
    VARIANT wrong{};
    wrong.vt = 0x7ff;
    EXPECT_TRUE(FAILED(value.SetCopy(wrong)));
    ASSERT_TRUE(value.IsString());
    EXPECT_STREQ(L"kept", value.Text());
}

TEST(Variant, ReplacesTheCallersValueByACopy) {
    const Variant value("text");
    VARIANT target{};
    ASSERT_EQ(S_OK, value.CopyTo(&target));
    EXPECT_STREQ(L"text", target.bstrVal);
    EXPECT_NE(value.Text(), target.bstrVal);
    VariantClear(&target);
}

/// Does something when it is released for the last time.
class Leaving : public Implements<IUnknown> {
public:
    explicit Leaving(std::function<void()> leave) : leave_(std::move(leave)) {}
    virtual ~Leaving() { leave_(); }

private:
    std::function<void()> leave_;
};

TEST(Variant, ReleasesWhatItHeldLast) {
    Variant value;
    VARTYPE seen = VT_EMPTY;
    VARIANT object{};
    object.vt = VT_UNKNOWN;
    object.punkVal = MakeObject<Leaving>([&] { seen = value.Type(); }).Detach();
    ASSERT_EQ(S_OK, value.SetCopy(object));
    VariantClear(&object);
    value.SetNumber(1);
    EXPECT_EQ(VT_I4, seen) << "the release sees the new value";
}

}  // namespace
}  // namespace nux
