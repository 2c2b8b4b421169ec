#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nux::webbrowser {

/// One line of a list that drops down.
struct ListEntry {
    std::wstring text;
    bool isEnabled = true;
};

/// What a user does to a list that has dropped down: which entry is marked, and which part is in sight. An
/// entry that is not enabled is passed over.
class ListSelection {
public:
    /// @param marked  -1 for none
    /// @param rows    how many entries are in sight at a time, at least 1
    ListSelection(std::vector<ListEntry> entries, int marked, int rows);

    const std::vector<ListEntry>& Entries() const noexcept { return entries_; }
    int Marked() const noexcept { return marked_; }  ///< -1 for none
    int First() const noexcept { return first_; }    ///< the entry in the topmost row
    int Rows() const noexcept { return rows_; }
    bool IsEnabled(int entry) const noexcept;

    /// Marks the entry that lies so far below the marked one, or above it (negative), or the nearest to that
    /// which can be marked; none if there is none on the way.
    void Move(int by);
    void MoveToEnd(bool last);
    /// Marks an entry that can be marked, and leaves the part in sight.
    void Mark(int entry) noexcept;
    /// Marks the next entry that begins with what is typed.
    /// @param milliseconds  of any clock: characters that follow within a second make up one text
    /// @return whether there is one
    bool Type(wchar_t character, unsigned long long milliseconds);
    /// @param first  the entry that is to be in the topmost row; the nearest possible is
    void ScrollTo(int first) noexcept;

private:
    int Size() const noexcept { return static_cast<int>(entries_.size()); }
    /// The nearest enabled entry from `entry` on, in steps of 1 or -1; -1 if there is none.
    int Enabled(int entry, int step) const noexcept;
    void Show(int entry) noexcept;

    std::vector<ListEntry> entries_;
    int marked_;
    int rows_;
    int first_ = 0;
    std::wstring typed_;
    unsigned long long lastTyped_ = 0;
};

}  // namespace nux::webbrowser
