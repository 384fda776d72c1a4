// Takes lists of extensions apart and puts them together.
#include "settings/BrevisUI_Extensions.h"

#include <algorithm>

#include "Cpp_CharClasses.h"

namespace BrevisUI {

namespace {

constexpr std::string_view separators = " ;,", invalid = "<>:\\/|?";

std::string_view withoutDot(std::string_view text) {
    if (text.starts_with('.')) text.remove_prefix(1);
    if (text.ends_with('.')) text.remove_suffix(1);
    return text;
}

}  // namespace

std::vector<std::string> parseExtensions(std::string_view text) {
    text = Cpp::trimmed(text);
    std::vector<std::string> extensions;
    std::size_t begin = 0;
    while ((begin = text.find_first_not_of(separators, begin)) != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(separators, begin), text.size());
        extensions.emplace_back(withoutDot(Cpp::trimmed(text.substr(begin, end - begin))));
        begin = end;
    }
    return extensions;
}

std::string joinExtensions(const std::vector<std::string>& extensions) {
    std::string text;
    for (const std::string& extension : extensions) text.append(" ").append(extension);
    return std::string(Cpp::trimmed(text));
}

std::string bareExtension(std::string_view text) {
    text = Cpp::trimmed(text);
    const std::size_t begin = std::min(text.find_first_not_of('.'), text.size());
    return std::string(text.substr(begin, text.find_last_not_of('.') + 1 - begin));
}

bool isValidExtension(std::string_view text) { return bareExtension(text).find_first_of(invalid) == std::string::npos; }

}  // namespace BrevisUI
