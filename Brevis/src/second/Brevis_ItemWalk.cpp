// One pass over the tokens with a stack of what is open.
#include "second/Brevis_ItemWalk.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::OutlineItem;
using Cpp::Role;
using Mode = IndentScope::Mode;
using Sort = OutlineItem::Sort;

ItemWalk::ItemWalk(const GapText& text, const Scheme& scheme, GapTable& gaps)
    : text_(text), scheme_(scheme), gaps_(gaps), bodies_(text, scheme, gaps), statements_(text, scheme, gaps), colonLists_(text, scheme, gaps) {
    fileScope_ = indented(0, gapProperty<&Scheme::leftMargin>());
    margin_ = sharing(0, Mode::Margin, GapRule::None);
}

void ItemWalk::run() {
    frames_.push_back({.last = text_.size(), .own = fileScope_, .inner = fileScope_, .label = fileScope_});
    for (TokenIndex token = 1; token < text_.size(); ++token) {
        gaps_.setScope(token, top().inner);
        openItems(token);
        read(token);
        while (frames_.size() > 1 && top().last == token) frames_.pop_back();
    }
}

// ---- Scopes

ItemWalk::Scope ItemWalk::anchored(TokenIndex anchor, Mode mode, GapRule rule) {
    return gaps_.addScope({.anchor = anchor, .mode = mode, .rule = rule, .isAnchored = true});
}

ItemWalk::Scope ItemWalk::sharing(Scope base, Mode mode, GapRule rule) {
    return gaps_.addScope({.mode = mode, .rule = rule, .base = base});
}

ItemWalk::Scope ItemWalk::indented(Scope base, GapProperty property) {
    if (!gaps_.isSet(property.rule)) return sharing(base, Mode::Distance, GapRule::None);
    return sharing(base, Mode::Indent, property.rule);
}

// Of the later lines of what begins at `anchor`.
ItemWalk::Scope ItemWalk::continuation(TokenIndex anchor) {
    const GapRule rule = ruleOf<&Scheme::indentContinuation>();
    if (gaps_.isSet(rule)) return anchored(anchor, Mode::Indent, rule);
    return anchored(anchor, Mode::Distance, GapRule::None);
}

// ---- Items

const ItemWalk::Frame& ItemWalk::bodyFrame() const {
    std::size_t at = frames_.size() - 1;
    while (frames_[at].sort != Frame::Sort::Body && frames_[at].sort != Frame::Sort::File) --at;
    return frames_[at];
}

void ItemWalk::openItems(TokenIndex token) {
    const std::vector<OutlineItem>& items = text_.items();
    for (bool isOutermost = true; next_ < items.size() && items[next_].first <= token; ++next_, isOutermost = false) {
        if (items[next_].first == token) openItem(items[next_], isOutermost);
    }
}

void ItemWalk::openItem(const OutlineItem& item, bool isOutermost) {
    if (isOutermost) indentItem(item, top());
    const Frame& parent = top();
    Frame frame{.sort = Frame::Sort::Item, .first = item.first, .last = item.last, .item = &item};
    if (item.sort == Sort::Part && parent.item != nullptr && parent.item->sort == Sort::Control) {
        // All parts of a statement go by the line of its first one.
        frame.own = parent.own;
        frame.inner = continuation(item.first);
    } else {
        frame.inner = frame.own = continuation(item.first);
        if (item.sort == Sort::Control) frame.inner = sharing(frame.own, Mode::Distance, GapRule::None);
    }
    frames_.push_back(frame);
    statements_.item(item);
}

// The first token of an item that stands in a body, or is the body of a control statement.
void ItemWalk::indentItem(const OutlineItem& item, const Frame& parent) {
    Scope scope = parent.inner;
    if (parent.sort == Frame::Sort::Item) {
        if (parent.item->sort == Sort::Control) {
            scope = sharing(parent.own, Mode::Indent, GapRule::None);
            if (!gaps_.startsLine(item.first) || !gaps_.isSet(gaps_[item.first].rule)) scope = parent.inner;
        } else if (parent.item->body == item.first && text_.kind(item.first) != Kind::OpenBrace) {
            const GapRule own = ruleOf<&Scheme::indentCsUnbracedContent>();
            scope = indented(parent.own, gaps_.isSet(own) ? gapProperty<&Scheme::indentCsUnbracedContent>()
                                                          : gapProperty<&Scheme::indentCsContent>());
        }
    } else if (item.sort == Sort::CaseLabel || item.sort == Sort::AccessLabel || item.sort == Sort::GotoLabel) {
        scope = labelScope(item, parent);
        indentTrivia(item.first, scope);
    }
    gaps_.setScope(item.first, scope);
}

ItemWalk::Scope ItemWalk::labelScope(const OutlineItem& item, const Frame& body) {
    switch (item.sort) {
        case Sort::CaseLabel:
            return indented(body.own, gapProperty<&Scheme::indentCsCaseLabels>());
        case Sort::AccessLabel:
            return indented(body.own, gapProperty<&Scheme::indentAccessSpecLabel>());
        default:
            return scheme_.alignLabelsLeftMost ? margin_ : indented(body.own, gapProperty<&Scheme::indentLabel>());
    }
}

