// The last stage of a run: nothing is decided here but what a new line begins with.
#include "second/Brevis_GapWriter.h"

#include <algorithm>

#include "second/Brevis_BlankConverter.h"
#include "second/Brevis_KeptColumns.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Mode = IndentScope::Mode;

namespace {

constexpr std::string_view pageBreaks = "\f\v";

// Nothing is aligned with what stands further to the right: a line of a million tokens would make a million such lines.
constexpr int widestColumn = 2000;

// For gaps, which hold one blank or none as a rule.
bool areSame(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    return a.empty() || (a[0] == b[0] && (a.size() == 1 || a == b));
}

}  // namespace

GapWriter::GapWriter(const GapText& text, const Scheme& scheme, const GapTable& gaps, KeptColumns* kept)
    : text_(text),
      scheme_(scheme),
      gaps_(gaps),
      kept_(kept),
      nextBlock_(kept != nullptr ? 1 : 0),
      columns_(scheme.tabSize),
      sourceColumns_(scheme.tabSize),
      ofScope_(gaps.scopes().size()) {
    lines_.push_back({});  // of the scopes without an anchor
}

// Only of scopes that indent a line: most hold none.
void GapWriter::findAnchors() {
    constexpr std::uint32_t isUsed = 1;
    const std::vector<IndentScope>& scopes = gaps_.scopes();
    for (TokenIndex token = 1; token < text_.size(); ++token) {
        if (text_.lineFeeds(token) == 0 && gaps_[token].sort <= Gap::Sort::Blanks) continue;
        for (std::uint32_t scope = gaps_[token].scope; ofScope_[scope] == 0; scope = scopes[scope].base()) {
            ofScope_[scope] = isUsed;
        }
    }
    for (std::uint32_t scope = 0; scope < scopes.size(); ++scope) {
        if (ofScope_[scope] == 0) continue;
        ofScope_[scope] = 0;
        if (scopes[scope].isAnchored) anchored_.push_back(scope);
    }
    // Those of the walk are in order, and so are those that came later.
    const auto isEarlier = [&](std::uint32_t a, std::uint32_t b) { return scopes[a].anchor() < scopes[b].anchor(); };
    const auto later = std::is_sorted_until(anchored_.begin(), anchored_.end(), isEarlier);
    if (!std::is_sorted(later, anchored_.end(), isEarlier)) std::stable_sort(later, anchored_.end(), isEarlier);
    std::inplace_merge(anchored_.begin(), later, anchored_.end(), isEarlier);
    bases_.resize(anchored_.size() + 1);
    for (std::size_t at = 0; at < anchored_.size(); ++at) ofScope_[anchored_[at]] = static_cast<std::uint32_t>(at + 1);
}

// What most gaps are: within a line before and afterwards. False for any other, of which nothing is written.
template <GapWriter::Columns columns>
bool GapWriter::writeInLine(TokenIndex token, const GapToken& at) {
    const Gap gap = gaps_[token];
    const GapToken& before = text_.token(token - 1);
    if (at.lineFeeds > 0 || gap.sort > Gap::Sort::Blanks || token == 1 || Trn::isLineToken(before.kind)) return false;
    isLineStart_ = false;
    const std::string_view there = text_.gap(token);
    const std::string_view wanted = gap.sort == Gap::Sort::Blanks ? gaps_.text(gap.rule) : there;
    if constexpr (columns == Columns::OfAll) laidColumn_ = columnBehind(wanted, laidColumn_, scheme_.tabSize);
    if (areSame(wanted, there)) {
        copyTo(at.begin);
    } else {
        replaceTo(at.begin, wanted);
    }
    return true;
}

template <GapWriter::Columns columns>
void GapWriter::run() {
    findAnchors();
    findNextAnchor();
    runFrom<columns>(1, text_.size());
}

// Goes on to the next token that needs more than a look, as all do that begin or end a line or change.
TokenIndex GapWriter::passUnchanged(TokenIndex token, TokenIndex end) {
    if (fresh_ != nextAnchor_ || token == 1 || Trn::isLineToken(text_.kind(token - 1))) return token;
    end = std::min(end, nextAnchorToken_);
    if (nextBlock_ != 0) end = std::min(end, nextBlock_);
    const TokenIndex begin = token;
    for (; token < end; ++token) {
        const GapToken& at = text_.token(token);
        const Gap gap = gaps_[token];
        if (at.lineFeeds > 0 || at.holdsLines || Trn::isTrivia(at.kind) || gap.sort > Gap::Sort::Blanks) break;
        if (gap.sort == Gap::Sort::Blanks && !areSame(gaps_.text(gap.rule), text_.gap(token))) break;
    }
    if (token == begin) return token;
    isLineStart_ = false;
    copyTo(text_.token(token - 1).end);
    return token;
}

