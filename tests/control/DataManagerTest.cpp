#include <gtest/gtest.h>

#include <cwchar>

#include "tests/control/Component.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

using Get = HRESULT (STDMETHODCALLTYPE InuxDataManager::*)(VARIANT*);
using Put = HRESULT (STDMETHODCALLTYPE InuxDataManager::*)(VARIANT);

struct Property {
    const char* name;
    Get get;
    Put put;
};

const Property sizes[] = {
    {"CavityPlateSizes", &InuxDataManager::get_CavityPlateSizes, &InuxDataManager::put_CavityPlateSizes},
    {"CorePlateSizes", &InuxDataManager::get_CorePlateSizes, &InuxDataManager::put_CorePlateSizes}};
const Property texts[] = {
    {"CatalogName", &InuxDataManager::get_CatalogName, &InuxDataManager::put_CatalogName},
    {"Units", &InuxDataManager::get_Units, &InuxDataManager::put_Units}};

/// An array of VARIANT with the given numbers.
void MakeArray(std::initializer_list<long> numbers, Variant& array) {
    SAFEARRAY* made = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(numbers.size()));
    LONG index = 0;
    for (const long number : numbers) {
        Variant element;
        element.vt = VT_I4;
        element.lVal = number;
        SafeArrayPutElement(made, &index, &element);
        ++index;
    }
    array.Receive();
    array.vt = VT_ARRAY | VT_VARIANT;
    array.parray = made;
}

long Element(const VARIANT& array, LONG index) {
    Variant element;
    EXPECT_EQ(VT_ARRAY | VT_VARIANT, array.vt);
    EXPECT_EQ(S_OK, SafeArrayGetElement(array.parray, &index, &element));
    EXPECT_EQ(VT_I4, element.vt);
    return element.lVal;
}

void MakeText(const wchar_t* text, Variant& value) {
    value.Receive();
    value.bstrVal = SysAllocString(text);
    value.vt = VT_BSTR;
}

class DataManager : public PartsTest {
protected:
    void SetUp() override {
        PartsTest::SetUp();
        ComPtr<IDispatch> dispatch;
        ASSERT_EQ(S_OK, parts->get_DataManager(dispatch.Receive()));
        data = dispatch.As<InuxDataManager>(IID_InuxDataManager);
        ASSERT_TRUE(data);
    }
    void TearDown() override {
        data.Reset();
        PartsTest::TearDown();
    }

    ComPtr<InuxDataManager> data;
};

TEST_F(DataManager, IsOnePerObjectAndGivenOutWithAReference) {
    EXPECT_EQ(E_INVALIDARG, parts->get_DataManager(nullptr));
    ComPtr<IDispatch> again;
    EXPECT_EQ(S_OK, parts->get_DataManager(again.Receive()));
    EXPECT_EQ(data.Get(), again.Get());
    const ComPtr<InuxStdParts> other = CreateParts();
    ComPtr<IDispatch> others;
    other->get_DataManager(others.Receive());
    EXPECT_NE(data.Get(), others.Get());
}

TEST_F(DataManager, OutlivesItsOwnerWithItsValues) {
    Variant value;
    MakeText(L"mm", value);
    EXPECT_EQ(S_OK, data->put_Units(value));
    ReleaseParts();
    EXPECT_EQ(S_FALSE, ModuleCanUnload()) << "the module stays for the data manager";
    Variant read;
    EXPECT_EQ(S_OK, data->get_Units(&read));
    EXPECT_STREQ(L"mm", read.bstrVal);
}

TEST_F(DataManager, NullPointersAreInvalid) {
    for (const Property& property : sizes)
        EXPECT_EQ(E_INVALIDARG, (data.Get()->*property.get)(nullptr)) << property.name;
    for (const Property& property : texts)
        EXPECT_EQ(E_INVALIDARG, (data.Get()->*property.get)(nullptr)) << property.name;
}

