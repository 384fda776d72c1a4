// One operation a construct.
#include "second/Brevis_DeclarationRules.h"

#include <algorithm>
#include <iterator>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::OutlineItem;
using Cpp::Role;
using Sort = OutlineItem::Sort;

namespace {

constexpr GapProperty exprOperands = gapProperty<&Scheme::wsBetweenExprOpOperands>();
constexpr GapProperty lineFeed{nullptr, GapRule::LineFeed};

constexpr std::string_view specifierWords[] = {"constexpr",  "consteval",     "_Noreturn", "__inline",
                                               "__inline__", "__forceinline", "__extension__"};

}  // namespace

DeclarationRules::DeclarationRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
    : text_(text), scheme_(scheme), gaps_(gaps), pointers_(text, scheme, gaps), lists_(text, scheme, gaps) {}

void DeclarationRules::format(TokenIndex token) {
    const TokenIndex partner = text_.partner(token);
    const bool isClose = partner != 0 && partner < token;
    const Role role = text_.role(token);
    if (isClose && role == Role::Parameters) endParameter(token);
    if (isClose && (role == Role::BracedInitializer || role == Role::EnumBody)) lists_.close(token);
    while (!brackets_.empty() && brackets_.back().last <= token) brackets_.pop_back();
    switch (role) {
        case Role::Pointer:
        case Role::Reference:
            sign(token);
            break;
        case Role::Parameters:
            parameters(token);
            break;
        case Role::ParameterComma:
            endParameter(token);
            parameterComma(token);
            break;
        case Role::DeclaratorComma:
            declaratorComma(token);
            break;
        case Role::BindingComma:
            aroundComma(token, gapProperty<&Scheme::wsBeforeFnCallComma>(),
                        gapProperty<&Scheme::wsBetweenFnCallArgs>());
            break;
        case Role::Initializer:
            initializer(token);
            break;
        case Role::TrailingReturn:
            setInExpr(token, exprOperands);
            setInExpr(text_.next(token), exprOperands);
            break;
        case Role::Construction:
        case Role::MemberInitializer:
            construction(token);
            break;
        case Role::BaseColon:
        case Role::EnumBaseColon:
            baseColon(token);
            break;
        case Role::BaseComma:
            aroundComma(token, gapProperty<&Scheme::wsBeforeBaseClausesComma>(),
                        scheme_.alignBaseClausesLeft ? lineFeed : gapProperty<&Scheme::wsBetweenBaseClauses>());
            break;
        case Role::MemberInitializerColon:
            memberInitializerColon(token);
            break;
        case Role::MemberInitializerComma:
            setMemberInitializer(token, gapProperty<&Scheme::wsBeforeClassInitsComma>());
            setMemberInitializer(text_.next(token), gapProperty<&Scheme::wsBetweenClassInits>());
            break;
        case Role::BracedInitializer:
        case Role::EnumBody:
            if (partner > token) lists_.open(token);
            break;
        case Role::ElementComma:
        case Role::EnumeratorComma:
            lists_.comma(token);
            break;
        default:
            break;
    }
    if (partner > token) brackets_.push_back({token, partner, role});
}

// ---- Items

void DeclarationRules::openItem(const OutlineItem& item) {
    item_ = &item;
    if (item.sort == Sort::Function) {
        openFunction(item);
    } else if (item.sort == Sort::Data || item.sort == Sort::Declarators) {
        openData(item);
    }
}

void DeclarationRules::openFunction(const OutlineItem& item) {
    const bool isInClass = item.frame == Cpp::Frame::Class && scheme_.wsAfterClassFnDefnReturnType.isSet;
    behindReturnType_ = item.body == 0 ? gapProperty<&Scheme::wsAfterFnDeclReturnType>()
                        : isInClass    ? gapProperty<&Scheme::wsAfterClassFnDefnReturnType>()
                                       : gapProperty<&Scheme::wsAfterFnDefnReturnType>();
    if (item.open != 0 && text_.role(item.open) == Role::Parameters) {
        setInList(item.open, gapProperty<&Scheme::wsAfterFnName>());
    }
    // `T (name)(...)` keeps its form.
    if (item.nameFirst <= item.first || text_.kind(item.nameFirst) == Kind::OpenParen) return;
    const Role before = text_.role(text_.previous(item.nameFirst));
    if (before == Role::Pointer || before == Role::Reference) return;
    if (gaps_.lineFeeds(behindReturnType_.rule) == 0 || hasReturnType(item)) {
        setInList(item.nameFirst, behindReturnType_);
    }
}