// Up to the gap of the token `end`.
template <GapWriter::Columns columns>
void GapWriter::runFrom(TokenIndex first, TokenIndex end) {
    const bool isMarking = converts_ && columns == Columns::OfNone;
    const bool isTrimming = scheme_.removeTrailingWs;
    for (TokenIndex token = first;; ++token) {
        if (columns != Columns::OfAll && !isMarking) token = passUnchanged(token, end);
        if (token == nextBlock_ && columns != Columns::OfAll) keepColumns(token);
        const GapToken& at = text_.token(token);
        const bool isInDraft = columns == Columns::OfComments && Trn::isTrivia(at.kind);
        if (isInDraft) noteGap(token);
        if constexpr (columns == Columns::OfAll) (*places_)[token - placesBegin_].gap = laidColumn_;
        if (isMarking) pieces_.endAt(position());
        if (token == end || !writeInLine<columns>(token, at)) {
            if (at.lineFeeds > 0) beginSourceLine(lineBeginOf(at.begin));
            writeGap(token);
            if constexpr (columns == Columns::OfAll) laidColumn_ = column();
            if (columns == Columns::OfComments && gaps_.startsLine(token)) firstLine_ = lineNumber_;
        }
        if (isInDraft) notePlace(token);
        if (fresh_ != nextAnchor_) noteBehind(token);
        if (isMarking) pieces_.endAt(position());
        if constexpr (columns == Columns::OfAll) {
            (*places_)[token - placesBegin_].column = laidColumn_;
            (*places_)[token - placesBegin_].line = lineNumber_;
        }
        if (token == end) return;
        if (token >= nextAnchorToken_) noteAnchors(token);
        if (at.holdsLines || (isTrimming && Trn::isTrivia(at.kind))) {
            writeToken(token);
            if constexpr (columns == Columns::OfAll) laidColumn_ = column();
        } else {
            if constexpr (columns == Columns::OfAll) {
                laidColumn_ = text_.columnBehind(token, laidColumn_, scheme_.tabSize);
            }
            copyTo(at.end);
        }
    }
}

// Writes a block of lines that may share columns for their places alone, before it is written with those.
void GapWriter::keepColumns(TokenIndex begin) {
    const KeptColumns::Block block = kept_->blockFrom(begin);
    nextBlock_ = block.end < text_.size() ? block.end : 0;
    std::vector<LaidPlace>& places = kept_->places();
    if (block.hasWide) {
        const Progress here = progress();
        places.assign(block.end - begin + 1, {});
        places_ = &places;
        placesBegin_ = begin;
        laidColumn_ = column();
        runFrom<Columns::OfAll>(begin, block.end);
        places_ = nullptr;
        goBackTo(here);
    }
    kept_->read(block);
}

GapWriter::Progress GapWriter::progress() const {
    return {.outSize = out_.size(),
            .runBegin = runBegin_,
            .runEnd = runEnd_,
            .nextCode = nextCode_,
            .lineBegin = lineBegin_,
            .sourceLine = sourceLine_,
            .lineNumber = lineNumber_,
            .isLineStart = isLineStart_,
            .hasLine = hasLine_,
            .lines = lines_.size(),
            .nextAnchor = nextAnchor_,
            .nextAnchorToken = nextAnchorToken_,
            .fresh = fresh_};
}

void GapWriter::goBackTo(const Progress& progress) {
    out_.resize(progress.outSize);
    runBegin_ = progress.runBegin;
    runEnd_ = progress.runEnd;
    nextCode_ = progress.nextCode;
    lineBegin_ = progress.lineBegin;
    sourceLine_ = progress.sourceLine;
    lineNumber_ = progress.lineNumber;
    isLineStart_ = progress.isLineStart;
    hasLine_ = progress.hasLine;
    lines_.resize(progress.lines);
    for (std::size_t at = progress.nextAnchor; at < nextAnchor_; ++at) bases_[at + 1] = {};
    nextAnchor_ = progress.nextAnchor;
    nextAnchorToken_ = progress.nextAnchorToken;
    fresh_ = progress.fresh;
    indentScope_ = noScope;
    columns_.forget(out_.size());
    sourceColumns_.forget(runEnd_);
}

