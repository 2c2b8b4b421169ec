// `UserData`, `LastRVCCmdResult`, `GlobalData`.

#include <gtest/gtest.h>

#include "tests/control/Component.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/ThreadLocale.h"

namespace nux {
namespace {

using GetText = HRESULT (STDMETHODCALLTYPE InuxStdParts::*)(BSTR*);
using PutText = HRESULT (STDMETHODCALLTYPE InuxStdParts::*)(BSTR);

struct TextProperty {
    const char* name;
    GetText get;
    PutText put;
};

const TextProperty textProperties[] = {
    {"UserData", &InuxStdParts::get_UserData, &InuxStdParts::put_UserData},
    {"LastRVCCmdResult", &InuxStdParts::get_LastRVCCmdResult, &InuxStdParts::put_LastRVCCmdResult}};

class ScriptTexts : public PartsTest {
protected:
    void Put(const TextProperty& property, std::wstring_view text) {
        EXPECT_EQ(S_OK, (parts.Get()->*property.put)(Bstr(text).Get()));
    }
};

TEST_F(ScriptTexts, AreEmptyAtFirst) {
    for (const TextProperty& property : textProperties) {
        SCOPED_TRACE(property.name);
        BSTR text = nullptr;
        EXPECT_EQ(S_OK, (parts.Get()->*property.get)(&text));
        EXPECT_NE(nullptr, text) << "an empty string, not a missing one";
        EXPECT_EQ(L"", Take(text));
        EXPECT_EQ(E_INVALIDARG, (parts.Get()->*property.get)(nullptr));
    }
}

TEST_F(ScriptTexts, ReplaceTheCallersString) {
    for (const TextProperty& property : textProperties) {
        SCOPED_TRACE(property.name);
        Put(property, L"a value");
        BSTR text = SysAllocString(L"something longer that was there");
        EXPECT_EQ(S_OK, (parts.Get()->*property.get)(&text));
        EXPECT_EQ(L"a value", Take(text));
    }
}

TEST_F(ScriptTexts, AreKeptApart) {
    Put(textProperties[0], L"one");
    Put(textProperties[1], L"two");
    EXPECT_EQ(L"one", ReadText(parts, textProperties[0].get));
    EXPECT_EQ(L"two", ReadText(parts, textProperties[1].get));
}

TEST_F(ScriptTexts, TakeNullAsEmpty) {
    for (const TextProperty& property : textProperties) {
        SCOPED_TRACE(property.name);
        Put(property, L"a value");
        EXPECT_EQ(S_OK, (parts.Get()->*property.put)(nullptr));
        EXPECT_EQ(L"", ReadText(parts, property.get));
    }
}

TEST_F(ScriptTexts, AreNarrowInside) {
    for (const TextProperty& property : textProperties) {
        SCOPED_TRACE(property.name);
        Put(property, L"\u00c4\u00df\u20ac \u4e2d");
        EXPECT_EQ(L"\u00c4\u00df\u20ac ?", ReadText(parts, property.get));
    }
}

TEST_F(ScriptTexts, ComeInInTheCodePageOfTheThreadAndGoOutInThatOfTheSystem) {
    const ThreadLocale locale(russian);
    for (const TextProperty& property : textProperties) {
        SCOPED_TRACE(property.name);
        Put(property, L"\u0416");
        EXPECT_EQ(L"\u00c6", ReadText(parts, property.get));
    }
}

TEST_F(ScriptTexts, KeepZerosInsideAndAnyLength) {
    const std::wstring withZero(L"a\0b", 3);
    const std::wstring longText(100000, L'x');
    for (const TextProperty& property : textProperties) {
        SCOPED_TRACE(property.name);
        Put(property, withZero);
        EXPECT_EQ(withZero, ReadText(parts, property.get));
        Put(property, longText);
        EXPECT_EQ(longText, ReadText(parts, property.get));
    }
}

class GlobalData : public PartsTest {
protected:
    /// Puts a value and reads it back over one of another type.
    void RoundTrip(const VARIANT& given, Variant& read) {
        EXPECT_EQ(S_OK, parts->put_GlobalData(given));
        read.Receive();
        read.vt = VT_BSTR;
        read.bstrVal = SysAllocString(L"replaced");
        EXPECT_EQ(S_OK, parts->get_GlobalData(&read));
        EXPECT_EQ(given.vt, read.vt);
    }
};

TEST_F(GlobalData, IsEmptyAtFirst) {
    Variant read;
    read.vt = VT_I4;
    EXPECT_EQ(S_OK, parts->get_GlobalData(&read));
    EXPECT_EQ(VT_EMPTY, read.vt);
    EXPECT_EQ(E_INVALIDARG, parts->get_GlobalData(nullptr));
}

TEST_F(GlobalData, KeepsEveryPlainKindOfValue) {
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_I1, VT_I2, VT_I4, VT_I8, VT_UI1, VT_UI2, VT_UI4, VT_UI8,
                               VT_INT, VT_UINT, VT_R4, VT_R8, VT_CY, VT_DATE, VT_BOOL, VT_ERROR}) {
        SCOPED_TRACE(type);
        Variant given;
        given.vt = type;
        given.llVal = 0x4142434445464748;
        Variant read;
        RoundTrip(given, read);
        switch (type) {
            case VT_EMPTY:
            case VT_NULL:
                break;
            case VT_I8:
            case VT_UI8:
            case VT_R8:
            case VT_CY:
            case VT_DATE:
                EXPECT_EQ(given.llVal, read.llVal);
                break;
            case VT_I1:
            case VT_UI1:
                EXPECT_EQ(given.bVal, read.bVal);
                break;
            case VT_I2:
            case VT_UI2:
            case VT_BOOL:
                EXPECT_EQ(given.iVal, read.iVal);
                break;
            default:
                EXPECT_EQ(given.lVal, read.lVal);
        }
    }
}

