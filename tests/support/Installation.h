#pragma once

#include <string>

#include "tests/control/Component.h"
#include "tests/support/TempFolder.h"

namespace nux {

/// Gives an object its four paths, each narrow and with its closing separator.
HRESULT SetPaths(const ComPtr<InuxStdParts>& parts, const std::string& catalog, const std::string& data,
                 const std::string& gui, const std::string& custom);

/// Base of tests on an installation in a folder of its own: "catalogs", "data", "gui" with "locale" beside
/// it, and "custom". SetUp gives its paths to the object. Tests run with US English as the user's language.
class InstallationTest : public PartsTest {
protected:
    void SetUp() override;

    HRESULT UseInstallation() { return SetPaths(parts, catalogs, data, gui, custom); }
    /// Writes a message file with one message. `file` is relative to the folder.
    void WriteMessage(const std::string& file, const std::string& id, const std::string& text);
    std::wstring Localized(const std::wstring& catalogue, const std::wstring& id);

    TempFolder folder;
    std::string catalogs = folder.MakeFolder("catalogs");
    std::string data = folder.MakeFolder("data");
    std::string gui = folder.MakeFolder("gui");
    std::string custom = folder.MakeFolder("custom");
};

}  // namespace nux
