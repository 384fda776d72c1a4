// One pass over the tokens with a stack of what is open.
#include "second/Brevis_ItemWalk.h"

#include <algorithm>

#include "second/Brevis_GapWrapper.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::OutlineItem;
using Cpp::Role;
using Mode = IndentScope::Mode;
using Sort = OutlineItem::Sort;

ItemWalk::ItemWalk(const GapText& text, const Scheme& scheme, GapTable& gaps)
    : text_(text),
      scheme_(scheme),
      gaps_(gaps),
      bodies_(text, scheme, gaps),
      statements_(text, scheme, gaps),
      colonLists_(text, scheme, gaps) {
    fileScope_ = indented(0, gapProperty<&Scheme::leftMargin>());
    margin_ = sharing(0, Mode::Margin, GapRule::None);
}

void ItemWalk::run() {
    frames_.push_back({.last = text_.size(), .own = fileScope_, .inner = fileScope_, .label = fileScope_});
    for (TokenIndex token = 1; (token = passQuiet(token)) < text_.size(); ++token) {
        gaps_.setScope(token, top().inner);
        openItems(token);
        read(token);
        while (frames_.size() > 1 && top().last == token) frames_.pop_back();
    }
}

// Goes on to the next token that says more than where a line of what is open begins.
TokenIndex ItemWalk::passQuiet(TokenIndex token) {
    const Frame& frame = top();
    if (frame.isList || frame.isHead || frame.colonList.colon != 0) return token;
    TokenIndex end = frame.last;
    if (next_ < text_.items().size()) end = std::min(end, text_.items()[next_].first);
    const auto isQuiet = [](const GapToken& at) {
        const bool isColon = at.role == Role::BaseColon || at.role == Role::MemberInitializerColon;
        return !at.isBracket && !isColon && at.kind != Kind::Semicolon && !Trn::isTrivia(at.kind);
    };
    for (; token < end && isQuiet(text_.token(token)); ++token) gaps_.setScope(token, frame.inner);
    return token;
}

// ---- Scopes

ItemWalk::Scope ItemWalk::anchored(TokenIndex anchor, Mode mode, GapRule rule) {
    return gaps_.addScope({.from = anchor, .mode = mode, .rule = rule, .isAnchored = true});
}

ItemWalk::Scope ItemWalk::sharing(Scope base, Mode mode, GapRule rule) {
    return gaps_.addScope({.from = base, .mode = mode, .rule = rule});
}

ItemWalk::Scope ItemWalk::indented(Scope base, GapProperty property) {
    if (!gaps_.isSet(property.rule)) return sharing(base, Mode::Distance, GapRule::None);
    return sharing(base, Mode::Indent, property.rule);
}

ItemWalk::Scope ItemWalk::levelOf(const Frame& body, Scope otherwise) {
    const IndentScope& inner = gaps_.scopes()[body.inner];
    if (body.sort != Frame::Sort::Body || inner.mode != Mode::Indent || inner.isAnchored) return otherwise;
    return gaps_.addScope({.from = body.inner, .mode = Mode::Indent, .isBelow = true});
}

ItemWalk::Scope ItemWalk::below(Scope base, GapProperty property) {
    return sharing(base, gaps_.isSet(property.rule) ? Mode::Indent : Mode::Distance, GapRule::None);
}

// Of the later lines of what begins at `anchor`.
ItemWalk::Scope ItemWalk::continuation(TokenIndex anchor) {
    const GapRule rule = ruleOf<&Scheme::indentContinuation>();
    if (gaps_.isSet(rule)) return anchored(anchor, Mode::Indent, rule);
    return anchored(anchor, Mode::Distance, GapRule::None);
}

// ---- Items

void ItemWalk::openItems(TokenIndex token) {
    const std::vector<OutlineItem>& items = text_.items();
    for (bool isOutermost = true; next_ < items.size() && items[next_].first <= token; ++next_, isOutermost = false) {
        if (items[next_].first == token) openItem(items[next_], isOutermost);
    }
}

