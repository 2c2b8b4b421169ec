#pragma once

#include <windows.h>

#include <activscp.h>

#include <map>
#include <string>

#include "framework/ComPtr.h"

namespace nux::bench {

/// The JScript engine with objects that its scripts know by name.
class ScriptEngine {
public:
    /// Throws HResultError if there is no engine.
    explicit ScriptEngine(const std::map<std::wstring, ComPtr<IDispatch>>& objects);
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ~ScriptEngine();

    /// Runs a script to its end. Throws HResultError if it fails.
    void Run(const std::wstring& script);

private:
    ComPtr<IActiveScript> engine_;
    ComPtr<IActiveScriptParse> parser_;
};

}  // namespace nux::bench
