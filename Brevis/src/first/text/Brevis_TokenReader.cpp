// The walk lexes one token ahead of its current one.
#include "first/text/Brevis_TokenReader.h"

namespace Brevis {

TokenReader::TokenReader(std::string_view text, LeafDialect dialect)
    : lexer_(text, dialect.dialect, dialect.language) {}

void TokenReader::advance() {
    if (!started_) {
        started_ = true;
        current_ = lexer_.next();
        next_ = lexer_.next();
    } else if (more()) {
        current_ = next_;
        next_ = lexer_.next();
    }
}

bool TokenReader::more() const { return next_.kind() != Trn::Kind::EndOfInput; }

}  // namespace Brevis
