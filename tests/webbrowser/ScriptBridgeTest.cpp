#include "webbrowser/ScriptBridge.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <random>

#include "framework/ComObject.h"
#include "framework/HResult.h"
#include "framework/Module.h"
#include "tests/webbrowser/ExternalDouble.h"
#include "webbrowser/Base64.h"

namespace nux::webbrowser {
namespace {

/// Values and messages of the bridge, right ones and wrong ones, as chance has it.
class Chance {
public:
    explicit Chance(unsigned seed) : engine_(seed) {}

    int Below(int end) { return static_cast<int>(engine_() % static_cast<unsigned>(end)); }
    template <class T, std::size_t size>
    T OneOf(const T (&all)[size]) {
        return all[Below(size)];
    }
    Json Number() {
        constexpr double numbers[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, -1, 0.5, 1e300, 9e15, 2147483648.0};
        return OneOf(numbers);
    }
    Json Value(int depth = 0) {
        constexpr const char* texts[] = {"", "x", "\xc3\xa4", "0", "length"};
        constexpr const char* kinds[] = {"object", "element", "array", "function", "?"};
        switch (Below(depth < 3 ? 12 : 9)) {
            case 0:
                return nullptr;
            case 1:
                return Below(2) == 0;
            case 2:
                return Number();
            case 3:
                return OneOf(texts);
            case 4:
                return {{"u", 0}};
            case 5:
                return {{"n", OneOf(texts)}};
            case 6:
                return {{"d", Number()}};
            case 7:
                return {{"x", Number()}};
            case 8:
                return {{"p", Number()}, {"g", Below(50) ? "one" : "two"}, {"k", OneOf(kinds)}, {"c", "C"}};
            case 9:
                return {{"e", Number()}, {"m", Value(3)}};
            default: {
                Json array = Json::array();
                for (int i = Below(4); i > 0; --i)
                    array.push_back(Value(depth + 1));
                return array;
            }
        }
    }
    Json Request() {
        constexpr const char* whats[] = {"get", "put",  "call",     "call", "call",
                                         "has", "keys", "elements", "make", "?"};
        constexpr const char* names[] = {"Echo", "Make", "Keep", "Ask", "Forget", "n", "", "0", "?"};
        Json message = {OneOf(whats), Below(3) ? Json(0) : Number(), OneOf(names)};
        message.push_back(Below(4) ? Json::array({Value()}) : Value());
        if (Below(20) == 0)
            message.erase(static_cast<std::size_t>(Below(4)));
        return message;
    }
    /// One that can be read: what can't be counts as an answer while C++ waits for one.
    Json Call() {
        constexpr const char* names[] = {"Echo", "Make", "Ask", "Forget", "?"};
        return Json::array({"call", 0, OneOf(names), Json::array({Below(100)})});
    }
    /// What becomes of a text on a way that loses and changes.
    std::string Mangled(std::string text) {
        if (text.empty() || Below(8) != 0)
            return text;
        const auto at = static_cast<std::size_t>(Below(static_cast<int>(text.size())));
        switch (Below(3)) {
            case 0:
                return text.substr(0, at);
            case 1:
                text[at] = static_cast<char>(Below(256));
                return text;
            default:
                return text.insert(at, std::string(static_cast<std::size_t>(Below(100)), '['));
        }
    }

private:
    std::mt19937 engine_;
};

/// A browser with a page that does whatever chance wants, but answers what it is asked in the end.
class ChancePage : public Session, private ScriptBridgeOwner {
public:
    explicit ChancePage(unsigned seed) : chance(seed) {
        inbox = Inbox::OfThisThread();
        owner = this;
        isOpen = true;
        bridge = std::make_shared<ScriptBridge>(*this, static_cast<ScriptBridgeOwner&>(*this));
        external->methods[L"Echo"] = [](const auto& arguments) { return CopyOf(arguments.at(0)); };
        external->methods[L"Make"] = [this](const auto&) { return Object(MakeMade()); };
        external->methods[L"Keep"] = [this](const auto& arguments) {
            if (kept.size() > 20)
                kept.clear();
            kept.push_back(CopyOf(arguments.at(0)));
            return Variant();
        };
        external->methods[L"Ask"] = [this](const auto& arguments) { return CallPage(arguments); };
        external->methods[L"Forget"] = [this](const auto&) {
            bridge->ForgetDocument();
            return Variant();
        };
    }
    ~ChancePage() {
        kept.clear();
        bridge->Disconnect();
        // Pages put objects into each other.
        external->properties.clear();
        for (const auto& each : made)
            each->properties.clear();
    }

