// One walk over a stretch of expression tokens: the current token, the cursor in the text behind it and the scratch
// stream that takes what is finished. It holds no rules, only the steps that the rules are made of.
#pragma once

#include <string>
#include <string_view>

#include "expr/Brevis_ExprTokens.h"
#include "scheme/Brevis_WsProperty.h"
#include "text/Brevis_Columns.h"
#include "text/Brevis_Copying.h"
#include "text/Brevis_Gaps.h"
#include "text/Brevis_StreamColumns.h"

namespace Brevis {

// A stretch of a lexed text between two token borders.
struct ExprSlice {
    ExprTokens* tokens;
    std::uint32_t firstToken;
    std::uint32_t endToken;  // the index behind the last token
    std::uint32_t begin;     // the offsets of its text
    std::uint32_t end;

    std::string_view text() const { return tokens->text().substr(begin, end - begin); }
    bool isEmpty() const { return begin == end; }
};

// The cursor runs behind the walk: it stands in front of the current token, and each step copies what it has finished.
// A place that the cursor has passed copies nothing. Before the first step the current token has kind -1 and the next
// token kind 0; at the end of the stretch the next token has kind -1.
class ExprWalk {
public:
    ExprWalk(const ExprSlice& slice, const IndentStreamSettings& settings, bool isRewritten);

    OIndentStream& out() { return out_; }
    // True if the result will be written as ordinary text under the same indent and keep flag.
    bool isRewritten() const { return isRewritten_; }

    // ---- The token walk

    bool more() const { return !started_ || current_ + 1 < slice_.endToken; }
    void advance();
    const ExprToken& current() const;
    const ExprToken& next() const;
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

    void write(std::string_view text) { out_ << text; }
    void copyThrough(const ExprToken& token) { out_ << readThrough(token); }
    void copyBefore(const ExprToken& token) { out_ << readBefore(token); }
    void writeWs(const WsProperty& value) { Brevis::writeWs(out_, value.text); }
    // The text without the white space at its start, unless that follows a backslash at a line end.
    std::string_view trimmedLeft(std::string_view text) const;
    void writeTrimmedLeft(std::string_view text) { out_ << trimmedLeft(text); }
    // The text without the white space at its end, and the value in its place.
    void writeTrimmed(std::string_view text, const WsProperty& value);
    // The current token and the gap behind it as they stand.
    void copyPair();

private:
    std::string_view readTo(std::uint32_t offset);
    void findEnd();

    ExprSlice slice_;
    ExprToken end_;  // the end token
    std::uint32_t current_;
    std::uint32_t cursor_;
    bool started_ = false;
    bool isRewritten_;
    mutable bool isOneLine_ = false;  // known to be
    OIndentStream out_;
};

}  // namespace Brevis
