// The steps of a walk over expression tokens.
#include "expr/Brevis_ExprWalk.h"

#include <algorithm>

namespace Brevis {

namespace {

constexpr ExprToken notStarted{Trn::Kind::Defective, 0, 0, ExprTokens::none};

}  // namespace

ExprWalk::ExprWalk(const ExprSlice& slice, const IndentStreamSettings& settings, bool isRewritten)
    : slice_(slice), current_(slice.firstToken), cursor_(slice.begin), isRewritten_(isRewritten), out_(settings) {
    findEnd();
}

// The end token's positions are both the last position of the last token, and a read up to a first position leaves the
// character in front of it.
void ExprWalk::findEnd() {
    const bool hasTokens = slice_.firstToken < slice_.endToken;
    end_.end = hasTokens ? token(slice_.endToken - 1).end : slice_.begin;
    end_.begin = hasTokens ? end_.end - 1 : slice_.begin;
}

void ExprWalk::advance() {
    if (!started_)
        started_ = true;
    else if (more())
        ++current_;
}

const ExprToken& ExprWalk::current() const { return started_ && holds(current_) ? token(current_) : end_; }

const ExprToken& ExprWalk::next() const {
    if (!started_) return notStarted;
    return holds(current_ + 1) ? token(current_ + 1) : end_;
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

std::string_view ExprWalk::readTo(std::uint32_t offset) {
    if (offset <= cursor_) return {};
    const std::string_view text = slice_.tokens->text().substr(cursor_, offset - cursor_);
    cursor_ = offset;
    return text;
}

std::string_view ExprWalk::trimmedLeft(std::string_view text) const {
    return out_.behindBackslash() ? text : Brevis::trimmedLeft(text);
}

void ExprWalk::writeTrimmed(std::string_view text, const WsProperty& value) {
    const bool staysWhole = out_.behindBackslash() && Brevis::trimmedLeft(text).empty();
    out_ << (staysWhole ? text : trimmedRight(text));
    writeWs(value);
}

void ExprWalk::copyPair() {
    if (more())
        copyBefore(next());
    else
        copyThrough(current());
}

}  // namespace Brevis
