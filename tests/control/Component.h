#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "framework/ComPtr.h"
#include "framework/Text.h"
#include "nuxStdPartsAX.h"

namespace nux {

/// Path of the module that stands in the registry as the server of the class.
std::wstring RegisteredModulePath();

/// An object made by COM from its ProgID, as a host makes it.
ComPtr<InuxStdParts> CreateParts();

/// Handle of the registered module, which COM has loaded; null if it is not loaded.
HMODULE LoadedModule();

/// DllCanUnloadNow of the registered module; S_OK if it is not loaded.
HRESULT ModuleCanUnload();

/// The content of a string that the caller owns; the string is freed.
std::wstring Take(BSTR text);

/// Reads a text property: `ReadText(parts, &InuxStdParts::get_UserData)`.
std::wstring ReadText(const ComPtr<InuxStdParts>& parts,
                      HRESULT (STDMETHODCALLTYPE InuxStdParts::*get)(BSTR*));

/// Base of tests that use one object of the registered module. At the end of each test the module must be
/// free to go: no object of it is alive.
class PartsTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Lets go of the object; its destructor runs if nobody else holds it.
    void ReleaseParts() { parts.Reset(); }

    ComPtr<InuxStdParts> parts;
};

}  // namespace nux
