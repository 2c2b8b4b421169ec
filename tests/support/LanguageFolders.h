#pragma once

#include <windows.h>

#include <string>

#include "environment/DiagnosticLog.h"
#include "environment/Environment.h"
#include "environment/InstallationPaths.h"
#include "environment/LanguageTable.h"
#include "environment/XMLAccess.h"
#include "framework/Module.h"
#include "tests/support/TempFolder.h"

namespace nux {

/// An installation with the folder of the wizard pages, and a locale folder beside it. At its end the
/// environment is without a language again.
class LanguageFolders {
public:
    LanguageFolders() {
        Installation().gui = folder_.MakeFolder("gui");
        Installation().catalog = folder_.MakeFolder("catalogs");
    }
    LanguageFolders(const LanguageFolders&) = delete;
    LanguageFolders& operator=(const LanguageFolders&) = delete;
    ~LanguageFolders() {
        ClearXMLDocumentCache();
        ClearLogFile();
        if (const HINSTANCE module = ResourceModule(); module != ThisModule()) {
            SetResourceModule(nullptr);
            FreeLibrary(module);  // so that its file can go
        }
        Installation() = {};
        InitEnvironment();
        ClearLogFile();
    }

    const TempFolder& Folder() const noexcept { return folder_; }

    /// Name of the folder of the user's language.
    static std::string UserLanguage() { return std::string(LanguageName(GetUserDefaultLangID())); }

    /// Installs the user's language and starts the environment with it.
    void StartInUserLanguage() const {
        folder_.MakeFolder("locale\\" + UserLanguage());
        InitEnvironment();
    }
    /// Writes a message file into the folder of the user's language, in the first place.
    void WriteMessages(const std::string& file, const std::string& pairs) const {
        folder_.Write("locale\\" + UserLanguage() + "\\" + file, "<Messages>" + pairs + "</Messages>");
    }

private:
    const TempFolder folder_;
};

/// A message and its text as they stand in a message file.
inline std::string Pair(const std::string& id, const std::string& text) {
    return "<MsgID>" + id + "</MsgID><Text>" + text + "</Text>\n";
}

}  // namespace nux
