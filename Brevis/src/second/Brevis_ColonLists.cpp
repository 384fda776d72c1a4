// A value that breaks a line indents it from the item by what stands behind its line feed. Without that, elements stand
// below the first one and commas below the colon.
#include "second/Brevis_ColonLists.h"

namespace Brevis {

using Cpp::Role;
using Mode = IndentScope::Mode;

namespace {

bool isListComma(Role role) { return role == Role::BaseComma || role == Role::MemberInitializerComma; }

}  // namespace

void ColonLists::indentInList(TokenIndex token, List& list, Scope item) {
    const Role role = text_.role(token);
    if (token == list.first) {
        if (!gaps_.startsLine(token)) return;
        list.aligned = gaps_.addScope({.from = token, .mode = Mode::Indent, .isAnchored = true});
        if (isDecided(token) && hasTail(token)) gaps_.setScope(token, shared(item));
        return;
    }
    const bool isElement = isListComma(text_.role(text_.previous(token)));
    if (!isListComma(role) && !isElement) return;
    const bool isBelowColon = !isElement && gaps_.startsLine(list.colon);
    if (!isDecided(token)) {
        const bool isAligned = isBelowColon && scheme_.alignContinuationLeft;
        return gaps_.setScope(token, isAligned ? list.colonLine : list.kept);
    }
    if (hasTail(token)) return gaps_.setScope(token, shared(item));
    gaps_.setScope(token, isBelowColon ? list.colonLine : list.aligned);
}

// It goes with the element behind it.
void ColonLists::indentComment(TokenIndex comment, const List& list) {
    if (list.colon == 0 || text_.previous(comment) == list.colon) return;
    const TokenIndex next = text_.next(comment);
    const bool isElement = isListComma(text_.role(text_.previous(comment)));
    if (isElement) gaps_.setScope(comment, isDecided(next) ? list.aligned : list.kept);
}

void ColonLists::begin(TokenIndex colon, List& list, Scope item) {
    list = {.colon = colon, .first = text_.next(colon), .item = item};
    if (isDecided(colon)) gaps_.setScope(colon, shared(item));
    const bool breaksBehind = gaps_.startsLine(list.first);
    list.colonLine = gaps_.addScope({.from = colon, .mode = Mode::Indent, .isAnchored = true});
    list.aligned = gaps_.addScope({.from = colon, .mode = Mode::Behind, .isAnchored = true});
    list.kept = scheme_.alignContinuationLeft && !breaksBehind
                    ? list.aligned
                    : gaps_.addScope({.from = colon, .mode = Mode::Distance, .isAnchored = true});
}

// In contrast to the base of what stands on the item's lines, the item's own.
ColonLists::Scope ColonLists::shared(Scope base) { return gaps_.addScope({.from = base, .mode = Mode::Indent}); }

bool ColonLists::isDecided(TokenIndex token) const {
    const Gap::Sort sort = gaps_[token].sort;
    return sort == Gap::Sort::Lines || sort == Gap::Sort::Break;
}

}  // namespace Brevis
