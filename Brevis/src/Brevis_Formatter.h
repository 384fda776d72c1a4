// The spine of the engine: takes one text through its stages under a scheme. It knows no files and no user interface.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Brevis_UpdateFunctor.h"
#include "Trn_ParseMessage.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

enum class FormatOutcome {
    Formatted,
    Refused,    // the messages tell what could not be parsed
    Cancelled,  // the update functor said stop; a message of severity 1 tells it
};

// What a run gives beside its messages.
struct FormatResult {
    FormatOutcome outcome = FormatOutcome::Refused;
    std::string text;       // the whole formatted text; empty unless formatted
    std::size_t seams = 0;  // places at which a pass would have changed more than white space, all mended

    bool isFormatted() const { return outcome == FormatOutcome::Formatted; }
};

// Holds nothing: an instance may be used any number of times, and all calls with the same arguments do the same.
class Formatter {
public:
    // Formats `source`, whose lines may end in any way; the lines of the result end with line feeds. Messages are
    // appended to those that are there. Exceptions of the stages pass through.
    FormatResult format(const FormatterProperties& properties, std::string_view source, Trn::ParseMessageList& messages,
                        UpdateFunctor& update) const;

    // The second pass alone: wraps the lines of a text that is formatted already and has line feeds for line ends.
    FormatResult wrap(const FormatterProperties& properties, const std::string& text,
                      Trn::ParseMessageList& messages) const;

private:
    FormatResult formatLines(const FormatterProperties& properties, std::string_view source,
                             Trn::ParseMessageList& messages, UpdateFunctor& update) const;
};

}  // namespace Brevis
