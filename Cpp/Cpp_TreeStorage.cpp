// The blocks of the storage.
#include "Cpp_TreeStorage.h"

#include <algorithm>
#include <cstring>

namespace Cpp {

namespace {

constexpr std::size_t largestBlock = 1 << 20;

}  // namespace

std::string_view TreeStorage::keep(JoinedText& text) {
    if (!text.isLong()) return keep(text.view());
    longTexts_.push_front(text.takeLong());
    return longTexts_.front();
}

std::string_view TreeStorage::copied(std::string_view text) {
    if (freeSize() < text.size()) addBlock(text.size());
    freeEnd_ -= text.size();
    std::memcpy(freeEnd_, text.data(), text.size());
    return {reinterpret_cast<const char*>(freeEnd_), text.size()};
}

void TreeStorage::addBlock(std::size_t size) {
    if (usedBlocks_ == blocks_.size() || blocks_[usedBlocks_].size < size) {
        size = std::max(size, blockSize_);
        blocks_.resize(usedBlocks_);
        blocks_.push_back({std::make_unique_for_overwrite<std::byte[]>(size), size});
        blockSize_ = std::min(blockSize_ * 2, largestBlock);
    }
    const Block& block = blocks_[usedBlocks_++];
    free_ = block.bytes.get();
    freeEnd_ = free_ + block.size;
}

}  // namespace Cpp
