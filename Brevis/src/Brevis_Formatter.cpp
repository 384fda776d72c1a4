// The order of the stages. Each stage is a local object of one call; nothing survives a call but its output and its
// messages.
#include "Brevis_Formatter.h"

#include <utility>

#include "Brevis_SourceReader.h"
#include "Vellum_LineEnds.h"
#include "format/Brevis_CppFormatter.h"
#include "format/Brevis_CppPreFormatter.h"
#include "guard/Brevis_SeamGuard.h"
#include "wrap/Brevis_CppLineWrapper.h"

namespace Brevis {

namespace {

constexpr const char* analyzingPhase = "Analyzing file:\n%s";
constexpr const char* formattingPhase = "Formatting file:\n%s";
constexpr const char* cancelledText = "Formatting cancelled at user's request.";

FormatResult cancelled(Trn::ParseMessageList& messages) {
    messages.push_back({1, {}, 0, cancelledText});
    return {FormatOutcome::Cancelled, {}, 0};
}

// The end of each pass.
FormatResult mended(std::string_view source, std::string text) {
    const std::size_t seams = SeamGuard(source).mend(text);
    return {FormatOutcome::Formatted, std::move(text), seams};
}

}  // namespace

// Only a text with carriage returns is copied.
FormatResult Formatter::format(const FormatterProperties& properties, std::string_view source,
                               Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    if (source.find('\r') == std::string_view::npos) return formatLines(properties, source, messages, update);
    std::string normalized(source);
    Vellum::normalizeLineEnds(normalized);
    return formatLines(properties, normalized, messages, update);
}

FormatResult Formatter::formatLines(const FormatterProperties& properties, std::string_view source,
                                    Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    std::string text;
    if (!update(analyzingPhase)) return cancelled(messages);
    {
        Cpp::RootNode root;
        if (!SourceReader(properties.reading).read(source, root, messages)) return {};
        CppPreFormatter preFormatter(properties.regions);
        root.accept(preFormatter);

        if (!update(formattingPhase)) return cancelled(messages);
        CppFormatter formatter(source, properties.scheme);
        root.accept(formatter);
        text = formatter.takeText();
    }
    FormatResult first = mended(source, std::move(text));

    if (!properties.scheme.lineWrap) return first;
    FormatResult second = wrap(properties, first.text, messages);
    if (second.isFormatted()) second.seams += first.seams;
    return second;
}

// Works on a tree of the formatted text and never on the first tree.
FormatResult Formatter::wrap(const FormatterProperties& properties, const std::string& text,
                             Trn::ParseMessageList& messages) const {
    Cpp::RootNode root;
    if (!SourceReader(properties.reading).read(text, root, messages)) return {};
    CppPreFormatter preFormatter(properties.regions);
    root.accept(preFormatter);
    CppLineWrapper wrapper(properties.scheme, text);
    root.accept(wrapper);
    return mended(text, wrapper.takeText());
}

}  // namespace Brevis
