// What a run of the second edition changes, gap by gap, with what has decided each change. It is for people and for
// tests, and costs an ordinary run nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Trn_ParseMessage.h"
#include "Trn_Position.h"
#include "scheme/Brevis_FormatterProperties.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace Brevis {

// What decides a change. All but the first have no key.
enum class GapCause : std::uint8_t {
    Property,
    Indent,       // a line moves with the line that it belongs to
    Guard,        // tokens have to stay as they are
    Nothing,      // a rule: no white space here
    Blank,        // a rule: one blank
    LineFeed,     // a rule: a line of its own
    Column,       // lines share a column
    Comment,      // a rule about a comment
    CommentLine,  // inside of a comment, whose later lines move with its first one
    LineEnd,      // what stands in front has to end its line
};

// A stretch of white space that comes out otherwise: from `begin` to `end` in the source, `text` in the result. Only
// one inside of a comment is no gap between tokens.
struct GapChange {
    std::uint32_t begin = 0, end = 0;
    std::string text;
    std::uint32_t tokenEnd = 0;  // of the token that begins at `end`, or of the comment around it
    Trn::Position place;         // of `end`; lines and columns count from 1, columns in bytes
    std::int32_t firstLine =
        0;  // the first line that changes here: that of `begin`, or of `end` if only the indent does
    GapCause cause = GapCause::Property;
    const PropertyInfo* property = nullptr;  // the row of a Property
    std::int32_t ownerLine = 0;              // of an Indent: the line that it moves with; 0 if that is not another one
};

// The key of a change, or the name of what decides in the place of one: "indent", "guard" and their like.
std::string_view nameOf(const GapChange& change);

// Whether a scheme is carried out gap by gap; for no other there is a report.
bool hasGapReport(const Scheme& scheme);

// Formats `source`, which has line feeds for line ends, and gives the changes in the order of the text: done at their
// places they turn the source into what a run makes of it. Messages are those of a run; nothing if a run would refuse
// the text. The scheme must have a report.
std::optional<std::vector<GapChange>> findGapChanges(const FormatterProperties& properties, std::string_view source,
                                                     Trn::ParseMessageList& messages);

}  // namespace Brevis
