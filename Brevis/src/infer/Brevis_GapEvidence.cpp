// An observer of a run. Whether a gap agrees is read off the result; what a key should have said is worked out from the
// source alone: the indent of a line against that of the line on which its scope is anchored.
#include "infer/Brevis_GapEvidence.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"
#include "second/Brevis_GapTable.h"
#include "second/Brevis_LineColumns.h"
#include "second/Brevis_SecondEdition.h"

namespace Brevis {

using Mode = IndentScope::Mode;

namespace {

// More line feeds in a row are the author's empty lines, and no style.
constexpr int mostLineFeeds = 3;

bool isProperty(GapRule rule) { return static_cast<std::size_t>(rule) < std::size(Catalogue::properties); }

bool hasText(GapRule rule) {
    return isProperty(rule) &&
           std::holds_alternative<WsProperty Scheme::*>(Catalogue::properties[static_cast<std::size_t>(rule)].field);
}

// Walks the result beside the source. Both hold the same characters beside their white space.
class ResultWalk {
public:
    explicit ResultWalk(std::string_view result) : result_(result) {}

    // Whether the result has the piece of the source that comes next, up to its end.
    bool passGap(std::string_view gap) {
        const std::size_t begin = at_;
        pass(gap);
        while (at_ < result_.size() && Vellum::isSpace(result_[at_])) ++at_;
        return result_.substr(begin, at_ - begin) == gap;
    }
    // The white space at the end of a token belongs to it, as far as it is still there.
    void passToken(std::string_view token) {
        if (result_.substr(at_, token.size()) == token) {
            at_ += token.size();
            return;
        }
        pass(token);
        const std::string_view tail = token.substr(Vellum::withoutTrailingSpace(token).size());
        if (result_.substr(at_, tail.size()) == tail) at_ += tail.size();
    }

private:
    void pass(std::string_view piece) {
        for (const char c : piece) {
            if (Vellum::isSpace(c)) continue;
            while (result_[at_] != c) ++at_;
            ++at_;
        }
    }

    std::string_view result_;
    std::size_t at_ = 0;
};

class EvidenceObserver : public GapObserver {
public:
    EvidenceObserver(const Scheme& scheme, EvidenceWanted wanted) : scheme_(scheme), wanted_(wanted) {}

    void observe(const GapText& text, const GapTable& gaps, std::string_view written, std::string_view result) override;

    GapEvidence evidence;

private:
    void addDecision(TokenIndex token);
    void addVotes(TokenIndex token, bool agrees);
    void voteForGap(TokenIndex token, bool agrees);
    void voteForIndent(TokenIndex token);
    void noteAligned(TokenIndex comment);
    void voteForDistance();
    void voteForLine(ValueVotes& votes, std::string value, std::optional<std::string> behind);
    std::size_t lineOf(TokenIndex token) const;
    std::string_view leadOf(TokenIndex token) const;
    std::string baseOf(std::uint32_t scope) const;
    std::optional<std::string> behindBase(std::string_view lead, std::string_view base) const;