void ItemWalk::openItem(const OutlineItem& item, bool isOutermost) {
    Frame& parent = top();
    if (isOutermost || item.sort == Sort::Part) {
        const OutlineItem* holder = parent.sort == Frame::Sort::Item ? parent.item : nullptr;
        if (parent.sort != Frame::Sort::Bracket) statements_.item(item, {.holder = holder, .before = parent.before});
    }
    const bool isLabels = isOutermost && standsForLabels(item, parent);
    if (isLabels) {
        const Scope scope = indented(parent.own, gapProperty<&Scheme::indentCsCaseLabels>());
        gaps_.setScope(item.first, scope);
        indentCommentsOfLabel(item.first, scope, parent);
    } else if (isOutermost) {
        indentItem(item, parent);
    }
    const Frame frame = frameOf(item, parent);
    parent.before = &item;
    parent.isBehindLabels = isLabels;
    if (item.sort == Sort::CaseLabel) parent.label = frame.own;
    frames_.push_back(frame);
}

ItemWalk::Frame ItemWalk::frameOf(const OutlineItem& item, const Frame& parent) {
    Frame frame{.sort = Frame::Sort::Item, .first = item.first, .last = item.last, .item = &item};
    frame.inner = continuation(item.first);
    const bool isPart = item.sort == Sort::Part && parent.item != nullptr && parent.item->sort == Sort::Control;
    const bool isBody = parent.sort == Frame::Sort::Item && parent.item->body == item.first;
    const bool isFunctionTry = isTryOf(item, parent);
    if (isPart || isFunctionTry || (isBody && statements_.isElseIf(item, parent.item))) {
        // All parts of a statement, and of a chain, go by the line of its first one; a function's `try` by the
        // function.
        frame.own = parent.own;
    } else {
        frame.own = frame.inner;
    }
    // A statement behind a label on its line stands on the level of the others.
    const bool isBehindLabel = text_.role(text_.previous(item.first)) == Role::LabelColon;
    if (isBehindLabel && !gaps_.startsLine(item.first)) frame.own = levelOf(parent, frame.own);
    if (item.sort == Sort::Function && item.nameFirst > item.first) {
        frame.isHead = true;
        frame.inner = sharing(frame.own, Mode::Distance, GapRule::None);
    }
    if (item.sort == Sort::Control) frame.inner = sharing(frame.own, Mode::Distance, GapRule::None);
    return frame;
}

// Whether the item is the body of a function as a `try` with its parts.
bool ItemWalk::isTryOf(const OutlineItem& item, const Frame& parent) const {
    return parent.sort == Frame::Sort::Item && parent.item->sort == Sort::Function && item.sort == Sort::Control;
}

// Whether the item is the call of a macro that no label leads to: `switch (sort) { HANDLE_SORT(A); ...`.
bool ItemWalk::standsForLabels(const OutlineItem& item, const Frame& parent) const {
    const bool isInSwitch = parent.sort == Frame::Sort::Body && parent.item != nullptr &&
                            parent.item->sort == Sort::Part && text_.kind(parent.item->first) == Kind::Switch;
    if (!isInSwitch || text_.kind(item.first) != Kind::Identifier) return false;
    const TokenIndex open = text_.next(item.first);
    if (text_.kind(open) != Kind::OpenParen) return false;
    const TokenIndex close = text_.partner(open);
    const bool hasSemicolon = text_.kind(item.last) == Kind::Semicolon && text_.previous(item.last) == close;
    if (item.last != close && !hasSemicolon) return false;
    if (parent.before == nullptr || parent.isBehindLabels) return true;
    return !hasSemicolon && endsInJump(*parent.before);
}

// Of the item that has been opened last at its level: whether nothing goes on behind it.
bool ItemWalk::endsInJump(const OutlineItem& before) const {
    const OutlineItem& last = text_.items()[next_ - 1];
    const bool isLast = &last == &before || (before.sort == Sort::Block && text_.next(last.last) == before.last);
    const Trn::TokenKind kind = text_.kind(last.first);
    return isLast && (kind == Kind::Break || kind == Kind::Return || kind == Kind::Continue || kind == Kind::Goto);
}

