// Which properties a body has, and what they do.
#include "second/Brevis_BodyRules.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;
using Sort = Cpp::OutlineItem::Sort;

namespace {

constexpr BodyKeys functionKeys = {Role::FunctionBody,
                                   gapProperty<&Scheme::wsBeforeFnOpenBrace>(),
                                   gapProperty<&Scheme::wsAfterFnOpenBrace>(),
                                   gapProperty<&Scheme::indentFnContent>(),
                                   gapProperty<&Scheme::wsBeforeFnCloseBrace>(),
                                   &Scheme::keepOneLineFnBodies};
constexpr BodyKeys constructorKeys = {Role::FunctionBody,
                                      gapProperty<&Scheme::wsAfterClassInitList>(),
                                      gapProperty<&Scheme::wsAfterFnOpenBrace>(),
                                      gapProperty<&Scheme::indentFnContent>(),
                                      gapProperty<&Scheme::wsBeforeFnCloseBrace>(),
                                      &Scheme::keepOneLineFnBodies};
constexpr BodyKeys classKeys = {Role::ClassBody,
                                gapProperty<&Scheme::wsBeforeClassOpenBrace>(),
                                gapProperty<&Scheme::wsAfterClassOpenBrace>(),
                                gapProperty<&Scheme::indentClassContent>(),
                                gapProperty<&Scheme::wsBeforeClassCloseBrace>(),
                                &Scheme::keepOneLineClassBodies};
constexpr BodyKeys enumKeys = {Role::EnumBody,
                               gapProperty<&Scheme::wsBeforeEnumOpenBrace>(),
                               gapProperty<&Scheme::wsAfterEnumOpenBrace>(),
                               gapProperty<&Scheme::indentEnumContent>(),
                               gapProperty<&Scheme::wsBeforeEnumCloseBrace>(),
                               &Scheme::keepOneLineEnumBodies};
constexpr BodyKeys namespaceKeys = {Role::NamespaceBody,
                                    gapProperty<&Scheme::wsBeforeNsOpenBrace>(),
                                    gapProperty<&Scheme::wsAfterNsOpenBrace>(),
                                    gapProperty<&Scheme::indentNsContent>(),
                                    gapProperty<&Scheme::wsBeforeNsCloseBrace>(),
                                    nullptr};
constexpr BodyKeys controlKeys = {Role::Body,
                                  gapProperty<&Scheme::wsBeforeCsOpenBrace>(),
                                  gapProperty<&Scheme::wsAfterCsOpenBrace>(),
                                  gapProperty<&Scheme::indentCsContent>(),
                                  gapProperty<&Scheme::wsBeforeCsCloseBrace>(),
                                  &Scheme::keepOneLineCsBodies};
constexpr BodyKeys blockKeys = {Role::Body,
                                {},
                                gapProperty<&Scheme::globalWsAfterOpenBrace>(),
                                gapProperty<&Scheme::globalIndentContent>(),
                                gapProperty<&Scheme::globalWsBeforeCloseBrace>(),
                                &Scheme::keepOneLineCsBodies};
// A call with a block in a function may be a loop or hold a definition: nobody knows the place of its brace.
constexpr BodyKeys headKeys = {Role::Body,
                               gapProperty<&Scheme::wsBeforeFnOpenBrace>(),
                               gapProperty<&Scheme::wsAfterFnOpenBrace>(),
                               gapProperty<&Scheme::indentFnContent>(),
                               gapProperty<&Scheme::wsBeforeFnCloseBrace>(),
                               &Scheme::keepOneLineCsBodies,
                               false,
                               true};
// A block in an expression, as in `({ })` and in the arguments of macros.
constexpr BodyKeys innerKeys = {Role::Body,
                                {},
                                gapProperty<&Scheme::wsAfterLambdaOpenBrace>(),
                                gapProperty<&Scheme::indentLambdaContent>(),
                                gapProperty<&Scheme::wsBeforeLambdaCloseBrace>(),
                                &Scheme::keepOneLineLambdaBodies};
constexpr BodyKeys lambdaKeys = {Role::LambdaBody,
                                 gapProperty<&Scheme::wsBeforeLambdaOpenBrace>(),
                                 gapProperty<&Scheme::wsAfterLambdaOpenBrace>(),
                                 gapProperty<&Scheme::indentLambdaContent>(),
                                 gapProperty<&Scheme::wsBeforeLambdaCloseBrace>(),
                                 &Scheme::keepOneLineLambdaBodies};

}  // namespace

