#include "framework/ListView.h"

#include <commoncontrols.h>
#include <gtest/gtest.h>

#include "framework/ComPtr.h"

namespace nux {
namespace {

class Rows : public ListView {
public:
    Rows() : ListView(nullptr) {
        InitCommonControls();
        Attach(CreateWindowExA(0, WC_LISTVIEWA, "", LVS_REPORT, 0, 0, 100, 100, nullptr, nullptr, nullptr,
                               nullptr));
    }
    ~Rows() override { DestroyWindow(Handle()); }

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return Default(message, wParam, lParam);
    }
};

TEST(ListView, OwnsTheImagesThatWereSetLast) {
    ComPtr<IUnknown> first;
    ComPtr<IUnknown> second;
    // The compiler's import library lacks it.
    const auto query = reinterpret_cast<decltype(&HIMAGELIST_QueryInterface)>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleA("comctl32.dll"), "HIMAGELIST_QueryInterface")));
    ASSERT_TRUE(query);
    const auto images = [&](ComPtr<IUnknown>& watched) {
        UniqueImageList list(ImageList_Create(16, 16, ILC_COLOR32, 1, 1));
        EXPECT_EQ(S_OK, query(list.Get(), IID_IUnknown, watched.ReceiveVoid()));
        return list;
    };
    {
        const Rows rows;
        rows.SetImages(images(first));
        rows.SetImages(images(second));
        EXPECT_EQ(0u, first.Detach()->Release()) << "nobody shows them any more";
        EXPECT_TRUE(ListView_GetImageList(rows.Handle(), LVSIL_SMALL));
    }
    EXPECT_EQ(0u, second.Detach()->Release());
}

}  // namespace
}  // namespace nux
