// From the tokens of the parser to tokens and gaps.
#include "second/Brevis_GapText.h"

#include <algorithm>
#include <iterator>

#include "second/Brevis_LineColumns.h"

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
constexpr std::string_view joiningPairs[] = {"++", "--", "<<", ">>", "&&", "||", "==", "<=", ">=", "!=", "+=",
                                             "-=", "*=", "/=", "%=", "&=", "|=", "^=", "->", "::", "<:", "<%",
                                             "%>", "%:", ":>", "//", "/*", "..", ".*", ">*", "??", "##"};

bool isWhiteSpace(const char* at, const char* end) {
    while (at != end && isBlankSpace(*at)) ++at;
    return at == end;
}

// The end of a token without the line feed that it owns, and without white space that it has taken in. A line feed
// behind a backslash ends no line.
std::size_t endOf(const char* text, std::size_t begin, std::size_t end, Trn::TokenKind kind) {
    if (Trn::isLineToken(kind)) {
        const bool ownsFeed = end > begin + 1 && text[end - 1] == '\n' && text[end - 2] != '\\';
        return ownsFeed ? end - 1 : end;
    }
    while (end > begin && isBlankSpace(text[end - 1])) --end;
    return end;
}

// Where a token of another text begins in one that differs from that in nothing but white space, if the one in front
// ends at `end`. What holds more than white space is copied as it stands.
std::size_t beginIn(std::string_view laid, std::size_t end, const GapText& text, TokenIndex index) {
    if (text.token(index).isFixed) return end + text.gap(index).size();
    while (end < laid.size() && isBlankSpace(laid[end])) ++end;
    return end;
}

// Where it ends there: white space inside of comments and directives may differ too. Blanks belong to what ends its
// line, and to a directive in front of a comment.
std::size_t endIn(std::string_view laid, std::size_t begin, const GapText& text, TokenIndex index) {
    const GapToken& token = text.token(index);
    if (!token.holdsLines && !Trn::isTrivia(token.kind)) return begin + (token.end - token.begin);
    for (const char c : text.text(index)) {
        if (isBlankSpace(c)) continue;
        while (isBlankSpace(laid[begin])) ++begin;
        ++begin;
    }
    if (!Trn::isLineToken(token.kind)) return begin;
    const bool isCommented = text.lineFeeds(index + 1) == 0 && index + 1 < text.size();
    if (isCommented) {
        while (isBlankSpace(laid[begin])) ++begin;
        return begin;
    }
    const std::string_view last = text.text(index);
    begin = laid.find('\n', begin);
    // A backslash at the end takes an empty line in.
    for (std::size_t at = last.size(); begin < laid.size() && isBlankSpace(last[at - 1]); --at) {
        if (last[at - 1] == '\n') begin = laid.find('\n', begin + 1);
    }
    return std::min(begin, laid.size());
}

// Goes through the line feeds of a text from its front to its end.
class LineFeeds {
public:
    explicit LineFeeds(std::string_view text) : text_(text), next_(text.find('\n')) {}

    // How many there are from where it stands up to `offset`.
    std::uint32_t countUpTo(std::size_t offset) { return next_ < offset ? passUpTo(offset) : 0; }

private:
    std::uint32_t passUpTo(std::size_t offset) {
        std::uint32_t count = 0;
        for (; next_ < offset; ++count) next_ = text_.find('\n', next_ + 1);
        return count;
    }

    std::string_view text_;
    std::size_t next_;  // npos behind the last one
};

}  // namespace

GapText::GapText(std::string_view source, const Cpp::TokenTable& table)
    : source_(source), table_(&table), tokens_(table.tokens().size() + 1) {
    const Trn::TokenBuffer& buffer = table.tokens();
    const char* const text = source.data();
    LineFeeds feeds(source);
    std::size_t end = 0;
    std::uint32_t line = 0;
    TokenIndex index = 1;
    for (;; ++index) {
        const Trn::TokenKind kind = buffer.kind(index);
        const bool isEnd = kind == Kind::EndOfInput;
        const std::size_t begin = isEnd ? source.size() : std::max(buffer.begin(index), end);
        const std::uint32_t lineFeeds = feeds.countUpTo(begin);
        const bool isFixed = !isWhiteSpace(text + end, text + begin);
        end = isEnd ? begin : endOf(text, begin, std::max(begin, buffer.end(index)), kind);
        const std::uint32_t inside = feeds.countUpTo(end);
        line += lineFeeds;
        GapToken& token = tokens_[index];
        token.begin = static_cast<std::uint32_t>(begin);
        token.end = static_cast<std::uint32_t>(end);
        token.line = line;
        token.kind = static_cast<std::int8_t>(kind);
        token.lineFeeds = static_cast<std::uint8_t>(std::min<std::uint32_t>(lineFeeds, 255));
        token.isFixed = isFixed;
        token.holdsLines = inside > 0;
        line += inside;
        if (isEnd) break;
        token.role = table.role(index);
    }
    tokens_.resize(index + 1);
}

GapText::GapText(std::string_view laid, const GapText& text)
    : source_(laid), table_(text.table_), tokens_(text.tokens_) {
    LineFeeds feeds(laid);
    std::size_t end = 0;
    std::uint32_t line = 0;
    for (TokenIndex index = 1; index <= text.size(); ++index) {
        GapToken& token = tokens_[index];
        const std::size_t begin = beginIn(laid, end, text, index);
        const std::uint32_t lineFeeds = feeds.countUpTo(begin);
        end = endIn(laid, begin, text, index);
        line += lineFeeds;
        token.begin = static_cast<std::uint32_t>(begin);
        token.end = static_cast<std::uint32_t>(end);
        token.line = line;
        token.lineFeeds = static_cast<std::uint8_t>(std::min<std::uint32_t>(lineFeeds, 255));
        line += feeds.countUpTo(end);
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
            const bool isBracket =
                role == Role::TemplateArguments || role == Role::TemplateParameters || role == Role::NamedCastType;
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

int GapText::column(TokenIndex index, int tabSize) const {
    const std::size_t begin = tokens_[index].begin;
    const std::size_t feed = begin == 0 ? std::string_view::npos : source_.rfind('\n', begin - 1);
    return columnBehind(slice(feed == std::string_view::npos ? 0 : feed + 1, begin), 0, tabSize);
}

}  // namespace Brevis
