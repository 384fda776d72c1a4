// The children of a node, in order. Very many nodes have just one, which takes no memory beside the list.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

namespace Cpp {

template <class Node>
class NodeList {
public:
    using iterator = std::unique_ptr<Node>*;
    using const_iterator = const std::unique_ptr<Node>*;

    NodeList() = default;
    NodeList(NodeList&& other) noexcept { swap(other); }
    NodeList& operator=(NodeList&& other) noexcept {
        NodeList taken(std::move(other));
        swap(taken);
        return *this;
    }

    iterator begin() { return many_ ? many_.get() : &one_; }
    const_iterator begin() const { return many_ ? many_.get() : &one_; }
    iterator end() { return begin() + size_; }
    const_iterator end() const { return begin() + size_; }
    std::size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }

    void push_back(std::unique_ptr<Node> node) {
        if (size_ == capacity_) grow();
        begin()[size_++] = std::move(node);
    }
    iterator erase(iterator first, iterator last) {
        const iterator newEnd = std::move(last, end(), first);
        std::for_each(newEnd, end(), [](auto& node) { node.reset(); });
        size_ = static_cast<std::uint32_t>(newEnd - begin());
        return first;
    }
    void swap(NodeList& other) noexcept {
        one_.swap(other.one_);
        many_.swap(other.many_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

private:
    // Three is as many as the smallest piece of memory holds.
    void grow() {
        const std::uint32_t capacity = capacity_ == 1 ? 3 : capacity_ + std::max(capacity_ / 2, 3U);
        auto many = std::make_unique<std::unique_ptr<Node>[]>(capacity);
        std::move(begin(), end(), many.get());
        many_ = std::move(many);
        capacity_ = capacity;
    }

    std::unique_ptr<Node> one_;  // unused once there are more
    std::unique_ptr<std::unique_ptr<Node>[]> many_;
    std::uint32_t size_ = 0;
    std::uint32_t capacity_ = 1;
};

}  // namespace Cpp
