// What the line wrapper asks of a text as a whole.
#pragma once

#include <cstddef>
#include <string_view>

#include "first/text/Brevis_TextStreams.h"

namespace Brevis {

// True if `line`, which begins at `column`, is wider than `limit`.
bool isWider(std::string_view line, int column, int tabSize, int limit);
// True if a line of `text`, which begins at `column`, is wider than `limit`. The convert mode moves no column, so a
// text overflows as it stands or not at all.
bool overflows(std::string_view text, int column, int tabSize, int limit);

// Whether a stream that writes `text` raw leaves it as it is.
bool isPlainText(std::string_view text, const IndentStreamSettings& settings);

// Lines that are aligned under each other can take room beyond all measure: a line of thousands of statements has each
// of them begin further to the right than the last. This is the room that wrapping may take.
inline constexpr std::size_t maxGrowth = std::size_t{256} << 20;
// Throws Trn::Exception if a text of `size` characters has grown by more than that.
void checkGrowth(std::size_t wrappedSize, std::size_t size);

}  // namespace Brevis
