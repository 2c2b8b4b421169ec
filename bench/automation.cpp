// Property reads and method calls of the registered component, from C++ and from JScript, against bare
// automation objects.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <vector>

#include "bench/BareObject.h"
#include "bench/Measurement.h"
#include "driver/ScriptEngine.h"
#include "framework/Automation.h"
#include "framework/ComPtr.h"
#include "framework/HResult.h"
#include "nuxStdPartsAX.h"

using namespace nux;
using namespace nux::bench;

namespace {

constexpr int rounds = 15;

/// A call as each of the two kinds of client makes it.
struct Call {
    const char* title;
    const wchar_t* name;
    WORD flags;
    std::vector<const wchar_t*> arguments;
    const wchar_t* script;  ///< on an object `o`
};

const Call calls[] = {
    {"property `Initialised` (number)", L"Initialised", DISPATCH_PROPERTYGET, {}, L"o.Initialised"},
    {"property `UserData` (26 characters)", L"UserData", DISPATCH_PROPERTYGET, {}, L"o.UserData"},
    {"method `AssertFail` (nothing)", L"AssertFail", DISPATCH_METHOD, {}, L"o.AssertFail()"},
    {"method `GetLocalizedString` (two texts in, one out)",
     L"GetLocalizedString",
     DISPATCH_METHOD,
     {L"COMMON", L"Sort in ascending order"},
     L"o.GetLocalizedString('COMMON', 'Sort in ascending order')"},
};

DISPID IdOf(IDispatch* object, const wchar_t* name) {
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    ThrowIfFailed(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
    return id;
}

/// Seconds of one call among many. With `byName` each call looks its name up first, as late binding does.
double SecondsOfCall(IDispatch* object, const Call& call, bool byName) {
    constexpr int times = 20000;
    std::vector<Variant> arguments(call.arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        Variant& argument = arguments[arguments.size() - 1 - i];
        argument.bstrVal = Bstr(call.arguments[i]).Detach();
        argument.vt = VT_BSTR;
    }
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    DISPID id = IdOf(object, call.name);
    const double seconds = SecondsOf([&] {
        for (int i = 0; i < times; ++i) {
            if (byName)
                id = IdOf(object, call.name);
            Variant result;
            ThrowIfFailed(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, call.flags, &parameters, &result,
                                         nullptr, nullptr));
        }
    });
    return seconds / times;
}

double SecondsOfScript(ScriptEngine& engine, const std::wstring& object, const std::wstring& call) {
    constexpr int times = 100000;
    const std::wstring script = L"(function () { var o = " + object + L"; for (var i = 0; i < " +
                                std::to_wstring(times) + L"; ++i) { " + call + L"; } })();";
    return SecondsOf([&] { ThrowIfFailed(engine.Run(script)); }) / times;
}

void Row(Table& table, const std::string& what, const std::vector<Times>& times) {
    table.Row({Factor(Ratio(times[0], times[1])), Factor(Ratio(times[0], times[2])), what,
               Duration(times[0].Best()), Duration(times[1].Best()), Duration(times[2].Best()),
               Spread(times[0], times[1])});
}

void CompareFromCpp(Table& table, IDispatch* ours, IDispatch* typeLibrary, IDispatch* handWritten) {
    for (const bool byName : {true, false}) {
        for (const Call& call : calls) {
            Row(table, std::string(byName ? "C++, by name: " : "C++, by DISPID: ") + call.title,
                MeasureInTurn(rounds, {[&] { return SecondsOfCall(ours, call, byName); },
                                       [&] { return SecondsOfCall(typeLibrary, call, byName); },
                                       [&] { return SecondsOfCall(handWritten, call, byName); }}));
        }
    }
}

void CompareFromScript(Table& table, IDispatch* ours, IDispatch* typeLibrary, IDispatch* handWritten) {
    ScriptEngine engine(L"JScript",
                        {{L"ours", ours}, {L"typeLibrary", typeLibrary}, {L"handWritten", handWritten}});
    for (const Call& call : calls) {
        Row(table, std::string("JScript: ") + call.title,
            MeasureInTurn(rounds, {[&] { return SecondsOfScript(engine, L"ours", call.script); },
                                   [&] { return SecondsOfScript(engine, L"typeLibrary", call.script); },
                                   [&] { return SecondsOfScript(engine, L"handWritten", call.script); }}));
    }
}

/// The component as any client gets it: by its class, from the registered module.
ComPtr<IDispatch> MakeComponent() {
    ComPtr<InuxStdParts> parts;
    ThrowIfFailed(CoCreateInstance(CLSID_nuxStdParts, nullptr, CLSCTX_INPROC_SERVER, IID_InuxStdParts,
                                   parts.ReceiveVoid()));
    ThrowIfFailed(parts->put_UserData(Bstr(userDataText).Get()));
    return parts.As<IDispatch>(IID_IDispatch);
}

}  // namespace

int main() try {
    OleInitialize(nullptr);
    {
        const ComPtr<IDispatch> ours = MakeComponent();
        const ComPtr<IDispatch> typeLibrary = MakeTypeLibraryObject();
        const ComPtr<IDispatch> handWritten = MakeHandWrittenObject();
        Heading("Automation calls against bare objects");
        Table table({"Ours / type library", "Ours / by hand", "One call", "Ours", "Type library", "By hand",
                     "Ratios of the rounds"});
        CompareFromCpp(table, ours.Get(), typeLibrary.Get(), handWritten.Get());
        CompareFromScript(table, ours.Get(), typeLibrary.Get(), handWritten.Get());
    }
    OleUninitialize();
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return EXIT_FAILURE;
}
