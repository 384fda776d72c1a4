// Puts the texts of the batch commands together.
#include "batch/BrevisUI_BatchMessages.h"

namespace BrevisUI {

namespace {

std::size_t placeholderIn(std::string_view pattern) {
    std::size_t place = pattern.find('%');
    while (place != std::string_view::npos && pattern.substr(place, 2) != "%s" && pattern.substr(place, 2) != "%d") {
        place = pattern.find('%', place + 1);
    }
    return place;
}

}  // namespace

std::string fillInAll(std::string_view pattern, std::initializer_list<std::string_view> subjects) {
    std::string text;
    for (const std::string_view subject : subjects) {
        const std::size_t place = placeholderIn(pattern);
        if (place == std::string_view::npos) break;
        text.append(pattern.substr(0, place)).append(subject);
        pattern.remove_prefix(place + 2);
    }
    return text.append(pattern);
}

}  // namespace BrevisUI
