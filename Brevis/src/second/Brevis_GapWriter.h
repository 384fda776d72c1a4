// Carries the decisions out: goes over the tokens once and writes each gap and each token, with exact columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "second/Brevis_GapTable.h"

namespace Brevis {

// Where a token came to stand: line and column from 0.
struct LaidPlace {
    std::uint32_t line = 0;
    std::uint32_t column = 0;
};

// The text, the scheme and the table must outlive the writer.
class GapWriter {
public:
    GapWriter(const GapText& text, const Scheme& scheme, const GapTable& gaps);

    std::string write();
    // The places that `write` gives the tokens, by their indices.
    std::vector<LaidPlace> measure();

private:
    // What a scope needs of the line of its anchor.
    struct Base {
        std::uint32_t outLead = 0, outSize = 0;        // a stretch of the output
        std::uint32_t sourceLead = 0, sourceSize = 0;  // and of the source
        std::int32_t behind = -1;                      // column of what follows the anchor on its line; -1 for nothing
        std::int32_t sourceBehind = -1;                // the same in the source
    };

    void run();
    void writeGap(TokenIndex token);
    void writeBlanks(std::string_view blanks);
    void writeLines(TokenIndex token, int lineFeeds, std::string_view tail);
    void writeLead(TokenIndex token, std::string_view tail, bool isDecided);
    void writeDistance(TokenIndex token, const Base& base);
    void padTo(int column);
    void startLine(int lineFeeds);
    void writeToken(TokenIndex token);
    bool movesWithLine(TokenIndex token, std::string_view text) const;
    void writeLaterLines(TokenIndex token, std::string_view text);
    void noteAnchors(TokenIndex token);
    void noteBehind(TokenIndex token);
    const Base& baseOf(std::uint32_t scope) const;
    void appendLead(std::uint32_t scope);
    int keptLineFeeds(TokenIndex token) const;

    void append(std::string_view text);
    int widthOf(std::string_view blanks, int from = 0) const;
    void passSource(std::string_view text);
    std::string_view outLead(const Base& base) const { return std::string_view(out_).substr(base.outLead, base.outSize); }
    std::string_view sourceLead(const Base& base) const { return text_.source().substr(base.sourceLead, base.sourceSize); }

    const GapText& text_;
    const Scheme& scheme_;
    const GapTable& gaps_;
    std::string out_;
    std::vector<Base> bases_;
    std::vector<LaidPlace>* places_ = nullptr;
    std::size_t nextScope_ = 1;
    std::vector<std::uint32_t> fresh_;  // scopes whose anchor was the last token
    std::size_t lineBegin_ = 0;         // of the line that is being written
    std::size_t leadSize_ = 0;
    std::uint32_t line_ = 0;
    int column_ = 0;
    bool isLineStart_ = true;  // the token at hand is the first one of its line
    // In the source
    std::size_t sourceLine_ = 0;
    std::size_t sourceLeadSize_ = 0;
    int sourceColumn_ = 0;
};

}  // namespace Brevis
