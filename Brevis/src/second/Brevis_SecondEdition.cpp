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
#include "second/Brevis_SourceTabs.h"

namespace Brevis {

namespace {

// What the parser needed for it is gone afterwards. None if the text can't be formatted.
std::optional<GapText> readGaps(std::string_view source, const FormatterProperties& properties,
                                Trn::ParseMessageList& messages) {
    GapReader reader(source, properties);
    if (!reader.read(messages)) return std::nullopt;
    return std::optional<GapText>(std::in_place, source, reader.takeTable());
}

// A line that has been broken may still be too long where it is. Gives whether one has been broken.
bool wrapGaps(const GapText& text, const Scheme& scheme, GapTable& gaps) {
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        if (!GapWrapper(text, scheme, gaps, GapWriter(text, scheme, gaps).measure()).run()) return round > 0;
    }
    return true;
}

// A text as its decisions give it.
struct Layout {
    std::string written;
    bool isBroken = false;  // lines were too long
};

Layout layOut(const GapText& text, const FormatterProperties& properties, GapTable& gaps) {
    const Scheme& scheme = properties.scheme;
    decideGaps(text, properties, gaps);
    std::optional<std::string> aligned = alignGaps(text, scheme, gaps);
    const bool mayWrap = GapWrapper::isWanted(scheme);
    const bool isBroken = mayWrap && wrapGaps(text, scheme, gaps);
    return {aligned && !mayWrap ? std::move(*aligned) : GapWriter(text, scheme, gaps).write(), isBroken};
}

// Rules look at line ends: what has been broken is laid out as if its author had broken it, until that changes nothing.
void layOutBroken(const GapText& text, const FormatterProperties& properties, GapTable& gaps, std::string& written) {
    constexpr int rounds = 8;
    for (int round = 0; round < rounds; ++round) {
        const GapText broken(written, text);
        GapTable again(broken, properties.scheme);
        std::string next = layOut(broken, properties, again).written;
        if (next == written) return;
        again.takeDecisions(gaps);
        gaps = std::move(again);
        written = std::move(next);
    }
}

std::string writeLaid(const GapText& text, const FormatterProperties& properties, GapTable& gaps) {
    Layout layout = layOut(text, properties, gaps);
    if (layout.isBroken) layOutBroken(text, properties, gaps, layout.written);
    return std::move(layout.written);
}

bool holdsTabs(std::string_view text) { return text.find('\t') != std::string_view::npos; }

// The properties with the tab size of the source, if no tab is to be left and that size is another one.
std::optional<FormatterProperties> forTabsOf(std::string_view source, const FormatterProperties& properties) {
    const Scheme& scheme = properties.scheme;
    if (scheme.convertWs != 1 || scheme.tabSize == 1 || !holdsTabs(source)) return std::nullopt;
    const int tabSize = tabSizeOf(source, scheme.tabSize);
    if (tabSize == scheme.tabSize) return std::nullopt;
    std::optional<FormatterProperties> changed = properties;
    changed->scheme.tabSize = tabSize;
    return changed;
}

}  // namespace

FormatResult SecondEdition::format(const FormatterProperties& properties, std::string_view source,
                                   Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    if (!update(analyzingPhase)) return cancelledRun(messages);
    std::optional<GapText> text = readGaps(source, properties, messages);
    if (!text) return {};
    if (!update(formattingPhase)) return cancelledRun(messages);

    const std::optional<FormatterProperties> forTabs = forTabsOf(source, properties);
    std::optional<GapTable> gaps(std::in_place, *text, forTabs ? forTabs->scheme : properties.scheme);
    std::string result = writeLaid(*text, forTabs ? *forTabs : properties, *gaps);
    // With tabs left, as in literals, a second run could find another size.
    if (forTabs && (gaps->holdsTabs() || holdsTabs(result))) {
        gaps.emplace(*text, properties.scheme);
        result = writeLaid(*text, properties, *gaps);
    }
    const std::string written = observer_ != nullptr ? result : std::string();
    // The guard takes memory of its own.
    if (observer_ == nullptr) {
        gaps.reset();
        text.reset();
    }
    const SeamGuard guard(source,
                          properties.scheme.removeTrailingWs ? SeamGuard::LineEnds::Trimmed : SeamGuard::LineEnds::Kept,
                          SeamGuard::Literals::Free);
    const std::size_t seams = guard.mend(result);
    if (observer_ != nullptr) observer_->observe(*text, *gaps, written, result);
    return {FormatOutcome::Formatted, std::move(result), seams, true};
}

}  // namespace Brevis
