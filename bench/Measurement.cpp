#include "bench/Measurement.h"

#include <algorithm>
#include <cstdio>

namespace nux::bench {
namespace {

std::string Format(const char* format, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

void PrintLine(const std::vector<std::string>& cells) {
    for (const std::string& cell : cells)
        std::printf("| %s ", cell.c_str());
    std::printf("|\n");
    std::fflush(stdout);
}

}  // namespace

double SecondsOf(const std::function<void()>& work) {
    const Stopwatch stopwatch;
    work();
    return stopwatch.Seconds();
}

double Times::Best() const {
    return *std::min_element(seconds_.begin(), seconds_.end());
}

std::vector<Times> MeasureInTurn(int rounds, const std::vector<Contestant>& contestants) {
    std::vector<Times> times(contestants.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t i = 0; i < contestants.size(); ++i) {
            if (contestants[i].slow && round != 0)
                continue;
            const double seconds = contestants[i].work();
            if (round >= 0)
                times[i].Add(seconds);
        }
    }
    return times;
}

double Ratio(const Times& ours, const Times& floor) {
    return ours.Best() / floor.Best();
}

std::string Spread(const Times& ours, const Times& floor) {
    std::vector<double> ratios;
    for (std::size_t round = 0; round < ours.Rounds().size(); ++round)
        ratios.push_back(ours.Rounds()[round] / floor.Rounds()[round]);
    std::sort(ratios.begin(), ratios.end());
    const std::size_t quarter = ratios.size() / 4;
    return Format("%.2f", ratios[quarter]) + " to " + Format("%.2f", ratios[ratios.size() - 1 - quarter]);
}

std::string Factor(double ratio) {
    return Format(ratio < 0.1 ? "%.4f" : ratio < 10 ? "%.2f" : "%.0f", ratio);
}

std::string Duration(double seconds) {
    if (seconds < 1e-6)
        return Format("%.0f ns", seconds * 1e9);
    if (seconds < 1e-4)
        return Format("%.2f us", seconds * 1e6);
    if (seconds < 1)
        return Format("%.2f ms", seconds * 1e3);
    return Format("%.2f s", seconds);
}

std::string Megabytes(double bytes) {
    return Format("%.1f MB", bytes / (1024 * 1024));
}

Table::Table(const std::vector<std::string>& captions) {
    PrintLine(captions);
    PrintLine(std::vector<std::string>(captions.size(), "---"));
}

void Table::Row(const std::vector<std::string>& cells) {
    PrintLine(cells);
}

void Heading(const std::string& text) {
    std::printf("\n### %s\n\n", text.c_str());
}

}  // namespace nux::bench
