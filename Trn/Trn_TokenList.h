// Tokens of one buffer that a parser has collected, and a part of such a list.
#pragma once

#include <span>
#include <vector>

#include "Trn_TokenView.h"

namespace Trn {

class TokenSpan {
public:
    TokenSpan() = default;
    TokenSpan(const TokenBuffer& buffer, std::span<const TokenIndex> indices) : buffer_(&buffer), indices_(indices) {}

    bool empty() const { return indices_.empty(); }
    std::size_t size() const { return indices_.size(); }
    TokenView operator[](std::size_t i) const { return {*buffer_, indices_[i]}; }
    TokenView front() const { return (*this)[0]; }
    TokenView back() const { return (*this)[size() - 1]; }
    TokenSpan first(std::size_t count) const { return {*buffer_, indices_.first(count)}; }
    TokenSpan from(std::size_t begin) const { return {*buffer_, indices_.subspan(begin)}; }
    std::span<const TokenIndex> indices() const { return indices_; }

private:
    const TokenBuffer* buffer_ = nullptr;
    std::span<const TokenIndex> indices_;
};

class TokenList {
public:
    explicit TokenList(const TokenBuffer& buffer) : buffer_(&buffer) { indices_.reserve(usualSize); }

    void push_back(const TokenView& token) { indices_.push_back(token.index()); }
    void pop_back() { indices_.pop_back(); }
    bool empty() const { return indices_.empty(); }
    TokenView back() const { return {*buffer_, indices_.back()}; }
    TokenSpan span() const { return {*buffer_, indices_}; }
    const TokenBuffer& buffer() const { return *buffer_; }

private:
    static constexpr std::size_t usualSize = 48;

    const TokenBuffer* buffer_;
    std::vector<TokenIndex> indices_;
};

}  // namespace Trn
