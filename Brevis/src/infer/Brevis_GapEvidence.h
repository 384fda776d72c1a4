// What a text says of a scheme: what a run under it decides for each gap, whether the source has it so, and which value
// of the deciding key would have left the gap alone.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "infer/Brevis_ValueVotes.h"
#include "scheme/Brevis_FormatterProperties.h"
#include "scheme/Brevis_PropertyCatalogue.h"
#include "second/Brevis_Gap.h"
#include "second/Brevis_IndentScope.h"

namespace Brevis {

// Two are equal if they decide the same.
struct GapDecision {
    Gap::Sort sort = Gap::Sort::Keep;
    GapRule rule = GapRule::None;
    // Of a line that begins with the gap; of no other, so that scopes without effect make no difference.
    IndentScope::Mode mode = IndentScope::Mode::Distance;
    GapRule scopeRule = GapRule::None;
    std::uint16_t column = 0;

    bool operator==(const GapDecision&) const = default;
};

// One for each row of the catalogue of properties. Only keys of white space and indents get votes by value; what
// another key decides, such as a column, is a place that it leaves alone ("1") or doesn't ("0").
using KeyVotes = std::array<ValueVotes, std::size(Catalogue::properties)>;

struct GapEvidence {
    std::vector<GapDecision> decisions;  // by token; the last one is the end of the text
    std::vector<bool> agrees;            // whether the result has there what the source has
    KeyVotes votes;
    std::string result;
};

enum class EvidenceWanted { Decisions, Votes };

// Formats `source`, which has line feeds for line ends, under a scheme of the second edition. Nothing if the text can't
// be read. With Decisions there are no votes, with Votes no decisions.
std::optional<GapEvidence> findGapEvidence(const FormatterProperties& properties, std::string_view source,
                                           EvidenceWanted wanted);

}  // namespace Brevis
