// Writing tokens and white space without a stream. The text must come out as a stream and the list passes would give
// it: they read each nested result again as tokens, and they write its lines again under the same indent.
#include "first/expr/Brevis_PlainExprText.h"

#include <algorithm>

#include "Cpp_CharClasses.h"
#include "Vellum_WhiteSpace.h"
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_StreamColumns.h"

namespace Brevis {

namespace {

namespace CharClass = Cpp::CharClass;

constexpr std::size_t npos = std::string_view::npos;

bool isBlanks(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c == ' '; });
}

bool holds(std::string_view text, char c) { return text.find(c) != npos; }

// Pieces are too short for a search to pay.
bool holdsLines(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return c == '\n' || c == '\t'; });
}

// Whether two characters side by side could make a token that is a bracket, opens a comment or is none, or take such a
// one apart.
bool couldJoin(char left, char right) {
    if (left == 'e' || left == 'E') return right == '+' || right == '-';  // the exponent of a number
    if (!Cpp::isAny(left, CharClass::punct) || !Cpp::isAny(right, CharClass::punct)) return false;
    constexpr std::string_view separate = "()[]{},;\"'";
    if (holds(separate, left) || holds(separate, right)) return false;
    constexpr std::string_view risky = "<>/";
    return holds(risky, left) || holds(risky, right) || (left == '-' && right == '-');
}

// The indent as a stream writes it at the start of a line.
std::string writtenIndent(const IndentStreamSettings& settings) {
    const bool isConverted = settings.convertMode == 2 || (settings.convertMode == 1 && holds(settings.indent, '\t'));
    if (!isConverted) return settings.indent;
    IndentStreamSettings atLineStart = settings;
    atLineStart.column = 0;
    OIndentStream out(atLineStart);
    out << "x";
    std::string indent = out.takeStr();
    indent.pop_back();
    return indent;
}

}  // namespace

void PlainExprText::start(const ExprSlice& slice, const IndentStreamSettings& settings) {
    text_.clear();
    hasFailed_ = settings.behindBackslash;
    source_ = slice.tokens->text();
    hasLines_ = holdsLines(slice.text());
    settings_ = &settings;
    startsLine_ = settings.column <= 0;
    startsItem_ = false;
    skipsWhiteSpace_ = false;
    behindLast_ = nullptr;
    nested_ = nullptr;
    commaOffset_ = npos;
    isRewritten_ = false;
}

std::string PlainExprText::takeText() {
    constexpr std::size_t huge = 1 << 16;
    return text_.size() < huge ? text_ : std::move(text_);
}

void PlainExprText::writeMoved(std::string_view piece) {
    if (holds(piece, '\t')) fail();
    writeValue(piece);
}

// ---- Commas

void PlainExprText::writeWithCommas(std::string_view piece) {
    while (endOffset(piece) > commaOffset_) {
        const std::size_t length = piece.size() - (endOffset(piece) - commaOffset_);
        append(piece.substr(0, length));
        writeComma(piece.substr(length, 1));
        piece.remove_prefix(length + 1);
    }
    append(piece);
}

void PlainExprText::writeComma(std::string_view comma) {
    const CommaValues& values = nested_->style_.commas;
    if (values.before.isSet) {
        trimEnd(nested_->begin_);
        if (nested_->hasLineCommentAt(nested_->comma_ - 1)) fail();
        if (startsLine_ || !isBlanks(values.before.text)) fail();
        appendAny(values.before.text);
    }
    // With the items a comma that starts a line would have to be lined up.
    if (startsLine_ && values.after.holdsLineFeed()) fail();
    append(comma);
    if (values.after.isSet) writeBehindComma(values.after);
    const std::uint32_t next = nested_->comma_ + 1;
    nested_->findComma(next);
    // Of two commas side by side the second is written together with the first.
    if (nested_->comma_ == next) fail();
}

void PlainExprText::writeBehindComma(const WsProperty& value) {
    const Trn::TokenKind next = nested_->kindBehindComma();
    // The pass that lines nothing up leaves the gap in front of a comment alone.
    if (next == Trn::Kind::BlockComment && !nested_->style_.commas.isLinedUp) return;
    if (next == Trn::Kind::LineComment) {
        // It stays where it is; on a line of its own it would have to be lined up with the items.
        if (value.holdsLineFeed() && !nested_->isCommentBehindComma()) fail();
        return;
    }
    if (value.holdsLineFeed())
        breakBehindComma(value);
    else if (isBlanks(value.text))
        appendAny(value.text);
    else
        fail();
    skipWhiteSpace();
}

void PlainExprText::breakBehindComma(const WsProperty& value) {
    const bool isInside =
        nested_->comma_ > nested_->slice_.firstToken && nested_->kindBehindComma() != Trn::Kind::EndOfInput;
    if (!isInside || value.text != "\n" || settings_->keepLeadingWs || settings_->convertMode == 2) return fail();
    appendAny(value.text);
    startsItem_ = nested_->linesUp();
}

PlainExprText::Nested::Nested(PlainExprText& text, const ExprSlice& slice, const NestedStyle& style)
    : text_(text),
      slice_(slice),
      style_(style),
      outer_(text.nested_),
      outerCommaOffset_(text.commaOffset_),
      outerIsRewritten_(text.isRewritten_) {
    // Stray brackets can make a comma in here one of the outer stretch as well.
    if (outerCommaOffset_ < slice.end) text_.fail();
    if (style.atStart.isSet) {
        text_.writeValue(style.atStart.text);
        text_.skipWhiteSpace();
    }
    begin_ = text_.text_.size();
    startsLine_ = text_.startsLine_;
    text_.nested_ = this;
    text_.commaOffset_ = npos;
    text_.isRewritten_ |= style.commas.areSet() || !style.isRaw;
    if (style.commas.areSet()) findComma(slice.firstToken);
}

