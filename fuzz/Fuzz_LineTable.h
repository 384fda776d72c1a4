// Turns the positions of tokens and nodes into offsets.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "Trn_Position.h"

namespace Fuzz {

class LineTable {
public:
    explicit LineTable(std::string_view text) : size_(text.size()), starts_{0} {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\n') starts_.push_back(i + 1);
        }
    }

    // The offset of a cursor; empty if there is no such place in the text.
    std::optional<std::size_t> offset(Trn::Position position) const {
        if (position.line < 1 || position.column < 0) return std::nullopt;
        const auto line = static_cast<std::size_t>(position.line);
        if (line > starts_.size()) return std::nullopt;
        const std::size_t lineEnd = line < starts_.size() ? starts_[line] - 1 : size_;
        const std::size_t offset = starts_[line - 1] + static_cast<std::size_t>(position.column);
        if (offset > lineEnd) return std::nullopt;
        return offset;
    }

private:
    std::size_t size_;
    std::vector<std::size_t> starts_;
};

}  // namespace Fuzz