std::string GapWriter::write() {
    out_.reserve(2 * text_.source().size());
    converts_ = scheme_.convertWs == 2 || (scheme_.convertWs == 1 && mayHoldTabs());
    if (converts_) pieces_.reserve(2 * std::size_t{text_.size()});
    run<Columns::OfNone>();
    flush();
    if (!converts_) return std::move(out_);
    return convertBlanks(text_, gaps_, scheme_, out_, pieces_);
}

// Beside the tabs of the source only texts of the scheme bring some.
bool GapWriter::mayHoldTabs() const {
    const auto holdsTab = [](std::string_view text) { return text.find('\t') != std::string_view::npos; };
    return holdsTab(text_.source()) || holdsTab(scheme_.leftMargin.text) || gaps_.holdsTabs();
}

std::string GapWriter::writeDraft(std::vector<DraftPlace>& places) {
    out_.reserve(2 * text_.source().size());
    draftPlaces_ = &places;
    run<Columns::OfComments>();
    flush();
    return std::move(out_);
}

std::vector<LaidPlace> GapWriter::measure() {
    std::vector<LaidPlace> places(text_.size() + 1);
    places_ = &places;
    run<Columns::OfAll>();
    return places;
}

// In front of the gap of a comment or a directive.
void GapWriter::noteGap(TokenIndex token) {
    DraftPlace place;
    place.token = token;
    place.gap = column();
    place.gapBegin = static_cast<std::uint32_t>(position());
    draftPlaces_->push_back(place);
}

// Behind it.
void GapWriter::notePlace(TokenIndex token) {
    DraftPlace& place = draftPlaces_->back();
    place.line = lineNumber_;
    place.column = column();
    place.firstLine = firstLine_;
    place.begin = static_cast<std::uint32_t>(position());
    place.isFree = fresh_ == nextAnchor_ && token < nextAnchorToken_ && !text_.token(token).holdsLines;
}

std::size_t GapWriter::lineBeginOf(std::size_t offset) const {
    const std::string_view source = text_.source();
    while (source[offset - 1] != '\n') --offset;
    return offset;
}

// ---- Gaps

void GapWriter::writeGap(TokenIndex token) {
    const Gap& gap = gaps_[token];
    const Gap::Sort sort = gap.sort;
    isLineStart_ = token == 1;
    if (token == text_.size()) return writeEnd();
    const bool isInLine = sort == Gap::Sort::Blanks || sort == Gap::Sort::Column || sort == Gap::Sort::OwnColumn;
    if (isInLine && needsFeed(token)) {
        return writeLines(token, std::max(1, keptFeeds(token)), {});
    }
    switch (sort) {
        case Gap::Sort::Fixed:
        case Gap::Sort::Keep:
            return writeKept(token);
        case Gap::Sort::Blanks:
            return putGap(token, gaps_.text(gap.rule));
        case Gap::Sort::Column:
        case Gap::Sort::OwnColumn:
            return writeColumn(token);
        case Gap::Sort::LineColumn:
        case Gap::Sort::Lines:
            return writeLines(token, gaps_.lineFeeds(gap.rule), gaps_.tail(gap.rule));
        case Gap::Sort::Break: {
            const int least = std::max(1, gaps_.lineFeeds(gap.rule));
            return writeLines(token, std::max(least, keptFeeds(token)), gaps_.tail(gap.rule));
        }
    }
}

// Line comments and directives end their lines, and a directive begins one, though behind comments.
bool GapWriter::needsFeed(TokenIndex token) const {
    return token > 1 && (Trn::isLineToken(text_.kind(token - 1)) ||
                         (text_.kind(token) == Kind::Directive && text_.lineFeeds(token) > 0));
}

void GapWriter::writeKept(TokenIndex token) {
    const bool isFixed = gaps_[token].sort == Gap::Sort::Fixed;
    const int feeds = text_.lineFeeds(token);
    if (feeds == 0 && (token > 1 || isFixed)) return copyTo(text_.token(token).begin);
    if (!isFixed && !isStill(token)) return writeLines(token, keptFeeds(token), {});
    copyTo(text_.token(token).begin);
    isLineStart_ = true;
    countLines(text_.gap(token));
    beginLine(position() - (text_.token(token).begin - sourceLine_));
}

