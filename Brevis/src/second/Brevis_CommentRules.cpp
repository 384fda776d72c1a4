// One operation a rule, for each row of comments and directives between two tokens of code.
#include "second/Brevis_CommentRules.h"

#include <utility>

#include "second/Brevis_LineColumns.h"

namespace Brevis {

using Sort = Cpp::OutlineItem::Sort;

namespace {

constexpr std::uint32_t asIs = 0;  // the scope that moves nothing
constexpr int farDistance = 16;    // from where on a comment to the right is no part of the lines below each other

}  // namespace

void CommentRules::run() {
    const std::vector<TokenIndex>& trivia = text_.trivia();
    for (std::size_t at = 0; at < trivia.size();) {
        const TokenIndex first = trivia[at];
        TokenIndex behind = first;
        for (; at < trivia.size() && trivia[at] == behind; ++at) ++behind;
        ownLines(first, behind);
        farRight(first, behind);
        belowDeclaration(first, behind);
        behindCode(first, behind);
        beforeDirectives(first, behind);
    }
}

// A comment that begins a line goes with the code behind it; one at the end of a body, and in front of a label as the
// walk has found it, with what holds it. In the column of a `} else` it tells of that.
void CommentRules::ownLines(TokenIndex first, TokenIndex behind) {
    if (behind == text_.size() || isLabel(behind)) return;
    const TokenIndex partner = text_.partner(behind);
    const bool isAtEnd = partner != 0 && partner < behind;
    if (isAtEnd && !beginsElseLine(behind)) return;
    const bool isBrace = text_.kind(behind) == Trn::Kind::OpenBrace && text_.startsLine(behind);
    const int column = isAtEnd || isBrace ? text_.column(behind, scheme_.tabSize) : 0;
    for (TokenIndex token = first; token < behind; ++token) {
        if (!text_.isComment(token)) continue;
        // The walk has placed what tells of the head in front.
        if (isBrace && text_.isDocumentation(token) && text_.column(token, scheme_.tabSize) > column) continue;
        if (isAtEnd && text_.column(token, scheme_.tabSize) != column) continue;
        gaps_.setScope(token, gaps_[behind].scope);
    }
}

// Whether the brace stands where its scope says, with an `else` on its line.
bool CommentRules::beginsElseLine(TokenIndex brace) const {
    const TokenIndex next = text_.next(brace);
    if (text_.kind(next) != Trn::Kind::Else || gaps_.startsLine(next) || !text_.startsLine(brace)) return false;
    const Gap& gap = gaps_[brace];
    return gap.sort == Gap::Sort::Keep || (gap.rule != GapRule::None && gaps_.text(gap.rule).ends_with('\n'));
}

// A comment that stands right below one behind code, in its column and not in that of the code that follows, goes on
// with it.
void CommentRules::behindCode(TokenIndex first, TokenIndex behind) {
    TokenIndex anchor = 0;
    bool isBelowDirective = false;
    for (TokenIndex token = first; token < behind; ++token) {
        isBelowDirective = goesOnWithDirective(token) || (isBelowDirective && goesOn(token));
        if (isBelowDirective) {
            gaps_.keep(token);
            gaps_.setScope(token, asIs);
            anchor = 0;
            continue;
        }
        if (!text_.isComment(token) || !gaps_.startsLine(token)) {
            anchor = text_.isComment(token) ? token : 0;
            continue;
        }
        const int column = anchor == 0 ? 0 : text_.column(token, scheme_.tabSize);
        if (anchor == 0 || text_.lineFeeds(token) != 1 || text_.kind(token) != text_.kind(anchor) ||
            column != text_.column(anchor, scheme_.tabSize) ||
            (behind < text_.size() && column == text_.column(behind, scheme_.tabSize))) {
            anchor = 0;
            continue;
        }
        gaps_.keep(token);
        gaps_.setScope(token, gaps_.addScope({.from = anchor, .mode = IndentScope::Mode::At, .isAnchored = true}));
    }
}

// The same for a comment at the end of a directive, which holds it unless it is a line comment. The directive must stand
// where it will stay.
bool CommentRules::goesOnWithDirective(TokenIndex token) const {
    if (!text_.isComment(token) || text_.lineFeeds(token) != 1) return false;
    const bool isApart = text_.kind(token - 1) == Trn::Kind::LineComment && !text_.startsLine(token - 1);
    const TokenIndex directive = isApart ? token - 2 : token - 1;
    if (text_.kind(directive) != Trn::Kind::Directive) return false;
    const bool stays = scheme_.alignPpdLeftMost.value_or(true) && text_.column(directive, scheme_.tabSize) == 0;
    if (!stays) return false;
    int start = 0;
    if (isApart) {
        start = text_.column(token - 1, scheme_.tabSize);
    } else {
        const std::string_view text = text_.text(directive);
        const std::size_t line = text.rfind('\n') + 1;
        const std::size_t comment = text.find("/*", line);
        if (comment == std::string_view::npos) return text_.column(token, scheme_.tabSize) >= farDistance;
        start = columnBehind(text.substr(line, comment - line), 0, scheme_.tabSize);
    }
    return start == text_.column(token, scheme_.tabSize);
}

// Right below another comment and in its column.
bool CommentRules::goesOn(TokenIndex comment) const {
    return text_.isComment(comment) && text_.isComment(comment - 1) && text_.lineFeeds(comment) == 1 &&
           text_.column(comment, scheme_.tabSize) == text_.column(comment - 1, scheme_.tabSize);
}

// A comment right below code and far to its right tells of that code, and keeps its distance to it.
void CommentRules::farRight(TokenIndex first, TokenIndex behind) {
    if (first == 1 || !text_.isComment(first) || text_.lineFeeds(first) != 1 || !gaps_.startsLine(first)) return;
    if (behind == text_.size() || text_.role(first - 1) != Cpp::Role::StatementEnd) return;
    TokenIndex code = first - 1;
    while (!text_.startsLine(code)) --code;
    const int distance = text_.column(first, scheme_.tabSize) - text_.column(code, scheme_.tabSize);
    const int toBehind = text_.column(first, scheme_.tabSize) - text_.column(behind, scheme_.tabSize);
    if (distance < farDistance || (text_.startsLine(behind) && toBehind < farDistance)) return;
    if (!gaps_.startsLine(code)) return;
    const auto scope = gaps_.addScope({.from = code, .isAnchored = true});
    for (TokenIndex token = first; token < behind && (token == first || goesOn(token)); ++token) {
        gaps_.keep(token);
        gaps_.setScope(token, scope);
    }
}

// Documentation right below a declaration, further to the right than that and with nothing right below, tells of it.
void CommentRules::belowDeclaration(TokenIndex first, TokenIndex behind) {
    if (first == 1 || !text_.isDocumentation(first) || text_.lineFeeds(first) != 1) return;
    if (text_.role(first - 1) != Cpp::Role::StatementEnd || !gaps_.startsLine(first)) return;
    TokenIndex last = first;
    while (last + 1 < behind && goesOn(last + 1)) ++last;
    const TokenIndex partner = behind < text_.size() ? text_.partner(behind) : 0;
    const bool isAtEnd = last + 1 == behind && partner != 0 && partner < behind;
    if (text_.lineFeeds(last + 1) < 2 && !isAtEnd) return;
    TokenIndex code = first - 1;
    while (!text_.startsLine(code)) --code;
    if (text_.column(first, scheme_.tabSize) <= text_.column(code, scheme_.tabSize)) return;
    if (!gaps_.startsLine(code)) return;
    const auto scope = gaps_.addScope({.from = code, .isAnchored = true});
    for (TokenIndex token = first; token <= last; ++token) gaps_.setScope(token, scope);
}

// A comment that stands right above a directive and in its column is about the directive. Among directives outside of
// all bodies it stays where it is, and so does one between two directives in the column of a name, as that of
// `#  define`.
void CommentRules::beforeDirectives(TokenIndex first, TokenIndex behind) {
    bool isAmongDirectives = false;
    for (TokenIndex token = first; token < behind; ++token) {
        if (text_.kind(token) != Trn::Kind::Directive) continue;
        const bool isFirst = !std::exchange(isAmongDirectives, true);
        if (token == first || !text_.isComment(token - 1) || gaps_[token].sort == Gap::Sort::Fixed) continue;
        const int column = text_.column(token, scheme_.tabSize);
        if (column == 0 && isAboveName(token)) gaps_.setScope(token - 1, asIs);
        if (!isFirst && column == 0) keepIndented(token);
        for (TokenIndex at = token; at > first && text_.lineFeeds(at) == 1; --at) {
            const TokenIndex comment = at - 1;
            if (!text_.isComment(comment) || !text_.startsLine(comment)) break;
            if (text_.column(comment, scheme_.tabSize) != column) break;
            gaps_.setScope(comment, gaps_[token].scope);
        }
    }
}

bool CommentRules::isAboveName(TokenIndex directive) const {
    const TokenIndex comment = directive - 1;
    if (text_.kind(comment - 1) != Trn::Kind::Directive) return false;
    if (text_.lineFeeds(directive) != 1 || text_.lineFeeds(comment) != 1) return false;
    const std::string_view text = text_.text(directive).substr(1);
    const std::size_t blanks = blankSize(text);
    if (blanks == 0) return false;
    const int name = columnBehind(text.substr(0, blanks), 1, scheme_.tabSize);
    const int column = text_.column(comment, scheme_.tabSize);
    return column == name || column == name + 1;
}

// The comments right above the directive.
void CommentRules::keepIndented(TokenIndex directive) {
    for (TokenIndex at = directive; text_.lineFeeds(at) == 1 && text_.isComment(at - 1); --at) {
        const TokenIndex comment = at - 1;
        const bool isInBody = gaps_.scopes()[gaps_[comment].scope].isAnchored;
        if (isInBody || !text_.startsLine(comment) || text_.column(comment, scheme_.tabSize) == 0) return;
        gaps_.setScope(comment, asIs);
    }
}

// For tokens in ascending order.
bool CommentRules::isLabel(TokenIndex token) {
    const std::vector<Cpp::OutlineItem>& items = text_.items();
    while (nextItem_ < items.size() && items[nextItem_].first < token) ++nextItem_;
    if (nextItem_ == items.size() || items[nextItem_].first != token) return false;
    const Sort sort = items[nextItem_].sort;
    return sort == Sort::AccessLabel || sort == Sort::CaseLabel || sort == Sort::GotoLabel;
}

}  // namespace Brevis
