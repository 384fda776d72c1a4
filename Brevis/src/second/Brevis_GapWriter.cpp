// The last stage of a run: nothing is decided here but what a new line begins with.
#include "second/Brevis_GapWriter.h"

#include <algorithm>

namespace Brevis {

namespace Kind = Trn::Kind;
using Mode = IndentScope::Mode;
using Sort = Gap::Sort;

namespace {

std::size_t blankSize(std::string_view text) {
    const std::size_t size = text.find_first_not_of(" \t");
    return size == std::string_view::npos ? text.size() : size;
}

}  // namespace

GapWriter::GapWriter(const GapText& text, const Scheme& scheme, const GapTable& gaps)
    : text_(text), scheme_(scheme), gaps_(gaps), bases_(gaps.scopes().size()) {}

std::string GapWriter::write() {
    out_.reserve(text_.source().size() + text_.source().size() / 8);
    run();
    return std::move(out_);
}

std::vector<LaidPlace> GapWriter::measure() {
    std::vector<LaidPlace> places(text_.size() + 1);
    places_ = &places;
    run();
    return places;
}

void GapWriter::run() {
    sourceLeadSize_ = blankSize(text_.source());
    for (TokenIndex token = 1; token <= text_.size(); ++token) {
        isLineStart_ = token == 1;
        passSource(text_.gap(token));
        writeGap(token);
        noteBehind(token);
        if (places_ != nullptr) (*places_)[token] = {line_, static_cast<std::uint32_t>(column_)};
        if (token == text_.size()) break;
        noteAnchors(token);
        writeToken(token);
        passSource(text_.text(token));
    }
}

// ---- Gaps

void GapWriter::writeGap(TokenIndex token) {
    const Gap& gap = gaps_[token];
    const bool isEnd = token == text_.size();
    const bool needsFeed =
        !isEnd && token > 1 && (Trn::isLineToken(text_.kind(token - 1)) || text_.kind(token) == Kind::Directive);
    Sort sort = gap.sort;
    if ((sort == Sort::Blanks || sort == Sort::Column) && needsFeed) sort = Sort::Break;
    switch (sort) {
        case Sort::Fixed:
            append(text_.gap(token));
            isLineStart_ = isLineStart_ || text_.lineFeeds(token) > 0;
            if (text_.lineFeeds(token) > 0) {
                leadSize_ = blankSize(std::string_view(out_).substr(lineBegin_));
            }
            return;
        case Sort::Keep:
            if (text_.lineFeeds(token) > 0 && !isEnd) return writeLines(token, keptLineFeeds(token), {});
            if (token == 1 && !isEnd) return writeLead(token, {}, false);
            if (isEnd) return append(text_.gap(token));
            if (needsFeed) return writeLines(token, 1, {});
            return writeBlanks(text_.gap(token));
        case Sort::Blanks:
            return writeBlanks(gaps_.text(gap.rule));
        case Sort::Column:
            return padTo(std::max(static_cast<int>(gap.column), column_ + 1));
        case Sort::Lines:
            return writeLines(token, gaps_.lineFeeds(gap.rule), gaps_.tail(gap.rule));
        case Sort::Break: {
            const int least = std::max(1, gaps_.lineFeeds(gap.rule));
            return writeLines(token, std::max(least, keptLineFeeds(token)), gaps_.tail(gap.rule));
        }
    }
}

int GapWriter::keptLineFeeds(TokenIndex token) const {
    const std::string_view gap = text_.gap(token);
    const int feeds = static_cast<int>(std::count(gap.begin(), gap.end(), '\n'));
    if (scheme_.maxBlankLines < 0) return feeds;
    return std::min(feeds, scheme_.maxBlankLines + 1);
}

void GapWriter::writeBlanks(std::string_view blanks) { append(blanks); }

// A kept gap that needs no other number of lines is copied up to its last line feed, with the blanks that it holds.
void GapWriter::writeLines(TokenIndex token, int lineFeeds, std::string_view tail) {
    const Gap& gap = gaps_[token];
    const std::string_view source = text_.gap(token);
    const bool isKept = gap.sort == Sort::Keep && !scheme_.removeTrailingWs && lineFeeds == text_.lineFeeds(token);
    if (isKept) {
        append(source.substr(0, source.rfind('\n') + 1));
    } else {
        if (Trn::isLineToken(text_.kind(token - 1)) || gap.sort != Sort::Keep) {
            startLine(lineFeeds);
        } else {
            startLine(lineFeeds);
        }
    }
    isLineStart_ = true;
    const bool isDecided = gap.sort != Sort::Keep && (text_.lineFeeds(token) == 0 || !tail.empty());
    writeLead(token, tail, isDecided);
}

void GapWriter::startLine(int lineFeeds) {
    static constexpr std::string_view feeds = "\n\n\n\n\n\n\n\n";
    for (; lineFeeds > 0; lineFeeds -= static_cast<int>(feeds.size())) {
        append(feeds.substr(0, static_cast<std::size_t>(std::min<int>(lineFeeds, static_cast<int>(feeds.size())))));
    }
}

// What a line begins with. `isDecided`: the source has no white space of its own for it.
void GapWriter::writeLead(TokenIndex token, std::string_view tail, bool isDecided) {
    const IndentScope& scope = gaps_.scopes()[gaps_[token].scope];
    const Base& base = baseOf(gaps_[token].scope);
    switch (scope.mode) {
        case Mode::Margin:
            break;
        case Mode::Indent:
            appendLead(gaps_[token].scope);
            if (scope.rule != GapRule::None) append(gaps_.text(scope.rule));
            append(tail);
            break;
        case Mode::Behind:
            if (base.behind >= 0) {
                append(std::string(outLead(base)));
                padTo(std::max(base.behind, column_));
                append(tail);
                break;
            }
            if (scope.rule != GapRule::None) {
                append(std::string(outLead(base)));
                append(gaps_.text(scope.rule));
                append(tail);
                break;
            }
            [[fallthrough]];
        case Mode::Distance:
            if (isDecided || !text_.startsLine(token)) {
                append(std::string(outLead(base)));
                append(tail);
            } else {
                writeDistance(token, base);
            }
            break;
    }
    leadSize_ = out_.size() - lineBegin_;
}

// The white space of the source, moved by as much as the line of the anchor was. What stands in the source's column
// behind the anchor stands there again.
void GapWriter::writeDistance(TokenIndex token, const Base& base) {
    const std::string_view gap = text_.gap(token);
    const std::string_view lead = gap.substr(gap.rfind('\n') + 1);
    const std::string_view from = sourceLead(base);
    const std::string to(outLead(base));
    const bool isAligned = base.behind >= 0 && base.sourceBehind == sourceColumn_;
    if (from == to && (!isAligned || base.behind == base.sourceBehind)) return append(lead);
    if (isAligned) {
        append(to);
        return padTo(std::max(base.behind, column_));
    }
    if (lead.starts_with(from)) {
        append(to);
        return append(lead.substr(from.size()));
    }
    const int width = std::max(0, widthOf(lead) - widthOf(from) + widthOf(to));
    for (std::size_t at = 0, reached = 0; at < to.size(); ++at) {
        reached += static_cast<std::size_t>(widthOf(std::string_view(to).substr(at, 1), static_cast<int>(reached)));
        if (reached > static_cast<std::size_t>(width)) break;
        append(std::string_view(to).substr(at, 1));
    }
    padTo(width);
}

void GapWriter::padTo(int column) {
    static constexpr std::string_view blanks = "                                                                ";
    while (column_ < column) {
        append(blanks.substr(0, std::min<std::size_t>(blanks.size(), static_cast<std::size_t>(column - column_))));
    }
}

const GapWriter::Base& GapWriter::baseOf(std::uint32_t scope) const {
    const std::vector<IndentScope>& scopes = gaps_.scopes();
    while (!scopes[scope].isAnchored && scope != scopes[scope].base) scope = scopes[scope].base;
    return bases_[scope];
}

// The base of a scope, with what the scopes that it stands below add to it.
void GapWriter::appendLead(std::uint32_t scope) {
    const IndentScope& inner = gaps_.scopes()[scope];
    if (inner.isAnchored || inner.base == scope) return append(std::string(outLead(bases_[scope])));
    appendLead(inner.base);
    if (inner.isBelow) append(gaps_.text(gaps_.scopes()[inner.base].rule));
}

// ---- Tokens

void GapWriter::noteAnchors(TokenIndex token) {
    const std::vector<IndentScope>& scopes = gaps_.scopes();
    fresh_.clear();
    for (; nextScope_ < scopes.size(); ++nextScope_) {
        const IndentScope& scope = scopes[nextScope_];
        if (!scope.isAnchored) continue;
        if (scope.anchor > token) break;
        Base& base = bases_[nextScope_];
        base.outLead = static_cast<std::uint32_t>(lineBegin_);
        base.outSize = static_cast<std::uint32_t>(leadSize_);
        base.sourceLead = static_cast<std::uint32_t>(sourceLine_);
        base.sourceSize = static_cast<std::uint32_t>(sourceLeadSize_);
        fresh_.push_back(static_cast<std::uint32_t>(nextScope_));
    }
}

void GapWriter::noteBehind(TokenIndex token) {
    for (const std::uint32_t scope : fresh_) {
        if (!isLineStart_) bases_[scope].behind = column_;
        if (text_.lineFeeds(token) == 0) bases_[scope].sourceBehind = sourceColumn_;
    }
    fresh_.clear();
}

void GapWriter::writeToken(TokenIndex token) {
    const std::string_view text = text_.text(token);
    const std::size_t line = lineBegin_;
    if (movesWithLine(token, text)) {
        writeLaterLines(token, text);
    } else {
        append(text);
    }
    if (lineBegin_ != line) leadSize_ = blankSize(std::string_view(out_).substr(lineBegin_));
}

// Whether a token has lines whose white space means nothing: a comment, or a name behind `::`.
bool GapWriter::movesWithLine(TokenIndex token, std::string_view text) const {
    const Trn::TokenKind kind = text_.kind(token);
    if (kind != Kind::BlockComment && kind != Kind::Identifier) return false;
    if (text.find('\n') == std::string_view::npos) return false;
    return kind == Kind::BlockComment || text.find_first_of("\\/") == std::string_view::npos;
}

// The later lines of a comment move with its first one.
void GapWriter::writeLaterLines(TokenIndex token, std::string_view text) {
    const std::size_t first = text.find('\n');
    const std::string to(std::string_view(out_).substr(lineBegin_, leadSize_));
    const std::string_view from = text_.source().substr(sourceLine_, sourceLeadSize_);
    const int shift = column_ - sourceColumn_;
    if (gaps_[token].sort == Sort::Fixed || (shift == 0 && from == to)) return append(text);
    append(text.substr(0, first));
    for (std::size_t begin = first; begin < text.size();) {
        append("\n");
        ++begin;
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string_view line = text.substr(begin, end - begin);
        const std::string_view lead = line.substr(0, blankSize(line));
        if (lead.size() < line.size()) {
            if ((isLineStart_ || text_.kind(token) == Kind::Identifier) && lead.starts_with(from)) {
                append(to);
                append(lead.substr(from.size()));
            } else {
                padTo(std::max(0, widthOf(lead) + shift));
            }
        }
        append(line.substr(lead.size() < line.size() ? lead.size() : 0));
        begin = end;
    }
}

// ---- Columns

void GapWriter::append(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n') {
            ++line_;
            column_ = 0;
            lineBegin_ = out_.size() + at + 1;
        } else if (text[at] == '\t') {
            column_ = (column_ / scheme_.tabSize + 1) * scheme_.tabSize;
        } else {
            ++column_;
        }
    }
    out_ += text;
}

int GapWriter::widthOf(std::string_view blanks, int from) const {
    int column = from;
    for (const char c : blanks) column = c == '\t' ? (column / scheme_.tabSize + 1) * scheme_.tabSize : column + 1;
    return column - from;
}

void GapWriter::passSource(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n') {
            sourceColumn_ = 0;
            sourceLine_ = static_cast<std::size_t>(text.data() + at + 1 - text_.source().data());
            sourceLeadSize_ = blankSize(text_.source().substr(sourceLine_));
        } else if (text[at] == '\t') {
            sourceColumn_ = (sourceColumn_ / scheme_.tabSize + 1) * scheme_.tabSize;
        } else {
            ++sourceColumn_;
        }
    }
}

}  // namespace Brevis
