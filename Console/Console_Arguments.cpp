// An argument in brackets gets a NUL at its end, which no real one can hold, until CLI11 has looked for lists.
#include "Console_Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace Console {

namespace {

constexpr char mark = '\0';

bool looksLikeList(std::string_view argument) { return argument.starts_with('[') && argument.ends_with(']'); }

std::string withoutMark(std::string value) {
    if (value.ends_with(mark)) value.pop_back();
    return value;
}

// Whether the argument is an option that takes a value, with an equals sign and nothing behind it.
bool hasEmptyValue(const CLI::App& app, std::string_view argument) {
    if (!argument.starts_with("--") || argument.find('=') != argument.size() - 1) return false;
    const CLI::Option* const option = app.get_option_no_throw(std::string(argument.substr(0, argument.size() - 1)));
    return option && option->get_items_expected_max() > 0;
}

}  // namespace

void parseArguments(CLI::App& app, int argc, const char* const* argv) {
    for (CLI::Option* const option : app.get_options()) {
        if (option->get_items_expected_max() > 0) option->transform(withoutMark, "");
    }
    std::vector<std::string> arguments;
    bool areOptions = true;
    for (int index = 1; index < argc; ++index) {
        std::string argument = argv[index];
        areOptions = areOptions && argument != "--";
        if (looksLikeList(argument)) {
            arguments.push_back(argument + mark);
        } else if (areOptions && hasEmptyValue(app, argument)) {
            argument.pop_back();
            arguments.insert(arguments.end(), {argument, ""});
        } else {
            arguments.push_back(argument);
        }
    }
    // CLI11 takes them from the end.
    std::ranges::reverse(arguments);
    app.parse(std::move(arguments));
}

}  // namespace Console
