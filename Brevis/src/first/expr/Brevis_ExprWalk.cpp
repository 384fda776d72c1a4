// The steps of a walk over expression tokens.
#include "first/expr/Brevis_ExprWalk.h"

#include "Vellum_WhiteSpace.h"

namespace Brevis {

ExprWalk::ExprWalk(const ExprSlice& slice, OIndentStream& out, bool isRewritten)
    : slice_(slice), current_(slice.firstToken), cursor_(slice.begin), isRewritten_(isRewritten), out_(&out) {
    findEnd();
}

ExprWalk::ExprWalk(const ExprSlice& slice, PlainExprText& plain)
    : slice_(slice), current_(slice.firstToken), cursor_(slice.begin), plain_(&plain) {
    findEnd();
}

// The end token's positions are both the last position of the last token, and a read up to a first position leaves the
// character in front of it.
void ExprWalk::findEnd() {
    const bool hasTokens = slice_.firstToken < slice_.endToken;
    end_.end = hasTokens ? token(slice_.endToken - 1).end : slice_.begin;
    end_.begin = hasTokens ? end_.end - 1 : slice_.begin;
}

bool ExprWalk::advanceTo(std::uint32_t close) {
    const bool isFound = holds(close);
    current_ = (isFound ? close : slice_.endToken) - 1;
    return isFound;
}

void ExprWalk::restartAt(std::uint32_t firstToken) {
    slice_.firstToken = firstToken;
    slice_.begin = cursor_;
    current_ = firstToken;
    started_ = false;
    findEnd();
}

ExprSlice ExprWalk::readSlice(std::uint32_t firstToken, std::uint32_t endToken, std::uint32_t end) {
    const std::uint32_t begin = cursor_;
    readTo(end);
    return {slice_.tokens, firstToken, endToken, begin, cursor_};
}

ExprSlice ExprWalk::remainingSlice(std::uint32_t firstToken) {
    return readSlice(firstToken, slice_.endToken, slice_.end);
}

bool ExprWalk::restIsOneLine() const {
    // What holds for a text holds for its rest, so the search is made only once where it finds nothing.
    const auto rest = slice_.tokens->text().substr(cursor_, slice_.end - cursor_);
    if (!isOneLine_) isOneLine_ = rest.find('\n') == std::string_view::npos;
    return isOneLine_;
}

int ExprWalk::columnOf(std::uint32_t offset) const {
    const std::string_view before = slice_.tokens->text().substr(slice_.begin, offset - slice_.begin);
    const std::size_t lineFeed = before.rfind('\n');
    return static_cast<int>(lineFeed == std::string_view::npos ? before.size() : before.size() - lineFeed - 1);
}

void ExprWalk::writeMoved(std::string_view text) {
    if (plain_)
        plain_->writeMoved(text);
    else
        *out_ << text;
}

void ExprWalk::writeWs(std::string_view value) {
    if (plain_)
        plain_->writeValue(value);
    else
        Brevis::writeWs(*out_, value);
}

// A plain text has no backslash at a line end.
std::string_view ExprWalk::trimmedLeft(std::string_view text) const {
    if (!plain_ && out_->behindBackslash()) return text;
    return Vellum::withoutLeadingSpace(text);
}

std::string_view ExprWalk::trimmedRight(std::string_view text) const {
    return plain_ ? Vellum::withoutTrailingSpace(text) : Brevis::trimmedRight(text);
}

void ExprWalk::writeTrimmed(std::string_view text, const WsProperty& value) {
    const bool staysWhole = !plain_ && out_->behindBackslash() && Brevis::trimmedLeft(text).empty();
    write(staysWhole ? text : trimmedRight(text));
    writeWs(value.text);
}

int ExprWalk::widthOf(std::string_view text) const {
    return plain_ ? static_cast<int>(text.size()) : columnAfter(text, out_->column(), out_->tabSize());
}

void ExprWalk::copyPair() {
    if (more())
        copyBefore(next());
    else
        copyThrough(current());
}

}  // namespace Brevis
