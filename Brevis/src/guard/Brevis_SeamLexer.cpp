// One recogniser for each sort of token, chosen by the first character. Nothing here is an error: whatever a compiler
// would reject becomes a token that keeps its white space.
#include "guard/Brevis_SeamLexer.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "Cpp_CharClasses.h"
#include "guard/Brevis_SeamPunctuators.h"

namespace Brevis {

namespace {

using Cpp::isSpace;

// `passed` begins white space or joined lines; `watched` may begin a comment or what opens a directive.
constexpr std::uint8_t digit = 1, wordStart = 2, passed = 4, watched = 8;

// Bytes of 0x80 and above belong to names, whatever the encoding.
constexpr std::array<std::uint8_t, 256> makeClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (unsigned c = 0; c < 256; ++c) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (isLetter || c == '_' || c == '$' || c >= 0x80) classes[c] = wordStart;
        if (c >= '0' && c <= '9') classes[c] = digit;
        if (isSpace(static_cast<char>(c)) || c == '\\') classes[c] = passed;
        if (c == '/' || c == '#' || c == '%' || c == 'i') classes[c] |= watched;
    }
    return classes;
}

constexpr std::array<std::uint8_t, 256> classes = makeClasses();

constexpr bool isAny(char c, std::uint8_t set) { return (classes[static_cast<unsigned char>(c)] & set) != 0; }
constexpr bool isWordCharacter(char c) { return isAny(c, wordStart | digit); }

// The end of a run of word characters.
std::size_t wordEnd(std::string_view text, std::size_t at) {
    while (at < text.size() && isWordCharacter(text[at])) ++at;
    return at;
}

constexpr bool isHexDigit(char c) { return isAny(c, digit) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

constexpr std::string_view literalPrefixes[] = {"L", "R", "u", "U", "LR", "uR", "UR", "u8", "u8R"};
constexpr std::size_t rawDelimiterMostLength = 16;

// The directives that a file name follows.
constexpr std::string_view headerDirectives[] = {"include", "include_next", "import", "embed"};
// The questions in directives that have one in parentheses.
constexpr std::string_view headerQuestions[] = {"__has_include", "__has_include_next", "__has_embed"};

}  // namespace

std::size_t seamSpliceEnd(std::string_view text, std::size_t at) {
    if (at >= text.size() || text[at] != '\\') return at;
    for (std::size_t i = at + 1; i < text.size() && isSpace(text[i]); ++i) {
        if (text[i] == '\n') return i + 1;
    }
    return at;
}

SeamToken SeamLexer::next() {
    SeamToken token;
    const bool isSpaced = isAny(peek(at_), passed) && skipWhiteSpace(token.isSpliced);
    token.begin = token.end = at_;
    if (at_ == text_.size()) return token;

    const bool isFirst = atLineStart_;
    const bool isHeaderName = expected_ == Expected::HeaderName && recognizeHeaderName();
    token.kind = isHeaderName ? SeamKind::Literal : recognize();
    token.end = at_;
    token.inDirective = inDirective_;
    const bool isPlain = expected_ == Expected::Anything && !isAny(text_[token.begin], watched);
    if (isPlain) {
        atLineStart_ = false;
    } else {
        follow(token, isFirst, isSpaced);
    }
    return token;
}

bool SeamLexer::skipWhiteSpace(bool& isSpliced) {
    const std::string_view text = text_;
    std::size_t at = at_;
    std::size_t spliced = 0;
    bool endsLine = false;
    for (; at < text.size() && isAny(text[at], passed); ++at) {
        if (text[at] == '\n') endsLine = true;
        if (text[at] != '\\') continue;
        const std::size_t end = seamSpliceEnd(text, at);
        if (end == at) break;
        spliced += end - at;
        at = end - 1;
    }
    if (endsLine) {
        atLineStart_ = true;
        inDirective_ = false;
        expected_ = Expected::Anything;
    }
    isSpliced = spliced > 0;
    const bool isSpaced = at - at_ > spliced;
    at_ = at;
    return isSpaced;
}

