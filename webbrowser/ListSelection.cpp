#include "webbrowser/ListSelection.h"

#include <algorithm>
#include <cwctype>
#include <utility>

namespace nux::webbrowser {
namespace {

constexpr unsigned long long timeOfOneText = 1000;

bool BeginsWith(const std::wstring& text, const std::wstring& start) {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(), [](wchar_t typed, wchar_t letter) {
               return std::towlower(static_cast<wint_t>(typed)) == std::towlower(static_cast<wint_t>(letter));
           });
}

}  // namespace

ListSelection::ListSelection(std::vector<ListEntry> entries, int marked, int rows)
    : entries_(std::move(entries)),
      marked_(marked >= 0 && marked < Size() ? marked : -1),
      rows_(std::max(rows, 1)) {
    Show(marked_);
}

bool ListSelection::IsEnabled(int entry) const noexcept {
    return entry >= 0 && entry < Size() && entries_[static_cast<std::size_t>(entry)].isEnabled;
}

int ListSelection::Enabled(int entry, int step) const noexcept {
    for (; entry >= 0 && entry < Size(); entry += step) {
        if (IsEnabled(entry))
            return entry;
    }
    return -1;
}

void ListSelection::Move(int by) {
    const int step = by < 0 ? -1 : 1;
    const int target = std::clamp(marked_ + by, 0, std::max(Size() - 1, 0));
    int found = Enabled(target, step);
    for (int back = target; found < 0 && back != marked_ && back >= 0 && back < Size(); back -= step)
        found = IsEnabled(back) ? back : -1;
    if (found < 0)
        return;
    marked_ = found;
    Show(found);
}

void ListSelection::MoveToEnd(bool last) {
    const int found = last ? Enabled(Size() - 1, -1) : Enabled(0, 1);
    if (found < 0)
        return;
    marked_ = found;
    Show(found);
}

void ListSelection::Mark(int entry) noexcept {
    if (IsEnabled(entry))
        marked_ = entry;
}

bool ListSelection::Type(wchar_t character, unsigned long long milliseconds) {
    if (milliseconds - lastTyped_ > timeOfOneText)
        typed_.clear();
    lastTyped_ = milliseconds;
    // The same letter again asks for the next entry that begins with it.
    const bool isSame = typed_.size() == 1 && std::towlower(static_cast<wint_t>(typed_[0])) ==
                                                  std::towlower(static_cast<wint_t>(character));
    if (!isSame)
        typed_ += character;
    const int start = typed_.size() == 1 ? marked_ + 1 : std::max(marked_, 0);
    for (int i = 0; i < Size(); ++i) {
        const int entry = (start + i) % Size();
        if (IsEnabled(entry) && BeginsWith(entries_[static_cast<std::size_t>(entry)].text, typed_)) {
            marked_ = entry;
            Show(entry);
            return true;
        }
    }
    return false;
}

void ListSelection::ScrollTo(int first) noexcept {
    first_ = std::clamp(first, 0, std::max(Size() - rows_, 0));
}

void ListSelection::Show(int entry) noexcept {
    if (entry >= 0)
        ScrollTo(std::clamp(first_, entry - rows_ + 1, entry));
}

}  // namespace nux::webbrowser
