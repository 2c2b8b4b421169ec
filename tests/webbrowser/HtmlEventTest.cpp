#include <gtest/gtest.h>

#include <dispex.h>

#include <functional>
#include <utility>

#include "framework/ComObject.h"
#include "framework/Implements.h"
#include "tests/webbrowser/HtmlPage.h"

namespace nux::webbrowser {
namespace {

/// A handler of C++: an object with a default member.
class Handler : public Implements<IDispatch> {
public:
    using Body = std::function<HRESULT(const DISPPARAMS& arguments, VARIANT* result)>;
    explicit Handler(Body body) : body_(std::move(body)) {}
    virtual ~Handler() = default;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override {
        return id == DISPID_VALUE && flags & DISPATCH_METHOD ? body_(*parameters, result)
                                                             : DISP_E_MEMBERNOTFOUND;
    }

private:
    Body body_;
};

class HtmlEventTest : public testing::Test {
protected:
    ComPtr<IHTMLElement> Element(const char* id) const {
        return page_.Object<IHTMLElement>("document.getElementById('" + std::string(id) + "')");
    }
    ComPtr<IHTMLEventObj> Event() const {
        ComPtr<IHTMLEventObj> event;
        EXPECT_EQ(S_OK, page_.Window()->get_event(event.Receive()));
        return event;
    }
    ComPtr<IDispatch> Counting() {
        return MakeObject<Handler>([this](const DISPPARAMS& arguments, VARIANT*) {
            ++calls_;
            arguments_ = arguments.cArgs;
            return S_OK;
        });
    }

