// The result of a walk over tokens and white space alone. Next to nothing in it depends on the column, so all nested
// results go straight into one buffer, the values round their commas with them, and each character is written once,
// however deep it stands. What can't be written so makes it fail, and the walk is made over a stream.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "first/expr/Brevis_ExprSlice.h"
#include "first/text/Brevis_TextStreams.h"
#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

// The values round the commas of a stretch.
struct CommaValues {
    const WsProperty& before = noWs;
    const WsProperty& after = noWs;
    bool isLinedUp = false;  // the pass `formatSeparated`, otherwise `formatAround`

    bool areSet() const { return before.isSet || after.isSet; }
};

// What becomes of the result of a stretch inside another. Only with `isRaw` it lands as it is, otherwise as ordinary
// text, so that the indent of its lines is put in front once more.
struct NestedStyle {
    CommaValues commas{};
    const WsProperty& atStart = noWs;  // in the place of the white space there
    bool trimsEnd = false;
    bool isRaw = false;
};

class PlainExprText {
public:
    // Starts a new result. The settings must outlive its making.
    void start(const ExprSlice& slice, const IndentStreamSettings& settings);
    // From then on nothing is written.
    void fail() { hasFailed_ = true; }
    bool hasFailed() const { return hasFailed_; }
    // The result. The buffer stays for the next one unless it is huge.
    std::string takeText();

    // A piece of the source that stands behind all those written before.
    void write(std::string_view piece) {
        if (piece.empty() || hasFailed_) return;
        if (endOffset(piece) > commaOffset_)
            writeWithCommas(piece);
        else
            append(piece);
    }
    // A part of the source, or a value, that is written somewhere else than where it stood.
    void writeMoved(std::string_view piece);
    void writeValue(std::string_view value) {
        if (!hasFailed_) appendAny(value);
    }
    // From here to the end of the stretch that is being written the result is written again as ordinary text.
    void noteRewriting() { isRewritten_ = true; }

    // A stretch inside the one that is being written, for the extent of a scope.
    class Nested {
    public:
        Nested(PlainExprText& text, const ExprSlice& slice, const NestedStyle& style);
        ~Nested();
        Nested(const Nested&) = delete;
        Nested& operator=(const Nested&) = delete;

    private:
        friend class PlainExprText;
        void findComma(std::uint32_t from);
        Trn::TokenKind kindBehindComma() const;
        bool isCommentBehindComma() const;  // on its line
        // A line comment there keeps its line feed.
        bool hasLineCommentAt(std::uint32_t index) const;
        bool linesUp() const { return style_.commas.isLinedUp && style_.isRaw && !outerIsRewritten_; }
        const std::string& itemIndent();

        PlainExprText& text_;
        const ExprSlice& slice_;
        const NestedStyle& style_;
        std::size_t begin_;                       // of the stretch in the result
        bool startsLine_;                         // it stands there at the start of a line
        std::uint32_t comma_ = ExprTokens::none;  // the next one outside all brackets
        Nested* outer_;
        std::size_t outerCommaOffset_;
        bool outerIsRewritten_;
        std::optional<std::string> itemIndent_;
    };

private:
    std::size_t endOffset(std::string_view piece) const {
        return static_cast<std::size_t>(piece.data() + piece.size() - source_.data());
    }
    void writeWithCommas(std::string_view piece);
    void writeComma(std::string_view comma);
    void writeBehindComma(const WsProperty& value);
    void breakBehindComma(const WsProperty& value);
    void append(std::string_view piece);
    void appendAny(std::string_view piece);
    void appendLines(std::string_view piece);
    void appendToLine(std::string_view piece);
    void startLine();
    void skipWhiteSpace() { skipsWhiteSpace_ = true; }
    void trimEnd(std::size_t from);
    int columnAt(std::size_t offset) const;
    bool mayJoin(std::string_view piece) const;
    bool keepsLinesWhenRewritten() const;

    std::string text_;
    bool hasFailed_ = false;

    // What is written
    std::string_view source_;
    bool hasLines_ = false;  // it holds line feeds or tabs
    const IndentStreamSettings* settings_ = nullptr;

    // The place that the writing has reached
    bool startsLine_ = false;
    bool skipsWhiteSpace_ = false;
    bool startsItem_ = false;           // with that line, behind a comma of `nested_`
    const char* behindLast_ = nullptr;  // in the source: what follows there stood side by side with the last piece
    Nested* nested_ = nullptr;
    std::size_t commaOffset_ = std::string_view::npos;  // of the next comma that takes values
    bool isRewritten_ = false;                          // what is nested here is written again under the indent
};

}  // namespace Brevis
