// One pass over the comments.
#include "second/Brevis_CommentColumns.h"

#include <algorithm>

namespace Brevis {

namespace Kind = Trn::Kind;

CommentColumns::CommentColumns(const GapText& text, const Scheme& scheme, GapTable& gaps, const CommentDraft* draft)
    : text_(text),
      scheme_(scheme),
      gaps_(gaps),
      draft_(draft),
      distance_(ruleOf<&Scheme::wsBeforeTrailingComment>()),
      group_(gaps, ruleOf<&Scheme::alignTrailingComments>()) {
    if (gaps.lineFeeds(distance_) > 0) distance_ = GapRule::Blank;
}

void CommentColumns::run() {
    for (const TokenIndex token : text_.trivia()) {
        if (!text_.isComment(token) || token == 1) continue;
        if (gaps_.startsLine(token)) {
            if (scheme_.alignTrailingComments && goesOn(token)) {
                group_.add(token, 0);
                last_ = token;
            }
            continue;
        }
        if (!isTrailing(token)) continue;
        if (!scheme_.alignTrailingComments) {
            setDistance(token);
            continue;
        }
        if (!group_.isEmpty() && !followsOn(token)) close();
        add(token);
    }
    close();
}

bool CommentColumns::isTrailing(TokenIndex comment) const {
    const bool endsLine =
        text_.kind(comment) == Kind::LineComment || comment + 1 == text_.size() || gaps_.startsLine(comment + 1);
    return endsLine && gaps_[comment].sort != Gap::Sort::Fixed;
}

// A comment behind the brace that closes a body tells of the body, and not of its line.
bool CommentColumns::endsScope(TokenIndex comment) const {
    TokenIndex before = comment - 1;
    while (text_.kind(before) == Kind::Semicolon || text_.kind(before) == Kind::CloseParen) --before;
    while (text_.kind(before) == Kind::CloseBrace && !gaps_.startsLine(before)) --before;
    return text_.kind(before) == Kind::CloseBrace;
}

// Whether the comment stands on the line behind the last one of the group. Directives that only choose between lines
// may stand in between.
bool CommentColumns::followsOn(TokenIndex comment) const {
    if (endsScope(comment) || endsScope(last_)) return false;
    std::uint32_t line = draft_->placeOf(comment).firstLine;
    TokenIndex before = comment;
    do --before;
    while (!gaps_.startsLine(before + 1));
    for (; text_.isTrivia(before); --before) {
        const std::string_view text = text_.text(before);
        const auto feeds = static_cast<std::uint32_t>(std::count(text.begin(), text.end(), '\n'));
        const DraftPlace& place = draft_->placeOf(before);
        if (line != place.line + feeds + 1) return false;
        if (before == last_) return true;
        if (text_.kind(before) != Kind::Directive || !isConditional(before)) return false;
        line = place.line;
    }
    return false;
}

bool CommentColumns::isConditional(TokenIndex directive) const {
    std::string_view text = text_.text(directive);
    text.remove_prefix(std::min(text.find_first_not_of("# \t"), text.size()));
    return text.starts_with("if") || text.starts_with("el") || text.starts_with("endif");
}

// Whether a comment on a line of its own goes on with the one behind the code above it: the author has put it below
// that and not below the code that follows.
bool CommentColumns::goesOn(TokenIndex comment) {
    if (group_.isEmpty() || last_ + 1 != comment || text_.lineFeeds(comment) != 1) return false;
    if (text_.kind(comment) != text_.kind(last_) || gaps_[comment].sort == Gap::Sort::Fixed) return false;
    const int column = text_.column(comment, scheme_.tabSize);
    if (column != text_.column(last_, scheme_.tabSize)) return false;
    if (code_ < comment) code_ = text_.next(comment);
    return code_ == text_.size() || column != text_.column(code_, scheme_.tabSize);
}

// Several blanks are for line comments: a block comment has one, unless the author has given it as many.
GapRule CommentColumns::distanceOf(TokenIndex comment) const {
    if (text_.kind(comment) == Kind::LineComment || !gaps_.isSet(distance_)) return distance_;
    const std::string_view distance = gaps_.text(distance_);
    return distance.starts_with("  ") && text_.gap(comment) != distance ? GapRule::Blank : distance_;
}

// `{// What the elements are`: the author has put it as the first of what the bracket holds.
bool CommentColumns::clingsToBracket(TokenIndex comment) const {
    return text_.gap(comment).empty() && text_.isOpening(comment - 1);
}

// Behind another comment on its line too.
void CommentColumns::setDistance(TokenIndex comment) {
    if (clingsToBracket(comment)) return;
    const GapRule distance = distanceOf(comment);
    if (!text_.isComment(comment - 1)) return gaps_.set(comment, distance);
    if (!gaps_.isSet(distance)) return;
    Gap& gap = gaps_.gap(comment);
    gap.sort = Gap::Sort::Blanks;
    gap.rule = distance;
}

void CommentColumns::add(TokenIndex comment) {
    last_ = comment;
    const DraftPlace& place = draft_->placeOf(comment);
    const GapRule distance = distanceOf(comment);
    if (gaps_.isSet(distance)) {
        group_.add(comment, place.gap + static_cast<int>(gaps_.text(distance).size()));
    } else {
        group_.add(comment, place.gap + 1);
        columns_.push_back(place.column);
    }
}

// Without a distance, the column in which most of the comments stand, and of such columns the first.
void CommentColumns::close() {
    int column = 0;
    std::map<int, int> counts;
    for (const int at : columns_) ++counts[at];
    int most = 0;
    for (const int at : columns_) {
        if (counts[at] > most) most = counts[at], column = at;
    }
    columns_.clear();
    group_.close(column);
}

}  // namespace Brevis
