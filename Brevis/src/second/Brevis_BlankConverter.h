// Tabs for blanks or blanks for tabs in a text that is laid out. Columns stay: a run of blanks turns into tabs from one
// tab stop to the next.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "second/Brevis_GapTable.h"

namespace Brevis {

// `laid` holds the tokens of `text`; `places` tells for each of them where its gap and where it begins. Tabs turn into
// blanks wherever they stand outside of literals, in comments and directives too. Blanks turn into tabs between tokens
// and in the indent of comments. What is fixed stays.
std::string convertBlanks(const GapText& text, const GapTable& gaps, const Scheme& scheme, std::string_view laid,
                          const std::vector<std::uint32_t>& places);

}  // namespace Brevis
