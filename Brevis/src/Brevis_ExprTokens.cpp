// Lexing into offsets, and the pairing of brackets in one sweep.
#include "Brevis_ExprTokens.h"

#include "Cpp_Lexer.h"

namespace Brevis {

namespace {

namespace Kind = Trn::Kind;

// Turns ascending positions of a text into offsets.
class OffsetFinder {
public:
    explicit OffsetFinder(std::string_view text) : text_(text) {}

    std::uint32_t operator()(Trn::Position position) {
        for (; line_ < position.line; ++line_) lineStart_ = text_.find('\n', lineStart_) + 1;
        return static_cast<std::uint32_t>(lineStart_) + static_cast<std::uint32_t>(position.column);
    }

private:
    std::string_view text_;
    int line_ = 1;
    std::size_t lineStart_ = 0;
};

constexpr struct {
    Trn::TokenKind open, close;
} brackets[] = {{Kind::OpenParen, Kind::CloseParen},
                {Kind::OpenBrace, Kind::CloseBrace},
                {Kind::OpenBracket, Kind::CloseBracket},
                {Kind::Less, Kind::Greater}};

}  // namespace

void ExprTokens::lex(std::string_view text) {
    text_ = text;
    tokens_.clear();
    angleCloses_.clear();
    Cpp::Lexer lexer(text);
    OffsetFinder offsetOf(text);
    bool hasBrackets = false;
    bool hasAngles = false;
    for (Trn::Token token = lexer.next(); token.kind() != Kind::EndOfInput; token = lexer.next()) {
        // A first position stands behind the first character.
        const std::uint32_t begin = offsetOf(token.first()) - 1;
        tokens_.push_back({token.kind(), begin, offsetOf(token.last()), none});
        hasAngles |= token.kind() == Kind::Less;
        for (const auto& bracket : brackets) hasBrackets |= token.kind() == bracket.open;
    }
    if (hasBrackets) pairBrackets();
    if (hasAngles) findAngleCloses();
}

// Each kind of bracket is counted for itself, so that a stray one of another kind does no harm.
void ExprTokens::pairBrackets() {
    for (auto& open : open_) open.clear();
    for (std::uint32_t i = 0; i < count(); ++i) {
        for (std::size_t kind = 0; kind < std::size(brackets); ++kind) {
            if (tokens_[i].kind == brackets[kind].open) {
                open_[kind].push_back(i);
            } else if (tokens_[i].kind == brackets[kind].close && !open_[kind].empty()) {
                tokens_[open_[kind].back()].close = i;
                open_[kind].pop_back();
            }
        }
    }
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
