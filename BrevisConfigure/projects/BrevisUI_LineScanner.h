// Reads one line of a project file piece by piece. Blanks in front of a piece are passed over.
#pragma once

#include <optional>
#include <string_view>

#include "files/BrevisUI_TextLines.h"

namespace BrevisUI {

class LineScanner {
public:
    explicit LineScanner(std::string_view line) : rest_(trimBlanks(line)) {}

    // Takes the piece if it comes next.
    bool take(std::string_view piece) {
        if (!rest_.starts_with(piece)) return false;
        rest_ = trimBlanks(rest_.substr(piece.size()));
        return true;
    }

    // Takes a text in quotes; nothing if none comes next or if it doesn't end.
    std::optional<std::string_view> quoted() {
        if (!rest_.starts_with('"')) return std::nullopt;
        const std::size_t end = rest_.find('"', 1);
        if (end == std::string_view::npos) return std::nullopt;
        const std::string_view text = rest_.substr(1, end - 1);
        rest_ = trimBlanks(rest_.substr(end + 1));
        return text;
    }

    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
};

}  // namespace BrevisUI
