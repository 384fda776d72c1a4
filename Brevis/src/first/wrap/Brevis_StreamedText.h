// A text for the ladder whose lines are broken by writing it to a stream. It takes any text, comments of several lines,
// directives and conversions of white space included, and each rung costs the whole text.
#pragma once

#include <string>
#include <string_view>

#include "first/expr/Brevis_CppExprFormatterBase.h"
#include "first/wrap/Brevis_PieceReader.h"
#include "first/wrap/Brevis_WrapMeasure.h"
#include "first/wrap/Brevis_WrapStream.h"
#include "first/wrap/Brevis_WrapValues.h"

namespace Brevis {

// What a streamed text is wrapped with; both must outlive it.
struct StreamTools {
    const WrapValues& values;
    const CppExprFormatterBase& writers;  // of comments and directives
};

class StreamedText {
public:
    class Pass;

    StreamedText(std::string text, const WrapPlace& place, StreamTools tools)
        : text_(std::move(text)), place_(place), tools_(tools) {}

    bool overflows() const { return overflows(text_); }
    bool overflows(const PieceReader::Piece& piece) const { return overflows(piece.text); }
    std::string take() { return std::move(text_); }

private:
    bool overflows(std::string_view text) const {
        return Brevis::overflows(text, place_.column, place_.settings->tabSize, tools_.values.rightMargin);
    }

    std::string text_;
    const WrapPlace& place_;
    StreamTools tools_;
};

// Writes the pieces of a text in order, broken or as they stand.
class StreamedText::Pass {
public:
    using Piece = PieceReader::Piece;

    // `finder` must outlive the pass.
    Pass(StreamedText& text, FirstWrapToken& finder);
    // Puts what was written in the place of the text; the pass is not to be used afterwards.
    void finish() { text_.text_ = out_.takeText(); }

    bool atEnd() const { return rest_.empty(); }
    // The pieces from here through the next separator, or up to it.
    Piece cutThrough() { return rest_.cut(rest_.textThrough()); }
    Piece cutBefore() { return rest_.cut(rest_.textBefore()); }

    static void trimLeft(Piece& piece);
    // Cuts the white space at the end off and gives it back.
    static Piece splitTrailingWs(Piece& piece);
    // Cuts the text up to the second token off and gives it back: a separator with the gap behind it.
    Piece cutLead(Piece& unit) const;

    int indentWidth() const { return out_.indentWidth(); }
    int column() const { return out_.column(); }
    bool overflows(const Piece& piece) const { return overflows(piece.text); }
    bool overflows(const Piece& piece, const Piece& next) const {
        return overflows(std::string(piece.text) + std::string(next.text));
    }
    // The column from which a line would reach `column` with the first line of the piece.
    int columnInFront(const Piece& piece, int column);

    void write(const Piece& piece) { out_.raw(piece.text); }
    // Writes through the first character of the piece that is no white space, takes that off and gives the character's
    // column; 0 if there is none.
    int writeFirstChar(Piece& piece) { return out_.writeFirstChar(piece.text); }
    void lineFeed() { out_.lineFeed(); }
    // The piece as a line of its own under `column`.
    void writeContinuation(const Piece& piece, int column);
    // Writes a comment or directive at the front of a piece of several tokens and takes it off. Gives false if it was a
    // line comment or directive, which breaks the line by itself.
    bool writeLeadingTrivia(Piece& piece);
    // Keeps a line comment or directive at the front of a unit of several tokens on the line that it belongs to.
    void writeLeadingLineToken(Piece& unit);

    // For ordinary writing.
    OIndentStream& stream() { return out_.stream(); }

private:
    bool overflows(std::string_view text) const;

    StreamedText& text_;
    LexedText lexed_;
    PieceReader rest_;
    WrapStream out_;
};

}  // namespace Brevis
