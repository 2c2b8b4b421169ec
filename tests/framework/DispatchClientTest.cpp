#include "framework/DispatchClient.h"

#include <gtest/gtest.h>

#include "tests/support/HostDoubles.h"

namespace nux {
namespace {

class DispatchProperty : public testing::Test {
protected:
    DispatchProperty() {
        object->SetText(L"Name", L"read");
        result.vt = VT_DISPATCH;
        ComPtr<IDispatch>(before.Get()).CopyTo(&result.pdispVal);
    }

    const ComPtr<ComObject<NamedProperties>> object = MakeObject<NamedProperties>();
    const ComPtr<ComObject<NamedProperties>> before = MakeObject<NamedProperties>();
    Variant result;  ///< holds `before`
};

TEST_F(DispatchProperty, TakesThePlaceOfWhatStoodInTheResult) {
    EXPECT_EQ(S_OK, GetDispatchProperty(object.Get(), L"Name", &result));
    ASSERT_EQ(VT_BSTR, result.vt);
    EXPECT_STREQ(L"read", result.bstrVal);
    EXPECT_EQ(1u, References(before.Get()));
}

TEST_F(DispatchProperty, ThatIsUnknownLeavesTheResultEmpty) {
    EXPECT_EQ(DISP_E_UNKNOWNNAME, GetDispatchProperty(object.Get(), L"Other", &result));
    EXPECT_EQ(VT_EMPTY, result.vt);
    EXPECT_EQ(1u, References(before.Get()));
}

TEST_F(DispatchProperty, ThatFailsLeavesTheResultEmptyWhateverItHasWritten) {
    object->Fail(L"Name", DISP_E_EXCEPTION);
    EXPECT_EQ(DISP_E_EXCEPTION, GetDispatchProperty(object.Get(), L"Name", &result));
    EXPECT_EQ(VT_EMPTY, result.vt);
    EXPECT_EQ(1u, References(before.Get()));
}

}  // namespace
}  // namespace nux