// Whether it is a `switch` with a label in place of its braces.
bool ItemWalk::holdsLabel(const Frame& part) const {
    const TokenIndex body = part.item->body;
    if (part.item->sort != Sort::Part || text_.kind(part.first) != Kind::Switch) return false;
    return text_.kind(body) == Kind::Case || text_.kind(body) == Kind::Default;
}

// The first token of an item that stands in a body, or is a part or the body of a control statement.
void ItemWalk::indentItem(const OutlineItem& item, const Frame& parent) {
    Scope scope = parent.inner;
    if (parent.sort == Frame::Sort::Item) {
        if (parent.item->sort == Sort::Control) {
            scope = scopeOfPart(item, parent);
        } else if (isTryOf(item, parent)) {
            scope = below(parent.own, gapProperty<&Scheme::wsBeforeFnOpenBrace>());
        } else if (holdsLabel(parent)) {
            scope = anchored(parent.first, Mode::Distance, GapRule::None);
        } else if (parent.item->body == item.first) {
            if (statements_.isElseIf(item, parent.item)) return;
            scope = goesOnBehindEndif(item, parent) ? below(parent.own, unbracedIndent()) : scopeOfUnbraced(parent);
            indentComments(item.first, scope);
        }
    } else if (item.sort == Sort::CaseLabel || item.sort == Sort::AccessLabel || item.sort == Sort::GotoLabel) {
        scope = labelScope(item, parent);
        indentCommentsOfLabel(item.first, scope, parent);
    } else if (isLabelMacro(item, parent)) {
        scope = indented(parent.own, gapProperty<&Scheme::indentCsCaseLabels>());
    } else if (isBehindTemplate(item, parent)) {
        scope = anchored(parent.before->first, Mode::Indent, GapRule::None);
    }
    gaps_.setScope(item.first, scope);
}

// Whether it is a macro in a `switch` in front of all labels, which can't be anything but labels itself.
bool ItemWalk::isLabelMacro(const OutlineItem& item, const Frame& body) const {
    const bool isMacro = item.sort == Sort::Macro || item.sort == Sort::Statement || item.sort == Sort::Unread;
    return isMacro && text_.kind(item.last) == Kind::CloseParen && body.sort == Frame::Sort::Body &&
           body.label == asIs && isSwitch(body);
}

// Whether a template head begins a line that the source goes on with, in a body whose lines keep their distances.
bool ItemWalk::isBehindTemplate(const OutlineItem& item, const Frame& body) const {
    if (body.before == nullptr || body.before->sort != Sort::Template || text_.startsLine(item.first)) return false;
    return text_.startsLine(body.before->first) && gaps_.scopes()[body.inner].mode == Mode::Distance;
}

ItemWalk::Scope ItemWalk::scopeOfPart(const OutlineItem& part, const Frame& statement) {
    if (part.first == statement.first) return statement.inner;
    return below(statement.own, statements_.inFrontOf(part));
}

GapProperty ItemWalk::unbracedIndent() const {
    constexpr GapProperty own = gapProperty<&Scheme::indentCsUnbracedContent>();
    return gaps_.isSet(own.rule) ? own : gapProperty<&Scheme::indentCsContent>();
}

ItemWalk::Scope ItemWalk::scopeOfUnbraced(const Frame& holder) { return indented(holder.own, unbracedIndent()); }

// Whether it is a statement with parts behind `else` and `#endif`: without the branch it is one of its own.
bool ItemWalk::goesOnBehindEndif(const OutlineItem& item, const Frame& part) const {
    if (item.sort != Sort::Control || text_.kind(part.first) != Kind::Else) return false;
    const TokenIndex directive = item.first - 1;
    if (text_.kind(directive) != Kind::Directive) return false;
    std::string_view text = text_.text(directive).substr(1);
    return text.substr(blankSize(text)).starts_with("endif");
}

ItemWalk::Scope ItemWalk::labelScope(const OutlineItem& item, const Frame& body) {
    switch (item.sort) {
        case Sort::CaseLabel:
            return indented(body.own, gapProperty<&Scheme::indentCsCaseLabels>());
        case Sort::AccessLabel:
            return indented(body.own, gapProperty<&Scheme::indentAccessSpecLabel>());
        default:
            break;
    }
    constexpr GapProperty property = gapProperty<&Scheme::indentLabel>();
    // Behind the labels of a `switch` it goes by those.
    if (!scheme_.alignLabelsLeftMost) return indented(body.label != 0 ? body.label : body.gotoLabel, property);
    return gaps_.isSet(property.rule) ? sharing(0, Mode::Indent, property.rule) : margin_;
}

