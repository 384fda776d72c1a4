// What is not shrunk counts for the causes that were found for its kind, in turn, so that their shares stay.
#include "Soak_CauseFinder.h"

#include <algorithm>
#include <set>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace Soak {

namespace {

using Fuzz::Verdict;

constexpr std::size_t bytesOfShrink = 20'000'000;

std::size_t mostShrinks(Verdict verdict) { return verdict == Verdict::Refused ? 1 : 50; }

Sample shrink(const Sample& sample, Verdict verdict, const std::string& kind) {
    const auto fails = [&](const Sample& candidate) {
        const Fuzz::Trial trial =
            Fuzz::tryText(candidate.scheme, candidate.text, verdict != Verdict::Refused, candidate.reading);
        return trial.verdict == verdict && findingOf(candidate, trial).shows(verdict, kind);
    };
    return Shrinker(fails, bytesOfShrink).shrink(sample);
}

// Schemes that differ in such a key only are unstable for the same reason, so keys of one kind share a name.
std::string kindOfKey(const Brevis::PropertySet& scheme, const std::string& key) {
    const Brevis::PropertyInfo* info = Brevis::Catalogue::find(key);
    const bool isIndent = info && info->type == Brevis::PropertyType::Indent;
    std::string value;
    scheme.getString(key, value);
    if (value.find_first_of("\r\f\v") != std::string::npos) return "a value with odd white space";
    if (isIndent && value.find('\n') != std::string::npos) return "an indent with a line feed";
    return isIndent && key != Brevis::Catalogue::keyOf(&Brevis::Scheme::indentDdContent) ? "an indent" : key;
}

// What it takes of the scheme: without any of these keys the text is stable. What is odd counts alone, and what adds to
// an alignment or to wrapping is not told apart.
std::string causeOfUnstable(const Sample& smallest, const std::string& kind) {
    if (kind.starts_with("second run")) return kind;
    std::set<std::string> kinds;
    for (const std::string& key : smallest.scheme.keys()) {
        const std::string name = kindOfKey(smallest.scheme, key);
        if (name.find(' ') != std::string::npos && name != "an indent") return name;
        const bool isOfWrapping = key == Brevis::Catalogue::keyOf(&Brevis::Scheme::lineWrap) ||
                                  key == Brevis::Catalogue::keyOf(&Brevis::Scheme::rightMargin);
        kinds.insert(isOfWrapping ? "wrapping" : name);
    }
    const auto isLeader = [](const std::string& name) { return name == "wrapping" || name.starts_with("ALIGN_"); };
    const auto leader = std::find_if(kinds.begin(), kinds.end(), isLeader);
    if (leader != kinds.end() && kinds.size() > 2) return *leader + " + several";
    std::string cause;
    for (const std::string& name : kinds) cause += (cause.empty() ? "" : " + ") + name;
    return cause.empty() ? "any scheme" : cause;
}

}  // namespace

Diagnosis CauseFinder::diagnose(const Sample& sample, const Finding& finding) {
    const std::string& kind = finding.kinds.front();
    Known& known = known_[{finding.verdict, kind}];
    const bool isUnstable = finding.verdict == Verdict::Unstable;
    if (known.causes.size() == mostShrinks(finding.verdict) || shrinksLeft_ == 0) {
        if (known.causes.empty()) known.causes.push_back(isUnstable ? "not shrunk: " + kind : kind);
        return {known.causes[known.others++ % known.causes.size()], {}};
    }
    --shrinksLeft_;
    Sample smallest = shrink(sample, finding.verdict, kind);
    known.causes.push_back(isUnstable ? causeOfUnstable(smallest, kind) : kind);
    return {known.causes.back(), std::move(smallest)};
}

}  // namespace Soak
