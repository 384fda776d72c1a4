// The memory of one tree: its nodes and those texts that are not simply stretches of the source.
#pragma once

#include <cstddef>
#include <forward_list>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Cpp_JoinedText.h"
#include "Cpp_TokenTable.h"

namespace Cpp {

// Memory is taken in blocks and given back all at once. Nodes made here are destroyed like any others, by whoever
// owns them, and must be gone before the storage is.
class TreeStorage {
public:
    // Texts that lie in `source` are not copied.
    explicit TreeStorage(std::string_view source) : source_(source) {}
    TreeStorage(const TreeStorage&) = delete;
    TreeStorage& operator=(const TreeStorage&) = delete;

    template <class Node, class... Args>
    std::unique_ptr<Node> make(Args&&... args) {
        static_assert(alignof(Node) <= alignment && sizeof(Node) % alignment == 0);
        if (freeSize() < sizeof(Node)) addBlock(sizeof(Node));
        Node* node = ::new (static_cast<void*>(free_)) Node(std::forward<Args>(args)...);
        free_ += sizeof(Node);
        node->setStored();
        return std::unique_ptr<Node>(node);
    }

    // The text, in the source or in the storage.
    std::string_view keep(std::string_view text) { return text.empty() || isSource(text) ? text : copied(text); }
    std::string_view keep(JoinedText& text);

    // What has been taken so far, to go back to: whatever has been made since must be gone then.
    struct Mark {
        std::size_t usedBlocks;
        std::byte* free;
        std::byte* freeEnd;
    };
    Mark mark() const { return {usedBlocks_, free_, freeEnd_}; }
    void goBackTo(const Mark& mark) {
        usedBlocks_ = mark.usedBlocks;
        free_ = mark.free;
        freeEnd_ = mark.freeEnd;
    }

    // The tokens of the text and what they are, if the parser was asked for them. Null otherwise.
    const TokenTable* tokens() const { return tokens_ ? &*tokens_ : nullptr; }
    void keep(TokenTable tokens) { tokens_ = std::move(tokens); }
    TokenTable takeTokens() { return *std::exchange(tokens_, std::nullopt); }

private:
    static constexpr std::size_t alignment = alignof(std::max_align_t) / 2;

    bool isSource(std::string_view text) const {
        return text.data() >= source_.data() && text.data() + text.size() <= source_.data() + source_.size();
    }
    std::string_view copied(std::string_view text);
    std::size_t freeSize() const { return static_cast<std::size_t>(freeEnd_ - free_); }
    void addBlock(std::size_t size);

    std::string_view source_;
    struct Block {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t size;
    };

    std::vector<Block> blocks_;
    std::size_t usedBlocks_ = 0;  // those behind wait for being used again
    // Nodes are put at the front of what is free, and texts at its end.
    std::byte* free_ = nullptr;
    std::byte* freeEnd_ = nullptr;
    std::size_t blockSize_ = 4096;
    std::forward_list<std::string> longTexts_;
    std::optional<TokenTable> tokens_;
};

}  // namespace Cpp
