// 1. The lines tell of tabs, empty lines and the ends of lines and files.
// 2. On a sample, in turn: the values of all keys of white space by vote; flags and anchors by trial.
// 3. The whole code base votes, and what it doesn't agree on is taken back.
// 4. The whole code base is formatted, and keys that change more than their agreement promised are taken back.
#include "inference/BrevisUI_SchemeInference.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <unordered_map>
#include <utility>
#include <variant>

#include "Brevis_Formatter.h"
#include "inference/BrevisUI_LineDifference.h"
#include "scheme/Brevis_Escapes.h"
#include "second/Brevis_GapReport.h"

namespace BrevisUI {

using Brevis::EvidenceWanted;
using Brevis::GapEvidence;
using Brevis::KeyVotes;
using Brevis::PropertyInfo;
using Brevis::PropertySet;
using Brevis::Scheme;
using Brevis::ValueVotes;
using Brevis::WsProperty;

namespace {

constexpr const auto& rows = Brevis::Catalogue::properties;

constexpr int searchRounds = 3;
constexpr int checkRounds = 4;
constexpr double expectedTrials = 75;  // runs of the sample
constexpr std::uint64_t fewestPlaces = 3;
constexpr std::int32_t editorTabSize = 8;  // where nothing tells

// Lines that break a rule about the lines of a text are dearer than gaps that break another: there are few places in
// which the code could have followed it.
constexpr double rareShare = 0.01;

// A key that changes more than this share of all lines is one on which the code doesn't agree, however many places it
// has.
constexpr double dearShare = 0.02;

constexpr std::int32_t anchors[] = {0, 1};
constexpr std::int32_t blankLines[] = {2, 1};

constexpr std::string_view tabSizeKey = Brevis::Catalogue::keyOf(&Scheme::tabSize);
constexpr std::string_view convertKey = Brevis::Catalogue::keyOf(&Scheme::convertWs);
constexpr std::string_view trimKey = Brevis::Catalogue::keyOf(&Scheme::removeTrailingWs);
constexpr std::string_view wrapKey = Brevis::Catalogue::keyOf(&Scheme::lineWrap);
constexpr std::string_view wrapIndentKey = Brevis::Catalogue::keyOf(&Scheme::wrapIndent);
constexpr std::string_view endKey = Brevis::Catalogue::keyOf(&Scheme::wsAtEndOfFile);
constexpr std::string_view emptyLinesKey = Brevis::Catalogue::keyOf(&Scheme::maxBlankLines);
constexpr std::string_view directivesKey = Brevis::Catalogue::keyOf(&Scheme::alignPpdLeftMost);
constexpr std::string_view editionKey = Brevis::Catalogue::keyOf(&Scheme::edition);
constexpr std::string_view typeGapKey = Brevis::Catalogue::keyOf(&Scheme::wsAfterParamTypeId);
constexpr std::string_view controlIndentKey = Brevis::Catalogue::keyOf(&Scheme::indentCsContent);
constexpr std::string_view unbracedIndentKey = Brevis::Catalogue::keyOf(&Scheme::indentCsUnbracedContent);
constexpr std::string_view bodyIndentKey = Brevis::Catalogue::keyOf(&Scheme::indentFnContent);

// Whether its value is found by vote.
bool isVotedFor(const PropertyInfo& row) {
    return std::holds_alternative<WsProperty Scheme::*>(row.field) && row.key != wrapIndentKey && row.key != endKey;
}

bool isTriedFlag(const PropertyInfo& row) {
    return std::holds_alternative<bool Scheme::*>(row.field) && row.role == Brevis::PropertyRole::Value &&
           row.key != wrapKey && row.key != trimKey;
}

// A flag that leaves the source as it is, where the rules would have decided.
bool isKeeping(const PropertyInfo& row) { return row.key.starts_with("KEEP_"); }

// Inside of braces begin lines: empty ones that the author has there are then no votes for more line feeds.
std::string_view firstValueOf(const PropertyInfo& row) {
    const bool isInBraces = row.key.ends_with("_CLOSE_BRACE") ||
                            (row.key.ends_with("_OPEN_BRACE") && row.key.find("WS_AFTER") != std::string_view::npos);
    return isInBraces ? "\n" : row.defaultText;
}

template <auto member>
const PropertyInfo& rowOf() {
    return *Brevis::Catalogue::find(Brevis::Catalogue::keyOf(member));
}

std::size_t indexOf(const PropertyInfo& row) { return static_cast<std::size_t>(&row - std::begin(rows)); }

double sizeOf(const InferenceText& text) { return static_cast<double>(text.text.size()); }

PropertySet without(PropertySet scheme, std::string_view key) {
    scheme.erase(key);
    return scheme;
}

std::string escapedText(std::string_view value) { return '"' + Brevis::escapeText(value) + '"'; }

}  // namespace

SchemeInference::SchemeInference(const std::vector<InferenceText>& texts, InferenceOptions options, InferenceHost host)
    : options_(options), host_(std::move(host)), scheme_("inferred"), evidence_(std::size(rows)) {
    for (const InferenceText& text : texts) all_.push_back(&text);
    for (const PropertyInfo& row : rows) evidenceOf(row).property = &row;
}

InferenceResult SchemeInference::run() {
    drawSample();
    start();
    readLines();
    search();
    takeWinners(all_);
    settle();
    if (options_.edition == 1) toFirstEdition();
    check();
    result_.scheme = scheme_;
    for (KeyEvidence& key : evidence_) {
        key.isSet = scheme_.has(key.property->key);
        if (key.places > 0) result_.keys.push_back(std::move(key));
    }
    return std::move(result_);
}

// ---- The stages

// Texts from all over the code base, until there are bytes enough.
void SchemeInference::drawSample() {
    double all = 0;
    for (const InferenceText* text : all_) all += sizeOf(*text);
    const double share = std::min(1.0, static_cast<double>(options_.sampleBytes) / std::max(all, 1.0));
    double passed = 0, drawn = 0;
    for (const InferenceText* text : all_) {
        passed += sizeOf(*text);
        if (drawn + sizeOf(*text) / 2 > passed * share) continue;
        drawn += sizeOf(*text);
        sample_.push_back(text);
    }
    if (sample_.empty()) sample_ = all_;
    scale_ = drawn > 0 ? all / drawn : 1;
    expected_ = expectedTrials * searchRounds * drawn + (1 + checkRounds / 2.0) * all;
}

// All keys of white space have a value, so that each decides its places; what keeps the author's work is on.
void SchemeInference::start() {
    scheme_.setInt(editionKey, 2);
    for (const PropertyInfo& row : rows) {
        if (isVotedFor(row)) scheme_.setString(row.key, std::string(firstValueOf(row)));
        if (isTriedFlag(row) && isKeeping(row)) scheme_.setBool(row.key, true);
    }
    // Behind a sign that nothing anchors stands a name with nothing in between: no vote for what follows a type.
    scheme_.setString(typeGapKey, " ");
}

// Whatever the lines tell without their tokens. Tabs are converted in the end only.
void SchemeInference::readLines() {
    for (const InferenceText* text : all_) statistics_.add(text->text);
    const TextStatistics& lines = statistics_;
    std::size_t best = 0;
    const auto shareOf = [&lines](std::size_t i) {
        return lines.wideAsTab[i] == 0
                   ? 0.0
                   : static_cast<double>(lines.filledWithTabs[i]) / static_cast<double>(lines.wideAsTab[i]);
    };
    for (std::size_t i = 1; i < TextStatistics::tabSizes.size(); ++i) {
        if (shareOf(i) > shareOf(best)) best = i;
    }
    scheme_.setInt(tabSizeKey, lines.tabIndented > 0 ? TextStatistics::tabSizes[best] : editorTabSize);
    if (isAgreed(lines.directivesAtMargin, lines.directives)) scheme_.setBool(directivesKey, true);
    const auto most = static_cast<double>(lines.lines) * rareShare;
    if (static_cast<double>(lines.withTrailingBlanks) <= most) scheme_.setBool(trimKey, true);
    scheme_.setInt(emptyLinesKey, lines.usualEmptyLines(rareShare));
    if (isAgreed(lines.endingInOneFeed, lines.texts)) scheme_.setString(endKey, "\n");
}

void SchemeInference::search() {
    judgeAnchors();
    for (int round = 0; round < searchRounds && !result_.isCancelled; ++round) {
        const PropertySet before = scheme_;
        takeWinners(sample_);
        judgeFlags();
        if (scheme_ == before) return;
    }
}

// Takes back the values of keys on which the code doesn't agree, or of which it tells nothing.
void SchemeInference::settle() {
    for (const PropertyInfo& row : rows) {
        const KeyEvidence& key = evidenceOf(row);
        if (isVotedFor(row) && !isAgreed(key.agreeing, key.places)) scheme_.erase(row.key);
        const bool isColumn = isTriedFlag(row) && !isKeeping(row) && key.places >= fewestPlaces;
        if (isColumn && !isAgreed(key.agreeing, key.places)) scheme_.erase(row.key);
    }
    settleTabs();
}

void SchemeInference::settleTabs() {
    const TextStatistics& lines = statistics_;
    KeyEvidence& key = evidenceOf(rowOf<&Scheme::convertWs>());
    key.places = lines.indented;
    if (static_cast<double>(lines.tabbed) <= static_cast<double>(lines.lines) * rareShare) {
        scheme_.setInt(convertKey, 1);
        key.agreeing = lines.indented - std::min(lines.tabbed, lines.indented);
        std::string indent;
        if (scheme_.getString(bodyIndentKey, indent) && !indent.empty()) {
            scheme_.setInt(tabSizeKey, static_cast<std::int32_t>(indent.size()));
        }
    } else {
        std::int32_t tabSize = editorTabSize;
        scheme_.getInt(tabSizeKey, tabSize);
        const auto size = std::ranges::find(TextStatistics::tabSizes, tabSize);
        const auto i = static_cast<std::size_t>(size - TextStatistics::tabSizes.begin());
        key.agreeing = lines.indented - (lines.wideAsTab[i] - lines.filledWithTabs[i]);
        const bool isFilled = isAgreed(lines.filledWithTabs[i], lines.wideAsTab[i]);
        scheme_.setInt(convertKey, isFilled ? 2 : 0);
    }
    std::int32_t value = 0;
    scheme_.getInt(convertKey, value);
    key.value = std::to_string(value);
}

void SchemeInference::check() {
    for (int round = 0; !result_.isCancelled; ++round) {
        measure();
        if (round == checkRounds || !dropHarmful()) return;
    }
}

// The other edition reads the same keys in its own way: what makes it change much more than the places tell goes.
void SchemeInference::toFirstEdition() {
    scheme_.erase(editionKey);
    // Bodies without braces go by the key of the others there.
    std::string indent;
    if (!scheme_.has(controlIndentKey) && scheme_.getString(unbracedIndentKey, indent)) {
        scheme_.setString(controlIndentKey, indent);
    }
    for (const PropertyInfo& row : rows) {
        if (row.edition == 2) scheme_.erase(row.key);
    }
    std::uint64_t changed = changedLinesOf(sample_, scheme_);
    for (const std::string& name : scheme_.keys()) {
        if (result_.isCancelled) return;
        const PropertyInfo* row = Brevis::Catalogue::find(name);
        const PropertySet variant = without(scheme_, name);
        const std::uint64_t less = changedLinesOf(sample_, variant);
        const double promised = (1 - options_.agreement) * static_cast<double>(evidenceOf(*row).places) / scale_;
        if (less >= changed || static_cast<double>(changed - less) <= promised) continue;
        scheme_ = variant;
        changed = less;
    }
}

// ---- Votes

void SchemeInference::takeWinners(const Texts& texts) {
    KeyVotes votes{};
    for (const auto& run : runAll(texts, scheme_, EvidenceWanted::Votes)) {
        if (!run) continue;
        for (std::size_t row = 0; row < votes.size(); ++row) votes[row].add(run->votes[row]);
    }
    for (std::size_t row = 0; row < votes.size(); ++row) noteVotes(row, votes[row]);
}

// A key without places keeps the value that it has, so that it goes on deciding if others move.
void SchemeInference::noteVotes(std::size_t row, const ValueVotes& votes) {
    KeyEvidence& key = evidence_[row];
    const PropertyInfo& property = rows[row];
    const ValueVotes::Entry* winner = votes.winner();
    if (isVotedFor(property)) {
        key.places = votes.places();
        key.agreeing = winner != nullptr ? winner->count : 0;
        if (winner == nullptr) return;
        key.value = escapedText(winner->value);
        scheme_.setString(property.key, winner->value);
    } else if (votes.places() > 0) {
        key.places = votes.places();
        key.agreeing = votes.count("1");
    }
}

// ---- Trials

void SchemeInference::judgeAnchors() {
    base_ = runAll(sample_, scheme_, EvidenceWanted::Decisions);
    judgeNumber(rowOf<&Scheme::asteriskAnchor>(), anchors);
    judgeNumber(rowOf<&Scheme::ampersandAnchor>(), anchors);
}

void SchemeInference::judgeFlags() {
    judgeAnchors();
    judgeNumber(rowOf<&Scheme::minBlankLinesBetweenFnDefns>(), blankLines);
    for (const PropertyInfo& row : rows) {
        if (isTriedFlag(row) && !result_.isCancelled) judgeFlag(row);
    }
}

void SchemeInference::judgeFlag(const PropertyInfo& row) {
    const bool wasSet = scheme_.has(row.key);
    PropertySet other = scheme_;
    wasSet ? static_cast<void>(other.erase(row.key)) : other.setBool(row.key, true);
    Runs runs = runAll(sample_, other, EvidenceWanted::Decisions);
    const Judgement judgement = wasSet ? judge(runs, base_) : judge(base_, runs);
    const bool isWanted =
        isKeeping(row) ? judgement.agreeing > judgement.agreeingUnset : isAgreed(judgement.agreeing, judgement.places);
    KeyEvidence& key = evidenceOf(row);
    key.places = static_cast<std::uint64_t>(static_cast<double>(judgement.places) * scale_);
    key.agreeing = static_cast<std::uint64_t>(static_cast<double>(judgement.agreeing) * scale_);
    key.value = "1";
    if (isWanted != wasSet) adopt(other, std::move(runs));
}

// Takes the value with the greatest agreement, the first of those with as much.
void SchemeInference::judgeNumber(const PropertyInfo& row, std::span<const std::int32_t> values) {
    const PropertySet none = without(scheme_, row.key);
    const Runs unset = scheme_ == none ? base_ : runAll(sample_, none, EvidenceWanted::Decisions);
    PropertySet best = none;
    Runs bestRuns = unset;
    KeyEvidence& key = evidenceOf(row);
    key.places = key.agreeing = 0;
    for (const std::int32_t value : values) {
        PropertySet variant = none;
        variant.setInt(row.key, value);
        Runs runs = runAll(sample_, variant, EvidenceWanted::Decisions);
        const Judgement judgement = judge(unset, runs);
        const double share =
            static_cast<double>(judgement.agreeing) / static_cast<double>(std::max<std::uint64_t>(1, judgement.places));
        const double bestShare =
            static_cast<double>(key.agreeing) / static_cast<double>(std::max<std::uint64_t>(1, key.places));
        if (share <= bestShare) continue;
        key.places = static_cast<std::uint64_t>(static_cast<double>(judgement.places) * scale_);
        key.agreeing = static_cast<std::uint64_t>(static_cast<double>(judgement.agreeing) * scale_);
        key.value = std::to_string(value);
        if (!isAgreed(judgement.agreeing, judgement.places)) continue;
        best = std::move(variant);
        bestRuns = std::move(runs);
    }
    adopt(best, std::move(bestRuns));
}

SchemeInference::Judgement SchemeInference::judge(const Runs& unset, const Runs& set) const {
    Judgement judgement;
    for (std::size_t text = 0; text < set.size(); ++text) {
        if (!unset[text] || !set[text]) continue;
        const GapEvidence& before = *unset[text];
        const GapEvidence& after = *set[text];
        for (std::size_t token = 1; token < after.decisions.size(); ++token) {
            const bool isOther =
                !(before.decisions[token] == after.decisions[token]) || before.agrees[token] != after.agrees[token];
            if (!isOther) continue;
            ++judgement.places;
            if (after.agrees[token]) ++judgement.agreeing;
            if (before.agrees[token]) ++judgement.agreeingUnset;
        }
    }
    return judgement;
}

void SchemeInference::adopt(const PropertySet& scheme, Runs runs) {
    scheme_ = scheme;
    base_ = std::move(runs);
}

// ---- Runs

SchemeInference::Runs SchemeInference::runAll(const Texts& texts, const PropertySet& scheme, EvidenceWanted wanted) {
    Runs runs(texts.size());
    const Brevis::FormatterProperties shared(scheme);
    forEach(texts, [&](std::size_t i, const InferenceText& text) {
        Brevis::FormatterProperties properties = shared;
        properties.reading = text.reading;
        runs[i] = Brevis::findGapEvidence(properties, text.text, wanted);
        if (runs[i]) runs[i]->result.clear();
    });
    return runs;
}

void SchemeInference::forEach(const Texts& texts, const std::function<void(std::size_t, const InferenceText&)>& work) {
    if (result_.isCancelled) return;
    host_.forEach(texts.size(), [&](std::size_t i) { work(i, *texts[i]); });
    for (const InferenceText* text : texts) spent_ += sizeOf(*text);
    if (!host_.goOn(std::min(1.0, spent_ / expected_))) result_.isCancelled = true;
}

std::uint64_t SchemeInference::changedLinesOf(const Texts& texts, const PropertySet& scheme) {
    std::vector<std::uint64_t> changed(texts.size());
    const Brevis::FormatterProperties shared(scheme);
    forEach(texts, [&](std::size_t i, const InferenceText& text) {
        Brevis::FormatterProperties properties = shared;
        properties.reading = text.reading;
        Trn::ParseMessageList messages;
        Brevis::UpdateFunctor update;
        const auto run = Brevis::Formatter().format(properties, text.text, messages, update);
        if (run.isFormatted()) changed[i] = compareLines(text.text, run.text).changed;
    });
    std::uint64_t sum = 0;
    for (const std::uint64_t count : changed) sum += count;
    return sum;
}

// ---- The whole code base

namespace {

// What one text adds to the measure.
struct TextMeasure {
    bool isRead = false;
    LineDifference difference;
    std::map<std::string_view, InferenceCause> causes;
};

// Which cause a line has that moves with another: that of the other one.
class MovedLines {
public:
    // The cause of a change, once those in front of it have been asked for.
    std::string_view causeOf(const Brevis::GapChange& change) {
        std::string_view cause = nameOf(change);
        if (const auto owner = causes_.find(change.ownerLine); isMoved(change) && owner != causes_.end()) {
            cause = owner->second;
        }
        causes_.emplace(change.place.line, cause);
        return cause;
    }
    static bool isMoved(const Brevis::GapChange& change) { return change.cause == Brevis::GapCause::Indent; }

private:
    std::unordered_map<std::int32_t, std::string_view> causes_;  // of the first change of a line
};

TextMeasure measureGaps(const Brevis::FormatterProperties& properties, const InferenceText& text) {
    TextMeasure measure;
    Trn::ParseMessageList messages;
    const auto changes = Brevis::findGapChanges(properties, text.text, messages);
    if (!changes) return measure;
    measure.isRead = true;
    MovedLines lines;
    std::string result;
    std::size_t at = 0;
    const std::string_view source = text.text;
    for (const Brevis::GapChange& change : *changes) {
        result += source.substr(at, change.begin - at);
        result += change.text;
        at = change.end;
        const std::string_view name = lines.causeOf(change);
        InferenceCause& cause = measure.causes[name];
        ++(name != nameOf(change) ? cause.moved : cause.places);
        if (!cause.file.empty()) continue;
        cause.file = text.name;
        cause.line = change.place.line;
        cause.before = escapedText(source.substr(change.begin, change.end - change.begin));
        cause.after = escapedText(change.text);
    }
    result += source.substr(at);
    measure.difference = compareLines(source, result);
    return measure;
}

TextMeasure measureText(const Brevis::FormatterProperties& properties, const InferenceText& text) {
    if (Brevis::hasGapReport(properties.scheme)) return measureGaps(properties, text);
    TextMeasure measure;
    Trn::ParseMessageList messages;
    Brevis::UpdateFunctor update;
    const auto run = Brevis::Formatter().format(properties, text.text, messages, update);
    measure.isRead = run.isFormatted();
    if (measure.isRead) measure.difference = compareLines(text.text, run.text);
    return measure;
}

}  // namespace

void SchemeInference::measure() {
    std::vector<TextMeasure> measures(all_.size());
    const Brevis::FormatterProperties shared(scheme_);
    forEach(all_, [&](std::size_t i, const InferenceText& text) {
        Brevis::FormatterProperties properties = shared;
        properties.reading = text.reading;
        measures[i] = measureText(properties, text);
    });
    result_.lines = result_.changedLines = result_.refused = 0;
    std::map<std::string_view, InferenceCause> causes;
    for (const TextMeasure& text : measures) {
        result_.lines += text.difference.lines;
        result_.changedLines += text.difference.changed;
        if (!text.isRead) ++result_.refused;
        for (const auto& [name, cause] : text.causes) {
            InferenceCause& sum = causes[name];
            const std::uint64_t places = sum.places + cause.places, moved = sum.moved + cause.moved;
            if (sum.file.empty()) sum = cause;
            sum.name = name;
            sum.places = places;
            sum.moved = moved;
        }
    }
    result_.causes.clear();
    for (auto& [name, cause] : causes) result_.causes.push_back(std::move(cause));
    std::ranges::stable_sort(result_.causes, std::ranges::greater(), &InferenceCause::places);
}

// Takes back the keys that change more places than they should by the agreement on them. False if there is none.
bool SchemeInference::dropHarmful() {
    bool isAny = false;
    for (const InferenceCause& cause : result_.causes) {
        const PropertyInfo* row = Brevis::Catalogue::find(cause.name);
        if (row == nullptr || !scheme_.has(row->key)) continue;
        KeyEvidence& key = evidenceOf(*row);
        const bool isDear =
            static_cast<double>(cause.places + cause.moved) > dearShare * static_cast<double>(result_.lines);
        if (!isDear && key.places >= cause.places && isAgreed(key.places - cause.places, key.places)) continue;
        key.agreeing = key.places - std::min(key.places, cause.places);
        scheme_.erase(row->key);
        isAny = true;
    }
    return isAny;
}

bool SchemeInference::isAgreed(std::uint64_t agreeing, std::uint64_t places) const {
    return places >= fewestPlaces && static_cast<double>(agreeing) >= options_.agreement * static_cast<double>(places);
}

KeyEvidence& SchemeInference::evidenceOf(const PropertyInfo& row) { return evidence_[indexOf(row)]; }

}  // namespace BrevisUI