// Those that begin a line in front of the token.
void ItemWalk::indentComments(TokenIndex token, Scope scope) {
    for (TokenIndex at = token - 1; at > 0 && text_.isComment(at); --at) {
        if (text_.startsLine(at)) gaps_.setScope(at, scope);
    }
}

// Comments in front of a label go with it, unless they stand further to the right: then they belong to what is in
// front.
void ItemWalk::indentCommentsOfLabel(TokenIndex label, Scope scope, const Frame& body) {
    if (!text_.isComment(label - 1) || !text_.startsLine(label)) return;
    if (gaps_.scopes()[body.inner].mode != Mode::Indent) return indentComments(label, scope);
    const int column = text_.column(label, scheme_.tabSize);
    for (TokenIndex at = label - 1; at > 0 && text_.isComment(at); --at) {
        if (!text_.startsLine(at)) continue;
        if (text_.column(at, scheme_.tabSize) > column) break;
        gaps_.setScope(at, scope);
    }
}

// ---- Tokens

void ItemWalk::read(TokenIndex token) {
    if (text_.kind(token) == Kind::Directive) {
        if (!scheme_.alignPpdLeftMost.has_value()) gaps_.setScope(token, asIs);
        if (scheme_.alignPpdLeftMost.value_or(false)) gaps_.setScope(token, margin_);
        return;
    }
    if (text_.isTrivia(token)) {
        if (top().sort == Frame::Sort::Item) colonLists_.indentComment(token, top().colonList);
        return;
    }
    Frame& frame = top();
    if (frame.isList) beginElement(token);
    if (frame.isHead) readHead(token);
    if (frame.sort == Frame::Sort::Item) colonLists_.indent(token, frame.colonList, frame.own);
    if (text_.kind(token) == Kind::Semicolon) readSemicolon(token);
    if (!text_.isBracket(token)) return;
    const TokenIndex partner = text_.partner(token);
    if (partner > token) {
        readBody(token);
    } else if (partner != 0) {
        readClosing(token);
    }
}

// The lines of a function stand below each other, down to the one with its name.
void ItemWalk::readHead(TokenIndex token) {
    Frame& function = top();
    const Gap::Sort sort = gaps_[token].sort;
    if (token != function.first && (sort == Gap::Sort::Lines || sort == Gap::Sort::Break)) {
        gaps_.setScope(token, sharing(function.own, Mode::Indent, GapRule::None));
    }
    if (token < function.item->nameFirst) return;
    function.isHead = false;
    function.inner = function.own;
}

// One that is the body of a control statement, and so no item.
void ItemWalk::readSemicolon(TokenIndex token) {
    if (top().sort != Frame::Sort::Item || top().item->body != token) return;
    const Scope scope = scopeOfUnbraced(top());
    gaps_.setScope(token, scope);
    indentComments(token, scope);
}

// A `{` of a body, or any other bracket.
void ItemWalk::readBody(TokenIndex brace) {
    const OutlineItem* item = top().sort == Frame::Sort::Item ? top().item : nullptr;
    const bool isOwned = item != nullptr && (item->body == brace || item->first == brace);
    const BodyKeys* keys =
        text_.kind(brace) == Kind::OpenBrace ? bodies_.keysOf(brace, isOwned ? item : nullptr) : nullptr;
    if (keys == nullptr) return readBracket(brace);

    const bool staysOnOneLine = bodies_.format(brace, *keys, isOwned ? item : nullptr);
    Frame frame = bodyFrame(brace, *keys);
    if (staysOnOneLine && joined_ < brace) {
        frame.isOneLine = true;
        joined_ = frame.last;
    }
    frames_.push_back(frame);
}

