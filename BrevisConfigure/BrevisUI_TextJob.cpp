// One run of the pipeline and the checks behind it.
#include "BrevisUI_TextJob.h"

#include <utility>

#include "BrevisUI_Messages.h"
#include "BrevisUI_Verification.h"

namespace BrevisUI {

std::optional<FormattedText> TextJob::run(std::istringstream& source, Brevis::UpdateFunctor& update) const {
    FormattedText result;
    std::ostringstream out;
    Trn::ParseMessageList messages;
    const Brevis::FormatterProperties properties(scheme_);
    if (Brevis::Formatter().format(properties, source, out, messages, update, &result.summary) != 0) {
        // A cancel inside the pipeline ends here as well as a syntax error does.
        update(Phase::refuse);
        for (const Trn::ParseMessage& message : messages) send(message);
        host_.send(parseFailedMessage(path_), Severity::error);
        return std::nullopt;
    }
    result.text = std::move(out).str();
    if (changesTokens(source.view(), result.text)) {
        update(Phase::refuse);
        return std::nullopt;
    }
    if (host_.verifyStability()) {
        if (const auto warning = findSecondChange(scheme_, result.text)) send(*warning);
    }
    return result;
}

void TextJob::send(const Trn::ParseMessage& message) const {
    host_.send(parseMessageLine(path_, message), message.severity);
}

bool TextJob::changesTokens(std::string_view source, std::string_view formatted) const {
    if (!host_.verifyTokens()) return false;
    const auto change = findChangedToken(source, formatted);
    if (!change) return false;
    send(*change);
    host_.send(fillIn(Message::codeChanged, path_), Severity::error);
    return true;
}

}  // namespace BrevisUI
