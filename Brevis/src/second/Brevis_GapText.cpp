// From the tokens of the parser to tokens and gaps.
#include "second/Brevis_GapText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

namespace {

bool isBlankSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f'; }

constexpr bool isWordChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) > 0x7F;
}

constexpr bool isQuote(char c) { return c == '"' || c == '\''; }

// Two characters with which an operator, a comment or a number goes on.
constexpr std::string_view joiningPairs[] = {"++", "--", "<<", ">>", "&&", "||", "==", "<=", ">=", "!=", "+=",
                                             "-=", "*=", "/=", "%=", "&=", "|=", "^=", "->", "::", "<:", "<%",
                                             "%>", "%:", ":>", "//", "/*", "..", ".*", ">*", "??", "##"};

// The characters that may join with another one at all; brackets, commas and semicolons never do.
constexpr std::array<bool, 256> joiningChars = [] {
    std::array<bool, 256> joins{};
    for (int c = 0; c < 256; ++c) {
        const char at = static_cast<char>(c);
        joins[static_cast<std::size_t>(c)] = isWordChar(at) || isQuote(at) || at == '\\';
    }
    for (const std::string_view pair : joiningPairs) {
        for (const char c : pair) joins[static_cast<unsigned char>(c)] = true;
    }
    return joins;
}();

bool mayJoin(char c) { return joiningChars[static_cast<unsigned char>(c)]; }

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

// What the kind of a token tells of it. A sign has neither white space nor bytes beyond ASCII in it. Words may have both:
// `A::` and a line feed belong to the `operator` behind them. An angle is one of a pair where its role says so.
constexpr std::uint8_t isTrivialKind = 1, isAngle = 2, isBracketKind = 4, isSign = 8;

constexpr std::uint8_t traitsOf(Trn::TokenKind kind) {
    std::uint8_t traits = 0;
    if (kind >= Kind::Semicolon && kind <= Kind::ArrowStar) traits |= isSign;
    if (Trn::isTrivia(kind)) traits |= isTrivialKind;
    if (kind == Kind::OpenParen || kind == Kind::CloseParen || kind == Kind::OpenBrace || kind == Kind::CloseBrace ||
        kind == Kind::OpenBracket || kind == Kind::CloseBracket) {
        traits |= isBracketKind;
    }
    if (kind == Kind::Less || kind == Kind::Greater || kind == Kind::ShiftRight) traits |= isAngle;
    return traits;
}

// Of all kinds but the end of the input.
constexpr auto kindTraits = [] {
    std::array<std::uint8_t, 256> all{};
    for (Trn::TokenKind kind = 0; kind < 256; ++kind) all[static_cast<std::size_t>(kind)] = traitsOf(kind);
    return all;
}();

bool isPairedAngle(Role role) {
    return role == Role::TemplateArguments || role == Role::TemplateParameters || role == Role::NamedCastType;
}

// What a text has beside the characters of one column.
struct WideBytes {
    bool hasTab = false;
    bool isMultiByte = false;

    explicit WideBytes(std::string_view text) {
        unsigned char all = 0, tabs = 0;
        for (const char c : text) {
            all |= static_cast<unsigned char>(c);
            tabs |= static_cast<unsigned char>(c == '\t');
        }
        hasTab = tabs != 0;
        isMultiByte = all > 0x7F;
    }
    bool hasAny() const { return hasTab || isMultiByte; }
};

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

