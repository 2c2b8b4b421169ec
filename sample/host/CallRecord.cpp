#include "host/CallRecord.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace nux::host {
namespace {

constexpr std::array<const wchar_t*, static_cast<std::size_t>(Call::Count)> names{L"AttachHost",
                                                                                  L"SetCommandFlag",
                                                                                  L"RunDieWizard",
                                                                                  L"CreateDieBlock",
                                                                                  L"GetApplication",
                                                                                  L"RunSlideWizard",
                                                                                  L"Inux3DReady",
                                                                                  L"MainObject",
                                                                                  L"CatalogFolder",
                                                                                  L"MainWindowHWND",
                                                                                  L"StdParts",
                                                                                  L"SetMessage",
                                                                                  L"SetProgress",
                                                                                  L"CreateProgressBar",
                                                                                  L"DestroyProgressBar",
                                                                                  L"Close",
                                                                                  L"GetValue",
                                                                                  L"Navigate",
                                                                                  L"Refresh",
                                                                                  L"Stop",
                                                                                  L"Document",
                                                                                  L"Script",
                                                                                  L"LocationURL",
                                                                                  L"Busy",
                                                                                  L"ReadyState",
                                                                                  L"GetWindow",
                                                                                  L"LifterWizard",
                                                                                  L"Run"};

}  // namespace

const wchar_t* NameOf(Call call) noexcept {
    return names[static_cast<std::size_t>(call)];
}

std::optional<Call> CallNamed(std::wstring_view name) noexcept {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end())
        return std::nullopt;
    return static_cast<Call>(found - names.begin());
}

void CallRecord::Restore() noexcept {
    failures_.clear();
    answers_.clear();
    hidden_.clear();
}

HRESULT CallRecord::RunForObject(Call call, IDispatch* truth, IDispatch** object) noexcept {
    if (!object)
        return E_POINTER;
    *object = nullptr;
    return Run(call, {}, [&] {
        const Variant* told = ToldAnswer(call);
        *object = told ? told->Object() : truth;
        if (*object)
            (*object)->AddRef();
        return S_OK;
    });
}

HRESULT CallRecord::NextFailure(Call call) noexcept {
    const auto found = failures_.find(call);
    if (found == failures_.end())
        return S_OK;
    Failure& failure = found->second;
    ++failure.calls;
    return failure.nth == 0 || failure.nth == failure.calls ? failure.code : S_OK;
}

const Variant* CallRecord::ToldAnswer(Call call) const noexcept {
    const auto found = answers_.find(call);
    return found == answers_.end() ? nullptr : &found->second;
}

void CallRecord::Write(Line line) {
    lines_.push_back(std::move(line));
    if (whenCalled)
        whenCalled(lines_.back());
}

std::wstring TextOf(const CallRecord::Line& line) {
    std::wstring text = NameOf(line.call);
    if (!line.arguments.empty())
        text += L' ' + line.arguments;
    if (line.result != S_OK) {
        wchar_t code[16];
        std::swprintf(code, std::size(code), L": %08lX", static_cast<unsigned long>(line.result));
        text += code;
    }
    return text;
}

}  // namespace nux::host