// Specifiers alone make no type: constructors, destructors and conversions have none. In a class a lone word of
// capitals in front of a name is taken for a specifier too.
bool DeclarationRules::hasReturnType(const OutlineItem& item) const {
    if (item.colon != 0) return false;
    if (text_.kind(item.nameFirst) == Kind::Tilde || text_.text(item.nameFirst)[0] == '~') return false;
    const TokenIndex before = text_.previous(item.nameFirst);
    switch (text_.kind(before)) {
        case Kind::Explicit:
        case Kind::Inline:
        case Kind::Virtual:
        case Kind::Friend:
        case Kind::Extern:
        case Kind::Static:
        case Kind::StringLiteral:
        case Kind::CloseBracket:
            return false;
        case Kind::Identifier: {
            const std::string_view word = text_.text(before);
            const auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
            if (item.frame == Cpp::Frame::Class && std::none_of(word.begin(), word.end(), isLower)) {
                return before != item.first && text_.kind(text_.previous(before)) != Kind::Explicit;
            }
            return std::find(std::begin(specifierWords), std::end(specifierWords), word) == std::end(specifierWords);
        }
        default:
            return true;
    }
}

void DeclarationRules::openData(const OutlineItem& item) {
    if (item.nameFirst == 0) return;
    const TokenIndex behind = text_.next(item.nameLast);
    if (text_.role(behind) == Role::ArrayBound) gaps_.setKeepingLines(behind, gapProperty<&Scheme::wsAfterDdName>());
    const bool isBracketed = text_.kind(item.nameFirst) == Kind::OpenParen;
    if (item.nameFirst <= item.first || isBracketed || scheme_.dataDoNotFormat) return;
    const TokenIndex before = text_.previous(item.nameFirst);
    const Trn::TokenKind kind = text_.kind(before);
    const bool isType = kind == Kind::Identifier
                            ? !text_.text(before).ends_with("::")
                            : (kind >= Kind::Class && kind <= Kind::Void) ||
                                  text_.role(before) == Role::TemplateArguments ||
                                  text_.role(before) == Role::TypeOperand || text_.role(before) == Role::Specifier;
    if (isType) setInList(item.nameFirst, gapProperty<&Scheme::wsAfterDdTypeId>());
}

// ---- Signs

void DeclarationRules::sign(TokenIndex token) {
    if (!pointers_.beginsRun(token)) return;
    DeclaredName name;
    const TokenIndex end = pointers_.behindRun(token);
    if (item_ != nullptr && item_->sort == Sort::Function && end == item_->nameFirst) {
        name.behindType = behindReturnType_;
        name.keepsLines = scheme_.keepLineBreaksInLists;
        name.isLeft = scheme_.fnDoNotFormat;
    } else if (isInParameters()) {
        name.behindType = gapProperty<&Scheme::wsAfterParamTypeId>();
        name.keepsLines = scheme_.keepLineBreaksInLists;
    } else {
        name.behindType = gapProperty<&Scheme::wsAfterDdTypeId>();
        name.keepsLines = scheme_.keepLineBreaksInLists;
        name.isLeft = scheme_.dataDoNotFormat && brackets_.empty();
        const bool isData = brackets_.empty() || text_.kind(brackets_.back().open) == Kind::OpenBrace ||
                            brackets_.back().role == Role::Condition;
        const int anchor = text_.role(token) == Role::Pointer ? scheme_.asteriskAnchor : scheme_.ampersandAnchor;
        const bool isBehindBody = text_.kind(text_.previous(token)) == Kind::CloseBrace;
        if (anchor == 0 && isData) name.isOneOfSeveral = isBehindBody || hasSeveralDeclarators(end);
    }
    pointers_.run(token, name);
}

// Whether a comma follows in the same declaration. What has been looked through is not looked through again.
bool DeclarationRules::hasSeveralDeclarators(TokenIndex from) {
    Stretch& stretch = brackets_.empty() ? fileStretch_ : brackets_.back().stretch;
    if (from > stretch.end) stretch = stretchFrom(from);
    return stretch.hasComma;
}