PlainExprText::Nested::~Nested() {
    if (style_.trimsEnd && hasLineCommentAt(slice_.endToken - 1)) text_.fail();
    if (style_.trimsEnd) text_.trimEnd(begin_);
    text_.nested_ = outer_;
    text_.commaOffset_ = outerCommaOffset_;
    text_.isRewritten_ = outerIsRewritten_;
    text_.skipsWhiteSpace_ = false;
}

void PlainExprText::Nested::findComma(std::uint32_t from) {
    comma_ = slice_.tokens->nextComma(slice_.firstToken, from, slice_.endToken);
    text_.commaOffset_ = comma_ == ExprTokens::none ? npos : (*slice_.tokens)[comma_].begin;
}

Trn::TokenKind PlainExprText::Nested::kindBehindComma() const {
    const std::uint32_t next = comma_ + 1;
    return next < slice_.endToken ? (*slice_.tokens)[next].kind : Trn::Kind::EndOfInput;
}

bool PlainExprText::Nested::isCommentBehindComma() const {
    const std::uint32_t begin = (*slice_.tokens)[comma_].end;
    return !holds(text_.source_.substr(begin, (*slice_.tokens)[comma_ + 1].begin - begin), '\n');
}

bool PlainExprText::Nested::hasLineCommentAt(std::uint32_t index) const {
    const bool isInside = index >= slice_.firstToken && index < slice_.endToken;
    return isInside && (*slice_.tokens)[index].kind == Trn::Kind::LineComment;
}

// Items line up under the first character of the first.
const std::string& PlainExprText::Nested::itemIndent() {
    if (!itemIndent_) {
        IndentStreamSettings settings = *text_.settings_;
        const OIndentStream out(settings);
        settings.indent = indentStringFor(out, startsLine_ ? indentWidth(out) : text_.columnAt(begin_));
        itemIndent_ = writtenIndent(settings);
    }
    return *itemIndent_;
}

// ---- Characters

// A piece of the source: most hold no line feed anywhere.
void PlainExprText::append(std::string_view piece) {
    if (hasLines_ || skipsWhiteSpace_ || startsLine_)
        appendAny(piece);
    else
        appendToLine(piece);
}

void PlainExprText::appendAny(std::string_view piece) {
    if (skipsWhiteSpace_) {
        piece = Vellum::withoutLeadingSpace(piece);
        if (piece.empty()) return;
        skipsWhiteSpace_ = false;
    }
    if (startsLine_ || holdsLines(piece))
        appendLines(piece);
    else
        appendToLine(piece);
}

void PlainExprText::appendLines(std::string_view piece) {
    while (!piece.empty()) {
        if (startsLine_ && piece.front() != '\n') {
            if (!settings_->keepLeadingWs && Vellum::isSpace(piece.front())) {
                piece.remove_prefix(1);
                continue;
            }
            startLine();
        }
        const std::size_t length = std::min(piece.find('\n'), piece.size() - 1) + 1;
        const std::string_view line = piece.substr(0, length);
        // What a tab comes to depends on its column.
        if (holds(line, '\t')) fail();
        appendToLine(line);
        startsLine_ = line.back() == '\n';
        if (startsLine_ && !keepsLinesWhenRewritten()) fail();
        piece.remove_prefix(length);
    }
}

void PlainExprText::startLine() {
    text_ += startsItem_ ? nested_->itemIndent() : writtenIndent(*settings_);
    startsLine_ = startsItem_ = false;
}

// Whether lines that have been written once come out the same when they are written again.
bool PlainExprText::keepsLinesWhenRewritten() const {
    const std::string& indent = settings_->indent;
    return settings_->keepLeadingWs ? indent.empty() : indent.find_first_not_of(" \t") == npos;
}

void PlainExprText::appendToLine(std::string_view piece) {
    if (piece.empty()) return;
    if (piece.data() != behindLast_ && !text_.empty() && mayJoin(piece)) fail();
    // Where blanks become tabs, a run of them depends on its column.
    if (settings_->convertMode == 2 && (piece.find("  ") != npos || (piece.front() == ' ' && text_.ends_with(' '))))
        fail();
    text_ += piece;
    behindLast_ = piece.data() + piece.size();
}

bool PlainExprText::mayJoin(std::string_view piece) const { return couldJoin(text_.back(), piece.front()); }

int PlainExprText::columnAt(std::size_t offset) const {
    const std::string_view before = std::string_view(text_).substr(0, offset);
    const std::size_t lineFeed = before.rfind('\n');
    const bool isFirstLine = lineFeed == npos;
    return columnAfter(before.substr(isFirstLine ? 0 : lineFeed + 1), isFirstLine ? std::max(settings_->column, 0) : 0,
                       std::max(settings_->tabSize, 1));
}

void PlainExprText::trimEnd(std::size_t from) {
    const std::size_t size = text_.size();
    while (text_.size() > from && Vellum::isSpace(text_.back())) text_.pop_back();
    if (text_.size() == size) return;
    behindLast_ = nullptr;
    startsLine_ = text_.empty() ? settings_->column <= 0 : text_.back() == '\n';
}

}  // namespace Brevis
