#include "framework/Dispatch.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>
#include <vector>

#include "Sample.h"
#include "framework/ComObject.h"
#include "framework/Module.h"
#include "framework/Text.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

constexpr DISPID depth = 1;
constexpr DISPID join = 2;
constexpr DISPID fail = 3;

class Sample : public Dispatch<ISample> {
public:
    STDMETHODIMP get_Depth(LONG* value) override {
        *value = depth_;
        return S_OK;
    }
    STDMETHODIMP put_Depth(LONG value) override {
        depth_ = value;
        return S_OK;
    }
    STDMETHODIMP Join(BSTR first, BSTR second, BSTR* result) override {
        *result = Bstr(std::wstring(first) + second).Detach();
        return S_OK;
    }
    STDMETHODIMP Fail(LONG code) override { return code; }

private:
    LONG depth_ = 0;
};

/// Dispatch of an interface that no type library of this module describes.
class Undescribed : public Dispatch<IDispatch> {};

class DispatchTest : public testing::Test {
protected:
    ~DispatchTest() override { ReleaseTypeInfos(); }

    ComPtr<ISample> sample_ = MakeObject<Sample>();
};

TEST_F(DispatchTest, FindsTheNumbersOfNamesWhateverTheirCase) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"join")};
    LPOLESTR unknown[] = {const_cast<LPOLESTR>(L"Break")};
    DISPID id = 0;
    for (int round = 0; round < 2; ++round) {  // what has been asked is remembered
        id = 0;
        ASSERT_EQ(S_OK, sample_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_SYSTEM_DEFAULT, &id));
        EXPECT_EQ(join, id);
        EXPECT_EQ(DISP_E_UNKNOWNNAME,
                  sample_->GetIDsOfNames(IID_NULL, unknown, 1, LOCALE_SYSTEM_DEFAULT, &id));
    }
    EXPECT_EQ(E_POINTER, sample_->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_SYSTEM_DEFAULT, &id));
    EXPECT_EQ(E_POINTER, sample_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_SYSTEM_DEFAULT, nullptr));
}

TEST_F(DispatchTest, SetsAndReadsAProperty) {
    RawVariant value;
    value.vt = VT_I4;
    value.lVal = 42;
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS put{&value, &named, 1, 1};
    for (const int flags :
         {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}) {
        ++value.lVal;
        ASSERT_EQ(S_OK, sample_->Invoke(depth, IID_NULL, LOCALE_SYSTEM_DEFAULT, static_cast<WORD>(flags),
                                        &put, nullptr, nullptr, nullptr));
        DISPPARAMS none{};
        RawVariant result;
        ASSERT_EQ(S_OK, sample_->Invoke(depth, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                        &result, nullptr, nullptr));
        EXPECT_EQ(VT_I4, result.vt);
        EXPECT_EQ(value.lVal, result.lVal);
    }
}

TEST_F(DispatchTest, GivesTheLastOutArgumentAsResult) {
    RawVariant arguments[2];  // the last argument comes first
    arguments[0].vt = arguments[1].vt = VT_BSTR;
    arguments[0].bstrVal = Bstr(L"pin").Detach();
    arguments[1].bstrVal = Bstr(L"ejector ").Detach();
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    RawVariant result;
    ASSERT_EQ(S_OK, sample_->Invoke(join, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD, &parameters,
                                    &result, nullptr, nullptr));
    ASSERT_TRUE(result.IsString());
    EXPECT_STREQ(L"ejector pin", result.bstrVal);
}

TEST_F(DispatchTest, TellsTheFailureOfAnOperationAsItsExceptionCode) {
    RawVariant code;
    code.vt = VT_I4;
    code.lVal = E_ACCESSDENIED;
    DISPPARAMS parameters{&code, nullptr, 1, 0};
    EXCEPINFO exception{};
    EXPECT_EQ(DISP_E_EXCEPTION, sample_->Invoke(fail, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD,
                                                &parameters, nullptr, &exception, nullptr));
    EXPECT_EQ(E_ACCESSDENIED, exception.scode);
    for (BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile})
        SysFreeString(text);
}

TEST_F(DispatchTest, RefusesANumberThatIsNotDescribed) {
    DISPPARAMS none{};
    EXPECT_EQ(DISP_E_MEMBERNOTFOUND, sample_->Invoke(99, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD,
                                                     &none, nullptr, nullptr, nullptr));
}

