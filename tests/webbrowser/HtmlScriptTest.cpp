#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "driver/ScriptEngine.h"
#include "tests/webbrowser/HtmlPage.h"

namespace nux::webbrowser {
namespace {

/// The platform's script engines drive a page as the scripts of hosts do.
class HtmlScriptTest : public testing::Test {
protected:
    void Show(const char* html) {
        page_.Show(html);
        for (const wchar_t* const name : {L"JScript", L"VBScript"})
            engines_.push_back(std::make_unique<ScriptEngine>(
                name, ScriptEngine::Objects{{L"doc", page_.Document().As<IDispatch>()},
                                            {L"win", page_.Window().As<IDispatch>()}}));
    }
    static std::wstring Value(ScriptEngine& engine, const std::wstring& expression) {
        Variant value;
        const HRESULT result = engine.Evaluate(expression, value.Receive());
        Variant text;
        if (FAILED(result) || FAILED(VariantChangeType(text.Receive(), const_cast<VARIANT*>(&value.Get()),
                                                       VARIANT_ALPHABOOL, VT_BSTR)))
            return L"failed";
        return std::wstring(text.Text(), SysStringLen(text.Text()));
    }
    std::wstring JScript(const std::wstring& expression) { return Value(*engines_[0], expression); }
    std::wstring VBScript(const std::wstring& expression) { return Value(*engines_[1], expression); }

    HtmlPage page_;
    std::vector<std::unique_ptr<ScriptEngine>> engines_;
};

TEST_F(HtmlScriptTest, FindsElementsInTheirCollections) {
    Show(
        "<form name=f><input name=n value=1><select name=s><option>a<option selected>b</select></form>"
        "<p id=p>text</p>");
    EXPECT_EQ(L"text", JScript(L"doc.all('p').innerText"));
    EXPECT_EQ(L"text", JScript(L"doc.all.p.innerText"));
    EXPECT_EQ(L"text", JScript(L"doc.all['p'].innerText"));
    EXPECT_EQ(L"text", JScript(L"doc.getElementById('p').innerText"));
    EXPECT_EQ(L"1", JScript(L"doc.forms[0].elements['n'].value"));
    EXPECT_EQ(L"1", JScript(L"doc.forms('f').n.value"));
    EXPECT_EQ(L"b", JScript(L"doc.forms.f.s.options[doc.forms.f.s.selectedIndex].text"));
    EXPECT_EQ(L"1", JScript(L"doc.all.tags('P').length"));
    EXPECT_EQ(L"text", VBScript(L"doc.all(\"p\").innerText"));
    EXPECT_EQ(L"1", VBScript(L"doc.forms(0).elements(\"n\").value"));
    // With VBScript alone: the Enumerator of Wine 8.0's JScript never lets go of what it walks.
    ASSERT_EQ(S_OK,
              engines_[1]->Run(L"tags = \"\"\nFor Each e In doc.all.tags(\"P\")\ntags = tags & e.id\nNext"));
    EXPECT_EQ(L"p", VBScript(L"tags"));
}

TEST_F(HtmlScriptTest, ChangesElementsAndStyles) {
    Show("<p id=p>text</p>");
    ASSERT_EQ(S_OK, engines_[0]->Run(L"var p = doc.all.p; p.style.width = 20; p.style.color = 'red';"
                                     L"p.setAttribute('partid', 5); p.own = 7; p.innerHTML += '<b>!</b>'"));
    EXPECT_EQ(L"20px red 5 7 text!",
              page_.Text(
                  L"[p.style.width, p.style.color, p.getAttribute('partid'), p.own, p.innerText].join(' ')"));
    EXPECT_EQ(L"7", JScript(L"p.own"));
    ASSERT_EQ(S_OK, engines_[1]->Run(L"Set p = doc.all(\"p\")\np.style.Display = \"none\"\np.Title = \"t\""));
    EXPECT_EQ(L"none t", page_.Text(L"p.style.display + ' ' + p.title"));
    ASSERT_EQ(S_OK, engines_[0]->Run(L"doc.body.appendChild(doc.createElement('i')).innerText = 'new'"));
    EXPECT_EQ(L"new", page_.Text(L"document.querySelector('i').innerText"));
    ASSERT_EQ(S_OK, engines_[0]->Run(L"doc.title = 'T'; win.status = 'S'"));
    EXPECT_EQ(L"T", page_.Text(L"document.title"));
}

TEST_F(HtmlScriptTest, HandlesEventsByItsFunctions) {
    Show("<p id=p>text</p>");
    ASSERT_EQ(
        S_OK,
        engines_[0]->Run(
            L"var seen = '', fired = false;"
            L"doc.all.p.onclick = function () { seen += this.id + win.event.type + arguments.length + ' '; };"
            L"doc.all.p.attachEvent('onmouseover', function (event) { seen += event.srcElement.tagName + ' "
            L"'; });"
            L"win.setTimeout(function () { fired = true; }, 1);"));
    page_.Text(L"p.click()");
    page_.Text(L"p.dispatchEvent(new MouseEvent('mouseover'))");
    EXPECT_EQ(L"pclick0 P ", JScript(L"seen"));
    EXPECT_TRUE(page_.Await([&] { return JScript(L"fired") == L"True"; })) << JScript(L"fired");
}

TEST_F(HtmlScriptTest, CallsThePagesFunctionsAndCatchesWhatTheyThrow) {
    Show(
        "<script>function add(a, b) { return a + b; } var list = [1, [2]];"
        "function fail() { throw Object.assign(new Error('no'), {number: -2147024809}); }"
        "function call(f) { return f(2) + 1; }</script>");
    EXPECT_EQ(L"5", JScript(L"win.add(2, 3)"));
    EXPECT_EQ(L"5", JScript(L"doc.Script.add(2, 3)"));
    EXPECT_EQ(L"5", JScript(L"doc.parentWindow.add(2, 3)"));
    EXPECT_EQ(L"2", JScript(L"win.list[1][0]"));
    EXPECT_EQ(L"2", JScript(L"win.list.length"));
    EXPECT_EQ(L"no -2147024809", JScript(L"(function () { try { win.fail(); } catch (e) {"
                                         L"return e.description + ' ' + e.number; } })()"));
    EXPECT_EQ(L"-2147417848", [&] {
        EXPECT_EQ(S_OK, engines_[0]->Run(L"var kept = doc.body"));
        page_.Show("<p>", "other.htm");
        return JScript(L"(function () { try { return kept.innerText; } catch (e) { return e.number; } })()");
    }());
}

}  // namespace
}  // namespace nux::webbrowser
