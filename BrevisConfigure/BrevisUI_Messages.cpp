// Puts the texts of the file job together.
#include "BrevisUI_Messages.h"

namespace BrevisUI {

namespace {

constexpr std::string_view faqAddress = CORVANE_FAQ_ADDRESS;
constexpr std::string_view supportAddress = CORVANE_SUPPORT_ADDRESS;

constexpr std::string_view severityWord(int severity) {
    if (severity == Severity::error) return "error: ";
    if (severity == Severity::warning) return "warning: ";
    return "information: ";
}

}  // namespace

std::string fillIn(std::string_view pattern, std::string_view subject) {
    std::string text(pattern);
    if (const std::size_t place = text.find("%s"); place != std::string::npos) text.replace(place, 2, subject);
    return text;
}

std::string parseFailedMessage(std::string_view path) {
    std::string text = "Corvane C++ could not successfully parse the file ";
    text.append(path);
    text.append(". If the file contains only valid C/C++ then please check the Corvane C++ FAQ at ");
    text.append(faqAddress);
    text.append(" to see if this is a known issue. Otherwise, please send an email to ");
    text.append(supportAddress);
    text.append(". The file will not be formatted.");
    return text;
}

std::string parseMessageLine(std::string_view path, const Trn::ParseMessage& message) {
    std::string text(path);
    text.append("(").append(std::to_string(message.position.line)).append(") : ");
    text.append(severityWord(message.severity));
    text.append("col ").append(std::to_string(message.position.column)).append(": ");
    text.append(message.text);
    return text;
}

}  // namespace BrevisUI
