#include "first/wrap/Brevis_WrapStream.h"

#include "Vellum_WhiteSpace.h"
#include "first/text/Brevis_FirstCharacter.h"

namespace Brevis {

namespace {

IndentStreamSettings settingsAt(const WrapPlace& place) {
    IndentStreamSettings settings = *place.settings;
    settings.column = place.column;
    settings.behindBackslash = place.behindBackslash;
    return settings;
}

}  // namespace

WrapStream::WrapStream(const WrapPlace& place)
    : place_(place), out_(settingsAt(place)), hasIndent_(!place.indentColumn.has_value()) {}

void WrapStream::lineFeed() {
    if (!out_.behindBackslash()) raw("\n");
}

int WrapStream::writeFirstChar(std::string_view& text) {
    const std::string_view front = takeFirstCharacter(text);
    raw(front);
    return Vellum::isBlank(front) ? 0 : lastColumn(out_);
}

OIndentStream& WrapStream::stream() {
    if (!hasIndent_) {
        out_.setIndent(indentStringFor(out_, *place_.indentColumn));
        hasIndent_ = true;
    }
    return out_;
}

WrapPlace WrapStream::place() const {
    WrapPlace place = place_;
    place.column = out_.column();
    place.behindBackslash = out_.behindBackslash();
    return place;
}

WrapPlace WrapStream::placeUnder(int indentColumn) const {
    WrapPlace under = place();
    under.indentColumn = indentColumn;
    return under;
}

}  // namespace Brevis
