// The spine of the engine: takes one text through its stages under a scheme. It knows no files and no user interface.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include "Brevis_FormatterProperties.h"
#include "Brevis_UpdateFunctor.h"
#include "Trn_ParseMessage.h"

namespace Brevis {

// What a run tells of itself besides its text and its messages.
struct FormatSummary {
    std::size_t seams = 0;  // places at which a pass would have changed more than white space, all mended
};

class Formatter {
public:
    // Reads `in` to its end, formats the text and writes it to `out` in one write.
    // Gives 0 for success. Otherwise nothing was written and messages tell why: 1 after a cancel, else the number of
    // parse messages appended. Exceptions of the stages pass through. `summary`, unless null, is added to.
    int format(const FormatterProperties& properties, std::istream& in, std::ostream& out,
               Trn::ParseMessageList& messages, UpdateFunctor& update, FormatSummary* summary = nullptr) const;

    // The second pass alone: wraps the lines of a text that is formatted already and has line feeds for line ends.
    // Gives 0, or the number of parse messages appended; the text then stays as it was.
    int wrap(const FormatterProperties& properties, std::string& text, Trn::ParseMessageList& messages,
             FormatSummary* summary = nullptr) const;
};

}  // namespace Brevis