// True if the kept gap of a token that begins a line comes out as it stands.
bool GapWriter::isStill(TokenIndex token) const {
    const std::uint32_t scope = gaps_[token].scope;
    if (gaps_.scopes()[scope].mode != Mode::Distance || baseOf(scope).isStill == 0) return false;
    if (goesWithCode(token)) return false;
    const int feeds = text_.lineFeeds(token);
    if (scheme_.maxBlankLines >= 0 && (token == 1 || feeds > scheme_.maxBlankLines)) return false;
    if (!scheme_.removeTrailingWs) return true;
    return sourceLine_ - text_.token(token - 1).end == static_cast<std::size_t>(feeds);
}

// A directive that is indented as the code round it.
bool GapWriter::goesWithCode(TokenIndex token) const {
    return text_.kind(token) == Kind::Directive && !scheme_.alignPpdLeftMost.value_or(true);
}

// Behind the last token.
void GapWriter::writeEnd() {
    const TokenIndex end = text_.size();
    const bool isEmpty = end == 1;
    if (isEmpty || gaps_[end].sort == Gap::Sort::Fixed) return copyTo(text_.source().size());
    if (scheme_.wsAtEndOfFile.isSet) return putGap(end, scheme_.wsAtEndOfFile.text);
    scratch_.clear();
    const std::string_view gap = text_.gap(end);
    if (text_.lineFeeds(end) > 0) addFeeds(end, keptFeeds(end));
    if (!scheme_.removeTrailingWs) scratch_ += gap.substr(gap.rfind('\n') + 1);
    putGap(end, scratch_);
}

// A column that the author has made with tabs is made with tabs again.
void GapWriter::writeColumn(TokenIndex token) {
    int at = column();
    const int target = std::max(static_cast<int>(gaps_[token].column), at + 1);
    if (gaps_[token].sort == Gap::Sort::OwnColumn && columnBehind(text_.gap(token), at, scheme_.tabSize) == target) {
        return copyTo(text_.token(token).begin);
    }
    scratch_.clear();
    const bool wantsTabs = scheme_.convertWs == 2 && !text_.hasBlanksBeforeOperator(token);
    const bool hasTabs = wantsTabs || text_.gap(token).find('\t') != std::string_view::npos;
    if (hasTabs && gaps_[token].rule == ruleOf<&Scheme::keepAlignedColumns>()) {
        for (int stop = (at / scheme_.tabSize + 1) * scheme_.tabSize; stop <= target; stop += scheme_.tabSize) {
            scratch_ += '\t';
            at = stop;
        }
    }
    scratch_.append(static_cast<std::size_t>(target - at), ' ');
    putGap(token, scratch_);
}

void GapWriter::writeLines(TokenIndex token, int lineFeeds, std::string_view tail) {
    scratch_.clear();
    addFeeds(token, gaps_[token].sort == Gap::Sort::LineColumn ? keptFeeds(token) : lineFeeds);
    const std::size_t feedsSize = scratch_.size();
    addLead(token, tail);
    putGap(token, scratch_);
    isLineStart_ = true;
    beginLine(position() - (scratch_.size() - feedsSize));
    countLines(scratch_);
}

int GapWriter::sourceFeeds(TokenIndex token) const {
    const int feeds = text_.lineFeeds(token);
    if (feeds < 255) return feeds;
    const std::string_view gap = text_.gap(token);
    return static_cast<int>(std::count(gap.begin(), gap.end(), '\n'));
}

// Those of the source that the scheme allows. In front of the first token all are empty lines.
int GapWriter::keptFeeds(TokenIndex token) const {
    const int feeds = sourceFeeds(token);
    if (scheme_.maxBlankLines < 0) return feeds;
    return std::min(feeds, scheme_.maxBlankLines + (token == 1 ? 0 : 1));
}

// ---- What a new line begins with