void SeamLexer::follow(SeamToken& token, bool isFirst, bool isSpaced) {
    if (token.isComment()) {
        if (expected_ == Expected::MacroParen) expected_ = Expected::Anything;
        return;
    }
    atLineStart_ = false;
    token.isDirectiveSign = !inDirective_ && isDirectiveSign(token);
    if (token.isDirectiveSign && isFirst) {
        token.opensDirective = token.inDirective = inDirective_ = true;
        expected_ = token.kind == SeamKind::Word ? Expected::HeaderName : Expected::DirectiveName;
    } else if (expected_ != Expected::Anything) {
        expected_ = expectedBehind(token, isSpaced);
    }
}

// A `#`, or the word `import` in front of what could be a header name. White space has no say in it.
bool SeamLexer::isDirectiveSign(const SeamToken& token) const {
    const char c = text_[token.begin];
    if (c == '#' || c == '%') return isText(token, "#") || isText(token, "%:");
    if (c != 'i' || !isText(token, "import")) return false;

    std::size_t on = passSplices(at_);
    while (on < text_.size() && isSpace(text_[on])) on = passSplices(on + 1);
    return isAt(on, '<') || isAt(on, '"');
}

// Inside of a directive.
SeamLexer::Expected SeamLexer::expectedBehind(SeamToken& token, bool isSpaced) const {
    const bool isMacroParen = expected_ == Expected::MacroParen && text_[token.begin] == '(' && !isSpaced;
    if (isMacroParen) token.kind = SeamKind::MacroParen;
    const auto isAnyOf = [&](const auto& names) {
        return std::any_of(std::begin(names), std::end(names),
                           [&](std::string_view name) { return isText(token, name); });
    };
    switch (expected_) {
        case Expected::DirectiveName:
            if (isText(token, "define")) return Expected::MacroName;
            if (isAnyOf(headerDirectives)) return Expected::HeaderName;
            return isText(token, "if") || isText(token, "elif") ? Expected::Question : Expected::Anything;
        case Expected::MacroName:
            return Expected::MacroParen;
        case Expected::Question:
            return isAnyOf(headerQuestions) ? Expected::QuestionParen : Expected::Question;
        case Expected::QuestionParen:
            return text_[token.begin] == '(' ? Expected::HeaderName : Expected::Question;
        case Expected::HeaderName:
            // A `<` that nothing closes: no later one on the line is closed, and none is to be searched for.
            return token.kind == SeamKind::Literal ? Expected::Question : Expected::Anything;
        default:
            return Expected::Anything;
    }
}

SeamKind SeamLexer::recognize() {
    const char c = text_[at_];
    if (isAny(c, wordStart)) return recognizeWord();
    if (isAny(c, digit)) return recognizeNumber();
    switch (c) {
        case '(':
        case ')':
        case ',':
        case ';':
        case '{':
        case '}':
            ++at_;
            return SeamKind::Punctuator;
        case '.':
            return isAny(peek(passSplices(at_ + 1)), digit) ? recognizeNumber() : recognizePunctuator();
        case '/':
            return recognizeSlash();
        case '"':
        case '\'':
            return recognizeQuoted();
        case '\\':
            if (universalNameLength(at_) > 0) return recognizeWord();
            break;
        default:
            if (seamPunctuatorIndex[static_cast<unsigned char>(c)] != 0) return recognizePunctuator();
    }
    ++at_;
    return SeamKind::Stray;
}

// ---- Words and numbers

SeamKind SeamLexer::recognizeWord() {
    const std::size_t begin = at_;
    at_ = wordEnd(text_, at_);
    const char c = peek(at_);
    if (c != '"' && c != '\'' && c != '\\') return SeamKind::Word;
    passWordCharacters();
    const std::size_t quote = passSplices(at_);
    if ((!isAt(quote, '"') && !isAt(quote, '\'')) || !isLiteralPrefix(begin)) return SeamKind::Word;

    const bool isRaw = text_[at_ - 1] == 'R';
    if (isRaw && text_[quote] == '\'') return SeamKind::Word;
    at_ = quote;
    return isRaw ? recognizeRaw() : recognizeQuoted();
}

bool SeamLexer::isLiteralPrefix(std::size_t begin) const {
    return std::any_of(std::begin(literalPrefixes), std::end(literalPrefixes),
                       [&](std::string_view prefix) { return isText(begin, at_, prefix); });
}

