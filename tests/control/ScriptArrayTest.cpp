// JSArray2SafeArray, with arrays of the platform's own script engine.

#include <gtest/gtest.h>

#include "driver/ScriptEngine.h"
#include "tests/control/Component.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/PrivateMemory.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

class ScriptArray : public PartsTest {
protected:
    HRESULT Convert(const std::wstring& expression, RawVariant& array) {
        return parts->JSArray2SafeArray(engine.Object(expression).Get(), &array);
    }

    static LONG Count(const VARIANT& array) {
        LONG lower = -1;
        LONG upper = -2;
        EXPECT_EQ(VT_ARRAY | VT_VARIANT, array.vt);
        EXPECT_EQ(1u, SafeArrayGetDim(array.parray));
        EXPECT_EQ(S_OK, SafeArrayGetLBound(array.parray, 1, &lower));
        EXPECT_EQ(S_OK, SafeArrayGetUBound(array.parray, 1, &upper));
        EXPECT_EQ(0, lower);
        return upper + 1;
    }

    static void Element(const VARIANT& array, LONG index, RawVariant& element) {
        EXPECT_EQ(S_OK, SafeArrayGetElement(array.parray, &index, element.Receive()));
    }

    ScriptEngine engine;
};

TEST_F(ScriptArray, ElementsOfAnyKindKeepTheirOrderAndType) {
    RawVariant array;
    ASSERT_EQ(S_OK, Convert(L"[3, 'text', 2.5, true, null, undefined]", array));
    ASSERT_EQ(6, Count(array));
    RawVariant element;
    Element(array, 0, element);
    EXPECT_EQ(VT_I4, element.vt);
    EXPECT_EQ(3, element.lVal);
    Element(array, 1, element);
    ASSERT_EQ(VT_BSTR, element.vt);
    EXPECT_STREQ(L"text", element.bstrVal);
    Element(array, 2, element);
    EXPECT_EQ(VT_R8, element.vt);
    EXPECT_EQ(2.5, element.dblVal);
    Element(array, 3, element);
    EXPECT_EQ(VT_BOOL, element.vt);
    EXPECT_EQ(VARIANT_TRUE, element.boolVal);
    Element(array, 4, element);
    EXPECT_EQ(VT_NULL, element.vt);
    Element(array, 5, element);
    EXPECT_EQ(VT_EMPTY, element.vt);
}

TEST_F(ScriptArray, AnEmptyOneGivesAnEmptyArray) {
    RawVariant array;
    ASSERT_EQ(S_OK, Convert(L"[]", array));
    EXPECT_EQ(0, Count(array));
}

TEST_F(ScriptArray, TheResultIsUnlocked) {
    RawVariant array;
    ASSERT_EQ(S_OK, Convert(L"[1, 2]", array));
    EXPECT_EQ(0u, array.parray->cLocks);
    EXPECT_EQ(S_OK, VariantClear(&array));
}

TEST_F(ScriptArray, NestedArraysAndObjectsStayObjects) {
    RawVariant array;
    ASSERT_EQ(S_OK, Convert(L"[[1, 2], {a: 5}]", array));
    ASSERT_EQ(2, Count(array));
    RawVariant inner;
    Element(array, 0, inner);
    ASSERT_EQ(VT_DISPATCH, inner.vt);
    RawVariant converted;
    EXPECT_EQ(S_OK, parts->JSArray2SafeArray(inner.pdispVal, &converted));
    EXPECT_EQ(2, Count(converted));
    Element(array, 1, inner);
    EXPECT_EQ(VT_DISPATCH, inner.vt);
}

TEST_F(ScriptArray, ASparseOneFailsWithNothingMade) {
    RawVariant array;
    EXPECT_EQ(E_FAIL, Convert(L"(function() { var a = [1]; a[2] = 3; return a; })()", array));
    EXPECT_EQ(VT_EMPTY, array.vt);
    EXPECT_EQ(E_FAIL, Convert(L"new Array(5)", array));
    EXPECT_EQ(VT_EMPTY, array.vt);
}

TEST_F(ScriptArray, AnythingWithALengthAndElementsWillDo) {
    RawVariant array;
    ASSERT_EQ(S_OK, Convert(L"({length: 2, 0: 'a', 1: 'b', 2: 'not asked for'})", array)) << "an object";
    EXPECT_EQ(2, Count(array));
    ASSERT_EQ(S_OK, Convert(L"(function() { return arguments; })(7, 8, 9)", array)) << "arguments";
    EXPECT_EQ(3, Count(array));
}

TEST_F(ScriptArray, ALengthThatIsNoWholeNumberIsInvalid) {
    for (const wchar_t* expression : {L"{}", L"{length: '2', 0: 1, 1: 2}", L"{length: 1.5, 0: 1}",
                                      L"{length: null}", L"{length: true}", L"{length: undefined}"}) {
        RawVariant array;
        EXPECT_EQ(E_INVALIDARG, Convert(std::wstring(L"(") + expression + L")", array)) << expression;
        EXPECT_EQ(VT_EMPTY, array.vt);
    }
    const auto object = MakeObject<NamedProperties>();
    object->SetNumber(L"length", 0);
    object->Fail(L"length", DISP_E_EXCEPTION);
    RawVariant array;
    EXPECT_EQ(E_INVALIDARG, parts->JSArray2SafeArray(object.Get(), &array));
}

