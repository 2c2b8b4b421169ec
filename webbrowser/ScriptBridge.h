#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "framework/ComPtr.h"
#include "framework/Variant.h"
#include "webbrowser/PageReference.h"
#include "webbrowser/ScriptValue.h"
#include "webbrowser/Session.h"

namespace nux::webbrowser {

/// What a bridge needs of the page that it belongs to.
class ScriptBridgeOwner {
public:
    virtual ComPtr<IDispatch> External() = 0;
    virtual ComPtr<IDispatch> MakeObject(const PageReference& reference) = 0;
    virtual bool MayMakeObjects() = 0;
    virtual std::shared_ptr<Page> OwningPage() = 0;

protected:
    ~ScriptBridgeOwner() = default;
};

/// Carries calls between a page's scripts and C++, both ways and in each other.
///
/// A script's call is a request that the page waits for. While it waits it can't be asked anything by the
/// browser, so what C++ wants of it then goes as an answer to the request: the page does it and asks again,
/// with the result. Calls of the page so lie on a stack, each with the request that is open, if the page
/// isn't at work for it just then.
class ScriptBridge : public std::enable_shared_from_this<ScriptBridge> {
public:
    /// Where a page's script sends its requests. Nothing but the channel ever hears of it.
    static constexpr char endpoint[] = "http://external.invalid/";

    ScriptBridge(Session& session, ScriptBridgeOwner& owner) : session_(session), owner_(&owner) {}

    /// Calls a function in the page and waits. Throws HResultError.
    Variant Call(std::string_view function, std::span<const Variant> arguments);
    PageReference CallForObject(std::string_view function, std::span<const Variant> arguments);
    void Post(std::string_view function, std::span<const Variant> arguments);
    ComPtr<IDispatch> ObjectOf(const PageReference& reference);
    /// @return null if the page is gone
    std::shared_ptr<Page> OwningPage() const { return owner_ ? owner_->OwningPage() : nullptr; }

    /// A request of the page.
    /// @param request  the browser's name of it
    /// @param body     what the page's script wrote
    void Serve(const std::string& request, std::string_view body);
    /// What the page's script told without waiting. @return false if it isn't about objects
    bool Told(const ScriptArray& message);
    Variant FromScript(const ScriptValue& value);
    /// Counts an object that the page has sent.
    PageReference Hold(const PageObjectId& id);

    /// The page shows another document: the objects of both sides are no longer needed.
    void ForgetDocument();
    /// The page's script is being ended: what it was to do for calls that wait fails, as it never answers.
    void Interrupted();
    /// All calls fail from now on, those that wait too.
    void Disconnect() noexcept;
    /// Of the page, for those that hold its objects.
    bool IsAlive(const std::string& document) const noexcept;

private:
    friend class PageReference;

    /// Something that C++ wants the page to do.
    struct Run {
        std::string message;  ///< the arguments of the page's function `run`, in JSON
        std::string answer;
        bool isDone = false;
        bool isLost = false;
    };
    /// A call of the page that isn't answered yet.
    struct Asked {
        std::string request;           ///< that is open; empty while the page does `running`
        std::shared_ptr<Run> running;  ///< null while the page waits
        std::string result;            ///< the call's answer, if it must wait for the end of `running`
    };
    struct Given {
        ComPtr<IDispatch> object;
        IUnknown* identity = nullptr;
        std::int64_t count = 0;  ///< so often the page has got it
    };

    std::shared_ptr<Run> Start(std::string_view function, std::span<const Variant> arguments);
    ScriptValue Finish(const std::shared_ptr<Run>& run) const;
    void Dispatch();
    void LoseAsked() noexcept;
    void Fulfill(const std::string& request, const std::string& answer);
    /// The page has done what it was asked last, and waits again.
    void Done(const std::string& request, std::string answer);
    std::string Answer(const ScriptArray& message) noexcept;
    ScriptArray Perform(const ScriptArray& message);
    ComPtr<IDispatch> GivenObject(const ScriptValue& number);
    void Release(const ScriptValue& pairs);
    ScriptValue ToScript(const VARIANT& value);
    ScriptValue ObjectToScript(IUnknown* object);
    ScriptArray ToScript(std::span<const Variant> values);
    void Drop(std::int64_t number, std::int64_t count, const std::string& document) noexcept;

    Session& session_;
    ScriptBridgeOwner* owner_;
    std::deque<std::shared_ptr<Run>> waiting_;     ///< not with the page yet
    std::vector<std::shared_ptr<Run>> evaluated_;  ///< with the page, which isn't waiting for C++
    std::vector<std::shared_ptr<Asked>> asked_;
    std::map<std::int64_t, Given> given_;
    std::map<IUnknown*, std::int64_t> numbers_;
    std::map<std::string, std::int64_t> types_;
    std::int64_t lastNumber_ = 0;
    std::string document_;
    std::map<std::int64_t, std::weak_ptr<PageReference::Held>> held_;
    std::vector<std::pair<std::int64_t, std::int64_t>> dropped_;
    bool isDropPosted_ = false;
};

}  // namespace nux::webbrowser
