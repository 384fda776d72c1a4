// Two lexers in step.
#include "guard/Brevis_TokenDifference.h"

#include "Cpp_CharClasses.h"
#include "guard/Brevis_SeamLexer.h"
#include "guard/Brevis_TextPlace.h"

namespace Brevis {

namespace {

using Cpp::isSpace;

constexpr std::size_t shownLength = 40;

std::string_view textOf(std::string_view text, const SeamToken& token) {
    return text.substr(token.begin, token.end - token.begin);
}

bool equalWithoutWhiteSpace(std::string_view a, std::string_view b) {
    for (std::size_t i = 0, j = 0;; ++i, ++j) {
        while (i < a.size() && isSpace(a[i])) ++i;
        while (j < b.size() && isSpace(b[j])) ++j;
        if (i == a.size() || j == b.size()) return i == a.size() && j == b.size();
        if (a[i] != b[j]) return false;
    }
}

bool equal(std::string_view text, const SeamToken& token, std::string_view other, const SeamToken& otherToken) {
    if (token.kind != otherToken.kind || token.inDirective != otherToken.inDirective ||
        token.opensDirective != otherToken.opensDirective) {
        return false;
    }
    const std::string_view a = textOf(text, token), b = textOf(other, otherToken);
    return a == b || (token.isComment() && equalWithoutWhiteSpace(a, b));
}

}  // namespace

std::optional<TokenDifference> findTokenDifference(std::string_view text, std::string_view other) {
    SeamLexer lexer(text), otherLexer(other);
    for (;;) {
        const SeamToken token = lexer.next(), otherToken = otherLexer.next();
        if (!equal(text, token, other, otherToken)) {
            return TokenDifference{placeAt(text, token.begin), std::string(textOf(text, token).substr(0, shownLength)),
                                   std::string(textOf(other, otherToken).substr(0, shownLength))};
        }
        if (token.kind == SeamKind::End) return std::nullopt;
    }
}

}  // namespace Brevis
