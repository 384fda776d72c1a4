// The order of the stages.
#include "second/Brevis_SecondEdition.h"

#include <optional>
#include <utility>

#include "guard/Brevis_SeamGuard.h"
#include "run/Brevis_RunPhases.h"
#include "second/Brevis_GapAlignment.h"
#include "second/Brevis_GapReader.h"
#include "second/Brevis_GapRules.h"
#include "second/Brevis_GapWrapper.h"
#include "second/Brevis_GapWriter.h"

namespace Brevis {

namespace {

// What the parser needed for it is gone afterwards. None if the text can't be formatted.
std::optional<GapText> readGaps(std::string_view source, const FormatterProperties& properties,
                                Trn::ParseMessageList& messages) {
    GapReader reader(source, properties);
    if (!reader.read(messages)) return std::nullopt;
    return std::optional<GapText>(std::in_place, source, reader.takeTable());
}

// A line that has been broken may still be too long where it is.
void wrapGaps(const GapText& text, const Scheme& scheme, GapTable& gaps) {
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        if (!GapWrapper(text, scheme, gaps, GapWriter(text, scheme, gaps).measure()).run()) return;
    }
}

}  // namespace

FormatResult SecondEdition::format(const FormatterProperties& properties, std::string_view source,
                                   Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    if (!update(analyzingPhase)) return cancelledRun(messages);
    const std::optional<GapText> gapText = readGaps(source, properties, messages);
    if (!gapText) return {};
    if (!update(formattingPhase)) return cancelledRun(messages);

    const GapText& text = *gapText;
    GapTable gaps(text, properties.scheme);
    decideGaps(text, properties, gaps);
    std::optional<std::string> laid = alignGaps(text, properties.scheme, gaps);
    if (GapWrapper::isWanted(properties.scheme)) {
        laid.reset();
        wrapGaps(text, properties.scheme, gaps);
    }
    std::string result = laid ? std::move(*laid) : GapWriter(text, properties.scheme, gaps).write();
    const std::string written = observer_ != nullptr ? result : std::string();
    const SeamGuard guard(
        source, properties.scheme.removeTrailingWs ? SeamGuard::LineEnds::Trimmed : SeamGuard::LineEnds::Kept);
    const std::size_t seams = guard.mend(result);
    if (observer_ != nullptr) observer_->observe(text, gaps, written, result);
    return {FormatOutcome::Formatted, std::move(result), seams, true};
}

}  // namespace Brevis