BodyRules::BodyRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
    : text_(text), scheme_(scheme), gaps_(gaps), linkage_(blockKeys), case_(controlKeys), block_(blockKeys) {
    findLinkageKeys();
    findCaseKeys();
    findBlockKeys();
}

// Those of any block, but for the two keys of its own.
void BodyRules::findLinkageKeys() {
    linkage_.role = Role::LinkageBody;
    linkage_.keepsOneLine = nullptr;
    linkage_.beforeOpen = gapProperty<&Scheme::wsBeforeLinkageOpenBrace>();
    linkage_.indent = gapProperty<&Scheme::indentLinkageContent>();
    // The closing brace stands below the line of the open one.
    if (gaps_.lineFeeds(linkage_.beforeClose.rule) > 0) {
        const bool breaks = gaps_.lineFeeds(linkage_.beforeOpen.rule) > 0;
        linkage_.beforeClose = breaks ? linkage_.beforeOpen : GapProperty{nullptr, GapRule::LineFeed};
    }
}

// A brace behind a label stands on the label's line or below it, and the closing one stands below.
void BodyRules::findCaseKeys() {
    constexpr GapProperty open = gapProperty<&Scheme::wsBeforeCsCaseOpenBrace>();
    constexpr GapProperty indent = gapProperty<&Scheme::indentCsCaseBlockContent>();
    hasCaseKeys_ = gaps_.isSet(open.rule) || gaps_.isSet(indent.rule);
    case_.goesByLabel = true;
    case_.beforeOpen = open;
    case_.indent = gaps_.isSet(indent.rule) ? indent : gapProperty<&Scheme::globalIndentContent>();
    if (gaps_.lineFeeds(case_.beforeClose.rule) > 0) {
        case_.beforeClose = gaps_.lineFeeds(open.rule) > 0 ? open : GapProperty{nullptr, GapRule::LineFeed};
    }
}

// A block is a statement: its brace doesn't go to the line of another.
void BodyRules::findBlockKeys() {
    constexpr GapProperty open = gapProperty<&Scheme::globalWsBeforeOpenBrace>();
    if (gaps_.lineFeeds(open.rule) > 0) block_.beforeOpen = open;
}

const BodyKeys* BodyRules::keysOf(TokenIndex brace, const Cpp::OutlineItem* owner) const {
    switch (text_.role(brace)) {
        case Role::FunctionBody:
            return owner != nullptr && owner->sort == Sort::Function && owner->colon != 0 ? &constructorKeys
                                                                                          : &functionKeys;
        case Role::ClassBody:
            return &classKeys;
        case Role::EnumBody:
            return &enumKeys;
        case Role::NamespaceBody:
            return &namespaceKeys;
        case Role::LinkageBody:
            return &linkage_;
        case Role::LambdaBody:
        case Role::RequiresBody:
            return &lambdaKeys;
        case Role::Body:
            return keysOfBlock(brace, owner);
        default:
            return nullptr;
    }
}

const BodyKeys* BodyRules::keysOfBlock(TokenIndex brace, const Cpp::OutlineItem* owner) const {
    if (owner == nullptr) return &innerKeys;
    switch (owner->sort) {
        case Sort::Part:
        case Sort::Loop:
            return &controlKeys;
        case Sort::Head:
            // `MACRO(name) { .field = value };` is no function.
            return owner->frame == Cpp::Frame::Block || text_.kind(text_.next(brace)) == Kind::Dot ? &headKeys
                                                                                                   : &functionKeys;
        case Sort::Block:
            break;
        default:
            return &blockKeys;
    }
    switch (text_.role(text_.previous(brace))) {
        case Role::CaseColon:
            return hasCaseKeys_ ? &case_ : &blockKeys;
        case Role::LabelColon:
            return &blockKeys;
        default:
            return &block_;
    }
}

bool BodyRules::format(TokenIndex brace, const BodyKeys& keys, const Cpp::OutlineItem* owner) {
    const TokenIndex close = text_.partner(brace);
    const bool stays = staysOnOneLine(brace, keys);
    if (sharesLine(brace, owner)) {
        formatShared(brace, keys);
        return false;
    }
    formatOpen(brace, keys, stays);
    if (close == brace + 1) {
        formatEmpty(close, keys);
        return false;
    }
    if (stays) {
        if (gaps_.lineFeeds(keys.afterOpen.rule) == 0) gaps_.set(text_.next(brace), keys.afterOpen);
        if (gaps_.lineFeeds(keys.beforeClose.rule) == 0) gaps_.set(close, keys.beforeClose);
        return true;
    }
    formatFirst(text_.next(brace), keys);
    gaps_.setInFront(close, keys.beforeClose, keepsBlankLines(keys));
    return false;
}

