#include <gtest/gtest.h>

#include "framework/ComObject.h"
#include "framework/Text.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/DispatchMembers.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

using Arguments = ExternalDouble::Arguments;

/// What a frame may do, told to the page that it is in.
const char frame[] = R"(<script>
    function answered(ask) {
        try {
            return ask();
        } catch {
            return 'refused';
        }
    }
    function sent(method, address, body) {
        const request = new XMLHttpRequest();
        request.open(method, address, false);
        request.send(body);
        return request.responseText;
    }
    parent.postMessage([
        answered(() => external.Echo('external')),
        answered(() => sent('POST', 'http://external.invalid/', '["call",0,"Echo",["sent"]]')),
        answered(() => sent('GET', 'file:///etc/hostname')),
        answered(() => sent('GET', new URL('page.htm', parent.location).href)) === 'refused' ? 'refused' : 'read',
        typeof Worker + ' ' + typeof SharedWorker + ' ' + typeof __nuxReport,
    ].join(', '), '*');
    </script>)";

struct Frame {
    const char* name;
    const char* attributes;  ///< as a script sets them, of the text `html`
    const wchar_t* answer;
};

class PageFrames : public testing::TestWithParam<Frame> {};

TEST_P(PageFrames, HaveTheExternalObjectOnlyIfTheyAreOfThePagesOrigin) {
    OpenedPage page;
    const auto external = MakeObject<ExternalDouble>();
    external->methods[L"Echo"] = [](const Arguments& arguments) { return CopyOf(arguments.at(0)); };
    page.external = external;
    page.folder.Write("inner.htm", frame);
    page.Show("<body>");
    Variant html = Words(Widen(frame).c_str());
    page->Call((std::string("html => { window.answer = ''; onmessage = event => answer = event.data;"
                            "const frame = document.createElement('iframe');"
                            "frame.name = 'frame'; Object.assign(frame, ") +
                GetParam().attributes + "); document.body.append(frame); }")
                   .c_str(),
               {&html, 1});
    EXPECT_TRUE(page.Await([&] { return page.Text(L"answer") != L""; }));
    EXPECT_EQ(GetParam().answer, page.Text(L"answer"));
}

constexpr wchar_t own[] = L"external, refused, refused, read, undefined undefined undefined";
constexpr wchar_t foreign[] = L"refused, refused, refused, refused, undefined undefined undefined";

INSTANTIATE_TEST_SUITE_P(
    Kinds, PageFrames,
    testing::Values(
        Frame{"File", "{src: 'inner.htm'}", own}, Frame{"Source", "{srcdoc: html}", own},
        Frame{"Sandbox", "{src: 'inner.htm', sandbox: 'allow-scripts'}", foreign},
        Frame{"SandboxedSource", "{srcdoc: html, sandbox: 'allow-scripts'}", foreign},
        Frame{"Data", "{src: 'data:text/html,' + encodeURIComponent(html)}", foreign},
        Frame{"SandboxedBlob",
              "{src: URL.createObjectURL(new Blob([html], {type: 'text/html'})), sandbox: 'allow-scripts'}",
              foreign}),
    [](const testing::TestParamInfo<Frame>& info) { return std::string(info.param.name); });

TEST(PageIsolation, ShowsNoFrameOutsideTheFoldersOfTheHost) {
    OpenedPage page;
    TempFolder elsewhere;
    elsewhere.Write("a.htm", "<p>secret");
    page.Show("<body>");
    const std::wstring addresses[] = {L"view-source:file:///etc/hostname", L"chrome://version",
                                      L"file:///etc/hostname",
                                      L"file:///" + Widen(elsewhere.Path() + "a.htm")};
    for (const std::wstring& address : addresses) {
        Variant argument = Words(address.c_str());
        page->Call(
            "address => { const frame = document.createElement('iframe'); frame.src = address;"
            "frame.onload = () => frame.title = 'loaded'; document.body.append(frame); }",
            {&argument, 1});
    }
    EXPECT_TRUE(page.Await([&] {
        return page.Text(
                   L"frames[2].frameElement.title + "
                   L"frames[3].frameElement.title") == L"loadedloaded";
    }));
    EXPECT_EQ(
        L", , This page can't be shown:, This page can't be shown:",
        page.Text(L"[0, 1, 2, 3].map(i => frames[i].document.body.innerText.split('\\n')[0]).join(', ')"));
}

