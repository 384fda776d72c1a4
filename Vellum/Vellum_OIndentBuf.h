// Adds the indent to the written text: puts it in front of each line that is not empty and drops the white space
// with which a line starts. It touches nothing but its own text.
#pragma once

#include <string>
#include <string_view>

#include "Vellum_OTextDocBuf.h"

namespace Vellum {

class OIndentBuf : public OTextDocBuf {
public:
    explicit OIndentBuf(const IndentStreamSettings& settings)
        : OTextDocBuf(settings), indent_(settings.indent), keepLeadingWs_(settings.keepLeadingWs) {}

    const std::string& indent() const { return indent_; }
    // When false, white space that arrives at column 0 is dropped.
    bool keepLeadingWs() const { return keepLeadingWs_; }

    // These two store without any flushing.
    void setIndent(std::string indent) { indent_ = std::move(indent); }
    void setKeepLeadingWs(bool keep) { keepLeadingWs_ = keep; }
    void swapIndent(std::string& indent) { indent_.swap(indent); }

    void write(std::string_view text);
    // Character for character: no indent put in front, no white space dropped.
    void writeRaw(std::string_view text) { put(text); }

private:
    bool startsLine() const { return column() == 0 && lineStart() == LiteralTracker::LineStart::Plain; }

    std::string indent_;
    bool keepLeadingWs_;
};

}  // namespace Vellum