TEST_F(GlobalData, KeepsADecimal) {
    Variant given;
    given.decVal.Lo64 = 123456789;
    given.decVal.scale = 4;
    given.vt = VT_DECIMAL;
    Variant read;
    RoundTrip(given, read);
    EXPECT_EQ(123456789u, read.decVal.Lo64);
    EXPECT_EQ(4, read.decVal.scale);
}

TEST_F(GlobalData, CopiesTexts) {
    Variant given;
    given.vt = VT_BSTR;
    given.bstrVal = SysAllocStringLen(L"a\0\u4e2d", 3);
    Variant read;
    RoundTrip(given, read);
    EXPECT_NE(given.bstrVal, read.bstrVal);
    EXPECT_EQ(std::wstring(L"a\0\u4e2d", 3), std::wstring(read.bstrVal, SysStringLen(read.bstrVal)))
        << "nothing is narrowed here";
}

TEST_F(GlobalData, CopiesArrays) {
    Variant given;
    given.parray = SafeArrayCreateVector(VT_I4, 5, 3);
    given.vt = VT_ARRAY | VT_I4;
    LONG index = 6;
    LONG number = 42;
    SafeArrayPutElement(given.parray, &index, &number);
    Variant read;
    RoundTrip(given, read);
    EXPECT_NE(given.parray, read.parray);
    LONG found = 0;
    EXPECT_EQ(S_OK, SafeArrayGetElement(read.parray, &index, &found));
    EXPECT_EQ(42, found);
    LONG lower = 0;
    SafeArrayGetLBound(read.parray, 1, &lower);
    EXPECT_EQ(5, lower);
}

TEST_F(GlobalData, HoldsObjectsAndLetsThemGo) {
    const auto object = MakeObject<NamedProperties>();
    {
        Variant given;
        given.vt = VT_DISPATCH;
        ComPtr<IDispatch>(object.Get()).CopyTo(&given.pdispVal);
        Variant read;
        RoundTrip(given, read);
        EXPECT_EQ(object.Get(), read.pdispVal);
        EXPECT_EQ(4u, References(object.Get()));
    }
    EXPECT_EQ(2u, References(object.Get()));
    Variant empty;
    EXPECT_EQ(S_OK, parts->put_GlobalData(empty));
    EXPECT_EQ(1u, References(object.Get()));

    Variant unknown;
    unknown.vt = VT_UNKNOWN;
    ComPtr<IUnknown>(object.Get()).CopyTo(&unknown.punkVal);
    Variant read;
    RoundTrip(unknown, read);
    ReleaseParts();
    EXPECT_EQ(3u, References(object.Get())) << "the object's own reference went with it";
}

TEST_F(GlobalData, KeepsANullObject) {
    Variant given;
    given.vt = VT_DISPATCH;
    given.pdispVal = nullptr;
    Variant read;
    RoundTrip(given, read);
    EXPECT_EQ(nullptr, read.pdispVal);
}

TEST_F(GlobalData, AValueThatWasReadCanBePutBack) {
    Variant given;
    given.vt = VT_BSTR;
    given.bstrVal = SysAllocString(L"mine");
    Variant read;
    RoundTrip(given, read);
    RoundTrip(read, given);
    EXPECT_STREQ(L"mine", given.bstrVal);
}

TEST_F(GlobalData, OfAReferenceIsTheValueThatItReferredTo) {
    LONG number = 5;
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_I4;
    reference.plVal = &number;
    EXPECT_EQ(S_OK, parts->put_GlobalData(reference));
    number = 6;
    Variant read;
    EXPECT_EQ(S_OK, parts->get_GlobalData(&read));
    EXPECT_EQ(VT_I4, read.vt);
    EXPECT_EQ(5, read.lVal);

    Variant variable;
    variable.vt = VT_BSTR;
    variable.bstrVal = SysAllocString(L"of a variable");
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    EXPECT_EQ(S_OK, parts->put_GlobalData(reference));
    variable.Receive();
    EXPECT_EQ(S_OK, parts->get_GlobalData(&read));
    ASSERT_EQ(VT_BSTR, read.vt);
    EXPECT_STREQ(L"of a variable", read.bstrVal);
}

TEST_F(GlobalData, AValueThatCannotBeCopiedIsRaisedAndLeavesTheError) {
    const auto object = MakeObject<NamedProperties>();
    Variant held;
    held.vt = VT_DISPATCH;
    ComPtr<IDispatch>(object.Get()).CopyTo(&held.pdispVal);
    parts->put_GlobalData(held);
    ASSERT_EQ(3u, References(object.Get()));

    for (const VARTYPE type : {VARTYPE{0x00ff}, VARTYPE{VT_VOID}, VARTYPE{VT_BYREF | VT_EMPTY}}) {
        SCOPED_TRACE(type);
        VARIANT bad{};
        bad.vt = type;
        EXPECT_EQ(DISP_E_BADVARTYPE, parts->put_GlobalData(bad));
        Variant read;
        EXPECT_EQ(S_OK, parts->get_GlobalData(&read));
        EXPECT_EQ(VT_ERROR, read.vt);
        EXPECT_EQ(DISP_E_BADVARTYPE, read.scode);
    }
    EXPECT_EQ(2u, References(object.Get())) << "the old value is gone";
    Variant given;
    given.vt = VT_I4;
    given.lVal = 3;
    Variant read;
    RoundTrip(given, read);
    EXPECT_EQ(3, read.lVal) << "usable again";
}

}  // namespace
}  // namespace nux
