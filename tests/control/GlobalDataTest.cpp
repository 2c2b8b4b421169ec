// References to variables, as scripts and hosts give them to `GlobalData`.

#include <gtest/gtest.h>

#include "tests/control/Component.h"
#include "tests/support/RawVariant.h"

namespace nux {
namespace {

class GlobalDataOfReferences : public PartsTest {
protected:
    RawVariant& Read() {
        EXPECT_EQ(S_OK, parts->get_GlobalData(read_.Receive()));
        return read_;
    }
    static VARIANT ReferenceTo(VARIANT& target) {
        VARIANT reference{};
        reference.vt = VT_BYREF | VT_VARIANT;
        reference.pvarVal = &target;
        return reference;
    }

private:
    RawVariant read_;
};

TEST_F(GlobalDataOfReferences, IsACopyOfAnArray) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 1);
    LONG index = 0;
    LONG number = 5;
    SafeArrayPutElement(array, &index, &number);
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_ARRAY | VT_I4;
    reference.pparray = &array;
    EXPECT_EQ(S_OK, parts->put_GlobalData(reference));
    number = 6;
    SafeArrayPutElement(array, &index, &number);
    SafeArrayDestroy(array);

    RawVariant& read = Read();
    ASSERT_EQ(VT_ARRAY | VT_I4, read.vt);
    EXPECT_EQ(S_OK, SafeArrayGetElement(read.parray, &index, &number));
    EXPECT_EQ(5, number);
}

TEST_F(GlobalDataOfReferences, IsTheValueThatAReferenceToAReferenceLeadsTo) {
    LONG number = 5;
    VARIANT inner{};
    inner.vt = VT_BYREF | VT_I4;
    inner.plVal = &number;
    EXPECT_EQ(S_OK, parts->put_GlobalData(ReferenceTo(inner)));
    number = 6;
    EXPECT_EQ(VT_I4, Read().vt);
    EXPECT_EQ(5, Read().lVal);
}

TEST_F(GlobalDataOfReferences, IsAnErrorForAVariableThatRefersToAnotherVariable) {
    RawVariant value;
    value.vt = VT_I4;
    VARIANT inner = ReferenceTo(value);
    EXPECT_EQ(DISP_E_BADVARTYPE, parts->put_GlobalData(ReferenceTo(inner)));
    EXPECT_EQ(VT_ERROR, Read().vt);
    EXPECT_EQ(DISP_E_BADVARTYPE, Read().scode);
}

}  // namespace
}  // namespace nux
