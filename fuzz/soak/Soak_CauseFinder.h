// Finds the cause of a finding. That of an unstable text is the part of the scheme that it takes, which only a shrunken
// sample tells; shrinking costs more than the trial, so each kind of finding is shrunk a few times only.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Soak_Finding.h"

namespace Soak {

struct Diagnosis {
    std::string cause;
    std::optional<Sample> smallest;  // if the sample was shrunk
};

class CauseFinder {
public:
    // `shrinks` is the most that are made altogether.
    explicit CauseFinder(std::size_t shrinks) : shrinksLeft_(shrinks) {}

    // `finding` is the one of `sample`, and not Settled.
    Diagnosis diagnose(const Sample& sample, const Finding& finding);

private:
    struct Known {
        std::vector<std::string> causes;  // of the samples shrunk so far
        std::size_t others = 0;           // how many came after those
    };

    std::size_t shrinksLeft_;
    std::map<std::pair<Fuzz::Verdict, std::string>, Known> known_;
};

}  // namespace Soak
