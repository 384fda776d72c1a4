// A few values take nearly all places, so they are searched from the front.
#include "infer/Brevis_ValueVotes.h"

#include <algorithm>

namespace Brevis {

namespace {

// Odd values beyond these, one for each odd place, count as places and no more.
constexpr std::size_t mostEntries = 32;

}  // namespace

void ValueVotes::add(std::string_view value, std::uint64_t count) {
    places_ += count;
    const auto entry = std::ranges::find(entries_, value, &Entry::value);
    if (entry != entries_.end()) {
        entry->count += count;
    } else if (entries_.size() < mostEntries) {
        entries_.push_back({std::string(value), count});
    }
}

void ValueVotes::add(const ValueVotes& other) {
    std::uint64_t named = 0;
    for (const Entry& entry : other.entries_) {
        add(entry.value, entry.count);
        named += entry.count;
    }
    addOther(other.places_ - named);
}

std::uint64_t ValueVotes::count(std::string_view value) const {
    const auto entry = std::ranges::find(entries_, value, &Entry::value);
    return entry != entries_.end() ? entry->count : 0;
}

const ValueVotes::Entry* ValueVotes::winner() const {
    const auto isLess = [](const Entry& a, const Entry& b) {
        return a.count != b.count ? a.count < b.count : a.value > b.value;
    };
    const auto entry = std::ranges::max_element(entries_, isLess);
    return entry != entries_.end() ? &*entry : nullptr;
}

}  // namespace Brevis
