// The front of the engine: takes one text through an edition of the rules under a scheme. It knows no files and no user
// interface.
#pragma once

#include <string>
#include <string_view>

#include "Trn_ParseMessage.h"
#include "run/Brevis_FormatResult.h"
#include "run/Brevis_UpdateFunctor.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

// Holds nothing: an instance may be used any number of times, and all calls with the same arguments do the same.
class Formatter {
public:
    // Formats `source`, whose lines may end in any way; the lines of the result end with line feeds. Messages are
    // appended to those that are there. Exceptions of the stages pass through.
    FormatResult format(const FormatterProperties& properties, std::string_view source, Trn::ParseMessageList& messages,
                        UpdateFunctor& update) const;

    // The second pass of the first edition alone: wraps the lines of a text that is formatted already and has line
    // feeds for line ends.
    FormatResult wrap(const FormatterProperties& properties, const std::string& text,
                      Trn::ParseMessageList& messages) const;

private:
    FormatResult formatLines(const FormatterProperties& properties, std::string_view source,
                             Trn::ParseMessageList& messages, UpdateFunctor& update) const;
};

}  // namespace Brevis
