// Expressions are read with a stack of levels, as by a parser of operator precedences: the left operand of an operator
// begins where the tightest levels that it ends have begun.
#include "second/Brevis_ContinuationColumns.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::OutlineItem;
using Cpp::Role;
using Mode = IndentScope::Mode;
using Sort = OutlineItem::Sort;

namespace {

constexpr int conditional = 0;

// Higher binds tighter.
int precedenceOf(Trn::TokenKind kind) {
    switch (kind) {
        case Kind::PipePipe:
            return 1;
        case Kind::AmpAmp:
            return 2;
        case Kind::Pipe:
            return 3;
        case Kind::Caret:
            return 4;
        case Kind::Amp:
            return 5;
        case Kind::EqualEqual:
        case Kind::NotEqual:
            return 6;
        case Kind::Less:
        case Kind::Greater:
        case Kind::LessEqual:
        case Kind::GreaterEqual:
            return 7;
        case Kind::Spaceship:
            return 8;
        case Kind::ShiftLeft:
        case Kind::ShiftRight:
            return 9;
        case Kind::Plus:
        case Kind::Minus:
            return 10;
        case Kind::Star:
        case Kind::Slash:
        case Kind::Percent:
            return 11;
        case Kind::DotStar:
        case Kind::ArrowStar:
            return 12;
        default:
            return 2;  // `and`, `or` and their kin
    }
}

bool isComma(Role role) {
    switch (role) {
        case Role::CommaOperator:
        case Role::ArgumentComma:
        case Role::ParameterComma:
        case Role::TemplateComma:
        case Role::DeclaratorComma:
        case Role::ElementComma:
        case Role::EnumeratorComma:
        case Role::BaseComma:
        case Role::MemberInitializerComma:
        case Role::CaptureComma:
        case Role::BindingComma:
        case Role::AttributeComma:
        case Role::ForSemicolon:
        case Role::RangeColon:
            return true;
        default:
            return false;
    }
}

bool holdsExpression(Sort sort) {
    return sort == Sort::Statement || sort == Sort::Data || sort == Sort::Declarators || sort == Sort::Using;
}

}  // namespace

ContinuationColumns::ContinuationColumns(const GapText& text, const Scheme& scheme, GapTable& gaps)
    : text_(text), scheme_(scheme), gaps_(gaps) {
    const GapRule indent = ruleOf<&Scheme::indentContinuation>();
    indent_ = gaps.isSet(indent) ? indent : GapRule::None;
}

bool ContinuationColumns::isWanted(const Scheme& scheme) {
    return scheme.alignContinuationLeft || scheme.alignOperandsLeft || scheme.alignBaseClausesLeft ||
           scheme.alignFnParamsLeft || scheme.alignTpParamsLeft || scheme.alignCsForClausesLeft ||
           scheme.alignFnCallArgsLeft;
}

void ContinuationColumns::run() {
    frames_.push_back({.last = text_.size(), .isBody = true});
    for (TokenIndex token = 1; token < text_.size(); ++token) {
        if (const TokenIndex last = openItems(token); last != 0) {
            close(token = last);
            continue;
        }
        if (text_.kind(token) == Kind::Directive) continue;
        if (text_.isTrivia(token)) {
            if (gaps_.startsLine(token)) place(token);
            continue;
        }
        token = read(token);
    }
}

// Whether a line begins behind `first`, up to `last`. For ascending tokens.
bool ContinuationColumns::isBroken(TokenIndex first, TokenIndex last) {
    if (lineStart_ <= first) {
        lineStart_ = first + 1;
        while (lineStart_ < text_.size() && !gaps_.startsLine(lineStart_)) ++lineStart_;
    }
    return lineStart_ <= last;
}

// ---- Frames

// Nothing is to be done in an item on one line: gives the last token of such a one, or 0.
TokenIndex ContinuationColumns::openItems(TokenIndex token) {
    const std::vector<OutlineItem>& items = text_.items();
    for (; nextItem_ < items.size() && items[nextItem_].first <= token; ++nextItem_) {
        const OutlineItem& item = items[nextItem_];
        if (item.first != token) continue;
        if (!isBroken(item.first, item.last)) return item.last;
        itemStart_ = token;
        frames_.push_back({.first = item.first,
                           .last = item.last,
                           .isExpression = holdsExpression(item.sort),
                           .colon = item.sort == Sort::Class || item.sort == Sort::Function ? item.colon : 0,
                           .declarator = firstDeclarator(item),
                           .levels = levels_.size()});
    }
    return 0;
}

