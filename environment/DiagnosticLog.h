#pragma once

#include <windows.h>

#include <urlmon.h>

#include <string>

// A macro of the platform's, which would rename the function in some sources and not in others.
#undef IsLoggingEnabled

namespace nux {

/// Whether a log file is set. Only this decides whether entries are written, and whether errors go to the log
/// and end the process instead of being shown.
bool IsLoggingEnabled() noexcept;

// All but the two that are noexcept throw std::bad_alloc.

/// Sets the log file of the process. An empty path turns the log off. Nothing is opened yet.
void SetLogFile(const std::string& path);
void ClearLogFile() noexcept;

/// Appends an entry to the log, if there is one. The file is opened and closed for each entry, shared with
/// other readers and writers, so that nothing is lost when the process dies.
/// @param fatal  adds a line feed and, once the entry is written, ends the process with exit code -1
/// @param text   written byte by byte, without a terminator
/// The three integers and what follows the text are not read.
/// @return 0. A log file that can't be opened ends the process with exit code -1.
int WriteLogEntry(bool fatal, int, int, int, std::string text, ...);

/// Appends the text behind a stamp of local date and time "MM/DD/YY HH:MM:SS ". No line feed is added:
/// whoever wants lines supplies it.
void WriteStampedLogEntry(const std::string& text);

}  // namespace nux
