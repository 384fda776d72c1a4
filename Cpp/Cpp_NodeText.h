// The text of a node: a view of the source or of the storage of its tree, in twelve bytes.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace Cpp {

// Most nodes are leaves with a text. A string_view would need sixteen bytes and, with the gap in front of it, twenty.
class NodeText {
public:
    NodeText() = default;
    NodeText(std::string_view text)
        : size_(static_cast<std::uint32_t>(std::min(text.size(), longest))),
          begin_(std::bit_cast<Halves>(text.data())) {}

    operator std::string_view() const { return {std::bit_cast<const char*>(begin_), size_}; }

    bool empty() const { return size_ == 0; }
    bool starts_with(std::string_view text) const { return std::string_view(*this).starts_with(text); }
    bool ends_with(std::string_view text) const { return std::string_view(*this).ends_with(text); }

    friend bool operator==(const NodeText& a, std::string_view b) { return std::string_view(a) == b; }

private:
    using Halves = std::array<std::uint32_t, sizeof(const char*) / sizeof(std::uint32_t)>;
    // A joined text may be longer than any source; all that is asked of one so long is how it begins.
    static constexpr std::size_t longest = std::numeric_limits<std::uint32_t>::max();

    std::uint32_t size_ = 0;
    Halves begin_{};
};

}  // namespace Cpp
