// Two lexers in step. Plain runs are passed over: their tokens are the same in both texts.
#include "guard/Brevis_TokenDifference.h"

#include "Cpp_CharClasses.h"
#include "guard/Brevis_PlainRun.h"
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

// One of the texts and how far its tokens have been read.
struct Reader {
    explicit Reader(std::string_view text)
        : text(text), lexer(text), end(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0) {}

    // Whether what was read has no say in what comes.
    bool isIndifferent() const { return lexer.isIndifferent() && (end == 0 || text[end - 1] != '\\'); }
    std::string_view rest() const { return text.substr(end); }
    // Behind a run, which ends with a lone punctuator.
    void pass(std::size_t runLength) { end = lexer.goOnBehind(end + runLength - 1).end; }
    SeamToken next() {
        const SeamToken token = lexer.next();
        end = token.end;
        return token;
    }

    std::string_view text;
    SeamLexer lexer;
    std::size_t end;  // of the last token
};

// Gives how much of the first text need not be looked at for a run again.
std::size_t passPlainRun(Reader& reader, Reader& other) {
    if (!reader.isIndifferent() || !other.isIndifferent()) return reader.end;
    const std::size_t begin = reader.end;
    const PlainRun run = findPlainRun(reader.rest(), other.rest(), Less::HeaderName);
    if (run.source > 0) {
        reader.pass(run.source);
        other.pass(run.output);
    }
    return begin + run.seen;
}

}  // namespace

std::optional<TokenDifference> findTokenDifference(std::string_view text, std::string_view other) {
    Reader reader(text), otherReader(other);
    std::size_t plainUpTo = 0;
    for (;;) {
        if (reader.end >= plainUpTo) plainUpTo = passPlainRun(reader, otherReader);
        const SeamToken token = reader.next(), otherToken = otherReader.next();
        if (!equal(text, token, other, otherToken)) {
            return TokenDifference{placeAt(text, token.begin), std::string(textOf(text, token).substr(0, shownLength)),
                                   std::string(textOf(other, otherToken).substr(0, shownLength))};
        }
        if (token.kind == SeamKind::End) return std::nullopt;
    }
}

}  // namespace Brevis