TEST_F(ScriptArray, ALengthThatNoArrayCanHaveFails) {
    for (const wchar_t* expression : {L"({length: -1})", L"({length: -2147483647})",
                                      L"({length: 2147483647})", L"({length: 178956971, 0: 1})"}) {
        RawVariant array;
        EXPECT_EQ(E_FAIL, Convert(expression, array)) << expression;
        EXPECT_EQ(VT_EMPTY, array.vt);
    }
}

/// An array of a great length that ends after some elements.
class EndingArray : public HostDispatch {
public:
    static constexpr DISPID length = 1;
    static constexpr DISPID element = 2;
    static constexpr long elements = 1000;

    long long memory = 0;  ///< of the process when the missing element is asked for

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
        const std::wstring name = names[0];
        *id = name == L"length" ? length : element;
        if (name != std::to_wstring(elements))
            return S_OK;
        memory = PrivateMemory();
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        result->vt = VT_I4;
        result->lVal = id == length ? 89478485 : 5;
        return S_OK;
    }
};

TEST_F(ScriptArray, MemoryGrowsWithTheElementsThatAreFoundAndNotWithTheLength) {
    const auto object = MakeObject<EndingArray>();
    const long long before = PrivateMemory();
    RawVariant array;
    EXPECT_EQ(E_FAIL, parts->JSArray2SafeArray(object.Get(), &array));
    ASSERT_NE(0, object->memory) << "the missing element was asked for";
    EXPECT_LT(object->memory - before, 4 * 1024 * 1024);
}

TEST_F(ScriptArray, AnElementThatFailsFailsTheWhole) {
    const auto object = MakeObject<NamedProperties>();
    object->SetNumber(L"length", 2);
    object->SetText(L"0", L"read");
    object->SetText(L"1", L"not read");
    object->Fail(L"1", E_ACCESSDENIED);
    RawVariant array;
    EXPECT_EQ(E_FAIL, parts->JSArray2SafeArray(object.Get(), &array));
    EXPECT_EQ(VT_EMPTY, array.vt);
    object->Fail(L"1", S_OK);
    EXPECT_EQ(S_OK, parts->JSArray2SafeArray(object.Get(), &array));
    EXPECT_EQ(2048u, object->lcidOfNames);
    EXPECT_EQ(DISPATCH_PROPERTYGET, object->lastRead.flags);
}

TEST_F(ScriptArray, OneThatFailsLetsGoOfWhatItHasTaken) {
    const auto element = MakeObject<NamedProperties>();
    const auto object = MakeObject<NamedProperties>();
    RawVariant taken;
    taken.vt = VT_DISPATCH;
    ComPtr<IDispatch>(element.Get()).CopyTo(&taken.pdispVal);
    object->SetNumber(L"length", 2);
    object->Set(L"0", taken);
    const ULONG before = References(element.Get());
    RawVariant array;
    EXPECT_EQ(E_FAIL, parts->JSArray2SafeArray(object.Get(), &array));
    EXPECT_EQ(before, References(element.Get()));
}

TEST_F(ScriptArray, NullsAreInvalid) {
    RawVariant array;
    EXPECT_EQ(E_INVALIDARG, parts->JSArray2SafeArray(nullptr, &array));
    EXPECT_EQ(E_INVALIDARG, parts->JSArray2SafeArray(engine.Object(L"[1]").Get(), nullptr));
}

TEST_F(ScriptArray, WhatStoodInTheResultIsCleared) {
    const auto object = MakeObject<NamedProperties>();
    RawVariant array;
    array.vt = VT_DISPATCH;
    ComPtr<IDispatch>(object.Get()).CopyTo(&array.pdispVal);
    EXPECT_EQ(E_INVALIDARG, Convert(L"({})", array));
    EXPECT_EQ(VT_EMPTY, array.vt);
    EXPECT_EQ(1u, References(object.Get()));
}

TEST_F(ScriptArray, IsWhatTheDataManagerTakes) {
    ComPtr<IDispatch> dispatch;
    ASSERT_EQ(S_OK, parts->get_DataManager(dispatch.Receive()));
    const auto manager = dispatch.As<InuxDataManager>();
    RawVariant direct;
    direct.vt = VT_DISPATCH;
    engine.Object(L"[250, 300]").CopyTo(&direct.pdispVal);
    EXPECT_EQ(E_INVALIDARG, manager->put_CavityPlateSizes(direct));
    RawVariant array;
    ASSERT_EQ(S_OK, Convert(L"[250, 300]", array));
    EXPECT_EQ(S_OK, manager->put_CavityPlateSizes(array));
}

TEST_F(ScriptArray, TenThousandElementsAreCopied) {
    RawVariant array;
    ASSERT_EQ(S_OK, Convert(L"(function() { for (var a = [], i = 0; i < 10000; ++i) a[i] = i; return a; })()",
                            array));
    ASSERT_EQ(10000, Count(array));
    RawVariant last;
    Element(array, 9999, last);
    EXPECT_EQ(9999, last.lVal);
}

}  // namespace
}  // namespace nux
