// Formatting for some lines of a text only: of the changes to the whole, those are taken over that lie in the chosen
// lines. Pure text work.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "BrevisUI_LineSet.h"

namespace BrevisUI {

// How the changes of several gaps belong together.
enum class GapChanges {
    Related,  // see below
    Free,     // not at all: each is done if all of its own lines are chosen
};

// `formatted` is what formatting has made of the whole of `source`. What comes out has the other characters of both; in
// lines that are not chosen every byte is that of the source, the line end included.
//
// - What stands in a chosen line in front of its first and behind its last other character, and between them, changes
//   with that line.
// - A line is split only if it is chosen, and lines are joined only if all of them are. Unless changes are free, splits
//   and joins with no line end between them that both texts have belong together: all of their lines are chosen, or
//   none of them is done.
// - Blank lines go only if enough chosen ones stand there. New ones come beside or between chosen lines.
//
// Nothing if the texts differ in more than white space.
std::optional<std::string> takeChosenLines(std::string_view source, std::string_view formatted, const LineSet& lines,
                                           GapChanges changes = GapChanges::Related);

}  // namespace BrevisUI
