#include "tests/soak/soak.h"

#include <ole2.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>

#include "tarvik/status.h"
#include "tests/support/waiting.h"

namespace tarvik {

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int kReadings = 20;
// Released resources may take a while to be freed.
constexpr auto kTimeout = std::chrono::seconds(20);

std::mt19937 generator;

}  // namespace

int RunSoak(int argc, wchar_t** argv, std::vector<int> numbers,
            const std::function<bool(const std::vector<int>& numbers)>& soak) {
    for (size_t i = 0; i < numbers.size() && i + 1 < static_cast<size_t>(argc); ++i)
        numbers[i] = _wtoi(argv[i + 1]);
    OleInitialize(nullptr);
    bool good = false;
    const HRESULT status = Guard([&] { good = soak(numbers); });
    if (FAILED(status)) std::printf("failed with 0x%08lX\n", static_cast<unsigned long>(status));
    OleUninitialize();
    return good ? 0 : 1;
}

void SeedRandom(int seed) {
    generator.seed(static_cast<unsigned>(seed));
}

int Random(int below) {
    return static_cast<int>(generator() % static_cast<unsigned>(below));
}

bool SoakLoop::Run(int warmUp, int steps, const std::function<bool(int step)>& step) {
    const int every = std::max(1, steps / kReadings);
    const auto run = [&](int from, int to) {
        for (int i = from; i < to; ++i) {
            if (!step(i))
                return std::printf("%s: step %d of %d failed\n", name_, i + 1, warmUp + steps), false;
            const int watched = i + 1 - warmUp;
            if (watched > 0 && watched % every == 0 && watched < steps) Note(watched, read_());
        }
        return true;
    };
    if (!run(0, warmUp)) return false;
    Note(0, read_());
    if (!run(warmUp, warmUp + steps)) return false;
    Reading last;
    PumpUntil(
        [&] {
            last = read_();
            return last.counts.GrownSince(readings_[0].counts).empty();
        },
        kTimeout);
    Note(steps, std::move(last));
    const std::string grown = readings_.back().counts.GrownSince(readings_[0].counts) + Risen();
    std::printf("%s: %d, %s\n\n", name_, steps, grown.empty() ? "nothing grew" : grown.c_str());
    return grown.empty();
}

void SoakLoop::Note(int step, Reading reading) {
    std::printf("%s %d:", name_, step);
    for (const auto& [what, count] : reading.counts.Counts())
        std::printf(" %s %ld,", what, count);
    for (const Level& level : reading.levels)
        std::printf(" %s %.0f,", level.what, level.amount);
    std::printf(" after %.0f s\n", Seconds(Clock::now() - start_).count());
    std::fflush(stdout);
    readings_.push_back(std::move(reading));
}

std::string SoakLoop::Risen() const {
    const size_t quarter = readings_.size() / 4;
    if (quarter == 0) return {};
    std::string risen;
    for (size_t i = 0; i < readings_[0].levels.size(); ++i) {
        const double before = Average(i, quarter, 2 * quarter);
        const double after = Average(i, readings_.size() - quarter, readings_.size());
        const Level& level = readings_[0].levels[i];
        char text[100];
        std::snprintf(text, sizeof text, "%s: %.0f -> %.0f; ", level.what, before, after);
        if (after - before > level.rise) risen += text;
    }
    return risen;
}

double SoakLoop::Average(size_t level, size_t first, size_t end) const {
    double sum = 0;
    for (size_t i = first; i < end; ++i)
        sum += readings_[i].levels[level].amount;
    return sum / static_cast<double>(end - first);
}

}  // namespace tarvik