    const Scheme& scheme_;
    const EvidenceWanted wanted_;
    const GapText* text_ = nullptr;
    const GapTable* gaps_ = nullptr;
    std::vector<std::uint32_t> lines_;  // where they begin in the source
    // Comments behind code that share a column, line by line
    std::size_t alignedLine_ = 0;  // of the last one, from 0
    std::size_t least_ = 0;        // the shortest gap in front of one; 0 if there is none
};

void EvidenceObserver::observe(const GapText& text, const GapTable& gaps, std::string_view written,
                               std::string_view /*result*/) {
    text_ = &text;
    gaps_ = &gaps;
    lines_ = {0};
    const std::string_view source = text.source();
    for (std::size_t at = source.find('\n'); at != std::string_view::npos; at = source.find('\n', at + 1)) {
        lines_.push_back(static_cast<std::uint32_t>(at + 1));
    }
    ResultWalk walk(written);
    evidence.agrees.reserve(text.size() + 1);
    evidence.agrees.push_back(true);
    for (TokenIndex token = 1; token <= text.size(); ++token) {
        const bool agrees = walk.passGap(text.gap(token));
        evidence.agrees.push_back(agrees);
        if (token < text.size()) walk.passToken(text.text(token));
        if (wanted_ == EvidenceWanted::Decisions) {
            addDecision(token);
        } else if (token < text.size() && !gaps.isFixed(token)) {
            addVotes(token, agrees);
        }
    }
    if (least_ > 0) voteForDistance();
}

void EvidenceObserver::addDecision(TokenIndex token) {
    if (token == 1) evidence.decisions.emplace_back();
    const Gap& gap = (*gaps_)[token];
    GapDecision decision{.sort = gap.sort, .rule = gap.rule, .column = gap.column};
    if (gaps_->startsLine(token)) {
        decision.mode = gaps_->scopes()[gap.scope].mode;
        decision.scopeRule = gaps_->scopes()[gap.scope].rule;
    }
    evidence.decisions.push_back(decision);
}

void EvidenceObserver::addVotes(TokenIndex token, bool agrees) {
    const Gap& gap = (*gaps_)[token];
    if (gap.sort != Gap::Sort::Keep && isProperty(gap.rule)) voteForGap(token, agrees);
    const IndentScope& scope = gaps_->scopes()[gap.scope];
    const bool isByScope = gap.sort == Gap::Sort::Keep ||
                           (gap.sort != Gap::Sort::Blanks && gaps_->tail(gap.rule).empty());
    const bool isIndented = scope.mode == Mode::Indent && hasText(scope.rule);
    if (isIndented && isByScope && text_->startsLine(token) && gaps_->startsLine(token)) voteForIndent(token);
}

void EvidenceObserver::voteForGap(TokenIndex token, bool agrees) {
    const Gap& gap = (*gaps_)[token];
    ValueVotes& votes = evidence.votes[static_cast<std::size_t>(gap.rule)];
    if (!hasText(gap.rule) || gap.sort == Gap::Sort::Column || gap.sort == Gap::Sort::LineColumn) {
        votes.add(agrees ? "1" : "0");
        if (gap.rule == ruleOf<&Scheme::alignTrailingComments>() && text_->isComment(token)) noteAligned(token);
        return;
    }
    int feeds = text_->lineFeeds(token);
    if (feeds == 0) return votes.add(text_->gap(token));
    if (gap.sort == Gap::Sort::Break) feeds = 1;
    std::string value(static_cast<std::size_t>(std::min(feeds, mostLineFeeds)), '\n');
    const IndentScope& scope = gaps_->scopes()[gap.scope];
    const bool isAtBase = scope.rule == GapRule::None && (scope.mode == Mode::Indent || scope.mode == Mode::Distance);
    if (isAtBase && !text_->isComment(token)) {
        voteForLine(votes, std::move(value), behindBase(leadOf(token), baseOf(gap.scope)));
    } else {
        votes.add(value);
    }
}

void EvidenceObserver::voteForIndent(TokenIndex token) {
    const std::uint32_t scope = (*gaps_)[token].scope;
    ValueVotes& votes = evidence.votes[static_cast<std::size_t>(gaps_->scopes()[scope].rule)];
    voteForLine(votes, {}, behindBase(leadOf(token), baseOf(scope)));
}

void EvidenceObserver::voteForLine(ValueVotes& votes, std::string value, std::optional<std::string> behind) {
    behind ? votes.add(value + *behind) : votes.addOther();
}

// The longest line of a group tells the distance between code and comments.
void EvidenceObserver::noteAligned(TokenIndex comment) {
    const std::string_view gap = text_->gap(comment);
    const std::size_t line = lineOf(comment);
    if (least_ > 0 && line != alignedLine_ + 1) voteForDistance();
    alignedLine_ = line;
    if (text_->lineFeeds(comment) > 0 || gap.find('\t') != std::string_view::npos) return;
    least_ = least_ == 0 ? gap.size() : std::min(least_, gap.size());
}

void EvidenceObserver::voteForDistance() {
    constexpr auto row = static_cast<std::size_t>(ruleOf<&Scheme::wsBeforeTrailingComment>());
    evidence.votes[row].add(std::string(least_, ' '));
    least_ = 0;
}

// Of the source, from 0.
std::size_t EvidenceObserver::lineOf(TokenIndex token) const {
    const auto behind = std::upper_bound(lines_.begin(), lines_.end(), text_->token(token).begin);
    return static_cast<std::size_t>(behind - lines_.begin()) - 1;
}

// What the line of the source begins with on which the token stands.
std::string_view EvidenceObserver::leadOf(TokenIndex token) const {
    const std::string_view line = text_->source().substr(lines_[lineOf(token)]);
    return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
}

// What the lines of a scope would begin with if it had no text of its own.
std::string EvidenceObserver::baseOf(std::uint32_t scope) const {
    const IndentScope& inner = gaps_->scopes()[scope];
    if (inner.isAnchored) return std::string(leadOf(inner.anchor()));
    if (inner.base() == scope) return {};
    std::string base = baseOf(inner.base());
    if (inner.isBelow) base += gaps_->text(gaps_->scopes()[inner.base()].rule);
    return base;
}

// The white space by which a line stands further to the right; nothing if it stands further to the left.
std::optional<std::string> EvidenceObserver::behindBase(std::string_view lead, std::string_view base) const {
    if (lead.starts_with(base)) {
        const std::string_view rest = lead.substr(base.size());
        const bool isOfTabs = rest.find(' ') == std::string_view::npos;
        if (isOfTabs || rest.find('\t') == std::string_view::npos) return std::string(rest);
    }
    const int width = columnBehind(lead, 0, scheme_.tabSize) - columnBehind(base, 0, scheme_.tabSize);
    if (width < 0) return std::nullopt;
    return std::string(static_cast<std::size_t>(width), ' ');
}

}  // namespace

std::optional<GapEvidence> findGapEvidence(const FormatterProperties& properties, std::string_view source,
                                           EvidenceWanted wanted) {
    EvidenceObserver observer(properties.scheme, wanted);
    Trn::ParseMessageList messages;
    UpdateFunctor update;
    FormatResult result = SecondEdition(&observer).format(properties, source, messages, update);
    if (!result.isFormatted()) return std::nullopt;
    observer.evidence.result = std::move(result.text);
    return std::move(observer.evidence);
}

}  // namespace Brevis