ItemWalk::Frame ItemWalk::bodyFrame(TokenIndex brace, const BodyKeys& keys) {
    const Frame& outer = top();
    const bool isOwned = outer.sort == Frame::Sort::Item && (outer.item->body == brace || outer.item->first == brace);
    Frame frame{.sort = Frame::Sort::Body, .first = brace, .last = text_.partner(brace)};
    frame.item = isOwned ? outer.item : nullptr;
    if (const TokenIndex bracket = bracketAbove(brace, keys)) {
        frame.isBelowBracket = true;
        frame.own = frame.inner = anchored(bracket, Mode::Distance, GapRule::None);
    } else {
        frame.own = baseOf(brace, keys, frame.item);
        frame.inner = indented(frame.own, indentOf(keys, frame));
    }
    frame.close = keys.beforeClose;
    frame.isList = keys.role == Role::EnumBody;
    indentOpen(brace, keys, frame);
    frame.gotoLabel = gaps_.startsLine(brace) ? anchored(brace, Mode::Distance, GapRule::None) : frame.own;
    return frame;
}

// What the lines of a body are measured from.
ItemWalk::Scope ItemWalk::baseOf(TokenIndex brace, const BodyKeys& keys, const OutlineItem* owner) {
    if (keys.goesByLabel && frames_.size() > 1) return frames_[frames_.size() - 2].label;
    const bool isBlock = owner != nullptr && owner->sort == Sort::Block && gaps_.startsLine(brace);
    if (isBlock && gaps_.isSet(keys.indent.rule) && gaps_.isSet(keys.beforeClose.rule) && frames_.size() > 1) {
        return levelOf(frames_[frames_.size() - 2], top().own);
    }
    const bool hasOwnLine = keys.keepsBrace && gaps_.startsLine(brace);
    if (owner != nullptr && !hasOwnLine) return top().own;
    if (top().lambda != 0 && keys.role == Role::LambdaBody) return baseInBracket(brace, keys, top().lambda);
    const Scope own = anchored(brace, Mode::Distance, GapRule::None);
    const bool isInParens = top().sort == Frame::Sort::Bracket && text_.kind(top().first) == Kind::OpenParen;
    return isInParens ? baseInBracket(brace, keys, own) : own;
}

// A body in a bracket goes by the line of its head, or by what the author has closed it below: the statement that holds
// it, or the line of its brace.
ItemWalk::Scope ItemWalk::baseInBracket(TokenIndex brace, const BodyKeys& keys, Scope own) {
    const TokenIndex close = text_.partner(brace);
    if (!text_.startsLine(close)) return own;
    const int column = text_.column(close, scheme_.tabSize);
    const bool hasOwnLine = gaps_.startsLine(brace);
    if (hasOwnLine && (!text_.startsLine(brace) || text_.column(brace, scheme_.tabSize) != column)) return own;
    if (gaps_.isSet(keys.beforeOpen.rule) && !gaps_.tail(keys.beforeOpen.rule).empty() && hasOwnLine) return own;
    const auto holder = std::find_if(frames_.rbegin(), frames_.rend(),
                                     [](const Frame& frame) { return frame.sort == Frame::Sort::Item; });
    if (holder != frames_.rend() && text_.startsLine(holder->first) && gaps_.startsLine(holder->first) &&
        text_.column(holder->first, scheme_.tabSize) == column) {
        return holder->own;
    }
    const TokenIndex head = gaps_.scopes()[own].anchor();
    TokenIndex first = brace;
    while (first > head && !text_.startsLine(first)) --first;
    const bool isBelow = first > head &&
                         first < brace &&
                         gaps_.startsLine(first) &&
                         text_.column(first, scheme_.tabSize) == column;
    return isBelow ? anchored(brace, Mode::Distance, GapRule::None) : own;
}

