// What a run of an edition gives beside its messages.
#pragma once

#include <cstddef>
#include <string>

namespace Brevis {

enum class FormatOutcome {
    Formatted,
    Refused,    // the messages tell what could not be parsed
    Cancelled,  // the update functor said stop; a message of severity 1 tells it
};

struct FormatResult {
    FormatOutcome outcome = FormatOutcome::Refused;
    std::string text;          // the whole formatted text; empty unless formatted
    std::size_t seams = 0;     // places at which a pass would have changed more than white space, all mended
    bool hasFreeGaps = false;  // what was decided for one gap between tokens doesn't need what was for another

    bool isFormatted() const { return outcome == FormatOutcome::Formatted; }
};

}  // namespace Brevis
