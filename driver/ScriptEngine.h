#pragma once

#include <windows.h>

#include <activscp.h>

#include <map>
#include <string>

#include "framework/Automation.h"
#include "framework/ComPtr.h"

namespace nux {

/// One of the platform's own script engines in this process.
class ScriptEngine {
public:
    using Objects = std::map<std::wstring, ComPtr<IDispatch>>;

    /// Throws HResultError if there is no engine.
    /// @param progId   "JScript" or "VBScript"
    /// @param objects  what its scripts know by name
    explicit ScriptEngine(const wchar_t* progId = L"JScript", Objects objects = {});
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ~ScriptEngine();

    /// Runs statements to their end. @return a failure if the engine could not read them or one raised an
    /// error
    HRESULT Run(const std::wstring& statements);
    /// The value of an expression. @return what the engine returned
    HRESULT Evaluate(const std::wstring& expression, Variant& value);
    /// The object that an expression makes, such as an array. Throws HResultError if it makes none.
    ComPtr<IDispatch> Object(const std::wstring& expression);

private:
    ComPtr<IActiveScript> engine_;
    ComPtr<IActiveScriptParse> parser_;
};

}  // namespace nux