// As many as the source has come with the blanks that it has among them. A page break is no blank.
void GapWriter::addFeeds(TokenIndex token, int lineFeeds) {
    const std::size_t end = text_.token(token - 1).end;
    const bool isPlain =
        text_.lineFeeds(token) == 0 || sourceLine_ - end == static_cast<std::size_t>(text_.lineFeeds(token));
    if (isPlain) {
        scratch_.append(static_cast<std::size_t>(lineFeeds), '\n');
        return;
    }
    const std::string_view feeds = text_.source().substr(end, sourceLine_ - end);
    if (feeds.find_first_of(pageBreaks) != std::string_view::npos) return addPageBreaks(token);
    if (gaps_[token].sort == Gap::Sort::Keep && !scheme_.removeTrailingWs && lineFeeds == sourceFeeds(token)) {
        scratch_ += feeds;
    } else {
        scratch_.append(static_cast<std::size_t>(lineFeeds), '\n');
    }
}

void GapWriter::addPageBreaks(TokenIndex token) {
    const std::string_view gap = text_.gap(token);
    for (const char c : gap.substr(0, gap.rfind('\n') + 1)) {
        if (!scheme_.removeTrailingWs || (c != ' ' && c != '\t')) scratch_ += c;
    }
}

// `tail` comes behind the indent where a rule begins the line, and where the rule has one.
void GapWriter::addLead(TokenIndex token, std::string_view tail) {
    const Gap& gap = gaps_[token];
    if (gap.sort == Gap::Sort::LineColumn) return padTo(gap.column);
    if (text_.kind(token) == Kind::Directive) tail = {};
    if (goesWithCode(token) && startsBelow(token)) return addLead(nextCode_, {});
    const IndentScope& scope = gaps_.scopes()[gap.scope];
    const Base& base = baseOf(gap.scope);
    const bool isInSource = text_.lineFeeds(token) > 0 || token == 1;
    switch (scope.mode) {
        case Mode::Margin:
            scratch_ += scheme_.leftMargin.text;
            return;
        case Mode::At:
            scratch_ += outLead(base);
            padTo(columnIn(base, base.at));
            break;
        case Mode::Behind:
            if (base.behind != 0 && columnIn(base, base.behind) <= widestColumn) {
                scratch_ += outLead(base);
                padTo(columnIn(base, base.behind));
                scratch_ += tail;
                return;
            }
            if (scope.rule == GapRule::None && isInSource && tail.empty()) return addDistance(token, base);
            scratch_ += outLead(base);
            break;
        case Mode::Indent:
            scratch_ += indentOf(gap.scope);
            scratch_ += tail;
            return;
        case Mode::Distance:
            if (goesWithCode(token)) return addAbove();
            if (isInSource && tail.empty()) return addDistance(token, base);
            scratch_ += outLead(base);
            break;
    }
    if (scope.rule != GapRule::None) scratch_ += gaps_.text(scope.rule);
    scratch_ += tail;
}

// What the lines of a scope with a text begin with. Lines that follow each other mostly have the same.
std::string_view GapWriter::indentOf(std::uint32_t scope) {
    if (scope == indentScope_) return indent_;
    indent_.clear();
    addBase(scope);
    const GapRule rule = gaps_.scopes()[scope].rule;
    if (rule != GapRule::None) indent_ += gaps_.text(rule);
    indentScope_ = scope;
    return indent_;
}

// The base of a scope, with what the scopes that it stands below add to it.
void GapWriter::addBase(std::uint32_t scope) {
    const IndentScope& inner = gaps_.scopes()[scope];
    if (inner.isAnchored || inner.base() == scope) {
        indent_ += outLead(bases_[ofScope_[scope]]);
        return;
    }
    addBase(inner.base());
    if (inner.isBelow) indent_ += gaps_.text(gaps_.scopes()[inner.base()].rule);
}

// Whether the code behind a directive begins a line, and closes nothing.
bool GapWriter::startsBelow(TokenIndex directive) {
    if (nextCode_ < directive) nextCode_ = text_.next(directive);
    const TokenIndex partner = text_.partner(nextCode_);
    return nextCode_ < text_.size() && (partner == 0 || partner > nextCode_) && gaps_.startsLine(nextCode_);
}

// What the line above begins with.
void GapWriter::addAbove() {
    flush();
    const std::string_view above = std::string_view(out_).substr(lineBegin_);
    scratch_ += above.substr(0, blankSize(above));
}