TEST(PageIsolation, HasNoWorkersNotEvenOfAFrameThatIsJustMade) {
    OpenedPage page;
    page.Show("<body>");
    EXPECT_EQ(L"undefined undefined", page.Text(L"typeof Worker + ' ' + typeof SharedWorker"));
    EXPECT_EQ(L"undefined undefined undefined",
              page.Text(L"(() => { const {contentWindow} = document.body.appendChild("
                        L"document.createElement('iframe')); return typeof contentWindow.Worker + ' ' + "
                        L"typeof contentWindow.SharedWorker + ' ' + typeof contentWindow.__nuxReport })()"));
}

TEST(PageIsolation, SharesNothingWithOtherPages) {
    OpenedPage page;
    OpenedPage other;
    page.folder.Write("page.htm", "<p>");
    const std::wstring address = Widen(page.folder.Path() + "page.htm");
    const std::wstring listen =
        L"var heard = 0; var channel = new BroadcastChannel('x'); channel.onmessage = () => ++heard; 1";
    page.Load(address);
    other.Load(address);
    page->Execute(listen);
    other->Execute(listen);
    page->Execute(L"localStorage.x = 'left'; new BroadcastChannel('x').postMessage(1)");
    EXPECT_TRUE(page.Await([&] { return page.Text(L"heard") == L"1"; }));
    EXPECT_EQ(L"0", other.Text(L"heard"));
    EXPECT_EQ(L"left", page.Text(L"localStorage.x"));
    EXPECT_EQ(L"undefined", other.Text(L"localStorage.x"));
}

/// Pages whose scripts write messages of the bridge themselves.
class ForgedMessages : public testing::Test {
protected:
    ForgedMessages() {
        page.external = external;
        external->methods[L"Echo"] = [](const Arguments& arguments) { return CopyOf(arguments.at(0)); };
        page.Show(script);
    }

    // The bridge sends its messages by a function of which a page can see the calls.
    static constexpr char script[] = R"(<script>
        function forged(message) {
            const {call} = Function.prototype;
            Function.prototype.call = function (self, ...values) {
                if (this === XMLHttpRequest.prototype.send) {
                    Function.prototype.call = call;
                    values[0] = values[0].slice(0, values[0].indexOf('[')) + JSON.stringify(message);
                }
                return Reflect.apply(this, self, values);
            };
            try {
                return String(external.x);
            } catch (error) {
                return 'throws ' + error.number;
            }
        }</script>)";
    const std::wstring invalid = L"throws " + std::to_wstring(E_INVALIDARG);
    const std::wstring disconnected = L"throws " + std::to_wstring(RPC_E_DISCONNECTED);

    ComPtr<ComObject<ExternalDouble>> external = MakeObject<ExternalDouble>();
    OpenedPage page;
};

TEST_F(ForgedMessages, FailWithoutTheKeyThatOnlyTheBridgeHas) {
    for (const wchar_t* body : {L"", L"[]", L"[\"get\",0,\"Echo\"]", L"[\"done\",[\"value\",1]]",
                                L"00000000000000000000000000000000[\"get\",0,\"Echo\"]"})
        EXPECT_EQ(L"refused", page.Text(L"(() => { const request = new XMLHttpRequest();"
                                        L"request.open('POST', 'http://external.invalid/', false);"
                                        L"try { request.send('" +
                                        std::wstring(body) +
                                        L"') } catch { return 'refused' } return request.responseText })()"));
}

