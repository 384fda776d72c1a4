// One sweep over both texts: a gap, a token, a gap. The source's tokens say what each gap means; what was written there
// stays unless it would change the program, and is replaced otherwise.
#include "guard/Brevis_SeamGuard.h"

#include <algorithm>

#include "Cpp_CharClasses.h"
#include "Trn_Exception.h"
#include "guard/Brevis_PlainRun.h"
#include "guard/Brevis_SeamJoin.h"
#include "guard/Brevis_SeamLexer.h"
#include "guard/Brevis_TextPlace.h"

namespace Brevis {

using Cpp::isSpace;

namespace {

constexpr std::string_view blankChars = " \t";

// Without the checks of substr.
std::string_view slice(std::string_view text, std::size_t begin, std::size_t end) {
    return {text.data() + begin, end - begin};
}

// For gaps, which are short as a rule.
bool hasChar(std::string_view text, char c) {
    for (const char other : text) {
        if (other == c) return true;
    }
    return false;
}
bool isBlank(std::string_view text) { return text.find_first_not_of(blankChars) == std::string_view::npos; }

std::size_t whiteSpaceLength(std::string_view text, std::size_t at) {
    const std::size_t begin = at;
    while (at < text.size() && isSpace(text[at])) ++at;
    return at - begin;
}

// True if `written` is `gap`, or as far as one can tell the same width in tabs instead of blanks or the reverse.
bool isConverted(std::string_view gap, std::string_view written) {
    if (gap == written) return true;
    if (gap.empty() || written.empty() || !isBlank(gap) || !isBlank(written)) return false;
    const bool hadTabs = hasChar(gap, '\t'), hasTabs = hasChar(written, '\t');
    if (!hadTabs) return hasTabs && written.size() <= gap.size();
    return hasTabs || written.size() >= gap.size();
}

// Splits off the part in front of the first `c`; all that is left if there is none.
std::string_view takeUpTo(std::string_view& text, char c) {
    const std::size_t length = std::min(text.find(c), text.size());
    const std::string_view part = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return part;
}

// The blanks at the end of a line, of the source and as written: what is to stand there.
std::string_view mendedLineEnd(std::string_view lineEnd, std::string_view written, bool mayTrim) {
    return isConverted(lineEnd, written) || (mayTrim && written.empty()) ? written : lineEnd;
}

// White space inside a comment: the ends of lines stay, unless they may be trimmed; their starts may differ.
std::string commentGap(std::string_view gap, std::string_view written, bool isBehindBackslash, bool mayTrim) {
    if (std::count(gap.begin(), gap.end(), '\n') != std::count(written.begin(), written.end(), '\n')) {
        return std::string(gap);
    }
    auto lines = std::count(gap.begin(), gap.end(), '\n');
    const std::string_view lineEnd = takeUpTo(gap, '\n');
    const std::string_view writtenEnd = takeUpTo(written, '\n');
    std::string wanted(isBehindBackslash ? lineEnd : mendedLineEnd(lineEnd, writtenEnd, mayTrim && lines > 0));
    for (; lines > 0; --lines) {
        const std::string_view start = takeUpTo(gap, '\n');
        const std::string_view writtenStart = takeUpTo(written, '\n');
        wanted += '\n';
        wanted += isBlank(start) && isBlank(writtenStart) ? writtenStart : start;
    }
    return wanted;
}

// True if a line ends in the gap: a line feed that no backslash takes away.
bool holdsLineEnd(std::string_view gap) {
    bool isBehindBackslash = false;
    for (const char c : gap) {
        if (c == '\n' && !isBehindBackslash) return true;
        if (c == '\n' || c == '\\') isBehindBackslash = c == '\\';
    }
    return false;
}

class Sweep {
public:
    Sweep(std::string_view source, std::string_view output, bool mayTrim, bool partsLiterals)
        : source_(source), output_(output), mayTrim_(mayTrim), partsLiterals_(partsLiterals), less_(lessOf(source)),
          lexer_(source) {}

    // Gives the number of seams; if there are any, the mended text is to be taken.
    std::size_t run();
    std::string takeText() { return std::move(mended_); }

private:
    // Where the last token that is no comment ends.
    struct TokenEnd {
        std::size_t source = 0, output = 0;
    };
    // What was mended up to such a token.
    struct Checkpoint {
        std::size_t source = 0, mendedSize = 0, copied = 0, seams = 0;
    };