TEST_F(DataManager, TextsComeInInTheCodePageOfTheThreadAndGoOutInThatOfTheSystem) {
    const ThreadLocale locale(russian);
    for (const Property& property : texts) {
        SCOPED_TRACE(property.name);
        Variant value;
        MakeText(L"\u0416", value);
        EXPECT_EQ(S_OK, (data.Get()->*property.put)(value));
        EXPECT_EQ(S_OK, (data.Get()->*property.get)(&value));
        EXPECT_STREQ(L"\u00c6", value.bstrVal);
    }
}

TEST_F(DataManager, AReferenceToAVariableIsRefused) {
    Variant variable;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    MakeArray({1, 2}, variable);
    for (const Property& property : sizes)
        EXPECT_EQ(E_INVALIDARG, (data.Get()->*property.put)(reference)) << property.name;
    MakeText(L"text", variable);
    for (const Property& property : texts)
        EXPECT_EQ(E_INVALIDARG, (data.Get()->*property.put)(reference)) << property.name;
}

TEST_F(DataManager, WhatWasNotSetFails) {
    Variant read;
    for (const Property& property : sizes)
        EXPECT_EQ(E_FAIL, (data.Get()->*property.get)(&read)) << property.name;
    for (const Property& property : texts)
        EXPECT_EQ(E_FAIL, (data.Get()->*property.get)(&read)) << property.name;
    EXPECT_EQ(VT_EMPTY, read.vt);
}

TEST_F(DataManager, SizesAreCopiedInAndOut) {
    Variant given;
    for (const Property& property : sizes) {
        SCOPED_TRACE(property.name);
        MakeArray({250, 300}, given);
        EXPECT_EQ(S_OK, (data.Get()->*property.put)(given));
        LONG first = 0;
        Variant changed;
        MakeText(L"changed behind the back", changed);
        SafeArrayPutElement(given.parray, &first, &changed);
        Variant read;
        MakeText(L"replaced by what is read", read);
        EXPECT_EQ(S_OK, (data.Get()->*property.get)(&read));
        EXPECT_EQ(250, Element(read, 0));
        EXPECT_EQ(300, Element(read, 1));
        SafeArrayPutElement(read.parray, &first, &changed);
        Variant again;
        EXPECT_EQ(S_OK, (data.Get()->*property.get)(&again));
        EXPECT_EQ(250, Element(again, 0));
    }
}

TEST_F(DataManager, TheTwoSizesAreKeptApart) {
    Variant given;
    MakeArray({1}, given);
    data->put_CavityPlateSizes(given);
    Variant read;
    EXPECT_EQ(E_FAIL, data->get_CorePlateSizes(&read));
    MakeArray({2}, given);
    data->put_CorePlateSizes(given);
    data->get_CavityPlateSizes(&read);
    EXPECT_EQ(1, Element(read, 0));
}

TEST_F(DataManager, SizesOfAnyOtherTypeAreRefusedAndTheOldOnesStay) {
    Variant given;
    MakeArray({7}, given);
    data->put_CavityPlateSizes(given);
    Variant wrong;
    EXPECT_EQ(E_INVALIDARG, data->put_CavityPlateSizes(wrong)) << "empty";
    MakeText(L"1,2", wrong);
    EXPECT_EQ(E_INVALIDARG, data->put_CavityPlateSizes(wrong)) << "a text";
    wrong.Receive();
    wrong.vt = VT_DISPATCH;
    wrong.pdispVal = MakeObject<NamedProperties>().Detach();
    EXPECT_EQ(E_INVALIDARG, data->put_CavityPlateSizes(wrong)) << "a script's array is an object";
    wrong.Receive();
    wrong.vt = VT_ARRAY | VT_I4;
    wrong.parray = SafeArrayCreateVector(VT_I4, 0, 2);
    EXPECT_EQ(E_INVALIDARG, data->put_CavityPlateSizes(wrong)) << "an array of another type";
    VARIANT reference;
    reference.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    reference.pparray = &given.parray;
    EXPECT_EQ(E_INVALIDARG, data->put_CavityPlateSizes(reference)) << "an array by reference";
    Variant read;
    EXPECT_EQ(S_OK, data->get_CavityPlateSizes(&read));
    EXPECT_EQ(7, Element(read, 0));
}