TEST_F(ForgedMessages, FailIfTheyAreNone) {
    EXPECT_EQ(L"sent", page.Text(L"forged(['call', 0, 'Echo', ['sent']])"));
    for (const wchar_t* message : {L"null",
                                   L"1",
                                   L"'get'",
                                   L"{}",
                                   L"[]",
                                   L"[1]",
                                   L"['nothing', 0]",
                                   L"['get']",
                                   L"['get', 0]",
                                   L"['get', 'x', 'Echo']",
                                   L"['get', -1, 'Echo']",
                                   L"['get', 1e300, 'Echo']",
                                   L"['get', 0, 1]",
                                   L"['put', 0, 'Echo']",
                                   L"['call', 0, 'Echo']",
                                   L"['call', 0, 'Echo', 1]",
                                   L"['make']",
                                   L"['make', 1]",
                                   L"['call', 0, 'Echo', [{p: 1}]]",
                                   L"['call', 0, 'Echo', [{n: 'x'}]]",
                                   L"['elements']",
                                   L"['keys', []]",
                                   L"['done']",
                                   L"['done', ['value', 1]]",
                                   L"['done', 1, 2]",
                                   L"['run', 0]"})
        EXPECT_EQ(invalid, page.Text(L"forged(" + std::wstring(message) + L")")) << ToUtf8(message);
    EXPECT_EQ(L"still", page.Text(L"external.Echo('still')"));
}

TEST_F(ForgedMessages, ReachNoObjectThatThePageWasNotGiven) {
    OpenedPage other;
    other.external = MakeObject<ExternalDouble>();
    external->methods[L"Make"] = [](const Arguments&) { return Object(MakeObject<ExternalDouble>()); };
    page->Execute(L"var made = [external.Make(), external.Make()]");
    other.Show(script);
    for (const wchar_t* number : {L"1", L"2", L"3", L"900000000000000"}) {
        EXPECT_EQ(disconnected, other.Text(L"forged(['get', " + std::wstring(number) + L", 'x'])")) << number;
        EXPECT_EQ(disconnected,
                  other.Text(L"forged(['call', 0, 'x', [{x: " + std::wstring(number) + L"}]])"));
    }
    EXPECT_EQ(disconnected, page.Text(L"forged(['get', 3, 'x'])"));
}

TEST_F(ForgedMessages, OfObjectsThatThePageNeverGaveFailWhenTheyAreUsed) {
    external->methods[L"Use"] = [](const Arguments& arguments) {
        return CallMember(arguments.at(0).Object(), L"nodeName", {});
    };
    EXPECT_EQ(disconnected,
              page.Text(L"forged(['call', 0, 'Use', [{p: 77, g: 'other', k: 'element', c: 'X'}]])"));
    page->Execute(L"1");
}

TEST_F(ForgedMessages, EndACallOfTheProgramThatIsNotDoneWithAFailure) {
    HRESULT failure = S_OK;
    std::string message;
    external->methods[L"Call"] = [&](const Arguments&) {
        try {
            page->Call("() => forged(" + message + ")");
        } catch (const HResultError& error) {
            failure = error.Code();
        }
        return Number(1);
    };
    for (const char* each : {"['done', 'no answer']", "['done', {n: 'x'}]", "['done']", "1"}) {
        message = each;
        failure = S_OK;
        page.Text(L"external.Call()");
        EXPECT_EQ(E_UNEXPECTED, failure) << each;
    }
    EXPECT_EQ(L"still", page.Text(L"external.Echo('still')"));
}

TEST_F(ForgedMessages, LetGoOfNothingThatIsNotThere) {
    external->methods[L"Make"] = [](const Arguments&) { return Object(MakeObject<ExternalDouble>()); };
    page->Execute(L"var made = external.Make(); 1");
    for (const wchar_t* pairs :
         {L"1", L"[1]", L"[[1]]", L"[['x', 1]]", L"[[1, -1]]", L"[[9, 1]]", L"[[-1, 1]]"})
        page->Execute(L"__nuxPage.report('release', " + std::wstring(pairs) + L"); 1");
    for (const wchar_t* told :
         {L"'list', 1, 2", L"'menu', 1, 2, 3", L"'tab'", L"'title', {}", L"[]", L"null"})
        page->Execute(L"__nuxPage.report(" + std::wstring(told) + L"); 1");
    EXPECT_TRUE(page.Await([&] { return page.WasTold(L"tab back"); }));
    EXPECT_EQ(L"[object]", page.Text(L"made"));
}

}  // namespace
}  // namespace nux::webbrowser
