#include "framework/TreeView.h"

#include <gtest/gtest.h>

#include <string>

namespace nux {
namespace {

class TreeViewTest : public testing::Test {
protected:
    TreeViewTest() {
        const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TREEVIEW_CLASSES};
        InitCommonControlsEx(&classes);
        tree = TreeView(CreateWindowExA(0, WC_TREEVIEWA, "", WS_POPUP | TVS_HASLINES | TVS_HASBUTTONS, 0, 0,
                                        200, 60, nullptr, nullptr, nullptr, nullptr));
    }
    ~TreeViewTest() override { DestroyWindow(tree.Handle()); }

    TreeView tree;
};

TEST_F(TreeViewTest, ItemsStandInTheOrderInWhichTheyCame) {
    EXPECT_EQ(nullptr, tree.Root());
    const HTREEITEM root = tree.Insert("Screws", nullptr);
    const HTREEITEM first = tree.Insert("b", root);
    const HTREEITEM second = tree.Insert("a", root);
    EXPECT_EQ(root, tree.Root());
    EXPECT_EQ(first, tree.FirstChild(root));
    EXPECT_EQ(second, tree.NextSibling(first));
    EXPECT_EQ(nullptr, tree.NextSibling(second));
    EXPECT_EQ(root, tree.Parent(second));
    EXPECT_EQ(nullptr, tree.Parent(root));
    EXPECT_EQ(nullptr, tree.FirstChild(first));
}

TEST_F(TreeViewTest, LabelsAreReadUpTo63Bytes) {
    const HTREEITEM item = tree.Insert(std::string(63, 'x'), nullptr);
    EXPECT_EQ(std::string(63, 'x'), tree.Label(item));
    tree.SetLabel(item, std::string(64, 'y'));
    EXPECT_EQ(std::string(63, 'y'), tree.Label(item));
    tree.SetLabel(item, "");
    EXPECT_EQ("", tree.Label(item));
}

TEST_F(TreeViewTest, DataIsZeroUntilItIsSet) {
    const HTREEITEM item = tree.Insert("a", nullptr);
    EXPECT_EQ(0, tree.Data(item));
    tree.SetData(item, 4711);
    EXPECT_EQ(4711, tree.Data(item));
    EXPECT_EQ("a", tree.Label(item));
    EXPECT_EQ(0, tree.Data(nullptr));
}

TEST_F(TreeViewTest, OneItemIsSelected) {
    const HTREEITEM first = tree.Insert("a", nullptr);
    const HTREEITEM second = tree.Insert("b", nullptr);
    tree.Select(first);
    EXPECT_EQ(first, tree.Selected());
    tree.Select(second);
    EXPECT_EQ(second, tree.Selected());
    tree.Select(nullptr);
    EXPECT_EQ(nullptr, tree.Selected());
}

TEST_F(TreeViewTest, AnItemWithChildrenIsExpanded) {
    const HTREEITEM root = tree.Insert("root", nullptr);
    EXPECT_FALSE(tree.IsExpanded(root));
    tree.Expand(root);
    EXPECT_FALSE(tree.IsExpanded(root)) << "there is nothing to show";
    tree.Insert("child", root);
    tree.Expand(root);
    EXPECT_TRUE(tree.IsExpanded(root));
}

TEST_F(TreeViewTest, AnItemIsBroughtIntoSight) {
    const HTREEITEM root = tree.Insert("root", nullptr);
    HTREEITEM last = nullptr;
    for (int i = 0; i < 50; ++i)
        last = tree.Insert("child", root);
    ShowWindow(tree.Handle(), SW_SHOWNA);
    RECT place{};
    ASSERT_FALSE(TreeView_GetItemRect(tree.Handle(), last, &place, FALSE));
    tree.BringIntoSight(last);
    ASSERT_TRUE(TreeView_GetItemRect(tree.Handle(), last, &place, FALSE));
    RECT client{};
    GetClientRect(tree.Handle(), &client);
    EXPECT_LE(place.bottom, client.bottom);
}

TEST_F(TreeViewTest, IsEmptyAfterAllItemsWereDeleted) {
    tree.Insert("child", tree.Insert("root", nullptr));
    tree.DeleteAll();
    EXPECT_EQ(nullptr, tree.Root());
    EXPECT_EQ(0u, TreeView_GetCount(tree.Handle()));
}

}  // namespace
}  // namespace nux
