#pragma once

#include <windows.h>

#include <activscp.h>

#include <string>

#include "framework/Automation.h"
#include "framework/ComPtr.h"

namespace nux {

/// The platform's own JScript engine in this process.
class ScriptEngine {
public:
    ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ~ScriptEngine();

    /// The value of an expression. @return what the engine returned
    HRESULT Evaluate(const std::wstring& expression, Variant& value);
    /// The object that an expression makes, such as an array.
    ComPtr<IDispatch> Object(const std::wstring& expression);

private:
    ComPtr<IActiveScript> engine_;
    ComPtr<IActiveScriptParse> parser_;
};

}  // namespace nux