    void mendByteOrderMark();
    void passPlainRun();
    void mendGap(const SeamToken& after);
    void mendToken(const SeamToken& token);
    void mendComment(const SeamToken& token);

    // What is to stand in a gap between two tokens; each of the others does one sort of gap.
    std::string_view gapBetween(std::string_view gap, std::string_view written, const SeamToken& after);
    std::string lastGapOfLine(std::string_view gap, std::string_view written) const;
    std::string splicedGap(std::string_view gap, std::string_view written, const SeamToken& after) const;
    std::string joinedLineStart(std::string_view gap, std::string_view written, bool isSpaced,
                                const SeamToken& after) const;

    // What the output has in the place of a gap of the source; the second is for one with joined lines.
    std::string_view writtenGap() const { return slice(output_, at_, at_ + whiteSpaceLength(output_, at_)); }
    std::string_view writtenSplices(std::string_view gap) const;
    // The token in front of the gap is bound to its line.
    bool isBoundToLine() const { return before_.inDirective || before_.takesRestOfLine(); }
    bool isBehindBackslash() const { return before_.end > 0 && source_[before_.end - 1] == '\\'; }
    bool isLineContinuedBy(const SeamToken& after) const { return after.inDirective && !after.opensDirective; }
    bool isBorder(const SeamToken& after) const;
    bool joins(const SeamToken& after) const;

    void replace(std::size_t begin, std::size_t end, std::string_view text);
    void restoreFromLastToken(std::size_t sourceEnd, std::size_t outputEnd);
    [[noreturn]] void fail(std::size_t sourceOffset) const;

