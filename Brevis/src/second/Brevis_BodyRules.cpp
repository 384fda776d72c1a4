// Which properties a body has, and what they do.
#include "second/Brevis_BodyRules.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;
using Sort = Cpp::OutlineItem::Sort;

namespace {

constexpr BodyKeys functionKeys = {Role::FunctionBody, gapProperty<&Scheme::wsBeforeFnOpenBrace>(),
                                   gapProperty<&Scheme::wsAfterFnOpenBrace>(), gapProperty<&Scheme::indentFnContent>(),
                                   gapProperty<&Scheme::wsBeforeFnCloseBrace>(), &Scheme::keepOneLineFnBodies};
constexpr BodyKeys constructorKeys = {
    Role::FunctionBody, gapProperty<&Scheme::wsAfterClassInitList>(), gapProperty<&Scheme::wsAfterFnOpenBrace>(),
    gapProperty<&Scheme::indentFnContent>(), gapProperty<&Scheme::wsBeforeFnCloseBrace>(), &Scheme::keepOneLineFnBodies};
constexpr BodyKeys classKeys = {Role::ClassBody, gapProperty<&Scheme::wsBeforeClassOpenBrace>(),
                                gapProperty<&Scheme::wsAfterClassOpenBrace>(),
                                gapProperty<&Scheme::indentClassContent>(),
                                gapProperty<&Scheme::wsBeforeClassCloseBrace>(), &Scheme::keepOneLineClassBodies};
constexpr BodyKeys enumKeys = {Role::EnumBody, gapProperty<&Scheme::wsBeforeEnumOpenBrace>(),
                               gapProperty<&Scheme::wsAfterEnumOpenBrace>(), gapProperty<&Scheme::indentEnumContent>(),
                               gapProperty<&Scheme::wsBeforeEnumCloseBrace>(), &Scheme::keepOneLineEnumBodies};
constexpr BodyKeys namespaceKeys = {Role::NamespaceBody, gapProperty<&Scheme::wsBeforeNsOpenBrace>(),
                                    gapProperty<&Scheme::wsAfterNsOpenBrace>(),
                                    gapProperty<&Scheme::indentNsContent>(),
                                    gapProperty<&Scheme::wsBeforeNsCloseBrace>(), nullptr};
constexpr BodyKeys linkageKeys = {Role::LinkageBody, gapProperty<&Scheme::wsBeforeLinkageOpenBrace>(),
                                  gapProperty<&Scheme::globalWsAfterOpenBrace>(),
                                  gapProperty<&Scheme::indentLinkageContent>(),
                                  gapProperty<&Scheme::globalWsBeforeCloseBrace>(), nullptr};
constexpr BodyKeys controlKeys = {Role::Body, gapProperty<&Scheme::wsBeforeCsOpenBrace>(),
                                  gapProperty<&Scheme::wsAfterCsOpenBrace>(), gapProperty<&Scheme::indentCsContent>(),
                                  gapProperty<&Scheme::wsBeforeCsCloseBrace>(), &Scheme::keepOneLineCsBodies};
constexpr BodyKeys blockKeys = {Role::Body, {}, gapProperty<&Scheme::globalWsAfterOpenBrace>(),
                                gapProperty<&Scheme::globalIndentContent>(),
                                gapProperty<&Scheme::globalWsBeforeCloseBrace>(), &Scheme::keepOneLineCsBodies};
constexpr BodyKeys lambdaKeys = {Role::LambdaBody, gapProperty<&Scheme::wsBeforeLambdaOpenBrace>(),
                                 gapProperty<&Scheme::wsAfterLambdaOpenBrace>(),
                                 gapProperty<&Scheme::indentLambdaContent>(),
                                 gapProperty<&Scheme::wsBeforeLambdaCloseBrace>(), &Scheme::keepOneLineLambdaBodies};

}  // namespace

const BodyKeys* BodyRules::keysOf(TokenIndex brace, const Cpp::OutlineItem* owner) const {
    switch (text_.role(brace)) {
        case Role::FunctionBody:
            return owner != nullptr && owner->sort == Sort::Function && owner->colon != 0 ? &constructorKeys : &functionKeys;
        case Role::ClassBody:
            return &classKeys;
        case Role::EnumBody:
            return &enumKeys;
        case Role::NamespaceBody:
            return &namespaceKeys;
        case Role::LinkageBody:
            return &linkageKeys;
        case Role::LambdaBody:
        case Role::RequiresBody:
            return &lambdaKeys;
        case Role::Body:
            if (owner == nullptr) return &lambdaKeys;
            return owner->sort == Sort::Part || owner->sort == Sort::Loop ? &controlKeys
                   : owner->sort == Sort::Head                            ? &functionKeys
                                                                          : &blockKeys;
        default:
            return nullptr;
    }
}

void BodyRules::format(TokenIndex brace, const BodyKeys& keys) {
    const TokenIndex close = text_.partner(brace);
    if (close == brace + 1) return formatEmpty(brace, keys);
    if (staysOnOneLine(brace, keys)) {
        if (keys.beforeOpen.member != nullptr) gaps_.setKeepingLines(brace, keys.beforeOpen);
        if (text_.lineFeeds(brace) == 0 && gaps_.startsLine(brace)) gaps_.keep(brace);
        return;
    }
    if (keys.beforeOpen.member != nullptr) gaps_.set(brace, keys.beforeOpen);
    setAtBrace(text_.next(brace), keys.afterOpen);
    setAtBrace(close, keys.beforeClose);
}

bool BodyRules::staysOnOneLine(TokenIndex brace, const BodyKeys& keys) const {
    return keys.keepsOneLine != nullptr && scheme_.*keys.keepsOneLine &&
           text_.isOnOneLine(brace, text_.partner(brace));
}

void BodyRules::formatEmpty(TokenIndex brace, const BodyKeys& keys) {
    const TokenIndex close = brace + 1;
    const bool isKept = keys.keepsOneLine != nullptr && scheme_.*keys.keepsOneLine && text_.lineFeeds(close) == 0;
    if (keys.beforeOpen.member != nullptr) gaps_.set(brace, keys.beforeOpen);
    if (isKept && text_.lineFeeds(brace) == 0 && gaps_.startsLine(brace)) gaps_.keep(brace);
    if (scheme_.wsInEmptyBody.isSet) {
        gaps_.set<&Scheme::wsInEmptyBody>(close);
    } else if (!isKept) {
        gaps_.set(close, keys.beforeClose);
    }
}

// Empty lines of the source stay if the scheme says so.
void BodyRules::setAtBrace(TokenIndex token, GapProperty property) {
    if (scheme_.keepBlankLinesAtBraces) {
        gaps_.setBreak(token, property);
    } else {
        gaps_.set(token, property);
    }
}

}  // namespace Brevis
