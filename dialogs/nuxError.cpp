#include "dialogs/nuxError.h"

#include "environment/DiagnosticLog.h"
#include "environment/Localisation.h"

namespace nux {
namespace {

constexpr char caption[] = "Tarnvale";

}  // namespace

std::string nuxError::Text(const char* standard) const {
    const std::string text = GetLocalizedMessage("", standard);
    return message_.empty() ? text : message_;
}

int nuxError::Show(HWND parent) const {
    const std::string text = Text("An unspecified error has occurred!");
    if (IsLoggingEnabled())
        WriteLogEntry(true, 0, 0, 0, text);
    MessageBoxA(parent, text.c_str(), caption, MB_OK | MB_ICONHAND);
    return 0;
}

int nuxErrorWQ::Show(HWND parent) const {
    const std::string text = Text("An unspecified error has occurred!\nContinue?");
    if (IsLoggingEnabled())
        return WriteLogEntry(true, 0, 0, 0, "%s", text.c_str());
    return MessageBoxA(parent, text.c_str(), caption, MB_YESNO | MB_ICONHAND);
}

}  // namespace nux
