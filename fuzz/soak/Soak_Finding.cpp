// The kinds are: of a refusal its cause, of an unstable text the changes of its gaps, of the others the pattern of the
// complaint.
#include "Soak_Finding.h"

#include <algorithm>

#include "Soak_Differences.h"
#include "Soak_RefusalCause.h"
#include "Vellum_LineEnds.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace Soak {

namespace {

using Fuzz::Verdict;

// The first message, with the first place that one of them tells.
Trn::ParseMessage placedMessage(const Trn::ParseMessageList& messages) {
    Trn::ParseMessage message = messages.front();
    for (const Trn::ParseMessage& other : messages) {
        if (!message.position.isSet()) message.position = other.position;
    }
    return message;
}

// The messages of the second pass are about the text of the first.
std::string kindOfRefusal(const Sample& sample, const Fuzz::Trial& trial) {
    if (trial.messages.empty()) return messagePattern(trial.complaint);
    const Trn::ParseMessage message = placedMessage(trial.messages);
    bool wraps = false;
    sample.scheme.getBool(Brevis::Catalogue::keyOf(&Brevis::Scheme::lineWrap), wraps);
    if (wraps) {
        Brevis::PropertySet firstPass = sample.scheme;
        firstPass.setBool(Brevis::Catalogue::keyOf(&Brevis::Scheme::lineWrap), false);
        const Fuzz::Trial first = Fuzz::tryText(firstPass, sample.text, false, sample.reading);
        if (first.verdict != Verdict::Refused) return "by the second pass: " + refusalCause(first.text, message);
    }
    std::string text = sample.text;
    Vellum::normalizeLineEnds(text);
    return refusalCause(text, message);
}

std::vector<std::string> kindsOfUnstable(const Fuzz::Trial& trial) {
    if (!trial.messages.empty())
        return {"second run refused: " + refusalCause(trial.text, placedMessage(trial.messages))};
    if (!trial.complaint.empty()) return {messagePattern(trial.complaint)};
    return gapDifferences(trial.text, trial.second);
}

}  // namespace

bool Finding::shows(Verdict wanted, std::string_view kind) const {
    return verdict == wanted && std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

Finding findingOf(const Sample& sample, const Fuzz::Trial& trial) {
    switch (trial.verdict) {
        case Verdict::Settled:
            return {};
        case Verdict::Refused:
            return {trial.verdict, {kindOfRefusal(sample, trial)}};
        case Verdict::Unstable:
            return {trial.verdict, kindsOfUnstable(trial)};
        case Verdict::Lost:
        case Verdict::Failed:
            break;
    }
    return {trial.verdict, {messagePattern(trial.complaint)}};
}

}  // namespace Soak
