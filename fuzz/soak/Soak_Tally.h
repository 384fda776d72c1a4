// Counts the pairs of a soak by verdict and cause, and keeps the smallest sample of each cause, also as files.
#pragma once

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <map>
#include <string>

#include "Soak_CauseFinder.h"

namespace Soak {

// The numbers of one group of pairs.
struct Counts {
    std::size_t pairs = 0;
    std::map<Fuzz::Verdict, std::size_t> byVerdict;
};

class Tally {
public:
    // Files are written to `folder`, which exists.
    explicit Tally(std::filesystem::path folder) : folder_(std::move(folder)) {}

    // A pair counts for its group and for its directory.
    void countPair(const std::string& group, const std::string& directory, Fuzz::Verdict verdict);
    void countCause(Fuzz::Verdict verdict, const Diagnosis& diagnosis, const std::string& example);

    bool has(Fuzz::Verdict verdict) const { return causes_.contains(verdict); }
    void print(std::ostream& out) const;

private:
    struct Cause {
        std::size_t count = 0;
        std::string example;
        std::optional<Sample> smallest;
    };

    void write(Fuzz::Verdict verdict, const std::string& cause, const Sample& sample) const;
    void printCounts(std::ostream& out) const;
    void printCauses(std::ostream& out, Fuzz::Verdict verdict) const;

    std::filesystem::path folder_;
    std::map<std::string, Counts> groups_;
    std::map<std::string, Counts> directories_;
    std::map<Fuzz::Verdict, std::map<std::string, Cause>> causes_;
};

}  // namespace Soak
