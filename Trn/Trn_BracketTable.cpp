// The one pass that finds the partners, with a stack of the brackets that are open.
#include "Trn_BracketTable.h"

#include <algorithm>
#include <array>

namespace Trn {

namespace {

constexpr bool mayNameTemplate(TokenKind kind) {
    return kind == Kind::Identifier || kind == Kind::Template || kind == Kind::CloseBracket ||
           (kind >= Kind::StaticCast && kind <= Kind::ReinterpretCast);
}

// What may follow the `&&` of a type in a list of template arguments.
constexpr bool endsArgument(TokenKind kind) {
    return kind == Kind::Greater || kind == Kind::ShiftRight || kind == Kind::Comma || kind == Kind::Ellipsis ||
           kind == Kind::Assign || kind == Kind::CloseParen;
}

// Most tokens say nothing of brackets.
constexpr auto saysNothing = [] {
    std::array<bool, 256> quiet{};
    quiet.fill(true);
    for (const TokenKind kind : {Kind::OpenParen, Kind::CloseParen, Kind::OpenBracket, Kind::CloseBracket,
                                 Kind::OpenBrace, Kind::CloseBrace, Kind::Less, Kind::Greater, Kind::ShiftRight,
                                 Kind::PipePipe, Kind::Semicolon}) {
        quiet[static_cast<std::size_t>(kind)] = false;
    }
    return quiet;
}();

}  // namespace

inline void BracketTable::add(TokenIndex token, TokenKind kind) {
    if (previous_ == Kind::AmpAmp && !endsArgument(kind)) noteLogic();
    switch (kind) {
        case Kind::OpenParen:
        case Kind::OpenBracket:
        case Kind::OpenBrace:
            return open(token, kind);
        case Kind::CloseParen:
            return close(token, Kind::OpenParen);
        case Kind::CloseBracket:
            return close(token, Kind::OpenBracket);
        case Kind::CloseBrace:
            return close(token, Kind::OpenBrace);
        case Kind::Less:
            if (mayNameTemplate(previous_)) open(token, kind);
            return;
        case Kind::Greater:
            if (previous_ != Kind::Operator) closeAngle(token);
            return;
        case Kind::ShiftRight:
            if (previous_ == Kind::Operator) return;
            closeAngle(token);
            closeAngle(token);
            return;
        case Kind::PipePipe:
            noteLogic();
            return;
        case Kind::Semicolon:
            dropAngles();
            if (!open_.empty()) top().holdsSemicolon = 1;
            return;
        default:
            return;
    }
}

// The next token that has an entry.
inline void BracketTable::enter(TokenIndex token) {
    inBlock_[token] = static_cast<std::uint8_t>(entries_.size() - blocks_.back());
    entries_.emplace_back();
}

inline void BracketTable::open(TokenIndex token, TokenKind kind) {
    open_.push_back({token, static_cast<std::uint32_t>(entries_.size()), kind});
    enter(token);
}

// The token, which has an entry, closes what is open.
inline void BracketTable::join(TokenIndex token) {
    top().partner = token;
    entries_.back().partner = open_.back().token;
    open_.pop_back();
}

BracketTable::BracketTable(const TokenBuffer& buffer) : inBlock_(buffer.size()) {
    entries_.reserve(buffer.size() / 2);
    blocks_.reserve(buffer.size() / blockSize + 1);
    const auto size = static_cast<TokenIndex>(buffer.size());
    for (TokenIndex token = 0; token < size;) {
        blocks_.push_back(static_cast<std::uint32_t>(entries_.size()));
        entries_.emplace_back();
        for (const TokenIndex end = std::min(token + blockSize, size); token < end; ++token) {
            const TokenKind kind = buffer.kind(token);
            if (isTrivia(kind)) continue;
            if (kind < 0 || previous_ == Kind::AmpAmp || !saysNothing[static_cast<std::size_t>(kind)]) add(token, kind);
            previous_ = kind;
        }
    }
    dropAngles();
    if (unmatched_ == 0 && !open_.empty()) unmatched_ = open_.back().token;
    open_ = {};
}

void BracketTable::close(TokenIndex token, TokenKind opening) {
    dropAngles();
    if (topKind() != opening) {
        if (unmatched_ == 0) unmatched_ = token;
        return;
    }
    enter(token);
    join(token);
}

// A `>>` closes two of them.
void BracketTable::closeAngle(TokenIndex token) {
    if (topKind() != Kind::Less) return;
    const bool holdsLogic = top().holdsLogic;
    if (inBlock_[token] == 0) enter(token);
    join(token);
    // What an inner pair holds, the outer one holds as well.
    if (holdsLogic && topKind() == Kind::Less) top().holdsLogic = 1;
}

void BracketTable::noteLogic() {
    if (topKind() == Kind::Less) top().holdsLogic = 1;
}

void BracketTable::dropAngles() {
    while (topKind() == Kind::Less) open_.pop_back();
}

}  // namespace Trn
