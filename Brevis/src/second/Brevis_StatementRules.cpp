// One operation a sort of item.
#include "second/Brevis_StatementRules.h"

#include <algorithm>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;
using Sort = Cpp::OutlineItem::Sort;

void StatementRules::item(const Item& item, const Place& place) {
    if (item.sort == Sort::Part) {
        part(item, place);
    } else if (place.holder != nullptr) {
        if (place.holder->body == item.first) unbracedBody(item, *place.holder);
    } else {
        inBody(item, place.before);
    }
    if (item.sort == Sort::CaseLabel) behindCaseLabel(item);
    semicolon(item, place);
}

bool StatementRules::isElseIf(const Item& item, const Item* holder) const {
    return holder != nullptr && item.sort == Sort::Control && text_.kind(item.first) == Kind::If &&
           text_.kind(holder->first) == Kind::Else && followsOnLine(item.first);
}

// Whether the source has no line end between the token and the last one in front that is neither comment nor directive.
bool StatementRules::followsOnLine(TokenIndex token) const { return text_.isOnOneLine(text_.previous(token), token); }

// ---- Control statements

void StatementRules::part(const Item& part, const Place& place) {
    if (part.open != 0) gaps_.set<&Scheme::wsAfterCsKey>(part.open);
    if (place.before != nullptr) betweenParts(part, *place.before);
}

// The `while` of a `do` may have a value of its own.
GapProperty StatementRules::inFrontOf(const Item& part) const {
    constexpr GapProperty own = gapProperty<&Scheme::wsBeforeCsDoWhile>();
    const bool isWhile = text_.kind(part.first) == Kind::While && gaps_.isSet(own.rule);
    return isWhile ? own : gapProperty<&Scheme::wsBetweenCs>();
}

// What goes on behind a body without braces begins a line, so that nobody takes it for a part of the body's statement.
void StatementRules::betweenParts(const Item& part, const Item& before) {
    const GapProperty between = inFrontOf(part);
    if (!gaps_.isSet(between.rule)) return;
    if (text_.kind(before.body) == Kind::OpenBrace) return gaps_.setInFront(part.first, between);
    if (scheme_.keepOneLineCsBodies && followsOnLine(part.first)) return gaps_.set(part.first, GapRule::Blank);
    const bool breaks = gaps_.lineFeeds(between.rule) > 0;
    gaps_.setInFront(part.first, breaks ? between : GapProperty{nullptr, GapRule::LineFeed});
}

// A lone `;` is no item, so it stays where it stands.
void StatementRules::unbracedBody(const Item& body, const Item& holder) {
    constexpr GapProperty property = gapProperty<&Scheme::wsAfterCsOpenBrace>();
    if (isElseIf(body, &holder)) {
        if (gaps_.isSet(ruleOf<&Scheme::wsAfterCsKey>())) gaps_.set(body.first, GapRule::Blank);
        return;
    }
    const bool stays = scheme_.keepOneLineCsBodies && followsOnLine(body.first);
    if (stays && gaps_.lineFeeds(property.rule) > 0) return gaps_.set(body.first, GapRule::Blank);
    gaps_.set(body.first, property);
}

// ---- Items of a body

void StatementRules::inBody(const Item& item, const Item* before) {
    if (before == nullptr || item.sort == Sort::Empty || item.sort == Sort::Declarators) return;
    if (item.sort == Sort::AccessLabel) return accessLabel(item);
    const TokenIndex end = text_.previous(item.first);
    const Role role = text_.role(end);
    if (role != Role::StatementEnd && role != Role::AccessColon && text_.kind(end) != Kind::CloseBrace) return;
    if (text_.kind(end) == Kind::CloseBrace && isHandler(item)) {
        gaps_.setInFront(item.first, gapProperty<&Scheme::wsBetweenCs>());
        if (text_.text(item.first).starts_with("while")) return;
        gaps_.set<&Scheme::wsAfterCsKey>(text_.next(item.first));
        return;
    }
    const bool followsOn = followsOnLine(item.first);
    if (followsOn && !isBehindCaseBlock(item, end)) gaps_.set<&Scheme::wsBetweenStatements>(item.first);
    const bool isBroken = !followsOn || gaps_.lineFeeds(ruleOf<&Scheme::wsBetweenStatements>()) > 0;
    if (isBroken && scheme_.minBlankLinesBetweenFnDefns > 0) betweenFunctions(item, *before);
}

// Words of some compilers that go on with a statement, and macros that end a loop: `do_each(x) { } while_each(x);`.
bool StatementRules::isHandler(const Item& item) const {
    const std::string_view word = text_.text(item.first);
    if (text_.kind(item.first) != Kind::Identifier) return false;
    return word == "__except" || word == "__finally" || (word.starts_with("while_") && followsOnLine(item.first));
}

