// The run and the checks. A loss is looked for in two ways that share no code: character by character without white
// space, and token by token.
#include "Fuzz_Trial.h"

#include <algorithm>
#include <cctype>
#include <exception>
#include <iterator>
#include <optional>
#include <utility>

#include "Brevis_Formatter.h"
#include "Vellum_LineEnds.h"
#include "guard/Brevis_TokenDifference.h"

namespace Fuzz {

namespace {

std::string characterLoss(std::string_view source, std::string_view result) {
    const std::string before = withoutWhiteSpace(source);
    const std::string after = withoutWhiteSpace(result);
    if (before == after) return {};
    const auto [at, unused] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto offset = static_cast<std::size_t>(at - before.begin());
    const std::size_t from = offset < 40 ? 0 : offset - 40;
    return "characters: \"" + before.substr(from, 80) + "\" became \"" + after.substr(from, 80) + "\"";
}

std::string tokenLoss(const std::string& source, const std::string& result) {
    const std::optional<Brevis::TokenDifference> difference = Brevis::findTokenDifference(source, result);
    if (!difference) return {};
    return "tokens: " + std::to_string(difference->place.line) + ':' + std::to_string(difference->place.column) +
           ": \"" + difference->before + "\" became \"" + difference->after + "\"";
}

// Settled, Refused, Lost or Failed.
Trial runOnce(const Brevis::FormatterProperties& properties, const std::string& source) {
    Trial trial;
    try {
        Brevis::UpdateFunctor update;
        Brevis::FormatResult result = Brevis::Formatter().format(properties, source, trial.messages, update);
        if (!result.isFormatted()) {
            trial.verdict = Verdict::Refused;
            return trial;
        }
        trial.messages.clear();
        trial.text = std::move(result.text);
        trial.seams = result.seams;
    } catch (const std::exception& exception) {
        trial.complaint = exception.what();
        trial.verdict = isLimit(trial.complaint) ? Verdict::Refused : Verdict::Failed;
        return trial;
    }
    std::string normalised = source;
    Vellum::normalizeLineEnds(normalised);
    trial.complaint = characterLoss(normalised, trial.text);
    if (trial.complaint.empty()) trial.complaint = tokenLoss(normalised, trial.text);
    if (!trial.complaint.empty()) trial.verdict = Verdict::Lost;
    return trial;
}

void judgeSecondRun(Trial& trial, Trial second) {
    if (second.verdict == Verdict::Settled && second.text == trial.text) return;
    trial.verdict = Verdict::Unstable;
    if (second.verdict == Verdict::Lost || second.verdict == Verdict::Failed) trial.verdict = second.verdict;
    if (!second.complaint.empty()) trial.complaint = "second run: " + second.complaint;
    trial.second = std::move(second.text);
    trial.messages = std::move(second.messages);
}

}  // namespace

Trial tryText(const Brevis::PropertySet& scheme, const std::string& source, bool runsTwice,
              const Brevis::Reading& reading) {
    Brevis::FormatterProperties properties(scheme);
    properties.reading = reading;
    Trial trial = runOnce(properties, source);
    if (runsTwice && trial.verdict == Verdict::Settled) judgeSecondRun(trial, runOnce(properties, trial.text));
    return trial;
}

bool isLimit(std::string_view message) {
    return message == "The text is nested more than 1000 levels deep." ||
           message == "The text is too long once its lines are wrapped." ||
           message == "The text is too long once its expressions are indented.";
}

std::string withoutWhiteSpace(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(result),
                 [](unsigned char c) { return std::isspace(c) == 0; });
    return result;
}

}  // namespace Fuzz
