// A run with an observer, then a walk over the source, what the writer made of it and what the guard left of that. The
// three hold the same characters beside their white space.
#include "second/Brevis_GapReport.h"

#include <algorithm>
#include <iterator>

#include "Vellum_WhiteSpace.h"
#include "second/Brevis_GapTable.h"
#include "second/Brevis_LineColumns.h"
#include "second/Brevis_SecondEdition.h"

namespace Brevis {

using Mode = IndentScope::Mode;

namespace {

struct CauseName {
    GapCause cause;
    std::string_view name;
};
constexpr CauseName causeNames[] = {
    {GapCause::Indent, "indent"},   {GapCause::Guard, "guard"},        {GapCause::Nothing, "nothing"},
    {GapCause::Blank, "blank"},     {GapCause::LineFeed, "line-feed"}, {GapCause::Column, "column"},
    {GapCause::Comment, "comment"}, {GapCause::LineEnd, "line-end"},   {GapCause::CommentLine, "comment-line"},
};

struct Reason {
    GapCause cause = GapCause::Property;
    const PropertyInfo* property = nullptr;
};

constexpr Reason keyOf(GapRule rule) { return {GapCause::Property, &Catalogue::properties[static_cast<int>(rule)]}; }

Reason reasonOf(GapRule rule) {
    switch (rule) {
        case GapRule::None:
            return {GapCause::Indent};
        case GapRule::Nothing:
            return {GapCause::Nothing};
        case GapRule::Blank:
            return {GapCause::Blank};
        case GapRule::LineFeed:
            return {GapCause::LineFeed};
        case GapRule::Aligned:
            return {GapCause::Column};
        case GapRule::Wrapped:
            return keyOf(ruleOf<&Scheme::lineWrap>());
        case GapRule::Comment:
            return {GapCause::Comment};
        default:
            return static_cast<std::size_t>(rule) < std::size(Catalogue::properties) ? keyOf(rule)
                                                                                     : Reason{GapCause::Indent};
    }
}

// A stretch of white space in one of the texts; moves on over what is equal in all of them.
struct Stretch {
    std::string_view text;
    std::size_t begin = 0, end = 0;

    void read() {
        end = begin;
        while (end < text.size() && Vellum::isSpace(text[end])) ++end;
    }
    std::string_view space() const { return text.substr(begin, end - begin); }
    void passCharacter() { begin = end + 1; }
};

std::ptrdiff_t countLineFeeds(std::string_view text) { return std::count(text.begin(), text.end(), '\n'); }

// Up to the last line feed, and with it.
std::string_view headOf(std::string_view space) { return space.substr(0, space.rfind('\n') + 1); }

class ChangeFinder {
public:
    ChangeFinder(const GapText& text, const Scheme& scheme, const GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps), source_{text.source()}, lines_{0} {}

    std::vector<GapChange> run(std::string_view written, std::string_view result);

private:
    void add(std::string_view after, bool isMended);
    Reason reasonOfGap(std::string_view before, std::string_view after) const;
    Reason reasonOfIndent() const;
    bool isIndentOfScope(const Gap& gap) const;
    bool isConverted(std::string_view before, std::string_view after) const;
    bool isInsideToken() const;
    int lineAt(std::size_t offset) const;
    int ownerLine() const;

