// The soak itself: draws pairs of a file and a scheme, tries each, and counts what comes of it. A pair depends on the
// seed and on its number only, so any of them can be run again alone.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

#include "Soak_CauseFinder.h"
#include "Soak_Tally.h"
#include "scheme/Brevis_PropertySet.h"

namespace Soak {

struct Settings {
    std::uint64_t seed = 1;
    double minutes = 0;       // 0 is no limit
    std::uint64_t pairs = 0;  // 0 is no limit
    std::uint64_t first = 0;  // the number of the first pair
    std::size_t shrinks = 2000;
    bool shippedOnly = false;
    Brevis::Reading reading{};
    std::filesystem::path folder;  // for what is found; it exists
};

struct Directory {
    std::string name;
    std::vector<std::filesystem::path> sources;  // at least one
};

class Runner {
public:
    // At least one directory, at least one shipped scheme.
    Runner(Settings settings, std::vector<Directory> directories, std::vector<Brevis::PropertySet> shipped);

    void run();
    void report(std::ostream& out) const;
    // Whether a pair lost anything or failed.
    bool foundFault() const { return tally_.has(Fuzz::Verdict::Lost) || tally_.has(Fuzz::Verdict::Failed); }

private:
    using Clock = std::chrono::steady_clock;

    struct Pair {
        std::uint64_t number = 0;
        const Directory* directory = nullptr;
        std::filesystem::path path;
        std::string group;
        Brevis::PropertySet scheme;
    };

    Pair draw(std::uint64_t number) const;
    bool isOver(std::uint64_t done) const;
    void runPair(const Pair& pair);
    // A pair that ends the process, or never ends, can be told from this file.
    void noteCurrent(const Pair& pair) const;
    void measure(const Pair& pair, std::size_t size, Clock::duration time);

    Settings settings_;
    std::vector<Directory> directories_;
    std::vector<Brevis::PropertySet> shipped_;

    CauseFinder causes_;
    Tally tally_;
    Clock::time_point begin_;
    std::uint64_t done_ = 0;
    std::set<std::string> files_;
    std::size_t seams_ = 0;
    std::size_t mendedTexts_ = 0;
    std::size_t bytes_ = 0;
    Clock::duration time_{};  // spent on trials
    double slowestSpeed_ = 0;
    std::string slowest_;
};

}  // namespace Soak
