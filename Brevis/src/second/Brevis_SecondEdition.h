// The second edition of the rules: a text is its tokens and the gaps between them, and formatting it is one decision for
// each gap. It knows no files, no user interface and no other edition.
#pragma once

#include <string_view>

#include "Trn_ParseMessage.h"
#include "run/Brevis_FormatResult.h"
#include "run/Brevis_UpdateFunctor.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

// Holds nothing: an instance may be used any number of times.
class SecondEdition {
public:
    // Formats `source`, which has line feeds for line ends; so has the result. Messages are appended to those that are
    // there. Exceptions of the stages pass through.
    FormatResult format(const FormatterProperties& properties, std::string_view source, Trn::ParseMessageList& messages,
                        UpdateFunctor& update) const;
};

}  // namespace Brevis
