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

// A line that has been broken may still be too long where it is. Gives whether one was broken.
bool wrapGaps(const GapText& text, const Scheme& scheme, GapTable& gaps) {
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        if (!GapWrapper(text, scheme, gaps, GapWriter(text, scheme, gaps).measure()).run()) return round > 0;
    }
    return true;
}

// A text with its decisions, and what came of them.
struct Pass {
    Pass(const GapText& text, const FormatterProperties& properties) : gaps(text, properties.scheme) {
        const Scheme& scheme = properties.scheme;
        decideGaps(text, properties, gaps);
        alignGaps(text, scheme, gaps);
        if (GapWrapper::isWanted(scheme)) isWrapped = wrapGaps(text, scheme, gaps);
        written = GapWriter(text, scheme, gaps).write();
        result = written;
        seams = SeamGuard(text.source(),
                          scheme.removeTrailingWs ? SeamGuard::LineEnds::Trimmed : SeamGuard::LineEnds::Kept)
                    .mend(result);
    }

    GapTable gaps;
    bool isWrapped = false;
    std::string written;
    std::string result;
    std::size_t seams = 0;
};

// Where lines were broken, all rules look at the text again as if its author had broken them there: columns that other
// lines shared with a part of them, and brackets that have become smaller. So a second run finds nothing to do.
void settle(const FormatterProperties& properties, Pass& pass) {
    constexpr int rounds = 6;
    for (int round = 0; round < rounds; ++round) {
        Trn::ParseMessageList known;
        const std::optional<GapText> text = readGaps(pass.result, properties, known);
        if (!text) return;
        Pass next(*text, properties);
        const bool isSettled = next.result == pass.result;
        pass.seams += next.seams;
        pass.written = std::move(next.written);
        pass.result = std::move(next.result);
        if (isSettled) return;
    }
}

}  // namespace

FormatResult SecondEdition::format(const FormatterProperties& properties, std::string_view source,
                                   Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    if (!update(analyzingPhase)) return cancelledRun(messages);
    const std::optional<GapText> text = readGaps(source, properties, messages);
    if (!text) return {};
    if (!update(formattingPhase)) return cancelledRun(messages);

    Pass pass(*text, properties);
    if (pass.isWrapped) settle(properties, pass);
    if (observer_ != nullptr) observer_->observe(*text, pass.gaps, pass.written, pass.result);
    return {FormatOutcome::Formatted, std::move(pass.result), pass.seams, true};
}

}  // namespace Brevis