    std::string_view source_;
    std::string_view output_;
    bool mayTrim_;
    bool partsLiterals_;
    Less less_;
    SeamLexer lexer_;
    SeamToken before_;         // the token in front of the gap; of kind End at the start of the text
    std::size_t at_ = 0;       // in the output
    bool atLineStart_ = true;  // in the mended text: nothing but comments since a line began
    std::string mended_;       // the mended text as far as it has been copied
    std::size_t copied_ = 0;   // up to where the output has been copied or replaced
    std::size_t seams_ = 0;
    std::size_t plainUpTo_ = 0;  // an offset in the source: up to there no further plain run is to be looked for
    std::string scratch_;        // holds what gapBetween gives if it is new
    TokenEnd lastToken_;
    Checkpoint checkpoint_;  // of the last token behind which something was mended
};

std::size_t Sweep::run() {
    if (source_.starts_with(byteOrderMark)) mendByteOrderMark();
    for (;;) {
        passPlainRun();
        const SeamToken token = lexer_.next();
        mendGap(token);
        if (token.kind == SeamKind::End) break;
        mendToken(token);
        before_ = token;
        if (token.isComment()) continue;
        atLineStart_ = false;
        lastToken_ = {token.end, at_};
    }
    if (at_ != output_.size()) fail(source_.size());
    if (seams_ > 0) mended_ += output_.substr(copied_);
    return seams_;
}

void Sweep::mendByteOrderMark() {
    const std::size_t begin = whiteSpaceLength(output_, 0);
    if (!output_.substr(begin).starts_with(byteOrderMark)) fail(0);
    if (begin > 0) replace(0, begin, "");
    before_.end = byteOrderMark.size();
    at_ = begin + byteOrderMark.size();
}

// Passes over what needs no second look. The lexer goes on behind it as if it had read all of it.
void Sweep::passPlainRun() {
    if (before_.end < plainUpTo_ || !lexer_.isIndifferent() || isBehindBackslash()) return;
    const PlainRun run = findPlainRun(source_.substr(before_.end), output_.substr(at_), less_);
    plainUpTo_ = before_.end + run.seen;
    if (run.source == 0) return;

    at_ += run.output;
    before_ = lexer_.goOnBehind(before_.end + run.source - 1);
    atLineStart_ = false;
    lastToken_ = {before_.end, at_};
}

// ---- Gaps

void Sweep::mendGap(const SeamToken& after) {
    const std::string_view gap = slice(source_, before_.end, after.begin);
    const std::string_view written = after.isSpliced ? writtenSplices(gap) : writtenGap();
    const std::size_t end = at_ + written.size();

    std::string_view wanted = gap == written ? written : gapBetween(gap, written, after);
    atLineStart_ = atLineStart_ || holdsLineEnd(wanted);
    if (after.opensDirective && !atLineStart_) {
        scratch_ = wanted.substr(0, wanted.find_last_not_of(blankChars) + 1);
        scratch_ += '\n';
        wanted = scratch_;
    }
    if (after.isDirectiveSign && !after.opensDirective && atLineStart_) {
        restoreFromLastToken(after.begin, end);
    } else if (wanted.data() != written.data() && wanted != written) {
        replace(at_, end, wanted);
    }
    at_ = end;
}

std::string_view Sweep::gapBetween(std::string_view gap, std::string_view written, const SeamToken& after) {
    if (isBehindBackslash()) return gap;
    if (after.isSpliced) return scratch_ = splicedGap(gap, written, after);
    if (isBoundToLine()) {
        if (!isLineContinuedBy(after)) return scratch_ = lastGapOfLine(gap, written);
        return isConverted(gap, written) ? written : gap;
    }
    if (gap.empty()) return isBorder(after) ? written : gap;
    return written.empty() && joins(after) ? " " : written;
}

// Behind a line comment, a directive or a quote that nothing closes. The white space up to the line end belongs to it.
std::string Sweep::lastGapOfLine(std::string_view gap, std::string_view written) const {
    const bool endsText = !hasChar(gap, '\n');
    const bool hasLineEnd = hasChar(written, '\n');
    const std::string_view lineEnd = takeUpTo(gap, '\n');
    const std::string_view writtenEnd = takeUpTo(written, '\n');
    const bool mayTrim = mayTrim_ && (before_.isComment() || !before_.takesRestOfLine());
    std::string wanted(hasLineEnd || endsText ? mendedLineEnd(lineEnd, writtenEnd, mayTrim) : lineEnd);
    if (!endsText || hasLineEnd) wanted += '\n';
    return wanted.append(written);
}

// A gap with joined lines. In code all of it stays but for what is in front of the first backslash; where the line has
// to be kept together, the starts of the joined lines may differ.
std::string Sweep::splicedGap(std::string_view gap, std::string_view written, const SeamToken& after) const {
    const bool keepsLine = isBoundToLine();
    const std::string_view first = takeUpTo(gap, '\\');
    const std::string_view writtenFirst = takeUpTo(written, '\\');
    const bool isAlike = first.empty() == writtenFirst.empty() && hasChar(first, '\n') == hasChar(writtenFirst, '\n');
    const bool keepsFirst = keepsLine ? isConverted(first, writtenFirst) : isAlike;
    std::string wanted(keepsFirst ? writtenFirst : first);
    const bool isSpaced = !wanted.empty();
    while (!gap.empty()) {
        const std::string_view piece = takeUpTo(gap, '\\');
        const std::string_view writtenPiece = takeUpTo(written, '\\');
        wanted += '\\';
        wanted += keepsLine ? joinedLineStart(piece, writtenPiece, isSpaced, after) : std::string(piece);
    }
    return wanted;
}

// White space behind a backslash: its line end stays. If the line goes on, there is white space at its start where
// there was some, unless the gap has some in front of the backslash; if it ends here, what comes behind is free.
std::string Sweep::joinedLineStart(std::string_view gap, std::string_view written, bool isSpaced,
                                   const SeamToken& after) const {
    std::string wanted(takeUpTo(gap, '\n'));
    takeUpTo(written, '\n');
    wanted += '\n';
    if (hasChar(gap, '\n')) {
        wanted += takeUpTo(gap, '\n');
        takeUpTo(written, '\n');
        return wanted.append("\n").append(written);
    }
    const bool isFree =
        isBlank(gap) && isBlank(written) && (gap.empty() ? isBorder(after) : isSpaced || !written.empty());
    return wanted.append(isFree ? written : gap);
}

std::string_view Sweep::writtenSplices(std::string_view gap) const {
    std::size_t end = at_ + whiteSpaceLength(output_, at_);
    for (auto backslashes = std::count(gap.begin(), gap.end(), '\\'); backslashes > 0; --backslashes) {
        if (end == output_.size() || output_[end] != '\\') fail(before_.end);
        ++end;
        end += whiteSpaceLength(output_, end);
    }
    return slice(output_, at_, end);
}

bool Sweep::isBorder(const SeamToken& after) const {
    return before_.kind != SeamKind::Stray && after.kind != SeamKind::Stray && after.kind != SeamKind::MacroParen;
}

bool Sweep::joins(const SeamToken& after) const {
    return before_.kind != SeamKind::End && after.kind != SeamKind::End &&
           wouldJoin(source_, before_, after, partsLiterals_);
}

// ---- Tokens

void Sweep::mendToken(const SeamToken& token) {
    const std::string_view text = slice(source_, token.begin, token.end);
    if (output_.substr(at_, text.size()) == text) {
        at_ += text.size();
        return;
    }
    if (token.isComment()) return mendComment(token);

    // The white space inside of any other token is part of it.
    std::size_t end = at_;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isSpace(text[i])) continue;
        end += whiteSpaceLength(output_, end);
        if (end == output_.size() || output_[end] != text[i]) fail(token.begin + i);
        ++end;
    }
    replace(at_, end, text);
    at_ = end;
}

