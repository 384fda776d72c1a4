// Checks of a formatted text that trust nothing of how it was made. What they find is a message for the user.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Trn_ParseMessage.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace BrevisUI {

// Compares the tokens of a file with those of the text that is to stand in it. Gives an error with the first place in
// `source` at which they differ. A carriage return alone ends a line, as it does for compilers.
std::optional<Trn::ParseMessage> findChangedToken(std::string_view source, std::string_view formatted);

// Formats `formatted` once more. Gives a warning with the first place in it that would change, or that makes the second
// run refuse it.
std::optional<Trn::ParseMessage> findSecondChange(const Brevis::FormatterProperties& properties,
                                                  const std::string& formatted);

}  // namespace BrevisUI