// The open bracket of a call below whose first argument the author has closed the body of a lambda, or 0.
TokenIndex ItemWalk::bracketAbove(TokenIndex brace, const BodyKeys& keys) const {
    const TokenIndex close = text_.partner(brace);
    const TokenIndex content = text_.next(brace);
    if (keys.role != Role::LambdaBody || !text_.startsLine(close) || !text_.startsLine(content)) return 0;
    if (text_.startsLine(gaps_.scopes()[frames_.back().lambda].anchor())) return 0;
    const int column = text_.column(close, scheme_.tabSize);
    const bool isWithClose = text_.startsLine(brace) && text_.column(brace, scheme_.tabSize) == column;
    if (gaps_.startsLine(brace) && !isWithClose) return 0;
    const int indent = columnBehind(gaps_.text(keys.indent.rule), 0, scheme_.tabSize);
    if (!gaps_.isSet(keys.indent.rule) || text_.column(content, scheme_.tabSize) != column + indent) return 0;
    constexpr int deepest = 8;  // no more brackets stand on one line of good sense
    auto frame = frames_.rbegin();
    for (int depth = 0; depth < deepest && frame->sort == Frame::Sort::Bracket; ++frame, ++depth) {
        const TokenIndex first = text_.next(frame->first);
        if (first < brace && !text_.startsLine(first) && text_.column(first, scheme_.tabSize) == column) {
            return staysInLine(first) ? frame->first : 0;
        }
    }
    return 0;
}

// Whether nothing changes between the begin of the token's line and the token.
bool ItemWalk::staysInLine(TokenIndex token) const {
    for (; !text_.startsLine(token); --token) {
        const Gap& gap = gaps_[token];
        if (gap.sort == Gap::Sort::Blanks && gaps_.text(gap.rule) != text_.gap(token)) return false;
    }
    return gaps_.startsLine(token);
}

bool ItemWalk::isSwitch(const Frame& body) const {
    return body.item != nullptr && body.item->sort == Sort::Part && text_.kind(body.item->first) == Kind::Switch;
}

GapProperty ItemWalk::indentOf(const BodyKeys& keys, const Frame& body) const {
    if (body.item == nullptr) return keys.indent;
    if (isSwitch(body)) return gapProperty<&Scheme::indentCsCaseContent>();
    constexpr GapProperty nested = gapProperty<&Scheme::indentNestedNsContent>();
    const bool isNested = keys.role == Role::NamespaceBody && frames_.size() > 1 &&
                          text_.role(frames_[frames_.size() - 2].first) == Role::NamespaceBody;
    return isNested && gaps_.isSet(nested.rule) ? nested : keys.indent;
}

// A brace that begins a line, and the comments in front of it, stand below the owner of the body. That of a block is a
// statement as any other.
void ItemWalk::indentOpen(TokenIndex brace, const BodyKeys& keys, const Frame& body) {
    if (body.item != nullptr && body.item->sort == Sort::Block && !keys.goesByLabel) return;
    const bool goesByHolder = body.item == nullptr && gaps_.scopes()[body.own].anchor() != brace;
    const bool isKept = keys.role != Role::LambdaBody && !gaps_.isSet(keys.beforeOpen.rule);
    if (body.item == nullptr && isKept && !(goesByHolder && text_.startsLine(brace))) return;
    const Scope scope = body.isBelowBracket ? body.own
                        : keys.keepsBrace   ? sharing(top().own, Mode::Distance, GapRule::None)
                                            : below(body.own, keys.beforeOpen);
    gaps_.setScope(brace, scope);
    indentComments(brace, scope);
    if (!gaps_.isSet(keys.beforeOpen.rule) || !gaps_.isSet(keys.indent.rule)) return;
    const bool isIndented = gaps_.lineFeeds(keys.beforeOpen.rule) > 0 && !gaps_.tail(keys.beforeOpen.rule).empty();
    if (!isIndented) indentHeadNotes(brace, body.inner);
}

// A comment for documentation that stands further to the right than the brace behind it goes with the body.
void ItemWalk::indentHeadNotes(TokenIndex brace, Scope inner) {
    if (!text_.isComment(brace - 1) || !text_.startsLine(brace)) return;
    const int column = text_.column(brace, scheme_.tabSize);
    for (TokenIndex at = brace - 1; at > 0 && text_.isDocumentation(at) && text_.startsLine(at); --at) {
        if (text_.column(at, scheme_.tabSize) > column) gaps_.setScope(at, inner);
    }
}