    void Step() {
        if (chance.Below(10) == 0)
            bridge->Told(ReleaseMessage());
        else if (chance.Below(10) == 0)
            CallPage({});
        else
            Ask(chance.Mangled(chance.Request().dump()));
        // What was let go of is told when nobody waits.
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }

    void Send(const char* method, const Json& arguments) const override {
        EXPECT_STREQ("Fetch.fulfillRequest", method);
        const auto asked = open.extract(TextMember(arguments, "requestId"));
        ASSERT_FALSE(asked.empty()) << "answered twice";
        const auto body = DecodeBase64(TextMember(arguments, "body"));
        // A page that is to run a function asks this and that, and says that it is done.
        if (!body || !std::string(body->begin(), body->end()).starts_with("[\"run\""))
            *asked.mapped() = true;
        else
            inbox->Post({this, true, [this, isAnswered = asked.mapped()] {
                             for (int i = chance.Below(3); i > 0 && depth < 4; --i)
                                 Ask(chance.Call().dump());
                             Post(Json({"done", Result()}).dump(), isAnswered);
                         }});
    }
    void Ask(const char*, const Json&, Browser::Sink reply, bool) const override {
        inbox->Post({this, true, [this, reply = std::move(reply)] {
                         ChannelMessage message;
                         message.content = {{"result", {{"value", chance.Mangled(Result().dump())}}}};
                         if (chance.Below(20) == 0)
                             message.content = chance.Value();
                         if (!message.content.is_object())
                             message.content = Json::object();
                         reply(message);
                     }});
    }

    mutable Chance chance;
    /// Requests without an answer, with what the end of the call that they belong to sets.
    mutable std::map<std::string, std::shared_ptr<bool>> open;
    mutable int depth = 0;
    mutable long long requests = 0;

private:
    ComPtr<IDispatch> MakeMade() {
        made.push_back(nux::MakeObject<ExternalDouble>());
        made.back()->properties[L"n"] = Number(1);
        return made.back();
    }
    Json Result() const { return {chance.Below(4) ? "value" : "throw", chance.Value()}; }
    ScriptArray ReleaseMessage() const {
        return {{std::u16string(u"release")},
                {ScriptArray{{ScriptArray{{static_cast<double>(1 + chance.Below(8))},
                                          {static_cast<double>(chance.Below(4))}}}}}};
    }
    /// A call of the page, which can do nothing else until it is answered.
    void Ask(const std::string& body) const {
        const auto isAnswered = std::make_shared<bool>(false);
        ++depth;
        Post(body, isAnswered);
        inbox->ServeUntil(this, [&] { return *isAnswered; });
        --depth;
    }
    void Post(const std::string& body, const std::shared_ptr<bool>& isAnswered) const {
        const std::string request = std::to_string(++requests);
        open[request] = isAnswered;
        bridge->Serve(request, body);
    }
    Variant CallPage(const std::vector<Variant>& arguments) {
        if (depth > 4)
            return {};
        try {
            return bridge->Call("f", arguments);
        } catch (const HResultError&) {
            return {};
        }
    }
    ComPtr<IDispatch> External() override { return external; }
    ComPtr<IDispatch> MakeObject(const PageReference&) override { return nullptr; }
    bool MayMakeObjects() override { return false; }
    std::shared_ptr<Page> OwningPage() override { return nullptr; }

    ComPtr<ComObject<ExternalDouble>> external = nux::MakeObject<ExternalDouble>();
    std::vector<ComPtr<ComObject<ExternalDouble>>> made;
    std::vector<Variant> kept;

public:
    std::shared_ptr<ScriptBridge> bridge;
};

void ServeWhateverComes(long long count) {
    const long before = LiveObjects();
    long long requests = 0;
    for (unsigned seed = 1; requests < count; ++seed) {
        ChancePage page(seed);
        while (page.requests < 2000 && page.requests + requests < count)
            page.Step();
        requests += page.requests;
        EXPECT_TRUE(page.open.empty()) << page.open.size() << " requests without an answer, seed " << seed;
        page.bridge->ForgetDocument();
    }
    EXPECT_EQ(before, LiveObjects());
    std::printf("%lld requests served\n", requests);
}

TEST(ScriptBridge, AnswersWhateverAPageAsksOnceAndLetsGoOfAllObjects) {
    ServeWhateverComes(5000);
}

// Takes a minute or some: --gtest_also_run_disabled_tests.
TEST(ScriptBridge, DISABLED_AnswersAMillionRequests) {
    ServeWhateverComes(1000000);
}

}  // namespace
}  // namespace nux::webbrowser
