// Words for the search of the help.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

// The words of a text in lower case. A word is a run of letters, digits, underscores and bytes beyond ASCII; one with
// underscores counts as a whole and for each of its parts.
std::vector<std::string> searchWords(std::string_view text);

// The same words, each behind a blank, so that " page" finds the words that begin so.
std::string wordLine(std::string_view text);

// The stretch of about `width` characters round the first word of `text` that begins with `word`, cut between words.
// White space comes out as single blanks.
std::string excerptAround(std::string_view text, std::string_view word, std::size_t width);

}  // namespace BrevisUI
