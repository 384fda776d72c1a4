// The one pass that finds the partners, with a stack of the brackets that are open.
#include "Trn_BracketTable.h"

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
            open_.push_back(token);
            return;
        case Kind::CloseParen:
            return close(token, Kind::OpenParen);
        case Kind::CloseBracket:
            return close(token, Kind::OpenBracket);
        case Kind::CloseBrace:
            return close(token, Kind::OpenBrace);
        case Kind::Less:
            if (mayNameTemplate(previous_)) open_.push_back(token);
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
            if (!open_.empty()) entries_[open_.back()].holdsSemicolon = 1;
            return;
        default:
            return;
    }
}

BracketTable::BracketTable(const TokenBuffer& buffer) : buffer_(&buffer), entries_(buffer.size()) {
    const auto size = static_cast<TokenIndex>(buffer.size());
    for (TokenIndex token = 1; token < size; ++token) {
        const TokenKind kind = buffer.kind(token);
        if (isTrivia(kind)) continue;
        if (kind < 0 || previous_ == Kind::AmpAmp || !saysNothing[static_cast<std::size_t>(kind)]) add(token, kind);
        previous_ = kind;
    }
    dropAngles();
    if (unmatched_ == 0 && !open_.empty()) unmatched_ = open_.back();
    open_ = {};
}

void BracketTable::close(TokenIndex token, TokenKind opening) {
    dropAngles();
    if (topKind() != opening) {
        if (unmatched_ == 0) unmatched_ = token;
        return;
    }
    entries_[open_.back()].partner = token;
    entries_[token].partner = open_.back();
    open_.pop_back();
}

void BracketTable::closeAngle(TokenIndex token) {
    if (topKind() != Kind::Less) return;
    const TokenIndex open = open_.back();
    open_.pop_back();
    entries_[open].partner = token;
    entries_[token].partner = open;
    // What an inner pair holds, the outer one holds as well.
    if (entries_[open].holdsLogic && topKind() == Kind::Less) entries_[open_.back()].holdsLogic = 1;
}

void BracketTable::noteLogic() {
    if (topKind() == Kind::Less) entries_[open_.back()].holdsLogic = 1;
}

void BracketTable::dropAngles() {
    while (topKind() == Kind::Less) open_.pop_back();
}

}  // namespace Trn