// The name of data, or the signs in front of it that are written to it.
TokenIndex ContinuationColumns::firstDeclarator(const OutlineItem& item) const {
    if (item.sort != Sort::Data || item.nameFirst <= item.first) return 0;
    TokenIndex first = item.nameFirst;
    const bool isJoined = gaps_[first].sort == Gap::Sort::Blanks && gaps_.text(gaps_[first].rule).empty();
    if (!isJoined && !text_.gap(first).empty()) return first;
    while (text_.role(first - 1) == Role::Pointer || text_.role(first - 1) == Role::Reference) --first;
    return first;
}

void ContinuationColumns::openBracket(TokenIndex open) {
    Frame frame{.first = open, .last = text_.partner(open), .isBracket = true, .levels = levels_.size()};
    frame.isBody = isBody(text_.role(open)) && text_.kind(open) == Kind::OpenBrace;
    frame.isExpression = !frame.isBody || text_.role(open) == Role::EnumBody;
    frame.hasBehind = !frame.isBody && alignsBracket(open) && isContinued(open);
    frame.inside = text_.next(open);
    frame.base = elementBase(top());
    frames_.push_back(frame);
}

// What the lines in a bracket at the end of a line are indented from: the element or operand that holds it, unless that
// is where the line or the bracket around it begins.
TokenIndex ContinuationColumns::elementBase(const Frame& parent) const {
    if (!parent.isExpression) return 0;
    const bool isOperand = parent.operation > parent.element && !leadsToExpression(parent.operation) &&
                           text_.kind(parent.operation) != Kind::ShiftLeft;
    if (isOperand) return parent.operand;
    const bool isFirst = parent.element == text_.next(parent.first) && !gaps_.startsLine(parent.element);
    return parent.isBracket && !isFirst ? parent.element : parent.base;
}

bool ContinuationColumns::alignsBracket(TokenIndex open) const {
    return scheme_.alignContinuationLeft || holdsColumn(open);
}

// Whether a key puts each item in the bracket on a line of its own.
bool ContinuationColumns::holdsColumn(TokenIndex open) const {
    switch (text_.role(open)) {
        case Role::Parameters:
            return scheme_.alignFnParamsLeft;
        case Role::TemplateParameters:
            return scheme_.alignTpParamsLeft;
        case Role::Call:
            return scheme_.alignFnCallArgsLeft;
        case Role::Condition:
            return scheme_.alignCsForClausesLeft && text_.kind(text_.previous(open)) == Kind::For;
        default:
            return false;
    }
}

// Whether code follows on the line of the token.
bool ContinuationColumns::isContinued(TokenIndex anchor) const {
    if (gaps_.startsLine(anchor + 1)) return false;
    return !text_.isTrivia(anchor + 1) || !gaps_.startsLine(text_.next(anchor));
}

void ContinuationColumns::close(TokenIndex token) {
    while (frames_.size() > 1 && top().last == token) {
        levels_.resize(top().levels);
        frames_.pop_back();
    }
}

// ---- Tokens

// Gives the last token that it has read: it passes over a bracket on one line.
TokenIndex ContinuationColumns::read(TokenIndex token) {
    const Role role = text_.role(token);
    const TokenIndex partner = text_.partner(token);
    const bool isClosing = partner != 0 && partner < token;
    if (top().isExpression && !isClosing &&
        (role == Role::Binary || role == Role::Comparison || role == Role::Question)) {
        if (role == Role::Question) {
            readQuestion(token);
        } else {
            readOperator(token, precedenceOf(text_.kind(token)));
        }
        if (gaps_.startsLine(token)) place(token);
        if (text_.kind(token) == Kind::ShiftLeft && top().shift == 0) top().shift = token;
        return token;
    }
    if (gaps_.startsLine(token)) place(token);
    if (isClosing) {
        close(token);
        return token;
    }

    Frame& frame = top();
    if (frame.isExpression) {
        if (isComma(role)) {
            beginElement();
            frame.element = 0;
        } else if (role == Role::Assignment || role == Role::Initializer || text_.kind(token) == Kind::Return ||
                   text_.kind(token) == Kind::Throw) {
            beginElement();
        } else if (role == Role::TernaryColon) {
            readColon();
        } else {
            if (frame.operand == 0) frame.operand = token;
            const bool isLiteral = text_.kind(token) == Kind::StringLiteral;
            if (isLiteral && frame.literal == 0) frame.literal = token;
            if (!isLiteral && text_.kind(token) != Kind::Identifier) frame.literal = 0;
        }
        if (frame.element == 0 && !isComma(role)) frame.element = token;
        if (frame.operand == 0) frame.operation = token;
    }
    if (partner > token && isBroken(token, partner)) {
        openBracket(token);
    } else if (partner > token) {
        token = partner;
    }
    close(token);
    return token;
}