DeclarationRules::Stretch DeclarationRules::stretchFrom(TokenIndex from) const {
    for (TokenIndex at = from; at < text_.size(); at = text_.next(at)) {
        switch (text_.role(at)) {
            case Role::DeclaratorComma:
                return {at, true};
            case Role::StatementEnd:
            case Role::ForSemicolon:
            case Role::RangeColon:
                return {at, false};
            default:
                break;
        }
        const TokenIndex partner = text_.partner(at);
        if (partner != 0 && partner < at) return {at, false};
        if (partner > at) at = partner;
    }
    return {text_.size(), false};
}

// ---- Parameters

bool DeclarationRules::isInParameters() const {
    if (brackets_.empty()) return false;
    const Bracket& bracket = brackets_.back();
    if (bracket.role == Role::Parameters || bracket.role == Role::TemplateParameters) return true;
    return bracket.role == Role::Condition && text_.kind(text_.previous(bracket.open)) == Kind::Catch;
}

void DeclarationRules::parameters(TokenIndex token) {
    const TokenIndex partner = text_.partner(token);
    if (partner < token) {
        const bool holdsNothing = text_.previous(token) == partner || text_.isEmptyArgument(token);
        if (!holdsNothing) setInList(token, gapProperty<&Scheme::wsBeforeFnCloseParen>());
        return;
    }
    const TokenIndex first = text_.next(token);
    if (first != partner) return setInList(first, gapProperty<&Scheme::wsAfterFnOpenParen>());
    const bool isDecided = scheme_.wsAfterFnOpenParen.isSet || scheme_.wsBeforeFnCloseParen.isSet;
    if (isDecided) setInList(first, nothingThere);
}

// `end` follows a parameter or its name. A word behind a type is the name.
void DeclarationRules::endParameter(TokenIndex end) {
    if (brackets_.empty() || brackets_.back().role != Role::Parameters) return;
    Bracket& bracket = brackets_.back();
    const bool isDone = bracket.isDone;
    bracket.isDone = text_.role(end) == Role::Initializer;
    if (isDone || !scheme_.wsAfterParamTypeId.isSet) return;
    TokenIndex name = text_.previous(end);
    while (text_.role(name) == Role::ArrayBound) name = text_.previous(text_.partner(name));
    if (text_.kind(name) != Kind::Identifier || name <= bracket.open) return;
    const TokenIndex type = text_.previous(name);
    const Trn::TokenKind kind = text_.kind(type);
    bool isType = kind == Kind::Identifier || kind == Kind::Signed || kind == Kind::Unsigned || kind == Kind::Auto ||
                  (kind >= Kind::Char && kind <= Kind::Void) || text_.role(type) == Role::TemplateArguments ||
                  text_.role(type) == Role::TypeOperand;
    if (kind == Kind::Const || kind == Kind::Volatile) {
        const TokenIndex before = text_.previous(type);
        isType = before > bracket.open && text_.kind(before) != Kind::Comma;
        if (text_.role(before) == Role::Pointer || text_.role(before) == Role::Reference) isType = false;
    }
    if (kind == Kind::Identifier && text_.text(type).ends_with("::")) isType = false;
    if (text_.text(name).starts_with("::")) isType = false;
    if (isType) setInList(name, gapProperty<&Scheme::wsAfterParamTypeId>());
}

void DeclarationRules::parameterComma(TokenIndex comma) {
    aroundComma(comma, gapProperty<&Scheme::wsBeforeFnComma>(),
                scheme_.alignFnParamsLeft ? lineFeed : gapProperty<&Scheme::wsBetweenFnParams>());
}

// ---- Declarators and initializers

// What stands between elements or arguments stands between declarators, if it leaves them on their line.
void DeclarationRules::declaratorComma(TokenIndex comma) {
    gaps_.setKeepingLines(
        comma, inOneLine(gapProperty<&Scheme::wsBeforeDdComma>(), gapProperty<&Scheme::wsBeforeFnCallComma>()));
    gaps_.setKeepingLines(text_.next(comma), inOneLine(gapProperty<&Scheme::wsBetweenDdElements>(),
                                                       gapProperty<&Scheme::wsBetweenFnCallArgs>()));
}