// `} break;` closes a case.
bool StatementRules::isBehindCaseBlock(const Item& item, TokenIndex before) const {
    return text_.kind(before) == Kind::CloseBrace && text_.kind(item.first) == Kind::Break &&
           text_.role(text_.previous(text_.partner(before))) == Role::CaseColon;
}

bool StatementRules::isDefinition(const Item& item) const {
    return (item.sort == Sort::Function || item.sort == Sort::Head) && item.body != 0;
}

// Definitions whose bodies stay on one line may stand close together.
void StatementRules::betweenFunctions(const Item& item, const Item& before) {
    const Item* function = &item;
    while (function->sort == Sort::Template && function + 1 < text_.items().data() + text_.items().size()) ++function;
    if (!isDefinition(*function) || !isDefinition(before)) return;
    const auto isShort = [&](const Item& definition) {
        return text_.isOnOneLine(definition.body, definition.last) && scheme_.keepOneLineFnBodies;
    };
    if (isShort(before) && isShort(*function)) return;
    for (TokenIndex at = item.first - 1; at > before.last; --at) {
        if (text_.kind(at) == Kind::Directive) return;
    }
    gaps_.setBreak(item.first, GapProperty{nullptr, ruleOf<&Scheme::minBlankLinesBetweenFnDefns>()});
}

// ---- Labels

void StatementRules::accessLabel(const Item& label) { gaps_.set<&Scheme::wsBeforeAccessSpecs>(label.first); }

// A block behind the label has a key of its own, and a brace that closes the body too.
void StatementRules::behindCaseLabel(const Item& label) {
    const TokenIndex next = text_.next(label.last);
    const Trn::TokenKind kind = text_.kind(next);
    if (kind == Kind::OpenBrace || kind == Kind::CloseBrace) return;
    constexpr GapProperty property = gapProperty<&Scheme::wsAfterCsCaseLabels>();
    const bool stays = scheme_.keepOneLineCases && gaps_.lineFeeds(property.rule) > 0 && staysOnOneLine(label);
    stays ? gaps_.set(next, GapRule::Blank) : gaps_.setBreak(next, property);
}

// Further labels on its line go with the first one.
bool StatementRules::staysOnOneLine(const Item& label) {
    if (label.last < lookedAt_) return caseEnd_ != 0;
    caseColon_ = label.last;
    caseEnd_ = endOfLine(label);
    return caseEnd_ != 0;
}

// The last token of what stands behind a label, if the line of the label holds all of it: another label follows, or the
// brace that closes. Otherwise 0.
TokenIndex StatementRules::endOfLine(const Item& label) {
    TokenIndex last = label.last;
    TokenIndex next = text_.next(last);
    while (next < text_.size() && text_.isOnOneLine(last, next)) {
        const bool isBehindStatement = text_.role(last) == Role::StatementEnd || text_.kind(last) == Kind::CloseBrace;
        if (isBehindStatement && isLabel(next)) break;
        if (text_.kind(next) == Kind::CloseBrace && text_.partner(next) < label.first) break;
        lookedAt_ = next;
        last = std::max(next, text_.partner(next));
        if (!text_.isOnOneLine(label.first, last)) return 0;
        lookedAt_ = last;
        next = text_.next(last);
    }
    const bool isEnd = isLabel(next) || text_.kind(next) == Kind::CloseBrace;
    return last > label.last && isEnd ? last : 0;
}

// Whether a label of a `switch` begins here, behind the end of a statement.
bool StatementRules::isLabel(TokenIndex token) const {
    return text_.kind(token) == Kind::Case || text_.kind(token) == Kind::Default;
}

void StatementRules::endCase(TokenIndex token) {
    if (token != caseEnd_) return;
    for (TokenIndex at = text_.next(text_.next(caseColon_)); at <= caseEnd_; at = text_.next(at)) {
        const Gap::Sort sort = gaps_[at].sort;
        if (sort != Gap::Sort::Lines && sort != Gap::Sort::Break) continue;
        const bool isBehindStatement = text_.role(text_.previous(at)) == Role::StatementEnd;
        isBehindStatement ? gaps_.set(at, GapRule::Blank) : gaps_.keep(at);
    }
}

// ---- The end of a statement

// Not in front of one that is a statement itself.
void StatementRules::semicolon(const Item& item, const Place& place) {
    const TokenIndex end = item.last;
    if (text_.kind(end) != Kind::Semicolon || end == item.first || end == item.body) return;
    if (item.sort == Sort::Control || item.sort == Sort::Loop || item.sort == Sort::Head) return;
    if (item.sort == Sort::Part && (item.body != 0 || place.before == nullptr)) return;
    gaps_.setKeepingLines(end, gapProperty<&Scheme::wsBeforeSemicolon>());
}

}  // namespace Brevis
