#include "webbrowser/MessageReader.h"

namespace nux::webbrowser {

bool MessageReader::Append(std::string_view bytes) {
    if (overlong_)
        return false;
    if (begin_ > 0) {
        pending_.erase(0, begin_);
        searched_ -= begin_;
        begin_ = 0;
    }
    pending_.append(bytes);
    // Only what is not yet known to hold an end can be one message.
    if (pending_.size() > longest && pending_.find('\0', searched_) == std::string::npos)
        overlong_ = true;
    return !overlong_;
}

std::optional<std::string> MessageReader::Next() {
    if (overlong_)
        return std::nullopt;
    const std::size_t end = pending_.find('\0', searched_);
    if (end == std::string::npos) {
        searched_ = pending_.size();
        return std::nullopt;
    }
    std::string message = pending_.substr(begin_, end - begin_);
    begin_ = searched_ = end + 1;
    return message;
}

}  // namespace nux::webbrowser
