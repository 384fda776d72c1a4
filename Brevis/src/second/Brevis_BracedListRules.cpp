// A stack of the lists that are open.
#include "second/Brevis_BracedListRules.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

BracedListRules::List BracedListRules::listOf(TokenIndex brace) const {
    List list{.last = text_.partner(brace)};
    const bool isOnOneLine = text_.isOnOneLine(brace, list.last);
    if (text_.role(brace) == Role::EnumBody) {
        list.isEnum = list.isBody = list.isOuter = true;
        list.isBroken = !isOnOneLine || !scheme_.keepOneLineEnumBodies;
        return list;
    }
    const Role before = text_.role(text_.previous(brace));
    list.isOuter = before == Role::Initializer || before == Role::Assignment;
    const bool isRow = before == Role::BracedInitializer || before == Role::ElementComma;
    list.isBody = list.isOuter || (isRow && !lists_.empty() && lists_.back().isBody);
    // A row inside of a list that the author has on one line stays there whatever becomes of the list.
    const bool isEmpty = text_.next(brace) == list.last;
    const bool isNested = !lists_.empty();
    const bool isKept = isNested || !list.isOuter || scheme_.keepOneLineDdBodies;
    list.isBroken = list.isBody && !isEmpty && !(isOnOneLine && isKept);
    return list;
}

void BracedListRules::set(TokenIndex token, GapProperty property, const List& list) {
    if (gaps_.lineFeeds(property.rule) == 0) return gaps_.setKeepingLines(token, property);
    if (list.isBroken) gaps_.setBreak(token, property);
}

void BracedListRules::setOrBlank(TokenIndex token, GapProperty property, const List& list) {
    const bool isJoined = gaps_.lineFeeds(property.rule) > 0 && !list.isBroken;
    set(token, isJoined ? GapProperty{nullptr, GapRule::Blank} : property, list);
}

void BracedListRules::open(TokenIndex brace) {
    const List list = listOf(brace);
    lists_.push_back(list);
    if (list.isEnum) return;
    if (list.isOuter) setOrBlank(brace, gapProperty<&Scheme::wsBeforeDdOpenBrace>(), list);
    const TokenIndex first = text_.next(brace);
    if (first != list.last) return set(first, gapProperty<&Scheme::wsAfterDdOpenBrace>(), list);
    const bool isDecided = scheme_.wsAfterDdOpenBrace.isSet || scheme_.wsBeforeDdCloseBrace.isSet;
    if (isDecided) gaps_.setKeepingLines(first, {nullptr, GapRule::Nothing});
}

void BracedListRules::close(TokenIndex brace) {
    if (lists_.empty() || lists_.back().last != brace) return;
    const List list = lists_.back();
    lists_.pop_back();
    if (list.isEnum || text_.kind(text_.previous(brace)) == Kind::OpenBrace) return;
    set(brace, gapProperty<&Scheme::wsBeforeDdCloseBrace>(), list);
}

void BracedListRules::comma(TokenIndex comma) {
    if (lists_.empty()) return;
    const List& list = lists_.back();
    const bool isLast = text_.next(comma) == list.last;
    if (!list.isEnum) {
        set(comma, gapProperty<&Scheme::wsBeforeDdComma>(), list);
        if (!isLast) setOrBlank(text_.next(comma), gapProperty<&Scheme::wsBetweenDdElements>(), list);
        return;
    }
    constexpr GapProperty before = gapProperty<&Scheme::wsBeforeEnumComma>();
    constexpr GapProperty behind = gapProperty<&Scheme::wsBetweenEnumElements>();
    set(comma, before, list);
    if (isLast) return;
    // The elements of an enum are no rows: the line ends of the author go unless the scheme keeps them.
    const bool isJoined = gaps_.lineFeeds(behind.rule) == 0 && !scheme_.keepLineBreaksInLists;
    isJoined ? gaps_.set(text_.next(comma), behind) : setOrBlank(text_.next(comma), behind, list);
}

}  // namespace Brevis