void DeclarationRules::initializer(TokenIndex token) {
    endParameter(token);
    setInExpr(token, exprOperands);
    const TokenIndex before = text_.previous(token);
    const bool isData = item_ != nullptr && item_->sort == Sort::Data && item_->initializer == token;
    if (isData && before == item_->nameLast) gaps_.set<&Scheme::wsAfterDdName>(token);
    if (isData && text_.role(before) == Role::ArrayBound) gaps_.set<&Scheme::wsAfterDdRbracket>(token);
    const TokenIndex value = text_.next(token);
    if (text_.kind(value) != Kind::OpenBrace) setInExpr(value, exprOperands);
}

// `Type name(value)` and `name(value)` in a list of member initializers look like calls.
void DeclarationRules::construction(TokenIndex token) {
    if (text_.kind(token) != Kind::OpenParen && text_.kind(token) != Kind::CloseParen) return;
    const TokenIndex partner = text_.partner(token);
    if (partner < token) {
        const bool holdsNothing = partner == text_.previous(token) || text_.isEmptyArgument(token);
        if (!holdsNothing) setInList(token, gapProperty<&Scheme::wsBeforeExprCloseParen>());
        return;
    }
    setInList(token, gapProperty<&Scheme::wsAfterFnCallName>());
    if (text_.role(token) == Role::Construction) gaps_.set<&Scheme::wsAfterDdName>(token);
    const TokenIndex first = text_.next(token);
    if (first != partner) return setInList(first, gapProperty<&Scheme::wsAfterExprOpenParen>());
    if (scheme_.wsAfterExprOpenParen.isSet || scheme_.wsBeforeExprCloseParen.isSet) setInList(first, nothingThere);
}

// ---- Classes

// The base of an enum has no keys of its own: it takes those of classes, on one line.
void DeclarationRules::baseColon(TokenIndex colon) {
    constexpr GapProperty before = gapProperty<&Scheme::wsAfterClassName>();
    constexpr GapProperty behind = gapProperty<&Scheme::wsBeforeBaseClauses>();
    const bool isEnum = text_.role(colon) == Role::EnumBaseColon;
    setInList(colon, isEnum ? inOneLine(before, before) : before);
    setInList(text_.next(colon), isEnum ? inOneLine(behind, behind) : behind);
}

void DeclarationRules::memberInitializerColon(TokenIndex colon) {
    const TokenIndex body = item_ != nullptr ? item_->body : 0;
    staysOnLine_ = scheme_.keepOneLineClassInits && body > colon && text_.isOnOneLine(colon, text_.previous(body));
    const GapProperty before = gapProperty<&Scheme::wsBeforeClassInitList>();
    if (staysOnLine_ && text_.lineFeeds(colon) > 0) {
        setInList(colon, before);
    } else {
        setMemberInitializer(colon, before);
    }
    setMemberInitializer(text_.next(colon), gapProperty<&Scheme::wsBeforeClassInits>());
}

void DeclarationRules::setMemberInitializer(TokenIndex token, GapProperty property) {
    if (staysOnLine_ && gaps_.lineFeeds(property.rule) > 0) return;
    setInList(token, property);
}

// ---- Gaps

void DeclarationRules::aroundComma(TokenIndex comma, GapProperty before, GapProperty behind) {
    if (!text_.isEmptyArgument(comma)) setInList(comma, before);
    const TokenIndex next = text_.next(comma);
    if (!text_.isEmptyArgument(next)) setInList(next, behind);
}

void DeclarationRules::setInList(TokenIndex token, GapProperty property) {
    if (scheme_.keepLineBreaksInLists) {
        gaps_.setKeepingLines(token, property);
    } else {
        gaps_.set(token, property);
    }
}

void DeclarationRules::setInExpr(TokenIndex token, GapProperty property) {
    if (scheme_.keepLineBreaksInExpr) {
        gaps_.setKeepingLines(token, property);
    } else {
        gaps_.set(token, property);
    }
}

// The first of two that is set; a blank if it would break the line.
GapProperty DeclarationRules::inOneLine(GapProperty first, GapProperty second) const {
    const GapProperty property = gaps_.isSet(first.rule) ? first : second;
    return gaps_.lineFeeds(property.rule) > 0 ? blankThere : property;
}

}  // namespace Brevis