    const GapText& text_;
    const Scheme& scheme_;
    const GapTable& gaps_;
    Stretch source_;
    TokenIndex token_ = 1;            // the first that begins at the end of the stretch or behind it
    std::vector<std::size_t> lines_;  // where they begin
    std::vector<GapChange> changes_;
};

std::vector<GapChange> ChangeFinder::run(std::string_view written, std::string_view result) {
    Stretch before{written}, after{result};
    for (;;) {
        for (Stretch* stretch : {&source_, &before, &after}) stretch->read();
        for (std::size_t at = source_.begin; at < source_.end; ++at) {
            if (source_.text[at] == '\n') lines_.push_back(at + 1);
        }
        if (source_.space() != after.space()) add(after.space(), before.space() != after.space());
        if (source_.end == source_.text.size()) return std::move(changes_);
        for (Stretch* stretch : {&source_, &before, &after}) stretch->passCharacter();
    }
}

void ChangeFinder::add(std::string_view after, bool isMended) {
    while (token_ < text_.size() && text_.token(token_).begin < source_.end) ++token_;
    const std::string_view before = source_.space();
    const Reason reason = isMended ? Reason{GapCause::Guard} : reasonOfGap(before, after);
    const bool isIndentOnly = before.find('\n') != std::string_view::npos && headOf(before) == headOf(after);
    const int line = static_cast<int>(lines_.size());

    GapChange change;
    change.begin = static_cast<std::uint32_t>(source_.begin);
    change.end = static_cast<std::uint32_t>(source_.end);
    change.text = after;
    change.tokenEnd = text_.token(isInsideToken() ? token_ - 1 : token_).end;
    change.place = {line, static_cast<int>(source_.end - lines_.back()) + 1};
    change.firstLine = isIndentOnly ? line : lineAt(source_.begin);
    change.cause = reason.cause;
    change.property = reason.property;
    if (reason.cause == GapCause::Indent) change.ownerLine = ownerLine();
    changes_.push_back(std::move(change));
}

// Of a place that has been passed.
int ChangeFinder::lineAt(std::size_t offset) const {
    return static_cast<int>(std::ranges::upper_bound(lines_, offset) - lines_.begin());
}

int ChangeFinder::ownerLine() const {
    const std::vector<IndentScope>& scopes = gaps_.scopes();
    std::uint32_t scope = gaps_[token_].scope;
    while (!scopes[scope].isAnchored && scope != scopes[scope].base()) scope = scopes[scope].base();
    if (scopes[scope].anchor() == 0) return 0;
    const int line = lineAt(text_.token(scopes[scope].anchor()).begin);
    return line < static_cast<int>(lines_.size()) ? line : 0;
}

bool ChangeFinder::isInsideToken() const {
    return text_.token(token_).begin > source_.end && text_.token(token_ - 1).end > source_.end;
}

Reason ChangeFinder::reasonOfGap(std::string_view before, std::string_view after) const {
    const std::ptrdiff_t feeds = countLineFeeds(before), newFeeds = countLineFeeds(after);
    const bool isIndent = (feeds > 0 || source_.begin == 0) && headOf(before) == headOf(after);
    if (isIndent && isConverted(before, after)) return keyOf(ruleOf<&Scheme::convertWs>());
    if (isInsideToken()) {
        if (isIndent) return {GapCause::CommentLine};
        if (feeds > 0 && scheme_.removeTrailingWs) return keyOf(ruleOf<&Scheme::removeTrailingWs>());
        return scheme_.convertWs != 0 ? keyOf(ruleOf<&Scheme::convertWs>()) : Reason{GapCause::CommentLine};
    }
    const Gap& gap = gaps_[token_];
    if (isIndent && isIndentOfScope(gap)) return reasonOfIndent();
    if (token_ == text_.size() && scheme_.wsAtEndOfFile.isSet) return keyOf(ruleOf<&Scheme::wsAtEndOfFile>());
    const bool isKept = gap.rule == GapRule::None || gap.sort == Gap::Sort::Keep || gap.sort == Gap::Sort::Fixed;
    const bool losesLines = newFeeds > 0 && newFeeds < feeds && scheme_.maxBlankLines >= 0;
    if (losesLines && (isKept || gap.sort == Gap::Sort::Break)) return keyOf(ruleOf<&Scheme::maxBlankLines>());
    if (!isKept) return reasonOf(gap.rule);
    if (newFeeds > feeds) return {GapCause::LineEnd};
    const bool isTrailing = feeds > 0 || token_ == text_.size();
    if (isTrailing && scheme_.removeTrailingWs) return keyOf(ruleOf<&Scheme::removeTrailingWs>());
    return scheme_.convertWs != 0 ? keyOf(ruleOf<&Scheme::convertWs>()) : Reason{GapCause::Indent};
}

// Whether a line that begins with the gap is indented by nothing but its scope.
bool ChangeFinder::isIndentOfScope(const Gap& gap) const {
    if (gap.sort == Gap::Sort::Keep || gap.sort == Gap::Sort::Fixed) return true;
    return (gap.sort == Gap::Sort::Lines || gap.sort == Gap::Sort::Break) && gaps_.tail(gap.rule).empty();
}

// Whether an indent has only tabs for blanks, or blanks for tabs.
bool ChangeFinder::isConverted(std::string_view before, std::string_view after) const {
    return scheme_.convertWs != 0 &&
           columnBehind(before.substr(headOf(before).size()), 0, scheme_.tabSize) ==
           columnBehind(after.substr(headOf(after).size()), 0, scheme_.tabSize);
}

// What the line begins with comes from its scope, and from nothing but the lines around it where that has no key.
Reason ChangeFinder::reasonOfIndent() const {
    const IndentScope& scope = gaps_.scopes()[gaps_[token_].scope];
    switch (scope.mode) {
        case Mode::Margin:
            return text_.kind(token_) == Trn::Kind::Directive ? keyOf(ruleOf<&Scheme::alignPpdLeftMost>())
                                                              : keyOf(ruleOf<&Scheme::alignLabelsLeftMost>());
        case Mode::Behind:
            if (!gaps_.startsLine(scope.anchor() + 1)) return keyOf(ruleOf<&Scheme::alignContinuationLeft>());
            break;
        default:
            break;
    }
    return reasonOf(scope.rule);
}

class ChangeObserver : public GapObserver {
public:
    explicit ChangeObserver(const Scheme& scheme) : scheme_(scheme) {}

    void observe(const GapText& text, const GapTable& gaps, std::string_view written,
                 std::string_view result) override {
        changes = ChangeFinder(text, scheme_, gaps).run(written, result);
    }

    std::vector<GapChange> changes;

private:
    const Scheme& scheme_;
};

}  // namespace

std::string_view nameOf(const GapChange& change) {
    if (change.property != nullptr) return change.property->key;
    for (const auto& [cause, name] : causeNames) {
        if (cause == change.cause) return name;
    }
    return {};
}

bool hasGapReport(const Scheme& scheme) { return scheme.edition == 2; }

std::optional<std::vector<GapChange>> findGapChanges(const FormatterProperties& properties, std::string_view source,
                                                     Trn::ParseMessageList& messages) {
    ChangeObserver observer(properties.scheme);
    UpdateFunctor update;
    if (!SecondEdition(&observer).format(properties, source, messages, update).isFormatted()) return std::nullopt;
    return std::move(observer.changes);
}

}  // namespace Brevis
