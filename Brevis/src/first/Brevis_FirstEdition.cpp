// The order of the stages. Each stage is a local object of one call; nothing survives a call but its output and its
// messages.
#include "first/Brevis_FirstEdition.h"

#include <cstddef>
#include <utility>

#include "first/format/Brevis_CppFormatter.h"
#include "first/format/Brevis_CppPreFormatter.h"
#include "first/wrap/Brevis_CppLineWrapper.h"
#include "guard/Brevis_SeamGuard.h"
#include "run/Brevis_RunPhases.h"
#include "run/Brevis_SourceReader.h"

namespace Brevis {

namespace {

// The end of each pass.
FormatResult mended(std::string_view source, std::string text) {
    const std::size_t seams = SeamGuard(source).mend(text);
    return {FormatOutcome::Formatted, std::move(text), seams};
}

}  // namespace

FormatResult FirstEdition::format(const FormatterProperties& properties, std::string_view source,
                                  Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    std::string text;
    if (!update(analyzingPhase)) return cancelledRun(messages);
    {
        Cpp::RootNode root;
        SourceReader reader(properties.reading);
        if (!reader.read(source, root, messages)) return {};
        CppPreFormatter preFormatter(properties.regions);
        root.accept(preFormatter);

        if (!update(formattingPhase)) return cancelledRun(messages);
        CppFormatter formatter(source, properties.scheme, {reader.dialect(), reader.language()});
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
FormatResult FirstEdition::wrap(const FormatterProperties& properties, const std::string& text,
                                Trn::ParseMessageList& messages) const {
    Cpp::RootNode root;
    SourceReader reader(properties.reading);
    if (!reader.read(text, root, messages)) return {};
    CppPreFormatter preFormatter(properties.regions);
    root.accept(preFormatter);
    CppLineWrapper wrapper(properties.scheme, text, {reader.dialect(), reader.language()});
    root.accept(wrapper);
    return mended(text, wrapper.takeText());
}

}  // namespace Brevis
