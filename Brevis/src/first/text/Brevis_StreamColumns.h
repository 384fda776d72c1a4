// Columns of an output stream: where it stands, the indent that reaches a column, and alignment white space.
#pragma once

#include <string>

#include "first/text/Brevis_TextStreams.h"

namespace Brevis {

// The text that, used as an indent, reaches `column` under the stream's tab size and convert mode.
std::string indentStringFor(const OIndentStream& stream, int column);
// The width of the stream's indent, from column 0.
int indentWidth(const OIndentStream& stream);
// The 0-based output column of the character written last (0 at column 0).
int lastColumn(const OIndentStream& stream);

// Inserter: `columns` columns of alignment white space; a negative number counts as 0.
struct Pad {
    int columns;
};
OIndentStream& operator<<(OIndentStream& out, Pad pad);

}  // namespace Brevis
