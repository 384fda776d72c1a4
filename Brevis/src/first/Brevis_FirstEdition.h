// The first edition of the rules: a formatter that walks the tree, and a line wrapper as a second pass. It knows no
// files, no user interface and no other edition.
#pragma once

#include <string>
#include <string_view>

#include "Trn_ParseMessage.h"
#include "run/Brevis_FormatResult.h"
#include "run/Brevis_UpdateFunctor.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

// Holds nothing: an instance may be used any number of times.
class FirstEdition {
public:
    // Formats `source`, which has line feeds for line ends; so has the result. Messages are appended to those that are
    // there. Exceptions of the stages pass through.
    FormatResult format(const FormatterProperties& properties, std::string_view source, Trn::ParseMessageList& messages,
                        UpdateFunctor& update) const;

    // The second pass alone: wraps the lines of a text that is formatted already and has line feeds for line ends.
    FormatResult wrap(const FormatterProperties& properties, const std::string& text,
                      Trn::ParseMessageList& messages) const;
};

}  // namespace Brevis