TEST_F(DataManager, TextsAreKeptNarrow) {
    Variant given;
    Variant read;
    for (const Property& property : texts) {
        SCOPED_TRACE(property.name);
        MakeText(L"Gr\u00f6\u00dfen \u4e2d", given);
        EXPECT_EQ(S_OK, (data.Get()->*property.put)(given));
        MakeArray({1}, read);
        EXPECT_EQ(S_OK, (data.Get()->*property.get)(&read));
        ASSERT_EQ(VT_BSTR, read.vt);
        EXPECT_STREQ(L"Gr\u00f6\u00dfen ?", read.bstrVal);
    }
}

TEST_F(DataManager, AnEmptyTextReadsAsOneThatWasNotSet) {
    Variant given;
    Variant read;
    for (const Property& property : texts) {
        SCOPED_TRACE(property.name);
        MakeText(L"x", given);
        (data.Get()->*property.put)(given);
        MakeText(L"", given);
        EXPECT_EQ(S_OK, (data.Get()->*property.put)(given));
        EXPECT_EQ(E_FAIL, (data.Get()->*property.get)(&read));
        MakeText(L"x", given);
        (data.Get()->*property.put)(given);
        VARIANT nullText;
        nullText.vt = VT_BSTR;
        nullText.bstrVal = nullptr;
        EXPECT_EQ(S_OK, (data.Get()->*property.put)(nullText));
        EXPECT_EQ(E_FAIL, (data.Get()->*property.get)(&read));
    }
}

TEST_F(DataManager, TextsOfAnyOtherTypeAreRefusedAndTheOldOnesStay) {
    Variant given;
    for (const Property& property : texts) {
        SCOPED_TRACE(property.name);
        MakeText(L"inch", given);
        (data.Get()->*property.put)(given);
        Variant wrong;
        EXPECT_EQ(E_INVALIDARG, (data.Get()->*property.put)(wrong));
        wrong.vt = VT_I4;
        wrong.lVal = 5;
        EXPECT_EQ(E_INVALIDARG, (data.Get()->*property.put)(wrong));
        VARIANT reference;
        reference.vt = VT_BYREF | VT_BSTR;
        reference.pbstrVal = &given.bstrVal;
        EXPECT_EQ(E_INVALIDARG, (data.Get()->*property.put)(reference));
        Variant read;
        EXPECT_EQ(S_OK, (data.Get()->*property.get)(&read));
        EXPECT_STREQ(L"inch", read.bstrVal);
    }
}

TEST_F(DataManager, ClearDataForgetsTheSizesAndKeepsTheTexts) {
    Variant given;
    MakeArray({1, 2}, given);
    for (const Property& property : sizes)
        (data.Get()->*property.put)(given);
    MakeText(L"kept", given);
    for (const Property& property : texts)
        (data.Get()->*property.put)(given);
    EXPECT_EQ(S_OK, data->ClearData());
    Variant read;
    for (const Property& property : sizes)
        EXPECT_EQ(E_FAIL, (data.Get()->*property.get)(&read)) << property.name;
    for (const Property& property : texts) {
        EXPECT_EQ(S_OK, (data.Get()->*property.get)(&read)) << property.name;
        EXPECT_STREQ(L"kept", read.bstrVal);
    }
    EXPECT_EQ(S_OK, data->ClearData()) << "twice";
}

TEST_F(DataManager, ObjectsInsideTheSizesAreHeldAndLetGo) {
    const auto object = MakeObject<NamedProperties>();
    Variant element;
    element.vt = VT_DISPATCH;
    ComPtr<IDispatch>(object.Get()).CopyTo(&element.pdispVal);
    Variant given;
    given.parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    given.vt = VT_ARRAY | VT_VARIANT;
    LONG index = 0;
    SafeArrayPutElement(given.parray, &index, &element);
    data->put_CorePlateSizes(given);
    given.Receive();
    element.Receive();
    EXPECT_EQ(2u, References(object.Get()));
    data->ClearData();
    EXPECT_EQ(1u, References(object.Get()));
}

}  // namespace
}  // namespace nux