void ContinuationColumns::beginElement() {
    Frame& frame = top();
    levels_.resize(frame.levels);
    frame.operand = frame.literal = frame.shift = 0;
}

// What leads to an expression needs no distance between its operands and itself.
bool ContinuationColumns::leadsToExpression(TokenIndex token) const {
    if (text_.partner(token) > token) return true;
    const Role role = text_.role(token);
    return role == Role::Assignment || role == Role::Initializer || role == Role::ForSemicolon ||
           text_.kind(token) == Kind::Return;
}

// Ends the levels that bind tighter, and gives the first token of what they have made.
TokenIndex ContinuationColumns::leftOf(int precedence) {
    const Frame& frame = top();
    TokenIndex left = frame.operand != 0 ? frame.operand : frame.first;
    for (; levels_.size() > frame.levels && levels_.back().precedence > precedence; levels_.pop_back()) {
        const Level& level = levels_.back();
        left = level.start;
        // What was taken for the whole expression is a part of one.
        if (level.scope != 0) gaps_.scope(level.scope).rule = indent_;
    }
    return left;
}

void ContinuationColumns::readOperator(TokenIndex token, int precedence) {
    const TokenIndex left = leftOf(precedence);
    const std::size_t outer = top().levels;
    if (levels_.size() == outer || levels_.back().precedence != precedence) {
        const bool isStatement = !top().isBracket && left == top().first;
        const bool isNested = isStatement || !leadsToExpression(text_.previous(left)) ||
                              (levels_.size() > outer && levels_.back().start == left);
        levels_.push_back({.precedence = precedence, .start = left, .isNested = isNested});
    }
    top().operand = top().literal = 0;
    top().operation = token;
}

void ContinuationColumns::readQuestion(TokenIndex token) {
    const TokenIndex left = leftOf(conditional);
    const bool isChained = text_.role(text_.previous(left)) == Role::TernaryColon;
    Level level{.precedence = conditional, .start = left, .question = token, .isNested = !isChained};
    if (isChained && levels_.size() > top().levels) {
        const Level& before = levels_.back();
        level.colon = before.colon;
        level.colonScope = before.colonScope;
        if (scheme_.alignOperandsLeft && gaps_.startsLine(left) && areBelow(before.start, left)) {
            level.chainStart = before.chainStart != 0 ? before.chainStart : before.start;
            gaps_.setScope(left, at(level.chainStart, false));
        }
    }
    levels_.push_back(level);
    top().operand = top().literal = 0;
    top().operation = token;
}

void ContinuationColumns::readColon() {
    const std::size_t outer = top().levels;
    while (levels_.size() > outer && (levels_.back().question == 0 || levels_.back().isBehindColon)) levels_.pop_back();
    if (levels_.size() > outer) levels_.back().isBehindColon = true;
    top().operand = top().literal = 0;
}

// ---- Lines

void ContinuationColumns::place(TokenIndex token) {
    const Frame& frame = top();
    if (frame.isBody && !frame.isExpression) return;
    if (token == itemStart_ || (token == frame.last && text_.kind(token) == Kind::CloseBrace)) return;
    if (text_.role(token) == Role::LambdaBody || goesByHolder(token)) return;
    if (scheme_.alignOperandsLeft && frame.isExpression && token != frame.last && placeOperand(token)) return;
    if (frame.isBracket && placeInList(token)) return;
    if (frame.colon == 0 || token <= frame.colon) return;
    const bool isAligned =
        scheme_.alignContinuationLeft || (scheme_.alignBaseClausesLeft && text_.role(frame.colon) == Role::BaseColon);
    if (!isAligned || text_.kind(token) == Kind::OpenBrace) return;
    if (text_.kind(token) == Kind::Comma) return gaps_.setScope(token, at(frame.colon, false));
    if (!isContinued(frame.colon)) return;
    gaps_.setScope(token, gaps_.addScope({.from = frame.colon, .mode = Mode::Behind, .isAnchored = true}));
}

