// One walk over a stretch of expression tokens: the current token, the cursor in the text behind it, and the writing of
// what is finished, to a stream or as plain text. It holds no rules, only the steps that the rules are made of.
#pragma once

#include <string>
#include <string_view>

#include "first/expr/Brevis_ExprSlice.h"
#include "first/expr/Brevis_PlainExprText.h"
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_StreamColumns.h"
#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

// The cursor runs behind the walk: it stands in front of the current token, and each step copies what it has finished.
// A place that the cursor has passed copies nothing. Before the first step the current token has kind -1 and the next
// token kind 0; at the end of the stretch the next token has kind -1.
class ExprWalk {
public:
    ExprWalk(const ExprSlice& slice, OIndentStream& out, bool isRewritten);
    ExprWalk(const ExprSlice& slice, PlainExprText& plain);

    // The plain text that is written, or null; only without one there is a stream.
    PlainExprText* plain() { return plain_; }
    OIndentStream& out() { return *out_; }
    bool hasFailed() const { return plain_ && plain_->hasFailed(); }
    // True if the result will be written as ordinary text under the same indent and keep flag.
    bool isRewritten() const { return isRewritten_; }

    // ---- The token walk

    bool more() const { return !started_ || current_ + 1 < slice_.endToken; }
    void advance() {
        if (!started_)
            started_ = true;
        else if (more())
            ++current_;
    }
    const ExprToken& current() const { return started_ && holds(current_) ? token(current_) : end_; }
    const ExprToken& next() const {
        if (!started_) return notStarted;
        return holds(current_ + 1) ? token(current_ + 1) : end_;
    }
    Trn::TokenKind currentKind() const { return current().kind; }
    Trn::TokenKind nextKind() const { return next().kind; }
    std::uint32_t currentIndex() const { return current_; }
    std::uint32_t nextIndex() const { return current_ + 1; }
    bool holds(std::uint32_t index) const { return index < slice_.endToken; }
    const ExprToken& token(std::uint32_t index) const { return (*slice_.tokens)[index]; }
    const ExprTokens& tokens() const { return *slice_.tokens; }

    // Goes on to the place where `close` is the next token, or to the end of the stretch if it isn't in there; tells
    // which.
    bool advanceTo(std::uint32_t close);
    // Makes what the cursor has not passed a stretch of its own that is walked from `firstToken` on.
    void restartAt(std::uint32_t firstToken);

    // ---- The cursor

    std::string_view readThrough(const ExprToken& token) { return readTo(token.end); }
    std::string_view readBefore(const ExprToken& token) { return readTo(token.begin); }
    std::string_view remainder() { return readTo(slice_.end); }
    bool hasConsumed() const { return cursor_ > slice_.begin; }
    // What stands between the cursor and `end`, whose tokens are those from `firstToken` up to `endToken`. The cursor
    // passes it.
    ExprSlice readSlice(std::uint32_t firstToken, std::uint32_t endToken, std::uint32_t end);
    ExprSlice remainingSlice(std::uint32_t firstToken);
    // True if what the cursor has not passed holds no line feed.
    bool restIsOneLine() const;
    // The offset of the cursor, for a text that is written back as it stands.
    std::uint32_t offset() const { return cursor_; }
    std::string_view textFrom(std::uint32_t offset) const {
        return slice_.tokens->text().substr(offset, cursor_ - offset);
    }
    // 0-based column of an offset, counted from the start of its line or of the stretch.
    int columnOf(std::uint32_t offset) const;

    // ---- Writing, all of it ordinary but for `writeRaw`

    void write(std::string_view text) {
        if (plain_)
            plain_->write(text);
        else
            *out_ << text;
    }
    // A part of the text, or a value, that lands somewhere else than where it stood.
    void writeMoved(std::string_view text);
    void copyThrough(const ExprToken& token) { write(readThrough(token)); }
    void copyBefore(const ExprToken& token) { write(readBefore(token)); }
    void writeWs(std::string_view value);
    // The text without the white space at its start or its end, unless that follows a backslash at a line end.
    std::string_view trimmedLeft(std::string_view text) const;
    std::string_view trimmedRight(std::string_view text) const;
    void writeTrimmedLeft(std::string_view text) { write(trimmedLeft(text)); }
    // The text without the white space at its end, and the value in its place.
    void writeTrimmed(std::string_view text, const WsProperty& value);
    // The current token and the gap behind it as they stand.
    void copyPair();
    // The columns up to the end of a text that is written next. Without tabs the place doesn't matter.
    int widthOf(std::string_view text) const;

private:
    static constexpr ExprToken notStarted{Trn::Kind::Defective, 0, 0, ExprTokens::none};

    std::string_view readTo(std::uint32_t offset) {
        if (offset <= cursor_) return {};
        const std::string_view text = slice_.tokens->text().substr(cursor_, offset - cursor_);
        cursor_ = offset;
        return text;
    }
    void findEnd();

    ExprSlice slice_;
    ExprToken end_;  // the end token
    std::uint32_t current_;
    std::uint32_t cursor_;
    bool started_ = false;
    bool isRewritten_ = false;
    mutable bool isOneLine_ = false;  // known to be
    OIndentStream* out_ = nullptr;
    PlainExprText* plain_ = nullptr;
};

}  // namespace Brevis