// What extern "C" holds is a part of a file more than a body.
bool BodyRules::keepsBlankLines(const BodyKeys& keys) const {
    return scheme_.keepBlankLinesAtBraces || keys.role == Role::LinkageBody;
}

// Empty lines of the source stay if the scheme says so.
void BodyRules::formatFirst(TokenIndex token, const BodyKeys& keys) {
    if (keepsBlankLines(keys)) {
        gaps_.setBreak(token, keys.afterOpen);
    } else {
        gaps_.set(token, keys.afterOpen);
    }
}

// Several namespaces that open on one line stay on it, and so do their braces that close on one.
void BodyRules::formatShared(TokenIndex brace, const BodyKeys& keys) {
    const TokenIndex close = text_.partner(brace);
    if (gaps_.lineFeeds(keys.beforeOpen.rule) == 0) gaps_.set(brace, keys.beforeOpen);
    if (!holdsNamespace(brace)) formatFirst(text_.next(brace), keys);
    if (text_.kind(close - 1) == Kind::CloseBrace && !text_.startsLine(close)) return;
    gaps_.setInFront(close, keys.beforeClose, keepsBlankLines(keys));
}

// Whether a namespace follows on the line.
bool BodyRules::holdsNamespace(TokenIndex brace) const {
    const TokenIndex next = text_.next(brace);
    if (!text_.isOnOneLine(brace, next)) return false;
    return text_.kind(next) == Kind::Namespace ||
           (text_.kind(next) == Kind::Inline && text_.kind(text_.next(next)) == Kind::Namespace);
}

bool BodyRules::sharesLine(TokenIndex brace, const Cpp::OutlineItem* owner) const {
    if (text_.role(brace) != Role::NamespaceBody || owner == nullptr) return false;
    const TokenIndex before = text_.previous(owner->first);
    return text_.isOnOneLine(owner->first, brace) &&
           (holdsNamespace(brace) ||
            (text_.role(before) == Role::NamespaceBody && text_.partner(before) > before && holdsNamespace(before)));
}

// A brace on the line of its head stays there with the body that stays on one line, and one behind declarations of
// parameters on the line below them.
void BodyRules::formatOpen(TokenIndex brace, const BodyKeys& keys, bool stays) {
    const bool isBehindHead = text_.isOnOneLine(text_.previous(brace), brace);
    const bool breaks = gaps_.lineFeeds(keys.beforeOpen.rule) > 0;
    if (stays && isBehindHead && breaks) return gaps_.setInFront(brace, {nullptr, GapRule::Blank});
    if (stays && isBehindHead == breaks) return;
    if (keys.keepsBrace && isBehindHead == breaks) return;
    if (!breaks && keys.role == Role::FunctionBody && text_.kind(text_.previous(brace)) == Kind::Semicolon) return;
    const bool isStatement = &keys == &block_;
    gaps_.setInFront(brace, keys.beforeOpen, isStatement);
}

bool BodyRules::staysOnOneLine(TokenIndex brace, const BodyKeys& keys) const {
    return keys.keepsOneLine != nullptr && scheme_.*keys.keepsOneLine && text_.isOnOneLine(brace, text_.partner(brace));
}

// One on one line stays on it without a value of its own; on two it takes one line feed.
void BodyRules::formatEmpty(TokenIndex close, const BodyKeys& keys) {
    if (scheme_.wsInEmptyBody.isSet) return gaps_.set<&Scheme::wsInEmptyBody>(close);
    if (text_.lineFeeds(close) == 0 && gaps_.lineFeeds(keys.beforeClose.rule) > 0) return;
    gaps_.setInFront(close, keys.beforeClose, keepsBlankLines(keys));
}

void BodyRules::joinLines(TokenIndex brace) {
    for (TokenIndex token = brace + 1; token <= text_.partner(brace); ++token) {
        const Gap::Sort sort = gaps_[token].sort;
        if (sort == Gap::Sort::Lines || sort == Gap::Sort::Break) gaps_.keep(token);
    }
}

}  // namespace Brevis