TEST_F(DispatchTest, HasOneTypeDescription) {
    UINT count = 0;
    EXPECT_EQ(S_OK, sample_->GetTypeInfoCount(&count));
    EXPECT_EQ(1u, count);
    EXPECT_EQ(E_POINTER, sample_->GetTypeInfoCount(nullptr));
    ComPtr<ITypeInfo> description;
    EXPECT_EQ(S_OK, sample_->GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, description.Receive()));
    EXPECT_TRUE(description);
    EXPECT_EQ(DISP_E_BADINDEX, sample_->GetTypeInfo(1, LOCALE_SYSTEM_DEFAULT, description.Receive()));
    EXPECT_FALSE(description);
    EXPECT_EQ(E_POINTER, sample_->GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, nullptr));
}

TEST_F(DispatchTest, OffersItsInterfaceAndItsBases) {
    EXPECT_TRUE(sample_.As<ISample>());
    EXPECT_TRUE(sample_.As<IDispatch>());
    EXPECT_TRUE(sample_.As<IUnknown>());
    EXPECT_FALSE(sample_.As<IPersist>());
}

TEST_F(DispatchTest, AnswersWithTheFailureOfTheLibraryWhenItIsNotDescribed) {
    const auto object = MakeObject<Undescribed>();
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Join")};
    DISPID id = 0;
    EXPECT_EQ(TYPE_E_ELEMENTNOTFOUND, object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_SYSTEM_DEFAULT, &id));
    DISPPARAMS none{};
    EXPECT_EQ(TYPE_E_ELEMENTNOTFOUND, object->Invoke(1, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_METHOD,
                                                     &none, nullptr, nullptr, nullptr));
    ITypeInfo* description = nullptr;
    EXPECT_EQ(TYPE_E_ELEMENTNOTFOUND, object->GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, &description));
    EXPECT_EQ(nullptr, description);
}

TEST_F(DispatchTest, KeepsATypeDescriptionUntilTheyAreReleased) {
    const ComPtr<ITypeInfo> first = TypeInfoOf(IID_ISample);
    EXPECT_EQ(first.Get(), TypeInfoOf(IID_ISample).Get());
    first->AddRef();
    const ULONG kept = first->Release();
    ReleaseTypeInfos();
    first->AddRef();
    EXPECT_EQ(kept - 1, first->Release());
}

TEST_F(DispatchTest, SeveralThreadsMayAskForTheFirstTime) {
    constexpr int threadCount = 8;
    constexpr int rounds = 25;
    const RegisteredLibrary standard{IID_StdOle, 2, 0};
    const GUID types[] = {IID_IFontDisp, IID_IPictureDisp, IID_IFont, IID_IPicture};
    std::atomic<int> known{0};
    for (int round = 0; round < rounds; ++round) {
        ReleaseTypeInfos();
        std::latch start(threadCount);
        std::vector<std::thread> threads;
        for (int i = 0; i < threadCount; ++i) {
            threads.emplace_back([&, i] {
                start.arrive_and_wait();
                for (std::size_t each = 0; each < std::size(types); ++each) {
                    const GUID& type = types[(each + i) % std::size(types)];
                    const ComPtr<ITypeInfo> first = TypeInfoOf(type, &standard);
                    known += first && TypeInfoOf(type, &standard).Get() == first.Get();
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
    EXPECT_EQ(rounds * threadCount * static_cast<int>(std::size(types)), known);
}

TEST_F(DispatchTest, FindsMembersInTheDescriptionsOfARegisteredLibrary) {
    const RegisteredLibrary standard{IID_StdOle, 2, 0};
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Bold")};
    DISPID id = 0;
    ASSERT_EQ(S_OK, FindMembers(IID_IFontDisp, names, 1, &id, &standard));
    EXPECT_EQ(DISPID_FONT_BOLD, id);
}

TEST_F(DispatchTest, ThrowsTheCodeForALibraryThatIsNotRegistered) {
    const RegisteredLibrary missing{IID_IPersist, 1, 0};
    try {
        TypeInfoOf(IID_IFontDisp, &missing);
        FAIL() << "nothing thrown";
    } catch (const HResultError& error) {
        EXPECT_EQ(TYPE_E_LIBNOTREGISTERED, error.Code());
    }
}

TEST_F(DispatchTest, ThrowsTheCodeForAForeignIdentifier) {
    try {
        TypeInfoOf(IID_IPersist);
        FAIL() << "nothing thrown";
    } catch (const HResultError& error) {
        EXPECT_EQ(TYPE_E_ELEMENTNOTFOUND, error.Code());
    }
}

TEST_F(DispatchTest, ThrowsTheCodeForAModuleWithoutTypeLibrary) {
    const HINSTANCE own = ThisModule();
    SetThisModule(GetModuleHandleA("kernel32.dll"));
    EXPECT_THROW(TypeInfoOf(IID_ISample), HResultError);
    SetThisModule(own);
}

}  // namespace
}  // namespace nux
