// Operands whose groups are wrapped by writing the whole text to a stream for each level of nesting.
#pragma once

#include <optional>
#include <string>

#include "first/wrap/Brevis_StreamedText.h"

namespace Brevis {

class StreamedOperands {
public:
    class GroupPass;

    StreamedOperands(std::string text, const WrapPlace& place, StreamTools tools)
        : text_(std::move(text)), place_(place), tools_(tools) {}
    StreamedOperands(const StreamedOperands&) = delete;
    StreamedOperands& operator=(const StreamedOperands&) = delete;

    // Valid until the text changes.
    const LexedText& lexed();
    bool overflows();
    void climb() { set(wrapped(text_, place_)); }
    std::string take() { return std::move(text_); }

private:
    std::string wrapped(std::string text, const WrapPlace& place) const;
    void set(std::string text);

    std::string text_;
    const WrapPlace& place_;
    StreamTools tools_;
    // Found at the first question about a text
    std::optional<LexedText> lexed_;
    std::optional<bool> overflows_;
};

// Writes the groups of a level.
class StreamedOperands::GroupPass {
public:
    explicit GroupPass(StreamedOperands& operands);

    // Whether it would change a group in which nothing breaks.
    bool rewrites() const { return rewrites_; }
    // The group at `open`, which must stand behind the last one. The arguments of a call stand under its name.
    void wrapInside(std::size_t open, bool hasName);
    void finish();

private:
    std::string_view take(std::size_t end);
    void copy(std::size_t end) { out_.raw(take(end)); }

    StreamedOperands& operands_;
    const LexedText& lexed_;
    bool rewrites_;
    WrapStream out_;
    std::size_t begin_ = 0;  // of what is left
};

}  // namespace Brevis
