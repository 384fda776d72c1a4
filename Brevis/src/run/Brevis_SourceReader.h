// The choice of dialect and language: reads one text in those that come into question, one after the other.
#pragma once

#include <string_view>

#include "Cpp_Dialect.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Trn_ParseMessage.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

// Holds no text: a reader may read any number of texts.
class SourceReader {
public:
    explicit SourceReader(const Reading& reading, Cpp::Parser::Sketches sketches = Cpp::Parser::Sketches::LeftOut)
        : reading_(reading), sketches_(sketches) {}

    // Macros to be taken for what they are told to be; they must outlive the reader. None otherwise.
    void know(const Cpp::MacroNames& macros) { macros_ = &macros; }

    // Parses `text`, whose lines end with line feeds, into `root`, and appends to `messages` what the last attempt
    // reported: why the text can't be formatted, or warnings of what is left alone. Gives false if it can't be
    // formatted; the tree is then that of the last attempt.
    bool read(std::string_view text, Cpp::RootNode& root, Trn::ParseMessageList& messages);

    // Those of the last attempt.
    Cpp::Dialect dialect() const { return dialect_; }
    Cpp::Language language() const { return language_; }

private:
    bool readAs(Cpp::Dialect dialect, Cpp::Language language, std::string_view text, Cpp::RootNode& root);

    const Reading reading_;
    const Cpp::Parser::Sketches sketches_;

    const Cpp::MacroNames* macros_ = nullptr;
    Cpp::Dialect dialect_ = Cpp::Dialect::classic;
    Cpp::Language language_ = Cpp::Language::cpp;
    Trn::ParseMessageList reports_;  // of the last attempt
};

}  // namespace Brevis
