// A run is taken as a whole, by its first sign.
#include "second/Brevis_PointerRules.h"

#include <algorithm>
#include <iterator>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

namespace {

constexpr std::string_view qualifierWords[] = {"restrict",     "_Atomic",  "_Nullable", "_Nonnull",   "__restrict",
                                               "__restrict__", "__const",  "__const__", "__volatile", "__volatile__",
                                               "__unaligned",  "__ptr32",  "__ptr64",   "__user",     "__iomem",
                                               "__rcu",        "__percpu", "__kernel",  "__force"};

}  // namespace

PointerRules::PointerRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
    : text_(text), scheme_(scheme), gaps_(gaps) {}

bool PointerRules::isSign(TokenIndex token) const {
    return text_.role(token) == Role::Pointer || text_.role(token) == Role::Reference;
}

bool PointerRules::isQualifier(TokenIndex token) const {
    const Trn::TokenKind kind = text_.kind(token);
    if (kind != Kind::Identifier) return kind == Kind::Const || kind == Kind::Volatile;
    const std::string_view word = text_.text(token);
    if (word[0] != '_' && word[0] != 'r') return false;
    return std::find(std::begin(qualifierWords), std::end(qualifierWords), word) != std::end(qualifierWords);
}

// What a sign can keep with: also the brackets that hold names.
bool PointerRules::isName(TokenIndex token) const {
    const Role role = text_.role(token);
    const Trn::TokenKind kind = text_.kind(token);
    // `(name)` keeps its form.
    const bool isOpenGroup = opensGroup(token) && isSign(text_.next(token));
    return kind == Kind::Identifier || kind == Kind::Operator || kind == Kind::This || isOpenGroup ||
           role == Role::StructuredBinding;
}

bool PointerRules::opensGroup(TokenIndex token) const {
    return text_.role(token) == Role::DeclaratorGroup && text_.kind(token) == Kind::OpenParen;
}

bool PointerRules::beginsRun(TokenIndex sign) const {
    const TokenIndex before = text_.previous(sign);
    if (before == 0 || isSign(before)) return false;
    const Role role = text_.role(before);
    if (role == Role::DeclaratorComma || opensGroup(before)) return true;
    switch (text_.kind(before)) {
        case Kind::Const:
        case Kind::Volatile:
            return !isSign(text_.previous(before));
        case Kind::Identifier:
            // `T C::*member`
            if (text_.text(before).ends_with("::")) return false;
            return !isQualifier(before) || !isSign(text_.previous(before));
        case Kind::CloseParen:
            return role == Role::TypeOperand || role == Role::Specifier;
        case Kind::Greater:
        case Kind::ShiftRight:
            return role == Role::TemplateArguments;
        case Kind::CloseBracket:
            return role == Role::Attribute;
        case Kind::CloseBrace:
            return role == Role::ClassBody || role == Role::EnumBody;
        default:
            return text_.kind(before) >= Kind::Class && text_.kind(before) <= Kind::Void;
    }
}

TokenIndex PointerRules::behindRun(TokenIndex first) const {
    TokenIndex end = first;
    while (isSign(end) || isQualifier(end) || text_.role(end) == Role::Pack) end = text_.next(end);
    return end;
}

void PointerRules::run(TokenIndex first, const DeclaredName& name) {
    if (name.isLeft) return;
    const bool isStar = text_.role(first) == Role::Pointer;
    const int anchor = isStar ? scheme_.asteriskAnchor : scheme_.ampersandAnchor;
    const GapProperty between =
        isStar ? gapProperty<&Scheme::wsBetweenAsteriskAnchor>() : gapProperty<&Scheme::wsBetweenAmpersandAnchor>();
    const GapProperty inner = gaps_.isSet(between.rule) ? between : nothingThere;
    const TokenIndex end = behindRun(first);
    if (anchor != 0 && anchor != 1) {
        if (isName(end) && gaps_.lineFeeds(name.behindType.rule) > 0) gaps_.set(end, name.behindType);
        return;
    }
    // `(*name)`: the bracket tells what the signs belong to.
    if (opensGroup(text_.previous(first))) {
        setInside(first, end, true, inner);
        if (isName(end) && !isQualifier(text_.previous(end))) gaps_.setKeepingLines(end, inner);
        return;
    }
    const bool isFurther = text_.role(text_.previous(first)) == Role::DeclaratorComma;
    const bool isWithName = anchor == 1 || name.isOneOfSeveral || isFurther;
    setInside(first, end, isWithName, between);
    const bool isAtSign = !isQualifier(text_.previous(end));
    if (!isName(end)) {
        if (isFurther) return;
        if (isWithName) return setBehindType(first, {blankThere});
        return gaps_.set(first, inner);
    }
    if (!isFurther && isWithName && gaps_.lineFeeds(name.behindType.rule) == 0) {
        setBehindType(first, name);
    } else if (!isFurther) {
        gaps_.set(first, isWithName ? blankThere : inner);
    }
    if (!isAtSign) return setBehindType(end, name);
    if (!isWithName || (!isFurther && gaps_.lineFeeds(name.behindType.rule) > 0)) return setBehindType(end, name);
    setAtName(first, end, inner, name);
}

// Signs keep together, with the dots of a pack, and a qualifier with the sign in front of it if there is a value.
void PointerRules::setInside(TokenIndex first, TokenIndex end, bool isWithName, GapProperty between) {
    for (TokenIndex at = text_.next(first); at < end; at = text_.next(at)) {
        const bool isBehindSign = isSign(text_.previous(at));
        if (isSign(at) || text_.role(at) == Role::Pack) {
            gaps_.setKeepingLines(at, isBehindSign || !isWithName ? nothingThere : blankThere);
        } else if (isBehindSign) {
            gaps_.setKeepingLines(at, isWithName ? between : blankThere);
        }
    }
}

void PointerRules::setBehindType(TokenIndex token, const DeclaredName& name) {
    if (!gaps_.isSet(name.behindType.rule)) return gaps_.setKeepingLines(token, blankThere);
    if (name.keepsLines) {
        gaps_.setKeepingLines(token, name.behindType);
    } else {
        gaps_.set(token, name.behindType);
    }
}

// A line end between sign and name stays if the scheme doesn't tell what stands behind a type.
void PointerRules::setAtName(TokenIndex first, TokenIndex name, GapProperty between, const DeclaredName& declared) {
    // In `char * __init name` the author's blanks stay, as in front of a qualifier.
    const bool isWord = text_.kind(name) == Kind::Identifier && text_.kind(text_.next(name)) == Kind::Identifier;
    if (isWord && between.rule == GapRule::Nothing) return;
    const bool isDecided = gaps_.isSet(declared.behindType.rule) && !declared.keepsLines;
    if (isDecided && text_.role(text_.previous(first)) != Role::DeclaratorComma) {
        gaps_.set(name, between);
    } else {
        gaps_.setKeepingLines(name, between);
    }
}

}  // namespace Brevis