// The white space of the source, moved by as much as the line of the anchor was. What stands in the source's column
// behind the anchor stands there again, but not the lines of a body, below its head by chance.
void GapWriter::addDistance(TokenIndex token, const Base& base) {
    const std::string_view gap = text_.gap(token);
    const std::string_view lead = gap.substr(gap.rfind('\n') + 1);
    if (base.isStill != 0) {
        scratch_ += lead;
        return;
    }
    const std::string_view from = sourceLead(base);
    const std::string_view to = outLead(base);
    const int width = columnBehind(lead, 0, scheme_.tabSize);
    const bool isOwn = gaps_.scopes()[gaps_[token].scope].isAnchored;
    if (isOwn && base.behind != 0 && base.sourceBehind != 0 && sourceBehindColumn(base) == width) {
        if (from == to && columnIn(base, base.behind) == width) {
            scratch_ += lead;
            return;
        }
        scratch_ += to;
        padTo(columnIn(base, base.behind));
        return;
    }
    const int shift = columnBehind(to, 0, scheme_.tabSize) - columnBehind(from, 0, scheme_.tabSize);
    if (lead.starts_with(from) && !bendsTabs(lead.substr(from.size()), shift)) {
        scratch_ += to;
        scratch_ += lead.substr(from.size());
    } else {
        addWidth(to, width + shift);
    }
}

// White space of this width, made as far as it goes of the white space `sample`.
void GapWriter::addWidth(std::string_view sample, int width) {
    int reached = 0;
    for (const char c : sample) {
        const int next = columnBehind({&c, 1}, reached, scheme_.tabSize);
        if (next > width) break;
        scratch_ += c;
        reached = next;
    }
    if (width > reached) scratch_.append(static_cast<std::size_t>(width - reached), ' ');
}

void GapWriter::padTo(int column) {
    const int reached = scratchColumn();
    if (column > reached) scratch_.append(static_cast<std::size_t>(column - reached), ' ');
}

int GapWriter::scratchColumn() const {
    const std::string_view text = scratch_;
    return columnBehind(text.substr(text.rfind('\n') + 1), 0, scheme_.tabSize);
}

// ---- Scopes

const GapWriter::Base& GapWriter::baseOf(std::uint32_t scope) const {
    const std::vector<IndentScope>& scopes = gaps_.scopes();
    while (!scopes[scope].isAnchored && scope != scopes[scope].base()) scope = scopes[scope].base();
    return bases_[ofScope_[scope]];
}

void GapWriter::findNextAnchor() {
    const bool isLast = nextAnchor_ == anchored_.size();
    nextAnchorToken_ = isLast ? text_.size() : gaps_.scopes()[anchored_[nextAnchor_]].anchor();
}

void GapWriter::noteAnchors(TokenIndex token) {
    indentScope_ = noScope;
    Base fresh;
    fresh.line = lineIndex() & 0x7FFFFFFFU;
    fresh.at = static_cast<std::uint32_t>(position());
    fresh.isStill = isLineStill() ? 1 : 0;
    fresh_ = nextAnchor_;
    for (; token >= nextAnchorToken_; ++nextAnchor_, findNextAnchor()) {
        bases_[nextAnchor_ + 1] = fresh;
    }
}

// Behind the anchors at the last token.
void GapWriter::noteBehind(TokenIndex token) {
    if (!text_.token(token - 1).holdsLines) {
        for (std::size_t at = fresh_; at < nextAnchor_; ++at) {
            Base& base = bases_[at + 1];
            if (!isLineStart_) base.behind = static_cast<std::uint32_t>(position());
            if (text_.lineFeeds(token) == 0) base.sourceBehind = text_.token(token).begin;
            if (!isLineStill() || isLineStart_ != (text_.lineFeeds(token) > 0)) base.isStill = 0;
        }
        if (columns_.needsMark(lineBegin_, position())) {
            flush();
            columns_.mark(out_, lineBegin_, out_.size());
        }
        if (sourceColumns_.needsMark(sourceLine_, text_.token(token).begin)) {
            sourceColumns_.mark(text_.source(), sourceLine_, text_.token(token).begin);
        }
    }
    fresh_ = nextAnchor_;
}

std::uint32_t GapWriter::lineIndex() {
    if (!hasLine_) {
        Line line;
        line.out = static_cast<std::uint32_t>(lineBegin_);
        line.source = static_cast<std::uint32_t>(sourceLine_);
        line.sourceSize = static_cast<std::uint32_t>(blankSize(text_.source().substr(sourceLine_)));
        line.isStill = isLineStill();
        if (!line.isStill) {
            flush();
            line.outSize = static_cast<std::uint32_t>(blankSize(std::string_view(out_).substr(lineBegin_)));
        }
        lines_.push_back(line);
        hasLine_ = true;
    }
    return static_cast<std::uint32_t>(lines_.size() - 1);
}

