#include "framework/ErrorInfo.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/ComObject.h"
#include "framework/Implements.h"
#include "framework/Text.h"

namespace nux {
namespace {

/// What the thread's error object says, or "none"; it is taken.
std::wstring TakeWords() {
    ComPtr<IErrorInfo> error;
    Bstr words;
    if (GetErrorInfo(0, error.Receive()) != S_OK)
        return L"none";
    EXPECT_EQ(S_OK, error->GetDescription(words.Receive()));
    return std::wstring(words.View());
}

HRESULT FailWith(const wchar_t* words) {
    return TellFailure(IID_IDispatch, [&] { throw HResultError(E_ACCESSDENIED, words); });
}

TEST(ErrorInfo, CarriesTheWordsTheSourceAndTheInterface) {
    EXPECT_EQ(E_ACCESSDENIED, FailWith(L"why it failed"));
    ComPtr<IErrorInfo> error;
    ASSERT_EQ(S_OK, GetErrorInfo(0, error.Receive()));
    Bstr text;
    error->GetDescription(text.Receive());
    EXPECT_EQ(L"why it failed", text.View());
    error->GetSource(text.Receive());
    EXPECT_EQ(L"Tarnvale.nuxStdParts", text.View());
    GUID iid{};
    error->GetGUID(&iid);
    EXPECT_EQ(IID_IDispatch, iid);
}

TEST(ErrorInfo, IsNotTouchedByASuccess) {
    FailWith(L"older");
    EXPECT_EQ(S_OK, TellFailure(IID_IDispatch, [] {}));
    EXPECT_EQ(S_FALSE, TellFailure(IID_IDispatch, [] { return S_FALSE; }));
    EXPECT_EQ(L"older", TakeWords());
}

TEST(ErrorInfo, IsClearedByAFailureWithoutWords) {
    FailWith(L"older");
    EXPECT_EQ(E_FAIL, TellFailure(IID_IDispatch, [] { return E_FAIL; }));
    EXPECT_EQ(L"none", TakeWords());
    FailWith(L"older");
    EXPECT_EQ(E_ABORT, TellFailure(IID_IDispatch, [] { throw HResultError(E_ABORT); }));
    EXPECT_EQ(L"none", TakeWords());
    FailWith(L"older");
    EXPECT_EQ(E_OUTOFMEMORY, TellFailure(IID_IDispatch, [] { throw std::bad_alloc(); }));
    EXPECT_EQ(L"none", TakeWords());
    FailWith(L"older");
    EXPECT_EQ(E_UNEXPECTED, TellFailure(IID_IDispatch, [] { throw std::runtime_error("other"); }));
    EXPECT_EQ(L"none", TakeWords());
}

TEST(ErrorInfo, NamesTheArgumentThatIsNull) {
    const int given = 5;
    EXPECT_EQ(S_OK, TellFailure(IID_IDispatch, [&] { Require(&given, L"result"); }));
    EXPECT_EQ(E_INVALIDARG, TellFailure(IID_IDispatch, [] { Require(nullptr, L"result"); }));
    EXPECT_EQ(L"result must not be null.", TakeWords());
    EXPECT_EQ(E_FAIL, TellFailure(IID_IDispatch, [] { Require(nullptr, L"result", E_FAIL); }));
    TakeWords();
}

/// An object that may say why one of its interfaces failed.
class Speaker : public Implements<ISupportErrorInfo> {
public:
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_IDispatch ? S_OK : S_FALSE;
    }
};

TEST(ErrorInfo, OfAnotherObjectIsTakenOnlyIfItHasLeftIt) {
    const auto speaker = MakeObject<Speaker>();
    FailWith(L"said");
    EXPECT_EQ(L"", TakeErrorDescription(speaker.Get(), IID_IStream)) << "it says nothing of this interface";
    EXPECT_EQ(L"said", TakeErrorDescription(speaker.Get(), IID_IDispatch));
    EXPECT_EQ(L"none", TakeWords());
    EXPECT_EQ(L"", TakeErrorDescription(speaker.Get(), IID_IDispatch));
}

TEST(ErrorInfo, TellsTheSystemsErrorsInOneLine) {
    const std::wstring message = SystemMessage(ERROR_FILE_NOT_FOUND);
    EXPECT_GT(message.size(), 5u);
    EXPECT_EQ(std::wstring::npos, message.find_first_of(L"\r\n"));
    EXPECT_NE(L' ', message.back());
    EXPECT_EQ(L"error 536870913", SystemMessage(0x20000001));
}

}  // namespace
}  // namespace nux
