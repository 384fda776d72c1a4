// Lexing into offsets, and the pairing of brackets in one sweep.
#include "first/expr/Brevis_ExprTokens.h"

#include <algorithm>
#include <cstdlib>

#include "Vellum_WhiteSpace.h"

namespace Brevis {

namespace {

namespace Kind = Trn::Kind;

// The four kinds of brackets: from 1 for those that open, from -1 down for those that close, 0 for other tokens.
constexpr int bracketOf(Trn::TokenKind kind) {
    switch (kind) {
        case Kind::OpenParen:
            return 1;
        case Kind::CloseParen:
            return -1;
        case Kind::OpenBrace:
            return 2;
        case Kind::CloseBrace:
            return -2;
        case Kind::OpenBracket:
            return 3;
        case Kind::CloseBracket:
            return -3;
        case Kind::Less:
            return 4;
        case Kind::Greater:
            return -4;
        default:
            return 0;
    }
}

// A depth keeps a count for each kind of bracket in 16 bits of its own, which serves up to so many brackets.
constexpr std::uint32_t mostCounted = 0x7fff;
constexpr std::uint64_t noDepth = 0x8000'8000'8000'8000;
constexpr std::uint64_t oneBracket(int kind) { return std::uint64_t{1} << (16 * (kind - 1)); }
constexpr std::uint64_t countOf(std::uint64_t depth, int kind) { return depth >> (16 * (kind - 1)) & 0xffff; }

// Room for the tokens into which a cut may break the last one.
constexpr std::uint32_t spareTokens = 4;

// From so many tokens on, room is made for all that the text is going to have, as far as its part that has been read
// tells. Growing by halves and doubles would hold a huge text's tokens nearly three times.
constexpr std::size_t manyTokens = 1 << 14;

void growFor(std::vector<ExprToken>& tokens, std::size_t read, std::size_t size) {
    if (tokens.size() < manyTokens) return;
    const std::size_t expected = tokens.size() * size / read;
    tokens.reserve(tokens.size() + (expected - tokens.size()) * 5 / 4 + manyTokens);
}

// Buffers up to this size are kept for the next text.
constexpr std::size_t keptBytes = 1 << 20;

}  // namespace

void ExprTokens::lex(std::string_view text, LeafDialect dialect) {
    text_ = text;
    dialect_ = dialect;
    tokens_.clear();
    angleCloses_.clear();
    appendLexed(0, static_cast<std::uint32_t>(text.size()), tokens_);
    count_ = static_cast<std::uint32_t>(tokens_.size());
    noteUnplain();
    std::uint32_t brackets = 0;
    bool hasAngles = false;
    for (const ExprToken& token : tokens_) {
        hasAngles |= token.kind == Kind::Less;
        brackets += bracketOf(token.kind) != 0;
    }
    if (brackets > mostCounted) setNotPlain();
    if (brackets > 0) {
        tokens_.resize(count_ + spareTokens);
        pairBrackets();
        if (brackets <= mostCounted) noteDepths();
    }
    if (hasAngles) findAngleCloses();
}

void ExprTokens::appendLexed(std::uint32_t begin, std::uint32_t end, std::vector<ExprToken>& tokens) const {
    const std::string_view text = text_.substr(begin, end - begin);
    LeafLexer lexer(text, dialect_);
    for (LeafToken token = lexer.next(); token.kind != Kind::EndOfInput; token = lexer.next()) {
        if (tokens.size() == tokens.capacity()) growFor(tokens, token.begin + 1, text.size());
        tokens.push_back({{token.kind, begin + token.begin, begin + token.end}, none});
    }
}

void ExprTokens::release() {
    if (tokens_.capacity() * sizeof(ExprToken) > keptBytes) *this = {};
}

std::vector<ExprToken> ExprTokens::lexed(std::uint32_t begin, std::uint32_t end) const {
    std::vector<ExprToken> tokens;
    appendLexed(begin, end, tokens);
    return tokens;
}

void ExprTokens::exchange(std::uint32_t first, std::vector<ExprToken>& tokens) {
    setNotPlain();
    std::swap_ranges(tokens.begin(), tokens.end(), tokens_.begin() + first);
}

// ---- Plain tokens

void ExprTokens::noteUnplain() {
    unplain_.clear();
    const bool isOneLine = text_.find('\n') == std::string_view::npos;
    std::uint32_t behindLast = 0;
    for (std::uint32_t i = 0; i < count_; ++i) {
        const ExprToken& token = tokens_[i];
        const bool isApart = isWhiteSpaceFrom(behindLast, token.begin);
        if (!isApart && i > 0) noteUnplain(i - 1);
        if (!isApart || !isPlainToken(token, isOneLine)) noteUnplain(i);
        behindLast = token.end;
    }
    isPlain_ = count_ > 0;
    if (isPlain_ && !isWhiteSpaceFrom(behindLast, static_cast<std::uint32_t>(text_.size()))) noteUnplain(count_ - 1);
}

void ExprTokens::noteUnplain(std::uint32_t index) {
    if (unplain_.empty() || unplain_.back() != index) unplain_.push_back(index);
}

bool ExprTokens::isWhiteSpaceFrom(std::uint32_t begin, std::uint32_t end) const {
    return begin <= end && Vellum::isBlank(text_.substr(begin, end - begin));
}

// A backslash at the end of a token may stand at the end of its line, and a name that ends in `::` takes the white
// space behind it. A line comment ends with its line feed.
bool ExprTokens::isPlainToken(const ExprToken& token, bool isOneLine) const {
    if (token.kind == Kind::Defective || token.kind == Kind::Directive || token.begin >= token.end) return false;
    const char last = text_[token.end - 1];
    if (token.kind == Kind::LineComment) {
        return last == '\n' && text_.substr(token.begin, token.end - token.begin).find('\\') == std::string_view::npos;
    }
    if (last == '\\' || Vellum::isSpace(last)) return false;
    return isOneLine || text_.substr(token.begin, token.end - token.begin).find('\n') == std::string_view::npos;
}

bool ExprTokens::arePlain(std::uint32_t first, std::uint32_t end) const {
    if (!isPlain_ || first >= end) return false;
    if (unplain_.empty()) return true;
    const auto next = std::lower_bound(unplain_.begin(), unplain_.end(), first);
    return next == unplain_.end() || *next >= end;
}

// ---- Brackets

// Each kind of bracket is counted for itself, so that a stray one of another kind does no harm.
void ExprTokens::pairBrackets() {
    for (auto& open : open_) open.clear();
    for (std::uint32_t i = 0; i < count_; ++i) {
        const int bracket = bracketOf(tokens_[i].kind);
        if (bracket == 0) continue;
        std::vector<std::uint32_t>& open = open_[std::abs(bracket) - 1];
        if (bracket > 0) {
            open.push_back(i);
            continue;
        }
        if (open.empty()) continue;
        tokens_[open.back()].close = i;
        open.pop_back();
    }
}

void ExprTokens::noteDepths() {
    brackets_.resize(count_);
    depths_.assign(1, noDepth);
    for (std::uint32_t i = 0; i < count_; ++i) {
        brackets_[i] = static_cast<std::uint16_t>(depths_.size() - 1);
        const int bracket = bracketOf(tokens_[i].kind);
        if (bracket > 0) depths_.push_back(depths_.back() + oneBracket(bracket));
        if (bracket < 0) depths_.push_back(depths_.back() - oneBracket(-bracket));
    }
}

std::uint32_t ExprTokens::nextComma(std::uint32_t start, std::uint32_t from, std::uint32_t end) const {
    const std::uint64_t depth = depthAt(start);
    for (std::uint32_t i = from; i < end; ++i) {
        const ExprToken& token = tokens_[i];
        if (token.kind == Kind::Comma && depthAt(i) == depth) return i;
        if (token.close == none) continue;
        // Up to its close nothing stands outside a bracket, unless stray ones in front of it have closed too much.
        const int kind = bracketOf(token.kind);
        if (countOf(depthAt(i), kind) >= countOf(depth, kind)) i = token.close;
    }
    return none;
}

// From right to left, so that each search goes on from one that is already answered.
void ExprTokens::findAngleCloses() {
    angleCloses_.assign(count(), none);
    for (std::uint32_t i = count(); i-- > 0;) {
        switch (tokens_[i].kind) {
            case Kind::Greater:
                angleCloses_[i] = i;
                break;
            case Kind::Less: {
                const std::uint32_t inner = angleClose(i + 1);
                angleCloses_[i] = inner == none ? none : angleClose(inner + 1);
                break;
            }
            case Kind::AmpAmp:
            case Kind::PipePipe:
                angleCloses_[i] = angleClose(i + 2);
                break;
            default:
                angleCloses_[i] = angleClose(i + 1);
                break;
        }
    }
}

std::uint32_t ExprTokens::angleClose(std::uint32_t from) const {
    return from < angleCloses_.size() ? angleCloses_[from] : none;
}

}  // namespace Brevis
