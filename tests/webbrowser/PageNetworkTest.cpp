#include <windows.h>

#include <winsock.h>

#include <gtest/gtest.h>

#include <string>

#include "framework/Text.h"
#include "tests/webbrowser/OpenedPage.h"
#include "webbrowser/Utf.h"

namespace nux::webbrowser {
namespace {

/// A port of this machine that tells whether anybody has come: by a connection, or by a datagram.
class Listener {
public:
    Listener() {
        WSADATA data{};
        EXPECT_EQ(0, WSAStartup(MAKEWORD(2, 2), &data));
        stream_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        datagrams_ = socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(0, bind(stream_, reinterpret_cast<sockaddr*>(&address), sizeof address));
        int size = sizeof address;
        EXPECT_EQ(0, getsockname(stream_, reinterpret_cast<sockaddr*>(&address), &size));
        EXPECT_EQ(0, bind(datagrams_, reinterpret_cast<sockaddr*>(&address), sizeof address));
        EXPECT_EQ(0, listen(stream_, 16));
        port = ntohs(address.sin_port);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() {
        closesocket(stream_);
        closesocket(datagrams_);
        WSACleanup();
    }

    bool WasReached() const {
        fd_set readable{};
        FD_SET(stream_, &readable);
        FD_SET(datagrams_, &readable);
        timeval none{};
        return select(0, &readable, nullptr, nullptr, &none) != 0;
    }

    int port = 0;

private:
    SOCKET stream_ = INVALID_SOCKET;
    SOCKET datagrams_ = INVALID_SOCKET;
};

TEST(PageNetwork, IsReachedByTheListenerOfTheseTests) {
    const Listener listener;
    EXPECT_FALSE(listener.WasReached());
    const SOCKET client = socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<u_short>(listener.port));
    EXPECT_EQ(1, sendto(client, "x", 1, 0, reinterpret_cast<sockaddr*>(&address), sizeof address));
    closesocket(client);
    EXPECT_TRUE(listener.WasReached());
}

/// A way out that a page tries. Its script says `ended()` when it has led somewhere or nowhere.
struct WayOut {
    const char* name;
    const char* way;
};

class PageNetwork : public testing::TestWithParam<WayOut> {};

const char waysPage[] = R"(<body><script>
    var hasEnded = 0;
    function ended() { hasEnded = 1; }
    // For what tells nothing of its end: on an open network it has arrived by then.
    function quietly() { setTimeout(ended, 500); ended = () => {}; }
    function added(name, values) {
        const element = document.createElement(name);
        element.onload = element.onerror = () => ended();
        document.body.append(Object.assign(element, values));
        return element;
    }
    function gather(urls) {
        const connection = new RTCPeerConnection({iceServers: [{urls, username: 'a', credential: 'b'}]});
        connection.createDataChannel('x');
        connection.createOffer().then(offer => connection.setLocalDescription(offer));
    }
    </script>)";

TEST_P(PageNetwork, IsClosed) {
    const Listener listener;
    OpenedPage page;
    page.Show(waysPage);
    const std::string host = "127.0.0.1:" + std::to_string(listener.port);
    page->Execute(
        Widen("var host = '" + host + "', http = 'http://" + host + "/'; " + GetParam().way + "; 1"));
    EXPECT_TRUE(page.Await([&] { return listener.WasReached() || page.Text(L"hasEnded") == L"1"; }));
    EXPECT_FALSE(listener.WasReached());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PageNetwork,
    testing::Values(
        WayOut{"Fetch", "fetch(http).finally(ended).catch(() => {})"},
        WayOut{"KeptFetch", "quietly(); fetch(http, {method: 'POST', mode: 'no-cors', keepalive: true})"},
        WayOut{"Request", "var r = new XMLHttpRequest(); r.open('GET', http); r.onloadend = ended; r.send()"},
        WayOut{"WebSocket", "new WebSocket('ws://' + host + '/').onclose = ended"},
        WayOut{"WebTransport", "new WebTransport('https://' + host + '/').closed.catch(() => ended())"},
        WayOut{"EventSource", "new EventSource(http).onerror = ended"},
        WayOut{"Beacon", "quietly(); navigator.sendBeacon(http, 'x')"},
        WayOut{"Ping", "quietly(); added('a', {href: '#', ping: http}).click()"},
        WayOut{"Image", "added('img', {src: http})"}, WayOut{"Script", "added('script', {src: http})"},
        WayOut{"Style", "added('link', {rel: 'stylesheet', href: http})"},
        WayOut{"Preconnect",
               "quietly(); for (const rel of ['preconnect', 'dns-prefetch', 'prefetch'])"
               " added('link', {rel, href: http})"},
        WayOut{"Frame", "added('iframe', {src: http})"}, WayOut{"Object", "added('object', {data: http})"},
        WayOut{"Video", "added('video', {src: http})"},
        WayOut{"Form",
               "quietly(); added('iframe', {name: 'inner'});"
               " added('form', {action: http, method: 'post', target: 'inner'}).submit()"},
        WayOut{"PeerConnection", "quietly(); gather('stun:' + host)"},
        WayOut{"RelayedPeerConnection", "quietly(); gather('turn:' + host + '?transport=tcp')"},
        WayOut{"SecureImage", "added('img', {src: 'https://' + host})"}),
    [](const testing::TestParamInfo<WayOut>& info) { return std::string(info.param.name); });

TEST(PageNetwork, TellsAPeerConnectionNoAddressOfTheMachine) {
    OpenedPage page;
    page.Show(
        "<script>var candidates = []; var p = new RTCPeerConnection(); p.createDataChannel('x');"
        "p.onicecandidate = e => candidates.push(e.candidate ? e.candidate.candidate : 'end');"
        "p.createOffer().then(o => p.setLocalDescription(o))</script>");
    EXPECT_TRUE(page.Await([&] { return page.Text(L"candidates.includes('end')") == L"true"; }));
    EXPECT_EQ(L"end", page.Text(L"candidates.filter(c => c !== '').join(' ')"));
}

}  // namespace
}  // namespace nux::webbrowser
