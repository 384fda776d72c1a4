// Finds unknown keys, and the known ones near to them.
#include "store/BrevisUI_SchemeRemarks.h"

#include <algorithm>
#include <array>

#include "BrevisUI_Messages.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace BrevisUI {

namespace {

// How many slips of the pen make one text of the other: a character too many, missing, wrong, or two swapped.
class EditDistance {
public:
    EditDistance(std::string_view from, std::string_view to) : from_(from), to_(to) {}

    std::size_t count() {
        for (std::size_t j = 0; j <= to_.size(); ++j) row(0).push_back(j);
        for (std::size_t i = 1; i <= from_.size(); ++i) {
            row(i).assign(1, i);
            for (std::size_t j = 1; j <= to_.size(); ++j) row(i).push_back(cell(i, j));
        }
        return row(from_.size()).back();
    }

private:
    // A cell looks no further back than two rows.
    std::vector<std::size_t>& row(std::size_t i) { return rows_[i % rows_.size()]; }

    std::size_t cell(std::size_t i, std::size_t j) {
        const std::size_t wrong = from_[i - 1] == to_[j - 1] ? 0 : 1;
        const std::size_t best = std::min({row(i - 1)[j] + 1, row(i)[j - 1] + 1, row(i - 1)[j - 1] + wrong});
        const bool isSwap = i > 1 && j > 1 && from_[i - 1] == to_[j - 2] && from_[i - 2] == to_[j - 1];
        return isSwap ? std::min(best, row(i - 2)[j - 2] + 1) : best;
    }

    std::string_view from_;
    std::string_view to_;
    std::array<std::vector<std::size_t>, 3> rows_;
};

// In a long key more may be wrong before another one is as likely.
constexpr std::size_t farthest(std::string_view key) {
    constexpr std::size_t longKey = 15;
    return key.size() < longKey ? 2 : 3;
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

// No more slips than `limit` can lie between texts of so different a length.
bool differTooMuch(std::size_t a, std::size_t b, std::size_t limit) { return std::max(a, b) - std::min(a, b) > limit; }

SchemeRemark unknownKey(const std::string& key) {
    std::string text = "The key " + key + " is unknown and has no effect";
    const std::string_view nearest = nearestKey(key);
    if (!nearest.empty()) text.append("; the nearest known key is ").append(nearest);
    return {Severity::warning, text + "."};
}

}  // namespace

std::string_view nearestKey(std::string_view key) {
    const std::string wanted = upperCase(key);
    std::size_t limit = farthest(key);
    std::string_view nearest;
    for (const Brevis::PropertyInfo& property : Brevis::Catalogue::properties) {
        if (differTooMuch(wanted.size(), property.key.size(), limit)) continue;
        const std::size_t distance = EditDistance(wanted, property.key).count();
        if (distance > limit || (distance == limit && !nearest.empty())) continue;
        limit = distance;
        nearest = property.key;
    }
    return nearest;
}

std::vector<SchemeRemark> remarksOn(const Brevis::PropertySet& scheme) {
    std::vector<SchemeRemark> remarks;
    for (const std::string& key : scheme.keys()) {
        if (!Brevis::Catalogue::isKnown(key)) remarks.push_back(unknownKey(key));
    }
    return remarks;
}

}  // namespace BrevisUI
