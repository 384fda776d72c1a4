// The values that would give the places of one key what the source has there, and how often each. It knows nothing of
// texts and schemes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Brevis {

class ValueVotes {
public:
    struct Entry {
        std::string value;
        std::uint64_t count = 0;
    };

    void add(std::string_view value, std::uint64_t count = 1);
    // A place that no value can give what it has.
    void addOther(std::uint64_t count = 1) { places_ += count; }
    void add(const ValueVotes& other);

    std::uint64_t places() const { return places_; }
    std::uint64_t count(std::string_view value) const;
    // The value with the most places, the smaller text among equals; null if there is none.
    const Entry* winner() const;

private:
    std::vector<Entry> entries_;
    std::uint64_t places_ = 0;
};

}  // namespace Brevis
