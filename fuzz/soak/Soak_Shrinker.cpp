// Halves, quarters and so on down to single pieces, and those again until none can go.
#include "Soak_Shrinker.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace Soak {

namespace {

// Each line, or each word, with what stands behind it.
std::vector<std::string_view> piecesOf(std::string_view text, bool byWords) {
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        std::size_t end = text.find_first_of(byWords ? " \t\n" : "\n");
        if (byWords && end != std::string_view::npos) end = text.find_first_not_of(" \t\n", end);
        if (!byWords && end != std::string_view::npos) ++end;
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(pieces.back().size());
    }
    return pieces;
}

}  // namespace

Sample Shrinker::shrink(Sample sample) {
    shrinkText(sample, false);
    shrinkScheme(sample);
    shrinkText(sample, false);
    shrinkText(sample, true);
    shrinkScheme(sample);
    return sample;
}

bool Shrinker::tryIt(const Sample& sample) {
    constexpr std::size_t costOfTry = 1000;
    const std::size_t cost = sample.text.size() + costOfTry;
    if (cost > budget_) budget_ = 0;
    if (budget_ == 0) return false;
    budget_ -= cost;
    return fails_(sample);
}

template <class Piece, class Make>
void Shrinker::leaveOut(std::vector<Piece>& pieces, Sample& sample, Make make) {
    for (std::size_t run = std::max<std::size_t>(1, pieces.size() / 2);; run = std::max<std::size_t>(1, run / 2)) {
        bool found = false;
        for (std::size_t at = 0; at < pieces.size() && budget_ > 0;) {
            std::vector<Piece> rest(pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(at));
            const std::size_t end = std::min(at + run, pieces.size());
            rest.insert(rest.end(), pieces.begin() + static_cast<std::ptrdiff_t>(end), pieces.end());
            Sample candidate = make(rest);
            if (!tryIt(candidate)) {
                at += run;
                continue;
            }
            pieces = std::move(rest);
            sample = std::move(candidate);
            found = true;
        }
        if (budget_ == 0 || (run == 1 && !found)) return;
    }
}

void Shrinker::shrinkText(Sample& sample, bool byWords) {
    const Sample whole = sample;  // the pieces are views of its text
    std::vector<std::string_view> pieces = piecesOf(whole.text, byWords);
    leaveOut(pieces, sample, [&whole](const std::vector<std::string_view>& rest) {
        Sample made{{}, whole.scheme, whole.reading};
        for (const std::string_view piece : rest) made.text += piece;
        return made;
    });
}

void Shrinker::shrinkScheme(Sample& sample) {
    const Sample whole = sample;
    std::vector<std::string> keys = whole.scheme.keys();
    leaveOut(keys, sample, [&whole](const std::vector<std::string>& rest) {
        Sample made = whole;
        for (const std::string& key : whole.scheme.keys()) {
            if (std::find(rest.begin(), rest.end(), key) == rest.end()) made.scheme.erase(key);
        }
        return made;
    });
}

}  // namespace Soak