// Moves behind a run of word characters, joined lines between them.
void SeamLexer::passWordCharacters() {
    for (;;) {
        at_ = wordEnd(text_, at_);
        if (!isAt(at_, '\\')) break;
        const std::size_t on = passSplices(at_);
        if (const std::size_t length = universalNameLength(on)) {
            at_ = on + length;
        } else if (on > at_ && on < text_.size() && isWordCharacter(text_[on])) {
            at_ = on;
        } else {
            break;
        }
    }
}

// A preprocessing number is wider than a number: it takes letters, points, signs behind an exponent's letter and
// quotes between digits.
SeamKind SeamLexer::recognizeNumber() {
    char last = text_[at_++];
    for (std::size_t on = at_; (on = passSplices(at_)) < text_.size(); at_ = on + 1) {
        const char c = text_[on];
        const bool isSign = c == '+' || c == '-';
        const bool isSeparator = c == '\'' && isWordAt(passSplices(on + 1));
        if (isSign && std::string_view("eEpP").find(last) == std::string_view::npos) break;
        if (const std::size_t length = universalNameLength(on)) {
            on += length - 1;
        } else if (!isSign && !isSeparator && c != '.' && !isWordCharacter(c)) {
            break;
        }
        last = c;
    }
    return SeamKind::Number;
}

// ---- Comments

SeamKind SeamLexer::recognizeSlash() {
    const std::size_t on = passSplices(at_ + 1);
    if (isAt(on, '/')) {
        passLine();
        return SeamKind::LineComment;
    }
    if (!isAt(on, '*')) return recognizePunctuator();
    at_ = on + 1;
    passBlockComment();
    return SeamKind::BlockComment;
}

void SeamLexer::passBlockComment() {
    for (std::size_t star = text_.find('*', at_); star != std::string_view::npos; star = text_.find('*', star + 1)) {
        const std::size_t on = passSplices(star + 1);
        if (!isAt(on, '/')) continue;
        at_ = on + 1;
        return;
    }
    at_ = trimmedEnd(text_.size());
}

// To the end of the line and of those that are joined to it.
void SeamLexer::passLine() {
    std::size_t end = text_.find('\n', at_);
    for (; end != std::string_view::npos; end = text_.find('\n', end + 1)) {
        std::size_t last = end;
        while (last > at_ && text_[last - 1] != '\n' && isSpace(text_[last - 1])) --last;
        if (last == at_ || text_[last - 1] != '\\') break;
    }
    at_ = trimmedEnd(std::min(end, text_.size()));
}

// ---- Literals

// At a quote. A backslash takes the next character along, which may stand on the next line.
SeamKind SeamLexer::recognizeQuoted() {
    const char quote = text_[at_];
    for (std::size_t i = at_ + 1; i < text_.size() && text_[i] != '\n'; ++i) {
        if (text_[i] == quote) {
            at_ = i + 1;
            return recognizeSuffix();
        }
        if (text_[i] != '\\') continue;
        if (const std::size_t end = seamSpliceEnd(text_, i); end > i) {
            i = end - 1;
        } else {
            i = passSplices(i + 1);
            if (isAt(i, '\n')) --i;
        }
    }
    passLine();
    return SeamKind::OpenLiteral;
}

// At the quote. Lines are not joined in here. One that doesn't end takes the rest of the text, as for a compiler.
SeamKind SeamLexer::recognizeRaw() {
    const std::size_t begin = at_ + 1;
    std::size_t open = begin;
    while (open < text_.size() && open - begin <= rawDelimiterMostLength && !isSpace(text_[open]) &&
           std::string_view("()\\").find(text_[open]) == std::string_view::npos) {
        ++open;
    }
    if (!isAt(open, '(') || open - begin > rawDelimiterMostLength) return recognizeQuoted();

    const std::string close = ")" + std::string(text_.substr(begin, open - begin)) + '"';
    const std::size_t end = text_.find(close, open);
    if (end == std::string_view::npos) {
        at_ = trimmedEnd(text_.size());
        return SeamKind::Literal;
    }
    at_ = end + close.size();
    return recognizeSuffix();
}

