#include <gtest/gtest.h>

#include "tests/webbrowser/HtmlPage.h"

namespace nux::webbrowser {
namespace {

class HtmlStyleTest : public testing::Test {
protected:
    void Show(const std::string& style) {
        page_.Show("<!DOCTYPE html><p id=p style='" + style + "'>text");
        const ComPtr<IHTMLElement> element = page_.Object<IHTMLElement>("p");
        ASSERT_TRUE(element);
        ASSERT_EQ(S_OK, element->get_style(style_.Receive()));
        ASSERT_EQ(S_OK, element.As<IHTMLElement2>()->get_currentStyle(current_.Receive()));
    }

    HtmlPage page_;
    ComPtr<IHTMLStyle> style_;
    ComPtr<IHTMLCurrentStyle> current_;
};

TEST_F(HtmlStyleTest, ReadsAndWritesItsProperties) {
    Show("color: red; float: left");
    EXPECT_EQ(L"left", TextOf(style_, &IHTMLStyle::get_styleFloat));
    ASSERT_EQ(S_OK, style_->put_display(Bstr(L"none").Get()));
    EXPECT_EQ(L"none", page_.Text(L"p.style.display"));
    EXPECT_EQ(L"", TextOf(style_, &IHTMLStyle::get_fontFamily));
    ASSERT_EQ(S_OK, style_->put_cssText(Bstr(L"cursor: wait").Get()));
    EXPECT_EQ(L"wait", TextOf(style_, &IHTMLStyle::get_cursor));
    EXPECT_EQ(E_NOTIMPL, style_->put_filter(Bstr(L"alpha(opacity=50)").Get()));
}

TEST_F(HtmlStyleTest, TakesNumbersAsPixelsAndAsColours) {
    Show("");
    Variant number;
    number.SetNumber(80);
    ASSERT_EQ(S_OK, style_->put_width(number.Get()));
    EXPECT_EQ(L"80px", page_.Text(L"p.style.width"));
    number.SetNumber(0x00ff10);
    ASSERT_EQ(S_OK, style_->put_color(number.Get()));
    EXPECT_EQ(L"rgb(0, 255, 16)", page_.Text(L"p.style.color"));
    ASSERT_EQ(S_OK, style_->put_pixelLeft(12));
    EXPECT_EQ(L"12px", page_.Text(L"p.style.left"));
    EXPECT_EQ(12, NumberOf(style_, &IHTMLStyle::get_pixelLeft));
    EXPECT_EQ(0, NumberOf(style_, &IHTMLStyle::get_pixelTop));
    ASSERT_EQ(S_OK, style_->put_posHeight(1.5f));
    float height = 0;
    ASSERT_EQ(S_OK, style_->get_posHeight(&height));
    EXPECT_EQ(1.5f, height);
    number.SetNumber(3);
    ASSERT_EQ(S_OK, style_->put_zIndex(number.Get()));
    Variant layer;
    ASSERT_EQ(S_OK, style_->get_zIndex(layer.Receive()));
    ASSERT_EQ(VT_I4, layer.Type());
    EXPECT_EQ(3, layer.Number());
}

TEST_F(HtmlStyleTest, TurnsDecorationsOnAndOffOneByOne) {
    Show("");
    ASSERT_EQ(S_OK, style_->put_textDecorationUnderline(VARIANT_TRUE));
    ASSERT_EQ(S_OK, style_->put_textDecorationLineThrough(VARIANT_TRUE));
    EXPECT_EQ(L"underline line-through", TextOf(style_, &IHTMLStyle::get_textDecoration));
    ASSERT_EQ(S_OK, style_->put_textDecorationUnderline(VARIANT_FALSE));
    VARIANT_BOOL isSet = VARIANT_TRUE;
    ASSERT_EQ(S_OK, style_->get_textDecorationUnderline(&isSet));
    EXPECT_EQ(VARIANT_FALSE, isSet);
    ASSERT_EQ(S_OK, style_->get_textDecorationLineThrough(&isSet));
    EXPECT_EQ(VARIANT_TRUE, isSet);
}

TEST_F(HtmlStyleTest, HasItsPropertiesAsAttributesAndByName) {
    Show("");
    Variant number;
    number.SetNumber(5);
    ASSERT_EQ(S_OK, style_->setAttribute(Bstr(L"marginLeft").Get(), number.Get(), 1));
    EXPECT_EQ(L"5px", page_.Text(L"p.style.marginLeft"));
    Variant margin;
    ASSERT_EQ(S_OK, style_->getAttribute(Bstr(L"marginLeft").Get(), 0, margin.Receive()));
    ASSERT_TRUE(margin.IsString());
    EXPECT_STREQ(L"5px", margin.Text());
    VARIANT_BOOL removed = VARIANT_FALSE;
    ASSERT_EQ(S_OK, style_->removeAttribute(Bstr(L"marginLeft").Get(), 1, &removed));
    EXPECT_EQ(VARIANT_TRUE, removed);
    ASSERT_EQ(S_OK, ByName(style_.Get(), L"fontSize", DISPATCH_PROPERTYPUT, {std::move(number)}));
    EXPECT_EQ(L"5px", TextByName(style_.Get(), L"fontSize"));
    // A later standard's.
    ASSERT_EQ(S_OK, ByName(style_.Get(), L"opacity", DISPATCH_PROPERTYPUT, {TextValue(L"0.5")}));
    EXPECT_EQ(L"0.5", page_.Text(L"p.style.opacity"));
}

TEST_F(HtmlStyleTest, IsReadAsItIsComputed) {
    Show("width: 50%");
    ASSERT_TRUE(current_);
    EXPECT_EQ(L"block", TextOf(current_, &IHTMLCurrentStyle::get_display));
    Variant weight;
    ASSERT_EQ(S_OK, current_->get_fontWeight(weight.Receive()));
    ASSERT_TRUE(weight.IsString());
    EXPECT_STREQ(L"400", weight.Text());
    EXPECT_EQ(L"ltr", TextOf(current_, &IHTMLCurrentStyle::get_direction));
    EXPECT_EQ(L"failed 80004001", TextOf(current_, &IHTMLCurrentStyle::get_behavior));
    EXPECT_EQ(L"block", TextByName(current_.Get(), L"display"));
}

}  // namespace
}  // namespace nux::webbrowser
