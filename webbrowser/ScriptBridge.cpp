#include "webbrowser/ScriptBridge.h"

#include <algorithm>
#include <stdexcept>

#include "framework/ComObject.h"
#include "framework/ErrorInfo.h"
#include "framework/HResult.h"
#include "webbrowser/Base64.h"
#include "webbrowser/DispatchMembers.h"
#include "webbrowser/HeldObject.h"
#include "webbrowser/PageObject.h"
#include "webbrowser/Utf.h"
#include "webbrowser/VariantValue.h"

namespace nux::webbrowser {
namespace {

[[noreturn]] void FailDisconnected() {
    throw HResultError(RPC_E_DISCONNECTED, L"The page isn't there any more");
}

[[noreturn]] void FailUnreadable() {
    throw HResultError(E_UNEXPECTED, L"The page's answer can't be read");
}

ScriptValue Text(std::u16string_view text) {
    return {std::u16string(text)};
}

const std::u16string& TextOf(const ScriptValue& value) {
    const auto* const text = std::get_if<std::u16string>(&value.content);
    if (!text)
        throw std::invalid_argument("no text");
    return *text;
}

std::int64_t NumberOf(const ScriptValue& value) {
    const auto* const number = std::get_if<double>(&value.content);
    if (!number || !(*number >= 0 && *number < 9e15))
        throw std::invalid_argument("no number");
    return static_cast<std::int64_t>(*number);
}

const ScriptArray& ArrayOf(const ScriptValue& value) {
    const auto* const array = std::get_if<ScriptArray>(&value.content);
    if (!array)
        throw std::invalid_argument("no array");
    return *array;
}

std::wstring WideText(const ScriptValue& value) {
    const std::u16string& text = TextOf(value);
    return {text.begin(), text.end()};
}

ScriptValue ErrorValue(HRESULT code, const std::wstring& words) {
    return {ScriptError{code, std::u16string(words.begin(), words.end())}};
}

/// What the exception that is being handled tells a script.
ScriptArray Thrown() {
    try {
        throw;
    } catch (const HResultError& error) {
        return {Text(u"throw"), ErrorValue(error.Code(), error.Words().empty() ? SystemMessage(error.Code())
                                                                               : error.Words())};
    } catch (const std::bad_alloc&) {
        return {Text(u"throw"), ErrorValue(E_OUTOFMEMORY, SystemMessage(E_OUTOFMEMORY))};
    } catch (const std::exception&) {
        return {Text(u"throw"), ErrorValue(E_INVALIDARG, SystemMessage(E_INVALIDARG))};
    }
}

constexpr HRESULT cannotCreate = static_cast<HRESULT>(0x800a01ad);  // as script engines have it

constexpr HRESULT outOfStack = static_cast<HRESULT>(0x800a001c);  // likewise
/// Calls of the page within calls of the program within calls of the page: each takes of this thread's stack.
constexpr std::size_t mostNested = 64;

ComPtr<IDispatch> MakeRegistered(const std::wstring& name) {
    CLSID classId{};
    ComPtr<IDispatch> object;
    if (FAILED(CLSIDFromProgID(name.c_str(), &classId)) ||
        FAILED(CreateObject(classId, object, CLSCTX_SERVER)))
        throw HResultError(cannotCreate, L"Automation server can't create object: " + name);
    return object;
}

}  // namespace

Variant ScriptBridge::Call(std::string_view function, std::span<const Variant> arguments) {
    const std::shared_ptr<ScriptBridge> self = shared_from_this();
    const ScriptValue value = Finish(Start(function, arguments));
    try {
        return FromScript(value);
    } catch (const std::invalid_argument&) {
        FailUnreadable();
    }
}

PageReference ScriptBridge::CallForObject(std::string_view function, std::span<const Variant> arguments) {
    const std::shared_ptr<ScriptBridge> self = shared_from_this();
    const ScriptValue value = Finish(Start(function, arguments));
    const auto* const id = std::get_if<PageObjectId>(&value.content);
    return id ? Hold(*id) : PageReference();
}

void ScriptBridge::Post(std::string_view function, std::span<const Variant> arguments) {
    Start(function, arguments);
}

std::shared_ptr<ScriptBridge::Run> ScriptBridge::Start(std::string_view function,
                                                       std::span<const Variant> arguments) {
    if (!session_.isOpen)
        FailDisconnected();
    ScriptArray dropped(dropped_.size());
    for (std::size_t i = 0; i < dropped.size(); ++i) {
        const auto& [number, count] = dropped_[i];
        dropped[i].content = ScriptArray{{static_cast<double>(number)}, {static_cast<double>(count)}};
    }
    dropped_.clear();
    const ScriptArray message = {
        Text(FromUtf8(function)), {ToScript(arguments)}, {std::move(dropped)}, Text(FromUtf8(document_))};
    auto run = std::make_shared<Run>();
    run->message = EncodeScriptValue({message});
    waiting_.push_back(run);
    Dispatch();
    return run;
}

void ScriptBridge::Dispatch() {
    while (!waiting_.empty() && session_.isOpen) {
        const std::shared_ptr<Run> run = waiting_.front();
        if (asked_.empty()) {
            waiting_.pop_front();
            evaluated_.push_back(run);
            const std::string expression =
                "__nuxPage.run(" + run->message.substr(1, run->message.size() - 2) + ")";
            session_.Ask(
                "Runtime.evaluate", {{"expression", expression}, {"returnByValue", true}},
                [run, weak = weak_from_this()](const ChannelMessage& message) {
                    run->answer = TextMember(ObjectMember(message.content, "result"), "value");
                    run->isDone = true;
                    run->isLost = run->answer.empty();
                    if (const std::shared_ptr<ScriptBridge> self = weak.lock())
                        std::erase(self->evaluated_, run);
                },
                true);
        } else if (!asked_.back()->request.empty()) {
            waiting_.pop_front();
            asked_.back()->running = run;
            Fulfill(std::exchange(asked_.back()->request, {}), "[\"run\"," + run->message.substr(1));
        } else {
            // The page is at work for C++; what it says next makes room.
            return;
        }
    }
}

ScriptValue ScriptBridge::Finish(const std::shared_ptr<Run>& run) const {
    const std::shared_ptr<Inbox> inbox = session_.inbox;
    inbox->ServeUntil(session_.owner, [&] { return run->isDone; });
    if (run->isLost)
        FailDisconnected();
    try {
        ScriptValue answer = DecodeScriptValue(run->answer);
        const ScriptArray& parts = ArrayOf(answer);
        if (parts.size() != 2)
            throw std::invalid_argument("no answer");
        if (const auto* const error = std::get_if<ScriptError>(&parts[1].content);
            error && TextOf(parts[0]) == u"throw")
            throw HResultError(FAILED(error->number) ? error->number : E_FAIL,
                               {error->description.begin(), error->description.end()});
        return parts[1];
    } catch (const std::invalid_argument&) {
        FailUnreadable();
    }
}

void ScriptBridge::Fulfill(const std::string& request, const std::string& answer) {
    session_.Send(
        "Fetch.fulfillRequest",
        {{"requestId", request},
         {"responseCode", 200},
         {"responseHeaders", Json::array({{{"name", "Access-Control-Allow-Origin"}, {"value", "*"}},
                                          {{"name", "Content-Type"}, {"value", "application/json"}}})},
         {"body", EncodeBase64(answer)}});
}

void ScriptBridge::Serve(const std::string& request, std::string_view body) {
    const std::shared_ptr<ScriptBridge> self = shared_from_this();
    ScriptValue message;
    try {
        message = DecodeScriptValue(body);
        const ScriptArray& parts = ArrayOf(message);
        if (parts.empty())
            throw std::invalid_argument("no message");
        if (TextOf(parts[0]) == u"done") {
            if (parts.size() != 2 || asked_.empty() || !asked_.back()->running)
                throw std::invalid_argument("nothing was asked of the page");
            Done(request, EncodeScriptValue(parts[1]));
            return;
        }
    } catch (...) {
        // It may have been the answer that a call of C++ waits for.
        if (!asked_.empty() && asked_.back()->running)
            Done(request, {});
        else
            Fulfill(request, EncodeScriptValue({Thrown()}));
        return;
    }

    if (asked_.size() >= mostNested) {
        const ScriptArray refusal = {Text(u"throw"), ErrorValue(outOfStack, L"Out of stack space")};
        Fulfill(request, EncodeScriptValue({refusal}));
        return;
    }
    const auto call = std::make_shared<Asked>();
    call->request = request;
    asked_.push_back(call);
    Dispatch();
    std::string answer = Answer(std::get<ScriptArray>(message.content));
    if (!session_.isOpen || std::find(asked_.begin(), asked_.end(), call) == asked_.end())
        return;  // nobody waits any more
    if (call->running) {
        call->result = std::move(answer);
        return;
    }
    // Calls end in the order in which they began.
    asked_.erase(std::find(asked_.begin(), asked_.end(), call), asked_.end());
    Fulfill(call->request, answer);
    Dispatch();
}

void ScriptBridge::Done(const std::string& request, std::string answer) {
    const std::shared_ptr<Asked> call = asked_.back();
    const std::shared_ptr<Run> run = std::exchange(call->running, nullptr);
    run->answer = std::move(answer);
    run->isDone = true;
    call->request = request;
    if (!call->result.empty()) {
        asked_.pop_back();
        Fulfill(call->request, call->result);
    }
    Dispatch();
}

std::string ScriptBridge::Answer(const ScriptArray& message) noexcept {
    try {
        try {
            return EncodeScriptValue({Perform(message)});
        } catch (...) {
            return EncodeScriptValue({Thrown()});
        }
    } catch (...) {
        return "[\"throw\",{\"e\":-2147024882,\"m\":\"\"}]";  // E_OUTOFMEMORY
    }
}

ScriptArray ScriptBridge::Perform(const ScriptArray& message) {
    const auto part = [&](std::size_t index) -> const ScriptValue& {
        if (index >= message.size())
            throw std::invalid_argument("too short");
        return message[index];
    };
    const auto value = [&](const Variant& result) {
        return ScriptArray{Text(u"value"), ToScript(result.Get())};
    };
    const std::u16string& what = TextOf(part(0));
    if (what == u"make") {
        if (!owner_ || !owner_->MayMakeObjects())
            throw HResultError(cannotCreate, L"This page may not make objects");
        Variant made;
        made.SetObject(MakeRegistered(WideText(part(1))));
        return value(made);
    }
    const ComPtr<IDispatch> object = GivenObject(part(1));
    if (what == u"get") {
        // No object for the page is one without members.
        if (!object)
            return {Text(u"unknown")};
        const auto result = ReadMember(object.Get(), WideText(part(2)));
        if (const auto* const read = std::get_if<Variant>(&result))
            return value(*read);
        return {Text(std::holds_alternative<CallableMember>(result) ? u"method" : u"unknown")};
    }
    if (what == u"has")
        return {Text(u"value"), {object && HasMember(object.Get(), WideText(part(2)))}};
    if (what == u"keys") {
        ScriptArray names;
        const int count = object ? ElementCount(object.Get()) : 0;
        for (int i = 0; i < count; ++i)
            names.push_back(Text(FromUtf8(std::to_string(i))));
        return {Text(u"value"), {std::move(names)}};
    }
    if (!object)
        throw HResultError(static_cast<HRESULT>(0x800a01b6),
                           L"Object doesn't support this property or method");
    if (what == u"put") {
        const Variant put = FromScript(part(3));
        WriteMember(object.Get(), WideText(part(2)), put.Get());
        return value(Variant());
    }
    if (what == u"call") {
        std::vector<Variant> arguments;
        for (const ScriptValue& each : ArrayOf(part(3)))
            arguments.push_back(FromScript(each));
        return value(CallMember(object.Get(), WideText(part(2)), arguments));
    }
    if (what == u"elements") {
        ScriptArray elements;
        for (const Variant& each : ElementsOf(object.Get()))
            elements.push_back(ToScript(each.Get()));
        return {Text(u"value"), {std::move(elements)}};
    }
    throw std::invalid_argument("unknown message");
}

bool ScriptBridge::Told(const ScriptArray& message) {
    if (message.size() != 2 || TextOf(message[0]) != u"release")
        return false;
    Release(message[1]);
    return true;
}

void ScriptBridge::Release(const ScriptValue& pairs) {
    std::vector<ComPtr<IDispatch>> released;  // after the tables are right: their ends may call in
    for (const ScriptValue& pair : ArrayOf(pairs)) {
        const ScriptArray& parts = ArrayOf(pair);
        if (parts.size() != 2)
            throw std::invalid_argument("no pair");
        const auto found = given_.find(NumberOf(parts[0]));
        if (found == given_.end() || (found->second.count -= NumberOf(parts[1])) > 0)
            continue;
        numbers_.erase(found->second.identity);
        released.push_back(std::move(found->second.object));
        given_.erase(found);
    }
}

ComPtr<IDispatch> ScriptBridge::GivenObject(const ScriptValue& number) {
    const std::int64_t asked = NumberOf(number);
    if (asked == 0)
        return owner_ ? owner_->External() : nullptr;
    const auto found = given_.find(asked);
    if (found == given_.end())
        throw HResultError(RPC_E_DISCONNECTED, L"The object isn't there any more");
    return found->second.object;
}

Variant ScriptBridge::FromScript(const ScriptValue& value) {
    Variant result;
    if (const auto* const id = std::get_if<PageObjectId>(&value.content)) {
        result.SetObject(ObjectOf(Hold(*id)));
    } else if (const auto* const com = std::get_if<ComObjectId>(&value.content)) {
        result.SetObject(GivenObject({static_cast<double>(com->number)}));
    } else {
        result = PlainFromScript(value);
    }
    return result;
}

ScriptArray ScriptBridge::ToScript(std::span<const Variant> values) {
    ScriptArray array;
    for (const Variant& each : values)
        array.push_back(ToScript(each.Get()));
    return array;
}

ScriptValue ScriptBridge::ToScript(const VARIANT& value) {
    return ScriptFromVariant(value, [this](IUnknown* object) { return ObjectToScript(object); });
}

ScriptValue ScriptBridge::ObjectToScript(IUnknown* object) {
    if (const ComPtr<IPageObject> own = Query<IPageObject>(object)) {
        const std::shared_ptr<PageReference::Held> held = own->Reference().held_;
        if (held && held->bridge.lock().get() == this)
            return {held->id};
    }
    const ComPtr<IDispatch> dispatch = Query<IDispatch>(object);
    const ComPtr<IUnknown> identity = Query<IUnknown>(object);
    if (!dispatch || !identity)
        return {ScriptNull()};
    std::int64_t& number = numbers_[identity.Get()];
    if (number == 0)
        number = ++lastNumber_;
    Given& given = given_[number];
    given.object = dispatch;
    given.identity = identity.Get();
    ++given.count;
    ComObjectId id{number, 0, IsCallable(dispatch.Get())};
    if (const std::string type = TypeKey(dispatch.Get()); !type.empty())
        id.type = types_.try_emplace(type, static_cast<std::int64_t>(types_.size()) + 1).first->second;
    return {id};
}

PageReference ScriptBridge::Hold(const PageObjectId& id) {
    // The first that a new document says of itself, as its old one's end may be told later.
    if (id.document != document_) {
        if (!document_.empty())
            held_.clear();
        document_ = id.document;
        dropped_.clear();
    }
    std::weak_ptr<PageReference::Held>& known = held_[id.number];
    std::shared_ptr<PageReference::Held> held = known.lock();
    if (!held) {
        held = std::make_shared<PageReference::Held>();
        held->bridge = weak_from_this();
        held->id = id;
        known = held;
    }
    ++held->count;
    return PageReference(std::move(held));
}

void ScriptBridge::Drop(std::int64_t number, std::int64_t count, const std::string& document) noexcept {
    try {
        if (document != document_ || !session_.isOpen)
            return;
        if (const auto found = held_.find(number); found != held_.end() && found->second.expired())
            held_.erase(found);
        dropped_.emplace_back(number, count);
        // If nothing else takes it along.
        if (!std::exchange(isDropPosted_, true)) {
            session_.inbox->Post({session_.owner, false, [weak = weak_from_this()] {
                                      const std::shared_ptr<ScriptBridge> self = weak.lock();
                                      if (!self)
                                          return;
                                      self->isDropPosted_ = false;
                                      if (!self->dropped_.empty() && self->session_.isOpen)
                                          self->Post("() => {}", {});
                                  }});
        }
    } catch (...) {
        // The page keeps the object for as long as its document.
    }
}

ComPtr<IDispatch> ScriptBridge::ObjectOf(const PageReference& reference) {
    if (!reference)
        return nullptr;
    if (reference.held_->object)
        return reference.held_->object;
    ComPtr<IDispatch> object;
    if (owner_)
        object = owner_->MakeObject(reference);
    if (!object)
        object = MakeObject<PageObject>(reference);
    return object;
}

bool ScriptBridge::IsAlive(const std::string& document) const noexcept {
    return session_.isOpen && document == document_;
}

void ScriptBridge::ForgetDocument() {
    document_.clear();
    held_.clear();
    dropped_.clear();
    numbers_.clear();
    // The last: what ends may call in.
    const std::map<std::int64_t, Given> given = std::exchange(given_, {});
}

void ScriptBridge::Interrupted() {
    if (!session_.isOpen)
        return;
    // The page evaluates nothing before all its scripts that wait for an answer have ended. If none was at
    // work, it is this one that ends instead of the next.
    session_.Ask(
        "Runtime.evaluate", {{"expression", "0"}},
        [calls = asked_, weak = weak_from_this()](const ChannelMessage&) {
            const std::shared_ptr<ScriptBridge> self = weak.lock();
            if (!self)
                return;
            for (const std::shared_ptr<Asked>& call : calls) {
                if (std::erase(self->asked_, call) > 0 && call->running)
                    call->running->isDone = call->running->isLost = true;
            }
            self->Dispatch();
        },
        true);
}

void ScriptBridge::LoseAsked() noexcept {
    for (const std::shared_ptr<Asked>& call : asked_) {
        if (call->running)
            call->running->isDone = call->running->isLost = true;
    }
    asked_.clear();
}

void ScriptBridge::Disconnect() noexcept {
    owner_ = nullptr;
    for (const std::shared_ptr<Run>& run : waiting_)
        run->isDone = run->isLost = true;
    for (const std::shared_ptr<Run>& run : evaluated_)
        run->isDone = run->isLost = true;
    waiting_.clear();
    evaluated_.clear();
    LoseAsked();
    ForgetDocument();
}

}  // namespace nux::webbrowser
