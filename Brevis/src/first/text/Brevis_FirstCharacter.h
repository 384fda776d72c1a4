// The first character of a text, which goes out ahead of the rest where its output column is asked for.
#pragma once

#include <string_view>

#include "first/text/Brevis_TextStreams.h"

namespace Brevis {

// Takes off what stands up to and including the first character that is no white space; all of the text without one.
std::string_view takeFirstCharacter(std::string_view& text);

// Takes that off and writes it; gives the output column of the first character, or 0 without one.
int writeFirstCharacter(OIndentStream& out, std::string_view& text);
int writeFirstCharacterRaw(OIndentStream& out, std::string_view& text);

}  // namespace Brevis