std::string_view GapWriter::outLead(const Base& base) {
    const Line& line = lines_[base.line];
    if (line.isStill) return sourceLead(base);
    flush();
    return std::string_view(out_).substr(line.out, line.outSize);
}

std::string_view GapWriter::sourceLead(const Base& base) const {
    const Line& line = lines_[base.line];
    return text_.source().substr(line.source, line.sourceSize);
}

// Of a place on the line of the anchor.
int GapWriter::columnIn(const Base& base, std::uint32_t offset) {
    flush();
    return columns_.columnOf(out_, lines_[base.line].out, offset);
}

int GapWriter::sourceBehindColumn(const Base& base) {
    return sourceColumns_.columnOf(text_.source(), lines_[base.line].source, base.sourceBehind);
}

// ---- Tokens

void GapWriter::writeToken(TokenIndex token) {
    const GapToken& at = text_.token(token);
    if (at.holdsLines && movesWithLine(token)) {
        writeLaterLines(token, text_.text(token));
    } else if (at.holdsLines && at.kind == Kind::Directive && writeBranch(token)) {
        return;
    } else if (scheme_.removeTrailingWs && text_.isTrivia(token) && !gaps_.isFixed(token)) {
        const bool endsLine = text_.endsLine(token);
        const std::string_view trimmed = endsLine ? trimmedLine(text_.text(token)) : text_.text(token);
        if (trimmed.size() != at.end - at.begin) {
            copyTo(at.begin + trimmed.size());
            replaceTo(at.end, {});
        }
    }
    copyTo(at.end);
    if (!at.holdsLines) return;
    const std::string_view text = text_.text(token);
    countLines(text);
    beginSourceLine(at.begin + text.rfind('\n') + 1);
    if (runBegin_ <= sourceLine_) return beginLine(position() - (at.end - sourceLine_));
    flush();
    beginLine(out_.rfind('\n') + 1);
}

// What was read as one token with the lines of a branch: those move with the code round it that the first one stands
// below. False if it comes out as it stands.
bool GapWriter::writeBranch(TokenIndex token) {
    const std::string_view text = text_.text(token);
    if (gaps_.isFixed(token) || !holdsBranch(text)) return false;
    std::string branch = movedBranch(text, branchShift(token), scheme_.tabSize, scheme_.convertWs == 2);
    if (scheme_.removeTrailingWs) branch = trimmedBranch(branch);
    if (branch == text) return false;
    replaceTo(text_.token(token).end, branch);
    countLines(text);
    beginSourceLine(text_.token(token).begin + text.rfind('\n') + 1);
    beginLine(out_.rfind('\n') + 1);
    return true;
}

int GapWriter::branchShift(TokenIndex branch) {
    const TokenIndex code = neighbourOf(branch, firstColumn(text_.text(branch), scheme_.tabSize));
    if (code == 0) return 0;
    const Gap& gap = gaps_[code];
    const bool isBegun = gap.sort == Gap::Sort::Lines || gap.sort == Gap::Sort::Break;
    scratch_.clear();
    addLead(code, isBegun ? gaps_.tail(gap.rule) : std::string_view());
    return scratchColumn() - text_.column(code, scheme_.tabSize);
}

// The code behind a branch, or one of the lines in front of it, that begins in the column.
TokenIndex GapWriter::neighbourOf(TokenIndex branch, int column) {
    constexpr int linesAbove = 3;
    const auto isBeside = [&](TokenIndex code) {
        return gaps_.startsLine(code) && text_.column(code, scheme_.tabSize) == column;
    };
    if (startsBelow(branch) && isBeside(nextCode_)) return nextCode_;
    TokenIndex code = branch;
    for (int line = 0; line < linesAbove && code > 1; ++line) {
        do code = text_.previous(code);
        while (code > 0 && !text_.startsLine(code));
        if (code > 0 && isBeside(code)) return code;
    }
    return 0;
}

