// One call of the pipeline.
#include <corvane/format.h>

#include <utility>

#include "Brevis_Formatter.h"
#include "Corvane_Messages.h"
#include "Corvane_SchemeContents.h"
#include "Trn_Exception.h"

namespace corvane {

FormatResult format(std::string_view source, const Scheme& scheme) {
    Trn::ParseMessageList messages;
    Brevis::UpdateFunctor neverCancels;
    try {
        const Brevis::FormatterProperties properties(scheme.contents_->properties);
        Brevis::FormatResult run = Brevis::Formatter().format(properties, source, messages, neverCancels);
        return {run.isFormatted() ? Outcome::Formatted : Outcome::Refused, std::move(run.text),
                publicMessages(messages), run.seams};
    } catch (const Trn::Exception& exception) {
        throw Error(exception.what());
    }
}

std::string_view version() noexcept { return CORVANE_VERSION_TEXT; }

}  // namespace corvane
