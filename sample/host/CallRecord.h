#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "framework/HResult.h"
#include "framework/Variant.h"

namespace nux::host {

/// The calls of the host's objects that are written down, in the order of their names in CallRecord.cpp.
enum class Call {
    AttachHost,
    SetCommandFlag,
    RunDieWizard,
    CreateDieBlock,
    GetApplication,
    RunSlideWizard,
    Inux3DReady,
    MainObject,
    CatalogFolder,
    MainWindowHWND,
    StdParts,
    SetMessage,
    SetProgress,
    CreateProgressBar,
    DestroyProgressBar,
    Close,
    GetValue,
    Navigate,
    Refresh,
    Stop,
    Document,
    Script,
    LocationURL,
    Busy,
    ReadyState,
    GetWindow,
    LifterWizard,
    Run,
    Count
};

const wchar_t* NameOf(Call call) noexcept;
/// The call of a name, in this very spelling.
std::optional<Call> CallNamed(std::wstring_view name) noexcept;

/// What the component asked of the host's objects, and what they are told to answer instead of the truth.
class CallRecord {
public:
    struct Line {
        Call call;
        std::wstring arguments;
        HRESULT result;
    };

    const std::vector<Line>& Lines() const noexcept { return lines_; }
    void ClearLines() noexcept { lines_.clear(); }

    /// Told of each call after it was made; may be empty.
    std::function<void(const Line&)> whenCalled;

    /// Lets a call answer `code` the `nth` time from now on; always for 0.
    void Fail(Call call, HRESULT code, long nth) { failures_[call] = {code, nth, 0}; }
    /// Lets a call that answers a value answer this one.
    void Answer(Call call, Variant value) { answers_[call] = std::move(value); }
    /// Makes a member of an object unknown by its name.
    void Hide(Call call) { hidden_.insert(call); }
    bool IsHidden(Call call) const noexcept { return hidden_.contains(call); }
    /// Forgets all three.
    void Restore() noexcept;

    /// One call of an object: done by `body` unless it is told to fail, and written down with its result.
    template <class Body>
    HRESULT Run(Call call, std::wstring arguments, Body&& body) noexcept {
        return Guarded([&] {
            const HRESULT told = NextFailure(call);
            const HRESULT result = told != S_OK ? told : Guarded(body);
            Write({call, std::move(arguments), result});
            return result;
        });
    }
    /// The same for a call that answers a value, which `body` gives as a Variant.
    template <class Body>
    HRESULT RunForValue(Call call, std::wstring arguments, VARIANT* value, Body&& body) noexcept {
        if (!value)
            return E_POINTER;
        VariantInit(value);
        return Run(call, std::move(arguments), [&]() -> HRESULT {
            if (const Variant* told = ToldAnswer(call))
                return told->CopyTo(value);
            Variant truth = body();
            *value = truth.Detach();
            return S_OK;
        });
    }
    /// The same for a call that answers an object, which may be null.
    HRESULT RunForObject(Call call, IDispatch* truth, IDispatch** object) noexcept;

private:
    struct Failure {
        HRESULT code;
        long nth;
        long calls;
    };

    HRESULT NextFailure(Call call) noexcept;
    const Variant* ToldAnswer(Call call) const noexcept;
    void Write(Line line);

    std::vector<Line> lines_;
    std::map<Call, Failure> failures_;
    std::map<Call, Variant> answers_;
    std::set<Call> hidden_;
};

/// A line as scripts see it: name, arguments, and the code of a failure.
std::wstring TextOf(const CallRecord::Line& line);

}  // namespace nux::host
