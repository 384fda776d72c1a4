// A sequence of values that is asked for the sum of any stretch, where the sum need not be a number.
#pragma once

#include <bit>
#include <cstddef>
#include <utility>
#include <vector>

namespace Brevis {

// `Join` adds two neighbours, the left one first. A default Value must change nothing when it is added. Every operation
// takes a number of steps that grows with the logarithm of the size only.
template <class Value, class Join>
class SegmentTree {
public:
    SegmentTree(const std::vector<Value>& values, Join join)
        : join_(std::move(join)), leaves_(std::bit_ceil(values.size() + 1)), sums_(2 * leaves_) {
        for (std::size_t i = 0; i < values.size(); ++i) sums_[leaves_ + i] = values[i];
        for (std::size_t node = leaves_ - 1; node > 0; --node) update(node);
    }

    const Value& sum() const { return sums_[1]; }
    Value sum(std::size_t begin, std::size_t end) const {
        Value left, right;
        for (begin += leaves_, end += leaves_; begin < end; begin /= 2, end /= 2) {
            if (begin % 2 == 1) left = join_(left, sums_[begin++]);
            if (end % 2 == 1) right = join_(sums_[--end], right);
        }
        return join_(left, right);
    }
    void set(std::size_t index, const Value& value) {
        std::size_t node = leaves_ + index;
        sums_[node] = value;
        while ((node /= 2) > 0) update(node);
    }

    // The first index for which the sum from `begin` through it is `enough`; a number not below the size if there is
    // none. What is enough must stay so when more is added.
    template <class Enough>
    std::size_t findSum(std::size_t begin, Enough enough) const {
        Value before;
        std::size_t node = leaves_ + begin;
        const auto isEnough = [&] { return enough(join_(before, sums_[node])); };
        while (!isEnough()) {
            before = join_(before, sums_[node]);
            while (node % 2 == 1) node /= 2;  // a right child: its parent ends here too
            if (node == 0) return leaves_;
            ++node;
        }
        while (node < leaves_) {
            node *= 2;
            if (!isEnough()) before = join_(before, sums_[node++]);
        }
        return node - leaves_;
    }

private:
    void update(std::size_t node) { sums_[node] = join_(sums_[2 * node], sums_[2 * node + 1]); }

    Join join_;
    std::size_t leaves_;       // a power of two
    std::vector<Value> sums_;  // the root at 1, the children of a node at its double and behind it
};

}  // namespace Brevis
