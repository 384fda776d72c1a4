// The white space in front of the character goes out with it, so that a line is indented once.
#include "first/text/Brevis_FirstCharacter.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"
#include "first/text/Brevis_StreamColumns.h"

namespace Brevis {

std::string_view takeFirstCharacter(std::string_view& text) {
    const std::size_t leading = text.size() - Vellum::withoutLeadingSpace(text).size();
    const std::string_view front = text.substr(0, std::min(leading + 1, text.size()));
    text.remove_prefix(front.size());
    return front;
}

int writeFirstCharacter(OIndentStream& out, std::string_view& text) {
    const std::string_view front = takeFirstCharacter(text);
    out << front;
    return Vellum::isBlank(front) ? 0 : lastColumn(out);
}

int writeFirstCharacterRaw(OIndentStream& out, std::string_view& text) {
    const std::string_view front = takeFirstCharacter(text);
    out.writeRaw(front);
    return Vellum::isBlank(front) ? 0 : lastColumn(out);
}

}  // namespace Brevis