// Whether a token has lines whose white space means nothing: a comment, or a name behind `::`.
bool GapWriter::movesWithLine(TokenIndex token) const {
    if (gaps_.isFixed(token)) return false;
    return text_.kind(token) == Kind::BlockComment || text_.isNameOverLines(token);
}

// The later lines of a comment move with its beginning, those of a name with the line.
void GapWriter::writeLaterLines(TokenIndex token, std::string_view text) {
    const bool isStill = isLineStill();
    const bool isComment = text_.isComment(token);
    const bool trims = isComment && scheme_.removeTrailingWs;
    if (isStill && !trims) return;
    const std::string_view from = text_.source().substr(sourceLine_, blankSize(text_.source().substr(sourceLine_)));
    flush();
    const std::string to = out_.substr(lineBegin_, blankSize(std::string_view(out_).substr(lineBegin_)));
    const bool goesByLine = isLineStart_ || !isComment;
    const int shift = isStill      ? 0
                      : goesByLine ? columnBehind(to, 0, scheme_.tabSize) - columnBehind(from, 0, scheme_.tabSize)
                                   : column() - sourceColumn(token);
    // Where blanks turn into tabs, only the width counts.
    const bool isMoved = shift != 0 || (goesByLine && from != to && scheme_.convertWs != 2);
    if (!isMoved && !trims) return;

    scratch_.clear();
    std::size_t end = text.find('\n');
    scratch_ += isComment ? trimmedLine(text.substr(0, end)) : text.substr(0, end);
    while (end != std::string_view::npos) {
        const std::size_t begin = end + 1;
        end = text.find('\n', begin);
        const std::string_view whole = text.substr(begin, end - begin);
        const std::string_view line = isComment ? trimmedLine(whole) : whole;
        const std::string_view lead = line.substr(0, blankSize(line));
        scratch_ += '\n';
        if (!isMoved || lead.size() == line.size()) {
            scratch_ += line;
            continue;
        }
        if (goesByLine && lead.starts_with(from) && !bendsTabs(lead.substr(from.size()), shift)) {
            scratch_ += to;
            scratch_ += lead.substr(from.size());
        } else {
            addWidth(lead, columnBehind(lead, 0, scheme_.tabSize) + shift);
        }
        scratch_ += line.substr(lead.size());
    }
    replaceTo(text_.token(token).end, scratch_);
}

// A backslash takes the white space behind it for its own.
std::string_view GapWriter::trimmedLine(std::string_view line) const {
    if (!scheme_.removeTrailingWs) return line;
    const std::size_t last = line.find_last_not_of(" \t");
    if (last == std::string_view::npos) return {};
    return line[last] == '\\' || line.substr(0, last + 1).ends_with("?\?/") ? line : line.substr(0, last + 1);
}

// ---- The output

void GapWriter::putGap(TokenIndex token, std::string_view text) {
    if (text == text_.gap(token)) return copyTo(text_.token(token).begin);
    replaceTo(text_.token(token).begin, text);
}

// Writes `text` for the source up to there.
void GapWriter::replaceTo(std::size_t sourceEnd, std::string_view text) {
    flush();
    out_ += text;
    runBegin_ = runEnd_ = sourceEnd;
}

void GapWriter::flush() {
    if (runBegin_ == runEnd_) return;
    out_.append(text_.source().data() + runBegin_, runEnd_ - runBegin_);
    runBegin_ = runEnd_;
}

// The line begins in the stretch that is still to be copied, and so does that of the source.
bool GapWriter::isLineStill() const {
    return lineBegin_ >= out_.size() && runBegin_ + (lineBegin_ - out_.size()) == sourceLine_;
}

void GapWriter::countLines(std::string_view text) {
    if (places_ != nullptr || draftPlaces_ != nullptr) lineNumber_ += static_cast<std::uint32_t>(std::count(text.begin(),
                                                                                                            text.end(),
                                                                                                            '\n'));
}

void GapWriter::beginLine(std::size_t outOffset) {
    lineBegin_ = outOffset;
    hasLine_ = false;
}

void GapWriter::beginSourceLine(std::size_t offset) {
    sourceLine_ = offset;
    hasLine_ = false;
}

int GapWriter::column() {
    flush();
    return columns_.columnOf(out_, lineBegin_, out_.size());
}

int GapWriter::sourceColumn(TokenIndex token) {
    return sourceColumns_.columnOf(text_.source(), sourceLine_, text_.token(token).begin);
}

}  // namespace Brevis
