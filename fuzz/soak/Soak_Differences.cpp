// Walks both texts gap by gap.
#include "Soak_Differences.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"

namespace Soak {

namespace {

constexpr std::size_t mostKinds = 40;

using Vellum::isSpace;

std::string_view gapAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isSpace(text[end])) ++end;
    return text.substr(at, end - at);
}

std::string changeOf(std::string_view before, std::string_view after) {
    const auto feedsBefore = std::count(before.begin(), before.end(), '\n');
    const auto feedsAfter = std::count(after.begin(), after.end(), '\n');
    if (feedsAfter > feedsBefore) return "line feed comes";
    if (feedsAfter < feedsBefore) return "line feed goes";
    const std::string what = feedsBefore > 0 ? "indent" : "blank";
    if (after.size() == before.size()) return what + " of other characters";
    return what + (after.size() > before.size() ? " grows" : " shrinks");
}

std::string nameOf(char c) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '$') return "word";
    if (static_cast<unsigned char>(c) >= 0x80) return "byte";
    return {c};
}

std::string nameBehind(std::string_view text) {
    if (text.empty()) return "end";
    if (text.starts_with("//") || text.starts_with("/*")) return "comment";
    return nameOf(text.front());
}

std::string nameInFront(std::string_view text) {
    if (text.empty()) return "begin";
    return text.ends_with("*/") ? "comment" : nameOf(text.back());
}

}  // namespace

std::vector<std::string> gapDifferences(std::string_view before, std::string_view after) {
    std::vector<std::string> kinds;
    std::size_t at = 0;
    std::size_t other = 0;
    while (kinds.size() < mostKinds) {
        const std::string_view gap = gapAt(before, at);
        const std::string_view otherGap = gapAt(after, other);
        if (gap != otherGap) {
            const std::string kind = changeOf(gap, otherGap) + " between " + nameInFront(before.substr(0, at)) +
                                     " and " + nameBehind(before.substr(at + gap.size()));
            if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) kinds.push_back(kind);
        }
        at += gap.size();
        other += otherGap.size();
        if (at >= before.size() || other >= after.size()) return kinds;
        ++at;
        ++other;
    }
    return kinds;
}

}  // namespace Soak
