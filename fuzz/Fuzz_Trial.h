// One text under one scheme through the whole engine, and what must hold of the result: that nothing but white space
// changed, and that a second run changes nothing more.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Trn_ParseMessage.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Fuzz {

enum class Verdict {
    Refused,   // with messages, or for a limit of the engine, which the complaint names
    Settled,   // all is well
    Unstable,  // everything was kept, but a second run changes the text again or is refused
    Lost,      // characters or tokens differ
    Failed,    // an exception other than those of the limits
};

struct Trial {
    Verdict verdict = Verdict::Settled;
    std::string text;                // result of the first run
    std::string second;              // that of the second, of a text that isn't Settled
    std::string complaint;           // what was lost, or the message of the exception
    Trn::ParseMessageList messages;  // of a refusal, the second run's too
    std::size_t seams = 0;           // mended by the first run
};

Trial tryText(const Brevis::PropertySet& scheme, const std::string& source, bool runsTwice = true,
              const Brevis::Reading& reading = {});

// True for the message of an exception that the engine throws for texts beyond its limits: too deeply nested, or grown
// beyond measure by wrapping or by its indents. Such a text has got its answer.
bool isLimit(std::string_view message);

std::string withoutWhiteSpace(std::string_view text);

}  // namespace Fuzz
