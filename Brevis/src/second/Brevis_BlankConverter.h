// Tabs for blanks or blanks for tabs in a text that is laid out. Columns stay: a run of blanks turns into tabs from one
// tab stop to the next.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "second/Brevis_GapTable.h"
#include "second/Brevis_PieceSizes.h"

namespace Brevis {

// `laid` holds the tokens of `text`; `pieces` tells the sizes of the gap and of the text of each of them. Tabs turn into
// blanks wherever they stand outside of literals, in comments and directives too. Blanks turn into tabs between tokens
// and in the indent of comments. What is fixed stays.
std::string convertBlanks(const GapText& text, const GapTable& gaps, const Scheme& scheme, std::string_view laid,
                          const PieceSizes& pieces);

}  // namespace Brevis
