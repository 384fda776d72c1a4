// Reads a text into the tokens that the second edition works on.
#pragma once

#include <optional>
#include <string_view>

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Trn_ParseMessage.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

// Owns what the table of tokens needs. The text must outlive it.
class GapReader {
public:
    // The properties must outlive the reader, too.
    GapReader(std::string_view source, const FormatterProperties& properties)
        : source_(source), reading_(properties.reading), macros_(properties.macros) {}

    // In today's language, whatever dialect is asked for: C++, and C where that refuses or is asked for. Appends to
    // `messages` what the last attempt reported: why the text can't be formatted, or warnings of what is left alone.
    // False if it can't be formatted.
    bool read(Trn::ParseMessageList& messages);

    // After `read` gave true, once. Needs the reader as long as it lives.
    Cpp::TokenTable takeTable() { return root_.takeTokens(); }

private:
    bool readAs(Cpp::Language language, Trn::ParseMessageList& reports);

    std::string_view source_;
    const Reading reading_;
    const Cpp::MacroNames& macros_;
    std::optional<Cpp::Lexer> lexer_;
    Cpp::RootNode root_;
};

}  // namespace Brevis