GapText::GapText(std::string_view source, Cpp::TokenTable table)
    : source_(source),
      brackets_(table.takeBrackets()),
      outline_(table.takeOutline()),
      tokens_(table.tokens().size() + 1),
      newLines_(tokens_.size() / wordBits + 1) {
    const Trn::TokenBuffer& buffer = table.tokens();
    const char* const text = source.data();
    const std::uint8_t narrowTraits = WideBytes(source).hasAny() ? isSign : 0xFF;
    LineFeeds feeds(source);
    GapToken* token = tokens_.data() + 1;
    std::size_t end = 0;
    bool isBehindLines = false;
    bool isFixed = false;
    TokenIndex index = 1;
    const auto readGap = [&](std::size_t begin) {
        token->begin = static_cast<std::uint32_t>(begin);
        bool startsLine = isBehindLines;
        if (begin != end) {
            const std::uint32_t lineFeeds = feeds.countUpTo(begin);
            startsLine = startsLine || lineFeeds > 0;
            token->lineFeeds = static_cast<std::uint8_t>(std::min<std::uint32_t>(lineFeeds, 255));
            isFixed = isFixed || !isWhiteSpace(text + end, text + begin);
        }
        if (startsLine) noteLine(index);
        token->isFixed = isFixed;
        if (isFixed) hasFixed_ = true;
    };
    for (; buffer.kind(index) != Kind::EndOfInput; ++index, ++token) {
        const Trn::TokenKind kind = buffer.kind(index);
        const std::uint8_t traits = kindTraits[static_cast<std::size_t>(kind)];
        const Trn::TokenBuffer::Extent extent = buffer.extent(index);
        const std::size_t begin = std::max(extent.begin, end);
        readGap(begin);
        end = std::max(begin, extent.end);
        isFixed = isBehindLines = false;
        const Role role = table.role(index);
        token->kind = static_cast<std::int8_t>(kind);
        token->role = role;
        token->isBracket = (traits & isBracketKind) != 0 || ((traits & isAngle) != 0 && isPairedAngle(role));
        token->isNarrow = (narrowTraits & (traits | isTrivialKind)) != 0;
        if ((traits & isSign) == 0) {
            end = endOf(text, begin, end, kind);
            isBehindLines = feeds.countUpTo(end) > 0;
            token->holdsLines = isBehindLines;
            // Behind a backslash a line goes on: a comment there belongs to the directive in front of it.
            isFixed = end > 0 && text[end - 1] == '\\';
            if ((traits & isTrivialKind) != 0) trivia_.push_back(index);
        }
        token->end = static_cast<std::uint32_t>(end);
    }
    readGap(source.size());
    token->end = token->begin;
    tokens_.resize(index + 1);
}

GapText::GapText(std::string_view laid, const GapText& text)
    : source_(laid),
      brackets_(text.brackets_),
      outline_(text.outline_),
      tokens_(text.tokens_),
      newLines_(tokens_.size() / wordBits + 1),
      trivia_(text.trivia_),
      hasFixed_(text.hasFixed_) {
    LineFeeds feeds(laid);
    std::size_t end = 0;
    bool isBehindLines = false;
    for (TokenIndex index = 1; index <= text.size(); ++index) {
        GapToken& token = tokens_[index];
        const std::size_t begin = beginIn(laid, end, text, index);
        const std::uint32_t lineFeeds = feeds.countUpTo(begin);
        end = endIn(laid, begin, text, index);
        if (lineFeeds > 0 || isBehindLines) noteLine(index);
        token.begin = static_cast<std::uint32_t>(begin);
        token.end = static_cast<std::uint32_t>(end);
        token.lineFeeds = static_cast<std::uint8_t>(std::min<std::uint32_t>(lineFeeds, 255));
        isBehindLines = feeds.countUpTo(end) > 0;
    }
}

bool GapText::isStretchOnOneLine(TokenIndex a, TokenIndex b) const {
    const auto [first, last] = std::minmax(a, b);
    if (first == last) return true;
    std::size_t word = (first + 1) / wordBits;
    std::uint64_t bits = newLines_[word] & ~std::uint64_t{0} << (first + 1) % wordBits;
    for (; word < last / wordBits; bits = newLines_[word]) {
        if (bits != 0) return false;
        ++word;
    }
    return (bits & ~std::uint64_t{0} >> (wordBits - 1 - last % wordBits)) == 0;
}

bool GapText::joins(TokenIndex index) const {
    const GapToken& first = tokens_[index - 1];
    const GapToken& second = tokens_[index];
    if (first.begin == first.end || second.begin == second.end) return false;
    const char last = source_[first.end - 1];
    const char next = source_[second.begin];
    if (!mayJoin(last) || !mayJoin(next)) return false;
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
    return Brevis::columnBehind(slice(feed == std::string_view::npos ? 0 : feed + 1, begin), 0, tabSize);
}

}  // namespace Brevis
