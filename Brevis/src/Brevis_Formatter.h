// The spine of the engine: takes one text through its stages under a scheme. It knows no files and no user interface.
#pragma once

#include <iosfwd>

#include "Brevis_FormatterProperties.h"
#include "Brevis_UpdateFunctor.h"
#include "Trn_ParseMessage.h"

namespace Brevis {

class Formatter {
public:
    // Reads `in` to its end, formats the text and writes it to `out` in one write.
    // Gives 0 for success. Otherwise nothing was written and messages tell why: 1 after a cancel, else the number of
    // parse messages appended. Exceptions of the stages pass through.
    int format(const FormatterProperties& properties, std::istream& in, std::ostream& out,
               Trn::ParseMessageList& messages, UpdateFunctor& update) const;
};

}  // namespace Brevis
