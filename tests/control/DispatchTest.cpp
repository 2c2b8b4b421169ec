// Calls through automation that no script writes on purpose.

#include "framework/Dispatch.h"

#include "tests/control/Component.h"
#include "tests/support/HostDoubles.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

constexpr DISPID nux3D = 6;
constexpr DISPID globalData = 94;
constexpr DISPID userData = 91;

/// Answers a call of its default member with the argument.
class Indexed : public HostDispatch {
public:
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id != DISPID_VALUE || parameters->cArgs != 1)
            return DISP_E_MEMBERNOTFOUND;
        return VariantCopy(result, &parameters->rgvarg[0]);
    }
};

class DispatchTest : public PartsTest {
protected:
    /// Reads a property as `object.Property(7)` does.
    HRESULT ReadWithArgument(DISPID property, RawVariant& result) {
        RawVariant seven;
        seven.vt = VT_I4;
        seven.lVal = 7;
        DISPPARAMS parameters{&seven, nullptr, 1, 0};
        return parts->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                             &parameters, result.Receive(), nullptr, nullptr);
    }
};

TEST_F(DispatchTest, ArgumentsOfAPropertyThatHoldsNoObject) {
    RawVariant result;
    EXPECT_EQ(DISP_E_NOTACOLLECTION, ReadWithArgument(nux3D, result));
    EXPECT_EQ(DISP_E_NOTACOLLECTION, ReadWithArgument(globalData, result));
    RawVariant null;
    null.vt = VT_DISPATCH;
    parts->put_GlobalData(null);
    EXPECT_EQ(DISP_E_NOTACOLLECTION, ReadWithArgument(globalData, result));
    EXPECT_EQ(DISP_E_NOTACOLLECTION, ReadWithArgument(userData, result));
    EXPECT_EQ(VT_EMPTY, result.vt);
}

TEST_F(DispatchTest, ArgumentsOfAPropertyAreForTheDefaultMemberOfTheObjectThatItHolds) {
    const ComPtr<IDispatch> indexed = MakeObject<Indexed>();
    parts->put_nux3D(indexed.Get());
    RawVariant result;
    EXPECT_EQ(S_OK, ReadWithArgument(nux3D, result));
    EXPECT_EQ(VT_I4, result.vt);
    EXPECT_EQ(7, result.lVal);
}

}  // namespace
}  // namespace nux
