#pragma once

#include <windows.h>

#include <string>

namespace nux {

/// States a failure to the user. The text is localised and formatted by whoever makes the object, and shown
/// as it stands. While a log file is set nothing is shown: the text goes to the log and the process ends, so
/// that an unattended run never waits for an answer.
class nuxError {
public:
    nuxError() = default;
    /// @param code     a number for the failure; every place in the component passes 0
    /// @param message  empty for the text of an unspecified error
    nuxError(int code, std::string message) : code_(code), message_(std::move(message)) {}
    nuxError(const nuxError&) = default;
    virtual ~nuxError() = default;

    /// Shows the text in a message box and waits for its button.
    /// @param parent  owner window, or null
    /// @return 0. Throws std::bad_alloc
    virtual int Show(HWND parent) const;

    /// Code and message together, for an object that was made before its failure was known.
    void Assign(int code, std::string message) {
        code_ = code;
        message_ = std::move(message);
    }

    int Code() const noexcept { return code_; }
    const std::string& Message() const noexcept { return message_; }

protected:
    /// The message, or the localised `standard` text if it is empty.
    std::string Text(const char* standard) const;

private:
    int code_ = 0;
    std::string message_;
};

/// States a failure and asks whether to go on.
class nuxErrorWQ : public nuxError {
public:
    using nuxError::nuxError;
    /// A copy takes nothing over: it has code 0 and the standard question. That is wanted as it is.
    // NOLINTNEXTLINE(bugprone-copy-constructor-init,readability-redundant-member-init): for that reason
    nuxErrorWQ(const nuxErrorWQ&) noexcept : nuxError() {}

    /// @return IDYES or IDNO; only IDYES lets the work that was under way go on. While a log file is set the
    ///         log gets the two characters "%s", not the question, before the process ends: that is wanted as
    ///         it is.
    int Show(HWND parent) const override;
};

}  // namespace nux