// A name behind a literal belongs to it. Where that name could be the prefix of a further literal, dialects differ,
// and both are taken for one.
SeamKind SeamLexer::recognizeSuffix() {
    const std::size_t begin = passSplices(at_);
    const bool isName = begin < text_.size() && (isAny(text_[begin], wordStart) || universalNameLength(begin) > 0);
    if (!isName) return SeamKind::Literal;
    at_ = begin;
    passWordCharacters();
    const std::size_t on = passSplices(at_);
    if ((!isAt(on, '"') && !isAt(on, '\'')) || !isLiteralPrefix(begin)) return SeamKind::Literal;
    at_ = on;
    return recognizeQuoted();
}

bool SeamLexer::recognizeHeaderName() {
    const std::size_t end = headerNameEnd(at_);
    if (end == at_) return false;
    at_ = end;
    return true;
}

// A file name has no escapes and ends on its line.
std::size_t SeamLexer::headerNameEnd(std::size_t at) const {
    if (!isAt(at, '<') && !isAt(at, '"')) return at;
    const char close = text_[at] == '<' ? '>' : '"';
    for (std::size_t i = at + 1; i < text_.size() && text_[i] != '\n'; ++i) {
        if (text_[i] == close) return i + 1;
        if (const std::size_t end = seamSpliceEnd(text_, i); end > i) i = end - 1;
    }
    return at;
}

// ---- Punctuators

SeamKind SeamLexer::recognizePunctuator() {
    const std::string_view* candidate = firstSeamPunctuator(text_[at_]);
    const char behind = peek(at_ + 1);
    const bool isAlone = behind != '\\' && seamPunctuatorIndex[static_cast<unsigned char>(behind)] == 0;
    if (isAlone || candidate->size() == 1) {
        ++at_;
        return SeamKind::Punctuator;
    }
    // The characters that a compiler sees, and the offset behind each.
    char seen[seamPunctuatorMostLength] = {};
    std::size_t ends[seamPunctuatorMostLength] = {};
    std::size_t count = 0;
    for (std::size_t on = at_; on < text_.size() && count < seamPunctuatorMostLength; on = passSplices(on + 1)) {
        seen[count] = text_[on];
        ends[count++] = on + 1;
    }
    const std::string_view following(seen, count);

    // `<::` and `[::` begin with a lone bracket, unless a `:` or `>` follows.
    const bool isBracketAndScope = (following[0] == '<' || following[0] == '[') && following.substr(1, 2) == "::" &&
                                   seen[3] != ':' && seen[3] != '>';
    while (!following.starts_with(*candidate)) ++candidate;
    at_ = ends[isBracketAndScope ? 0 : candidate->size() - 1];
    return SeamKind::Punctuator;
}

// ---- Places

std::size_t SeamLexer::passSplices(std::size_t at) const {
    while (isAt(at, '\\')) {
        const std::size_t end = seamSpliceEnd(text_, at);
        if (end == at) break;
        at = end;
    }
    return at;
}

bool SeamLexer::isWordAt(std::size_t at) const {
    return at < text_.size() && (isWordCharacter(text_[at]) || universalNameLength(at) > 0);
}

std::size_t SeamLexer::universalNameLength(std::size_t at) const {
    if (!isAt(at, '\\')) return 0;
    const char letter = peek(at + 1);
    if ((letter == 'u' || letter == 'N') && peek(at + 2) == '{') {
        std::size_t close = at + 3;
        while (isWordCharacter(peek(close)) || peek(close) == '-' || (letter == 'N' && peek(close) == ' ')) ++close;
        return peek(close) == '}' ? close + 1 - at : 0;
    }
    const std::size_t digits = letter == 'u' ? 4 : letter == 'U' ? 8 : 0;
    for (std::size_t i = 0; i < digits; ++i) {
        if (!isHexDigit(peek(at + 2 + i))) return 0;
    }
    return digits == 0 ? 0 : digits + 2;
}

std::size_t SeamLexer::trimmedEnd(std::size_t end) const {
    while (end > at_ && (isSpace(text_[end - 1]) || seamSpliceEnd(text_, end - 1) >= end)) --end;
    return end;
}

bool SeamLexer::isText(const SeamToken& token, std::string_view text) const {
    return isText(token.begin, token.end, text);
}

bool SeamLexer::isText(std::size_t begin, std::size_t end, std::string_view text) const {
    if (end - begin < text.size()) return false;
    for (const char c : text) {
        if (begin == end || text_[begin] != c) return false;
        begin = passSplices(begin + 1);
    }
    return begin >= end;
}

}  // namespace Brevis
