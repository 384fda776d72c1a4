// What is worth counting about one trial: its verdict and what it looks like.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Fuzz_Trial.h"
#include "Soak_Shrinker.h"

namespace Soak {

struct Finding {
    Fuzz::Verdict verdict = Fuzz::Verdict::Settled;
    std::vector<std::string> kinds;  // the first is that of the trial; an unstable text may show several

    bool shows(Fuzz::Verdict wanted, std::string_view kind) const;
};

// Runs the sample only once if the second run is not asked for.
Finding findingOf(const Sample& sample, const Fuzz::Trial& trial);

}  // namespace Soak
