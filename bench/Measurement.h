#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace nux::bench {

/// Runs from its making on.
class Stopwatch {
public:
    /// By the clock on the wall.
    double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Seconds that a piece of work takes.
double SecondsOf(const std::function<void()>& work);

/// One side of a comparison: does its work once and answers the seconds that count. What it prepares and
/// clears away does not count.
struct Contestant {
    template <class Work>
    Contestant(Work doWork, bool isSlow = false) : work(std::move(doWork)), slow(isSlow) {}

    std::function<double()> work;
    bool slow;  ///< works in one round only, the first that counts
};

/// The seconds of all rounds of one contestant.
class Times {
public:
    void Add(double seconds) { seconds_.push_back(seconds); }

    /// The quickest round: what the work takes when the machine is left alone.
    double Best() const;

    const std::vector<double>& Rounds() const { return seconds_; }

private:
    std::vector<double> seconds_;
};

/// Lets the contestants work in turn, round after round, so that a busy moment of the machine meets all of
/// them. A first round that does not count loads code and fills caches. Results in the order of the
/// contestants.
std::vector<Times> MeasureInTurn(int rounds, const std::vector<Contestant>& contestants);

/// How often the quickest round of `floor` fits into that of `ours`.
double Ratio(const Times& ours, const Times& floor);

/// The ratios of the single rounds, from the middle of the lower half to the middle of the upper half: what
/// an accident of one round can't move.
std::string Spread(const Times& ours, const Times& floor);

// Cells of a printed table.

std::string Factor(double ratio);
std::string Duration(double seconds);
std::string Megabytes(double bytes);

/// Prints a Markdown table, line by line as it is made.
class Table {
public:
    explicit Table(const std::vector<std::string>& captions);
    void Row(const std::vector<std::string>& cells);
};

/// Prints a heading over the next table.
void Heading(const std::string& text);

}  // namespace nux::bench