void Sweep::mendComment(const SeamToken& token) {
    const std::string_view text = slice(source_, token.begin, token.end);
    const bool isBlock = token.kind == SeamKind::BlockComment;
    char last = '\0', lastSolid = '\0';  // the character in front, and the last that can't join lines
    std::size_t solids = 0;              // how many of these there were
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view gap = text.substr(i, whiteSpaceLength(text, i));
        const std::string_view written = output_.substr(at_, whiteSpaceLength(output_, at_));
        const std::size_t end = at_ + written.size();
        if (gap != written) {
            // Joined lines may stand inside of a comment sign.
            const bool isInSign = last == '\\' && (solids == 1 || (isBlock && lastSolid == '*'));
            const std::string wanted = isInSign ? std::string(gap) : commentGap(gap, written, last == '\\', mayTrim_);
            if (wanted != written) replace(at_, end, wanted);
        }
        at_ = end;
        i += gap.size();
        for (; i < text.size() && !isSpace(text[i]); ++i, ++at_) {
            if (at_ == output_.size() || output_[at_] != text[i]) {
                if (at_ == output_.size() || !isSpace(output_[at_])) fail(token.begin + i);
                break;
            }
            last = text[i];
            if (last == '\\') continue;
            lastSolid = last;
            ++solids;
        }
    }
}

// ---- The mended text

void Sweep::replace(std::size_t begin, std::size_t end, std::string_view text) {
    if (checkpoint_.source != lastToken_.source) checkpoint_ = {lastToken_.source, mended_.size(), copied_, seams_};
    mended_ += output_.substr(copied_, begin - copied_);
    mended_ += text;
    copied_ = end;
    ++seams_;
}

// Undoes all that was done since the last token that is no comment: what stands behind it is that of the source.
void Sweep::restoreFromLastToken(std::size_t sourceEnd, std::size_t outputEnd) {
    if (checkpoint_.source == lastToken_.source) {
        mended_.resize(checkpoint_.mendedSize);
        copied_ = checkpoint_.copied;
        seams_ = checkpoint_.seams;
    }
    replace(lastToken_.output, outputEnd, slice(source_, lastToken_.source, sourceEnd));
    atLineStart_ = false;
}

void Sweep::fail(std::size_t sourceOffset) const {
    const Trn::Position place = placeAt(source_, sourceOffset);
    throw Trn::Exception("The formatted text differs from the source in more than white space, first at line " +
                         std::to_string(place.line) + ", column " + std::to_string(place.column) + ".");
}

}  // namespace

std::size_t SeamGuard::mend(std::string& output) const {
    Sweep sweep(source_, output, lineEnds_ == LineEnds::Trimmed, literals_ == Literals::Parted);
    const std::size_t seams = sweep.run();
    if (seams > 0) output = sweep.takeText();
    return seams;
}

}  // namespace Brevis
