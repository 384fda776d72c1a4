// From the tokens of the parser to tokens and gaps.
#include "second/Brevis_GapText.h"

#include <algorithm>
#include <iterator>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

namespace {

bool isBlankSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f'; }

bool isWordChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) > 0x7F;
}

bool isQuote(char c) { return c == '"' || c == '\''; }

// Two characters with which an operator, a comment or a number goes on.
constexpr std::string_view joiningPairs[] = {"++", "--", "<<", ">>", "&&", "||", "==", "<=", ">=", "!=", "+=", "-=",
                                             "*=", "/=", "%=", "&=", "|=", "^=", "->", "::", "<:", "<%", "%>", "%:",
                                             ":>", "//", "/*", "..", ".*", ">*", "??", "##"};

// The offset behind the last character from `begin` to `end` that is no white space.
std::size_t trimmedEnd(std::string_view text, std::size_t begin, std::size_t end) {
    while (end > begin && isBlankSpace(text[end - 1])) --end;
    return end;
}

}  // namespace

GapText::GapText(std::string_view source, const Cpp::TokenTable& table) : source_(source), table_(&table) {
    const Trn::TokenBuffer& buffer = table.tokens();
    tokens_.reserve(buffer.size() + 1);
    lines_.reserve(buffer.size() + 1);
    tokens_.push_back({});
    lines_.push_back(0);
    std::size_t end = 0;
    std::uint32_t line = 0;
    for (TokenIndex index = 1;; ++index) {
        const Trn::TokenKind kind = buffer.kind(index);
        const bool isEnd = kind == Kind::EndOfInput;
        const std::size_t begin = isEnd ? source.size() : std::max(buffer.begin(index), end);
        GapToken token;
        std::uint32_t feeds = 0;
        for (std::size_t at = end; at < begin; ++at) {
            if (source[at] == '\n') ++feeds;
            if (!isBlankSpace(source[at])) token.isFixed = true;
        }
        token.lineFeeds = static_cast<std::uint8_t>(std::min<std::uint32_t>(feeds, 255));
        token.begin = static_cast<std::uint32_t>(begin);
        token.kind = static_cast<std::int8_t>(kind);
        line += feeds;
        lines_.push_back(line);
        if (isEnd) {
            token.end = token.begin;
            tokens_.push_back(token);
            return;
        }
        end = std::max(begin, buffer.end(index));
        if (Trn::isLineToken(kind)) {
            if (end > begin && source[end - 1] == '\n') --end;
        } else if (end > begin && isBlankSpace(source[end - 1])) {
            end = trimmedEnd(source, begin, end);
        }
        token.end = static_cast<std::uint32_t>(end);
        token.role = table.role(index);
        tokens_.push_back(token);
        const bool mayHoldLines = Trn::isTrivia(kind) || kind == Kind::StringLiteral || kind == Kind::Identifier;
        if (mayHoldLines) line += static_cast<std::uint32_t>(std::count(source.begin() + static_cast<std::ptrdiff_t>(begin), source.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
    }
}

TokenIndex GapText::partner(TokenIndex index) const {
    switch (kind(index)) {
        case Kind::OpenParen:
        case Kind::CloseParen:
        case Kind::OpenBrace:
        case Kind::CloseBrace:
        case Kind::OpenBracket:
        case Kind::CloseBracket:
            return table_->partner(index);
        case Kind::Less:
        case Kind::Greater:
        case Kind::ShiftRight: {
            const Role role = this->role(index);
            const bool isBracket = role == Role::TemplateArguments || role == Role::TemplateParameters ||
                                   role == Role::NamedCastType;
            return isBracket ? table_->partner(index) : 0;
        }
        default:
            return 0;
    }
}

TokenIndex GapText::next(TokenIndex index) const {
    do ++index;
    while (index < size() && isTrivia(index));
    return std::min(index, size());
}

TokenIndex GapText::previous(TokenIndex index) const {
    do --index;
    while (index > 0 && isTrivia(index));
    return index;
}

bool GapText::isOnOneLine(TokenIndex first, TokenIndex last) const { return lines_[first] == lines_[last]; }

bool GapText::wouldJoin(TokenIndex index) const {
    const GapToken& first = tokens_[index - 1];
    const GapToken& second = tokens_[index];
    if (first.begin == first.end || second.begin == second.end) return false;
    const char last = source_[first.end - 1];
    const char next = source_[second.begin];
    if (last == '\\' || next == '\\') return true;
    if (first.kind == Kind::Number && (next == '.' || isQuote(next))) return true;
    if (first.kind == Kind::Number && (next == '+' || next == '-')) {
        return last == 'e' || last == 'E' || last == 'p' || last == 'P';
    }
    if (isWordChar(last) || isQuote(last)) return isWordChar(next) || (isWordChar(last) && isQuote(next));
    if (last == '.' && next >= '0' && next <= '9') return true;
    const auto isJoined = [&](std::string_view pair) { return pair[0] == last && pair[1] == next; };
    return std::any_of(std::begin(joiningPairs), std::end(joiningPairs), isJoined);
}

std::string_view GapText::lineLead(TokenIndex index) const {
    const std::size_t begin = tokens_[index].begin;
    const std::size_t feed = begin == 0 ? std::string_view::npos : source_.rfind('\n', begin - 1);
    const std::size_t start = feed == std::string_view::npos ? 0 : feed + 1;
    std::size_t end = start;
    while (end < begin && (source_[end] == ' ' || source_[end] == '\t')) ++end;
    return slice(start, end);
}

int GapText::column(TokenIndex index, int tabSize) const {
    const std::size_t begin = tokens_[index].begin;
    const std::size_t feed = begin == 0 ? std::string_view::npos : source_.rfind('\n', begin - 1);
    int column = 0;
    for (std::size_t at = feed == std::string_view::npos ? 0 : feed + 1; at < begin; ++at) {
        column = source_[at] == '\t' ? (column / tabSize + 1) * tabSize : column + 1;
    }
    return column;
}

}  // namespace Brevis