// Whether the brace of a body in a bracket stands below the statement that holds both: `MACRO(name,`, `{ ... });`.
bool ContinuationColumns::goesByHolder(TokenIndex token) const {
    const bool isBody = text_.role(token) == Role::Body && text_.kind(token) == Kind::OpenBrace;
    return isBody && !gaps_.scopes()[gaps_[token].scope].isAnchored;
}

// In a bracket: behind it, or if nothing follows it there, indented from the element that it belongs to.
bool ContinuationColumns::placeInList(TokenIndex token) {
    Frame& frame = top();
    if (frame.isBody || !alignsBracket(frame.first)) return false;
    if (frame.hasBehind) {
        if (frame.behind == 0) {
            frame.behind =
                gaps_.addScope({.from = frame.first, .mode = Mode::Behind, .rule = indent_, .isAnchored = true});
        }
        gaps_.setScope(token, frame.behind);
        return true;
    }
    if (holdsColumn(frame.first) && token > frame.inside) {
        gaps_.setScope(token, at(frame.inside, false));
        return true;
    }
    const bool isBrace = text_.kind(frame.first) == Kind::OpenBrace;
    if (isBrace || indent_ == GapRule::None || !scheme_.alignOperandsLeft) return false;
    if (frame.base == 0) return false;
    if (frame.behind == 0) frame.behind = at(frame.base, true);
    gaps_.setScope(token, frame.behind);
    return true;
}

// Below the operand that the line goes on with.
bool ContinuationColumns::placeOperand(TokenIndex token) {
    Frame& frame = top();
    const auto put = [&](Scope scope) {
        gaps_.setScope(token, scope);
        return true;
    };
    const Role role = text_.role(token);
    if (text_.kind(token) == Kind::ShiftLeft && role == Role::Binary && frame.shift != 0) {
        return put(at(frame.shift, false));
    }
    if (frame.literal != 0 && text_.kind(token) == Kind::StringLiteral) return put(at(frame.literal, false));
    const bool hasLevel = levels_.size() > frame.levels;
    if (role == Role::TernaryColon) return placeColon(token);
    if (role == Role::Question && levels_.back().colon != 0 && areBelow(levels_.back().colon, token)) {
        return put(levels_.back().colonScope);
    }
    if (role == Role::Member && frame.operand != 0) {
        const bool isFirst = frame.operand == frame.first || text_.kind(text_.previous(frame.operand)) == Kind::Return;
        return !isFirst && indent_ != GapRule::None && put(at(frame.operand, true));
    }
    if (role == Role::Binary || role == Role::Comparison || role == Role::Question) {
        return put(scopeOf(levels_.back()));
    }
    if (frame.operand != 0 || frame.operation == 0) return false;
    const Role before = text_.role(frame.operation);
    if (hasLevel && (before == Role::Binary || before == Role::Comparison)) return put(scopeOf(levels_.back()));
    const TokenIndex chain = hasLevel && before == Role::TernaryColon ? levels_.back().chainStart : 0;
    if (chain != 0 && areBelow(levels_.back().start, token)) return put(at(chain, false));
    if (hasLevel && (before == Role::Question || before == Role::TernaryColon)) {
        return put(at(levels_.back().start, true));
    }
    if (before == Role::DeclaratorComma && frame.declarator != 0) return put(at(frame.declarator, false));
    return false;
}

// Below the question mark, or below the colon in front of it in a chain.
bool ContinuationColumns::placeColon(TokenIndex token) {
    for (std::size_t level = levels_.size(); level > top().levels; --level) {
        Level& open = levels_[level - 1];
        if (open.question == 0 || open.isBehindColon) continue;
        const bool isChained = open.colon != 0 && areBelow(open.colon, token);
        open.colonScope = isChained ? open.colonScope : at(open.question, false);
        open.colon = token;
        gaps_.setScope(token, open.colonScope);
        return true;
    }
    return false;
}

// Whether they stand in one column of the source, where they will stand in one again.
bool ContinuationColumns::areBelow(TokenIndex first, TokenIndex second) const {
    return text_.startsLine(second) &&
           text_.column(first, scheme_.tabSize) == text_.column(second, scheme_.tabSize);
}

ContinuationColumns::Scope ContinuationColumns::scopeOf(Level& level) {
    if (level.scope == 0) level.scope = at(level.start, level.isNested);
    return level.scope;
}

ContinuationColumns::Scope ContinuationColumns::at(TokenIndex anchor, bool isIndented) {
    return gaps_.addScope(
        {.from = anchor, .mode = Mode::At, .rule = isIndented ? indent_ : GapRule::None, .isAnchored = true});
}

}  // namespace Brevis