    HtmlPage page_;
    int calls_ = 0;
    UINT arguments_ = 99;
};

TEST_F(HtmlEventTest, CallsTheHandlerOfCppThatIsTheProperty) {
    page_.Show("<p id=p>");
    const ComPtr<IHTMLElement> element = Element("p");
    Variant handler = ToVariant(Counting().Get());
    ASSERT_EQ(S_OK, element->put_onclick(handler.Get()));
    Variant read;
    ASSERT_EQ(S_OK, element->get_onclick(read.Receive()));
    ASSERT_EQ(VT_DISPATCH, read.Type());
    EXPECT_EQ(handler.Object(), read.Object());
    ASSERT_EQ(S_OK, element->click());
    EXPECT_EQ(1, calls_);
    EXPECT_EQ(0u, arguments_);
    EXPECT_EQ(L"undefined", page_.Text(L"void p.click()"));
    EXPECT_EQ(2, calls_);
    VARIANT none{};
    none.vt = VT_NULL;
    ASSERT_EQ(S_OK, element->put_onclick(none));
    ASSERT_EQ(S_OK, element->click());
    EXPECT_EQ(2, calls_);
    ASSERT_EQ(S_OK, element->get_onclick(read.Receive()));
    EXPECT_EQ(VT_NULL, read.Type());
}

TEST_F(HtmlEventTest, TellsTheHandlerWhatHappened) {
    page_.Show("<button id=b>text</button>");
    std::wstring seen;
    const ComPtr<IDispatch> handler = MakeObject<Handler>([&](const DISPPARAMS&, VARIANT*) {
        const ComPtr<IHTMLEventObj> event = Event();
        EXPECT_TRUE(event);
        ComPtr<IHTMLElement> source;
        VARIANT_BOOL shift = VARIANT_FALSE;
        EXPECT_EQ(S_OK, event->get_srcElement(source.Receive()));
        EXPECT_EQ(S_OK, event->get_shiftKey(&shift));
        seen = TextOf(event, &IHTMLEventObj::get_type) + L" " + TextOf(source, &IHTMLElement::get_id) +
               (shift ? L" shift " : L" ") + std::to_wstring(NumberOf(event, &IHTMLEventObj::get_button)) +
               L" " + std::to_wstring(NumberOf(event, &IHTMLEventObj::get_clientX));
        return S_OK;
    });
    ASSERT_EQ(S_OK, Element("b")->put_onmousedown(ToVariant(handler.Get()).Get()));
    page_.Text(L"b.dispatchEvent(new MouseEvent('mousedown', {button: 2, clientX: 7, shiftKey: true}))");
    EXPECT_EQ(L"mousedown b shift 2 7", seen);
    EXPECT_FALSE(Event());
}

TEST_F(HtmlEventTest, TakesAnAnswerOfFalseOrAReturnValueAsRefusal) {
    page_.Show("<input type=checkbox id=a><input type=checkbox id=b>");
    const ComPtr<IDispatch> refusing = MakeObject<Handler>([](const DISPPARAMS&, VARIANT* result) {
        result->vt = VT_BOOL;
        result->boolVal = VARIANT_FALSE;
        return S_OK;
    });
    const ComPtr<IDispatch> setting = MakeObject<Handler>([this](const DISPPARAMS&, VARIANT*) {
        VARIANT no{};
        no.vt = VT_BOOL;
        return Event()->put_returnValue(no);
    });
    ASSERT_EQ(S_OK, Element("a")->put_onclick(ToVariant(refusing.Get()).Get()));
    ASSERT_EQ(S_OK, Element("b")->put_onclick(ToVariant(setting.Get()).Get()));
    page_.Text(L"a.click()");
    page_.Text(L"b.click()");
    EXPECT_EQ(L"false false", page_.Text(L"a.checked + ' ' + b.checked"));
}

TEST_F(HtmlEventTest, TakesFunctionsOfThePageAndTextsAsHandlers) {
    page_.Show("<p id=p><script>var n = 0; function count() { ++n; }</script>");
    const ComPtr<IHTMLElement> element = Element("p");
    const ComPtr<IDispatch> count = page_.Object<IDispatch>("count");
    ASSERT_EQ(S_OK, element->put_onclick(ToVariant(count.Get()).Get()));
    ASSERT_EQ(S_OK, element->click());
    EXPECT_EQ(L"1 true", page_.Text(L"n + ' ' + (p.onclick === count)"));
    ASSERT_EQ(S_OK, element->put_onclick(TextValue(L"n += 10").Get()));
    ASSERT_EQ(S_OK, element->click());
    EXPECT_EQ(L"11", page_.Text(L"n"));
}

TEST_F(HtmlEventTest, TakesFunctionsOfAnotherPageAsHandlers) {
    page_.Show("<p id=p>");
    HtmlPage other;
    other.Show("<script>var seen = 'nothing'; function tell(...values) { seen = values.length; }</script>");
    const ComPtr<IDispatch> tell = other.Object<IDispatch>("tell");
    ASSERT_EQ(S_OK, Element("p")->put_onclick(ToVariant(tell.Get()).Get()));
    page_.Text(L"p.click()");
    EXPECT_EQ(L"0", other.Text(L"seen"));
    VARIANT_BOOL attached = VARIANT_FALSE;
    ASSERT_EQ(S_OK,
              Element("p").As<IHTMLElement2>()->attachEvent(Bstr(L"onclick").Get(), tell.Get(), &attached));
    page_.Text(L"p.click()");
    EXPECT_EQ(L"1", other.Text(L"seen"));
}

TEST_F(HtmlEventTest, AttachesSeveralHandlersAndDetachesEach) {
    page_.Show("<p id=p>");
    const ComPtr<IHTMLElement2> element = Element("p").As<IHTMLElement2>();
    const ComPtr<IDispatch> first = Counting();
    const ComPtr<IDispatch> second = Counting();
    const Bstr click(L"onclick");
    VARIANT_BOOL attached = VARIANT_FALSE;
    ASSERT_EQ(S_OK, element->attachEvent(click.Get(), first.Get(), &attached));
    EXPECT_EQ(VARIANT_TRUE, attached);
    ASSERT_EQ(S_OK, element->attachEvent(click.Get(), second.Get(), &attached));
    page_.Text(L"p.click()");
    EXPECT_EQ(2, calls_);
    EXPECT_EQ(1u, arguments_);
    ASSERT_EQ(S_OK, element->detachEvent(click.Get(), first.Get()));
    page_.Text(L"p.click()");
    EXPECT_EQ(3, calls_);
    EXPECT_EQ(E_INVALIDARG, element->attachEvent(click.Get(), nullptr, &attached));
}

TEST_F(HtmlEventTest, TakesHandlersByNameAlsoForEventsOfLaterStandards) {
    page_.Show("<p id=p>");
    const ComPtr<IHTMLElement> element = Element("p");
    ASSERT_EQ(S_OK, ByName(element.Get(), L"onclick", DISPATCH_PROPERTYPUT, {ToVariant(Counting().Get())}));
    ASSERT_EQ(S_OK,
              ByName(element.Get(), L"oninput", DISPATCH_PROPERTYPUTREF, {ToVariant(Counting().Get())}));
    page_.Text(L"p.click()");
    page_.Text(L"p.dispatchEvent(new Event('input'))");
    EXPECT_EQ(2, calls_);
}

TEST_F(HtmlEventTest, SurvivesAHandlerThatEndsThePage) {
    page_.Show("<p id=p>");
    const ComPtr<IHTMLElement> element = Element("p");
    const ComPtr<IDispatch> handler = MakeObject<Handler>([&](const DISPPARAMS&, VARIANT*) {
        page_.page->Close();
        return S_OK;
    });
    ASSERT_EQ(S_OK, element->put_onclick(ToVariant(handler.Get()).Get()));
    EXPECT_EQ(RPC_E_DISCONNECTED, element->click());
}

TEST_F(HtmlEventTest, CallsTimersOfCpp) {
    page_.Show("<p>");
    const ComPtr<IHTMLWindow3> window = page_.Window().As<IHTMLWindow3>();
    ASSERT_TRUE(window);
    Variant handler = ToVariant(Counting().Get());
    VARIANT code = handler.Get();
    VARIANT none{};
    LONG timer = 0;
    ASSERT_EQ(S_OK, window->setTimeout(&code, 1, &none, &timer));
    EXPECT_NE(0, timer);
    EXPECT_TRUE(page_.Await([&] { return calls_ == 1; }));
}

}  // namespace
}  // namespace nux::webbrowser