// Comments in front of a label go with it unless they stand further to the right.
void ItemWalk::indentTrivia(TokenIndex token, Scope scope) {
    const int column = text_.column(token, scheme_.tabSize);
    for (TokenIndex at = token - 1; at > 0 && text_.isComment(at) && text_.startsLine(at); --at) {
        if (text_.column(at, scheme_.tabSize) > column) break;
        gaps_.setScope(at, scope);
    }
}

// ---- Tokens

void ItemWalk::read(TokenIndex token) {
    if (text_.kind(token) == Kind::Directive) {
        if (!scheme_.alignPpdLeftMost.has_value()) gaps_.setScope(token, asIs_);
        if (scheme_.alignPpdLeftMost.value_or(false)) gaps_.setScope(token, margin_);
        return;
    }
    if (text_.isTrivia(token)) {
        if (top().sort == Frame::Sort::Item) colonLists_.indentComment(token, top().colonList);
        return;
    }
    if (top().isList) beginElement(token);
    if (top().sort == Frame::Sort::Item) readDeclarator(token);
    const TokenIndex partner = text_.partner(token);
    if (partner > token) {
        readBody(token);
    } else if (partner != 0) {
        readClosing(token);
    }
}

// What begins a line in a declaration and is no later line of an expression.
void ItemWalk::readDeclarator(TokenIndex token) {
    Frame& frame = top();
    if (token == frame.item->nameFirst && token != frame.first && frame.item->sort == Sort::Function) {
        const Gap::Sort sort = gaps_[token].sort;
        gaps_.setScope(token, sharing(frame.own, sort == Gap::Sort::Keep ? Mode::Distance : Mode::Indent, GapRule::None));
    }
    colonLists_.indent(token, frame.colonList, frame.own);
}

// A `{` of a body, or any other bracket.
void ItemWalk::readBody(TokenIndex brace) {
    if (text_.kind(brace) != Kind::OpenBrace) return readBracket(brace);
    const Frame outer = top();
    const bool isOwned = outer.sort == Frame::Sort::Item &&
                         (outer.item->body == brace || outer.item->first == brace);
    const OutlineItem* owner = isOwned ? outer.item : nullptr;
    const BodyKeys* keys = bodies_.keysOf(brace, owner);
    if (keys == nullptr) return readBracket(brace);

    bodies_.format(brace, *keys);
    Frame frame{.sort = Frame::Sort::Body, .first = brace, .last = text_.partner(brace), .item = owner};
    frame.own = isOwned ? outer.own : outer.lambda != 0 && keys->role == Role::LambdaBody ? outer.lambda : anchored(brace, Mode::Distance, GapRule::None);
    const bool isSwitch = isOwned && owner->sort == Sort::Part && text_.kind(owner->first) == Kind::Switch;
    GapProperty indent = isSwitch ? gapProperty<&Scheme::indentCsCaseContent>() : keys->indent;
    if (isOwned && owner->sort == Sort::Block && outer.first == brace && frames_.size() > 1 &&
        gaps_.isSet(ruleOf<&Scheme::indentCsCaseBlockContent>()) && text_.role(text_.previous(brace)) == Role::CaseColon) {
        indent = gapProperty<&Scheme::indentCsCaseBlockContent>();
    }
    frame.inner = indented(frame.own, indent);
    // An open brace that a value puts on a line of its own stands below its owner.
    if (gaps_[brace].sort == Gap::Sort::Lines && gaps_[brace].rule == keys->beforeOpen.rule) {
        gaps_.setScope(brace, sharing(frame.own, Mode::Indent, GapRule::None));
    }
    if (text_.role(brace) == Role::EnumBody) frame.isList = true;
    frames_.push_back(frame);
}

void ItemWalk::readBracket(TokenIndex open) {
    Frame frame{.sort = Frame::Sort::Bracket, .first = open, .last = text_.partner(open)};
    const GapRule indent = ruleOf<&Scheme::indentContinuation>();
    const bool isBraced = text_.kind(open) == Kind::OpenBrace;
    const bool breaksBehind = endsLine(open);
    frame.own = anchored(open, scheme_.alignContinuationLeft && !breaksBehind ? Mode::Behind
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
    if (top().last != close || text_.kind(close) != Kind::CloseBrace) return;
    const Gap& gap = gaps_[close];
    const bool isDecided = gap.sort == Gap::Sort::Lines || gap.sort == Gap::Sort::Break;
    gaps_.setScope(close, sharing(top().own, isDecided ? Mode::Indent : Mode::Distance, GapRule::None));
}

// In a list every element has its own later lines.
void ItemWalk::beginElement(TokenIndex token) {
    Frame& list = top();
    const TokenIndex before = text_.previous(token);
    const bool isFirst = before == list.first || text_.kind(before) == Kind::Comma;
    if (isFirst) {
        list.element = anchored(token, Mode::Distance, GapRule::None);
    } else if (token != list.last) {
        gaps_.setScope(token, list.element);
    }
}

}  // namespace Brevis
