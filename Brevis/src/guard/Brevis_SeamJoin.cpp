// One rule for each kind of the first token.
#include "guard/Brevis_SeamJoin.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "guard/Brevis_SeamLexer.h"
#include "guard/Brevis_SeamPunctuators.h"

namespace Brevis {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// True if a punctuator begins with `first` and goes on with what `second` begins with. It needn't be complete: a
// third token could complete it, as in `...`.
bool beginsLongerPunctuator(std::string_view first, std::string_view second) {
    const auto isOne = [&](std::string_view longer) {
        if (longer.size() <= first.size() || !longer.starts_with(first)) return false;
        longer.remove_prefix(first.size());
        const std::size_t length = std::min(longer.size(), second.size());
        return longer.substr(0, length) == second.substr(0, length);
    };
    const std::string_view* candidate = firstSeamPunctuator(first.front());
    while (candidate != std::end(seamPunctuators) && candidate->front() == first.front() && !isOne(*candidate)) {
        ++candidate;
    }
    return candidate != std::end(seamPunctuators) && candidate->front() == first.front();
}

bool punctuatorJoins(std::string_view first, std::string_view second) {
    const char c = second.front();
    if (first == "/") return c == '/' || c == '*' || c == '=';
    if (first == "." && (isDigit(c) || c == '.')) return true;
    if ((first == "<:" || first == "[:") && c == ':') return true;  // `<::` is cut behind the first character
    if (first == "::" && (c == '>' || c == ':')) return true;       // and isn't then, should a `<` stand in front
    if (first == "?" && c == '?') return true;                      // a trigraph, for those that still read them
    return beginsLongerPunctuator(first, second);
}

bool beginsQuoted(char c) { return c == '"' || c == '\''; }
bool isLiteral(const SeamToken& token) {
    return token.kind == SeamKind::Literal || token.kind == SeamKind::OpenLiteral;
}

// True if the token begins as a name does, a literal with its prefix among them.
bool beginsAsName(const SeamToken& token, std::string_view text) {
    return token.kind == SeamKind::Word || (isLiteral(token) && !beginsQuoted(text.front()));
}

bool beginsWithDigit(const SeamToken& token, std::string_view text) {
    return token.kind == SeamKind::Number && text.front() != '.';
}

bool wordJoins(std::string_view first, const SeamToken& token, std::string_view second) {
    if (beginsAsName(token, second) || beginsWithDigit(token, second)) return true;
    const auto isPrefix = [&] { return SeamLexer(std::string(first) + '"').next().kind != SeamKind::Word; };
    return isLiteral(token) && isPrefix();
}

bool numberJoins(std::string_view first, const SeamToken& token, std::string_view second) {
    const char c = second.front();
    if (beginsAsName(token, second) || token.kind == SeamKind::Number || c == '.' || c == '\'') return true;
    return (c == '+' || c == '-') && std::string_view("eEpP").find(first.back()) != std::string_view::npos;
}

// A name behind a literal is its suffix, and behind a suffix a literal may go on.
bool literalJoins(std::string_view first, const SeamToken& token, std::string_view second) {
    if (beginsAsName(token, second) || beginsWithDigit(token, second)) return true;
    return isLiteral(token) && !beginsQuoted(first.back());
}

bool holdsBackslash(std::string_view text) { return text.find('\\') != std::string_view::npos; }

}  // namespace

bool wouldJoin(std::string_view text, const SeamToken& first, const SeamToken& second, bool partsLiterals) {
    if (first.kind == SeamKind::Stray || second.kind == SeamKind::Stray) return true;
    // A brace could complete a universal character name.
    if (first.begin > 0 && text[first.begin - 1] == '\\') return true;
    const std::string_view before = text.substr(first.begin, first.end - first.begin);
    const std::string_view after = text.substr(second.begin, second.end - second.begin);
    switch (first.kind) {
        case SeamKind::Word:
            return wordJoins(before, second, after);
        case SeamKind::Number:
            return numberJoins(before, second, after);
        case SeamKind::Literal:
            return literalJoins(before, second, after);
        case SeamKind::Punctuator:
            if (holdsBackslash(before) || punctuatorJoins(before, after)) return true;
            if (!partsLiterals && beginsQuoted(after.front())) return false;
            return holdsBackslash(after.substr(0, seamPunctuatorMostLength));
        default:
            return false;
    }
}

}  // namespace Brevis