void ItemWalk::readBracket(TokenIndex open) {
    Frame frame{.sort = Frame::Sort::Bracket, .first = open, .last = text_.partner(open)};
    const GapRule indent = ruleOf<&Scheme::indentContinuation>();
    const bool isBraced = text_.kind(open) == Kind::OpenBrace;
    const bool breaksBehind = endsLine(open);
    frame.own = anchored(open,
                         scheme_.alignContinuationLeft && !breaksBehind ? Mode::Behind
                         : gaps_.isSet(indent) && !isBraced             ? Mode::Indent
                         : Mode::Distance,
                         gaps_.isSet(indent) && !isBraced ? indent : GapRule::None);
    frame.inner = frame.own;
    if (isBraced && gaps_[open].sort == Gap::Sort::Lines && top().sort == Frame::Sort::Item) {
        gaps_.setScope(open, sharing(top().own, Mode::Indent, GapRule::None));
    }
    if (isBraced && breaksBehind) {
        frame.inner = indented(frame.own, gapProperty<&Scheme::indentDdContent>());
        frame.isList = true;
    }
    if (text_.role(open) == Role::LambdaIntroducer) top().lambda = frame.own;
    frames_.push_back(frame);
}

// Whether nothing but comments stands behind the token on its line.
bool ItemWalk::endsLine(TokenIndex token) const {
    TokenIndex next = token + 1;
    while (text_.isComment(next) && !gaps_.startsLine(next)) ++next;
    return gaps_.startsLine(next);
}

// A brace that closes stands below what it closes; any other bracket goes on with the lines inside.
void ItemWalk::readClosing(TokenIndex close) {
    const Frame& frame = top();
    if (frame.last != close) return;
    if (text_.kind(close) == Kind::CloseParen) return leaveParameters(close);
    if (text_.kind(close) != Kind::CloseBrace) return;
    const Gap::Sort sort = gaps_[close].sort;
    const bool hasLine = sort == Gap::Sort::Lines || sort == Gap::Sort::Break || gaps_.isSet(frame.close.rule);
    const bool isDecided = hasLine && !frame.isBelowBracket;
    gaps_.setScope(close, sharing(frame.own, isDecided ? Mode::Indent : Mode::Distance, GapRule::None));
    if (frame.isOneLine) bodies_.joinLines(frame.first);
    goOnBehind(close);
}

// A declarator on the line behind that of a body's brace goes by the brace.
void ItemWalk::goOnBehind(TokenIndex close) {
    const TokenIndex next = text_.next(close);
    if (frames_.size() < 2 || top().item == nullptr || !text_.startsLine(next) || !text_.startsLine(close)) return;
    Frame& outer = frames_[frames_.size() - 2];
    if (outer.sort != Frame::Sort::Item) return;
    const Sort sort = outer.item->sort;
    if (sort != Sort::Class && sort != Sort::Enum && sort != Sort::Data) return;
    outer.inner = anchored(close, Mode::Distance, GapRule::None);
}

// The declarations of old-style parameters keep their place.
void ItemWalk::leaveParameters(TokenIndex close) {
    if (frames_.size() < 2) return;
    Frame& outer = frames_[frames_.size() - 2];
    if (outer.sort != Frame::Sort::Item || outer.item->body <= close || outer.item->open != top().first) return;
    if (text_.kind(text_.previous(outer.item->body)) != Kind::Semicolon) return;
    outer.inner = sharing(outer.own, Mode::Distance, GapRule::None);
}

// Also for what goes by the token: comments in front of it, and what wrapping puts on a line of its own.
bool ItemWalk::mayStartLine(TokenIndex token) const {
    return gaps_.startsLine(token) || text_.isTrivia(token - 1) || GapWrapper::isWanted(scheme_);
}

// In a list every element has its own later lines, if there are any: a table of a million numbers has none.
void ItemWalk::beginElement(TokenIndex token) {
    Frame& list = top();
    const TokenIndex before = text_.previous(token);
    const bool isFirst = before == list.first || text_.kind(before) == Kind::Comma;
    if (isFirst) {
        list.element = token;
        list.elementScope = 0;
    } else if (token != list.last && mayStartLine(token)) {
        if (list.elementScope == 0) list.elementScope = anchored(list.element, Mode::Distance, GapRule::None);
        gaps_.setScope(token, list.elementScope);
    }
}

}  // namespace Brevis
