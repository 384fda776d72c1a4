// Plain text for people.
#include "Console_InferReport.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace Console {

namespace {

constexpr std::size_t mostCauses = 12;

double percent(std::uint64_t part, std::uint64_t whole) {
    return whole == 0 ? 0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
}

template <class... Values>
std::string print(const char* pattern, Values... values) {
    std::array<char, 120> text{};
    std::snprintf(text.data(), text.size(), pattern, values...);
    return text.data();
}

}  // namespace

std::string inferenceReport(const BrevisUI::InferenceResult& result) {
    using ULong = unsigned long long;
    std::string text = print("%llu of %llu lines would change (%.2f %%).\n", ULong{result.changedLines},
                             ULong{result.lines}, percent(result.changedLines, result.lines));
    if (result.refused > 0) text += print("%zu files could not be read as C or C++.\n", result.refused);
    if (result.causes.empty()) return text;
    text += "What changes them, with an example each:\n";
    for (std::size_t i = 0; i < std::min(mostCauses, result.causes.size()); ++i) {
        const BrevisUI::InferenceCause& cause = result.causes[i];
        const std::string moved = cause.moved > 0 ? print(" (%llu lines move)", ULong{cause.moved}) : std::string();
        text += print("%8llu  ", ULong{cause.places}) + cause.name + moved + "  " + cause.file + ':' +
                std::to_string(cause.line) + "  " + cause.before + " -> " + cause.after + '\n';
    }
    return text;
}

std::string inferenceTable(const BrevisUI::InferenceResult& result) {
    using ULong = unsigned long long;
    std::string text;
    for (const BrevisUI::KeyEvidence& key : result.keys) {
        text += print("%-36s %-12s %9llu %6.1f %%  %s\n", std::string(key.property->key).c_str(), key.value.c_str(),
                      ULong{key.places}, percent(key.agreeing, key.places), key.isSet ? "set" : "unset");
    }
    return text;
}

}  // namespace Console
