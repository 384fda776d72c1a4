#include "wrap/Brevis_WrapStream.h"

#include "Vellum_WhiteSpace.h"

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
    std::size_t end = 0;
    while (end < text.size() && Vellum::isSpace(text[end])) ++end;
    const bool hasChar = end < text.size();
    if (hasChar) ++end;
    raw(text.substr(0, end));
    text.remove_prefix(end);
    return hasChar ? lastColumn(out_) : 0;
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
