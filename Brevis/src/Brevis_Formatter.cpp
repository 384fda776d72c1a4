// The way from a text with any line ends to the edition that formats it.
#include "Brevis_Formatter.h"

#include "Vellum_LineEnds.h"
#include "first/Brevis_FirstEdition.h"
#include "second/Brevis_SecondEdition.h"

namespace Brevis {

// Only a text with carriage returns is copied.
FormatResult Formatter::format(const FormatterProperties& properties, std::string_view source,
                               Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    if (source.find('\r') == std::string_view::npos) return formatLines(properties, source, messages, update);
    std::string normalized(source);
    Vellum::normalizeLineEnds(normalized);
    return formatLines(properties, normalized, messages, update);
}

FormatResult Formatter::wrap(const FormatterProperties& properties, const std::string& text,
                             Trn::ParseMessageList& messages) const {
    return FirstEdition().wrap(properties, text, messages);
}

// The one place that chooses the edition; nothing else knows which one runs.
FormatResult Formatter::formatLines(const FormatterProperties& properties, std::string_view source,
                                    Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    if (properties.scheme.edition == 2) return SecondEdition().format(properties, source, messages, update);
    return FirstEdition().format(properties, source, messages, update);
}

}  // namespace Brevis
