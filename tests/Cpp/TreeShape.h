// Trees and reports in a short form, for the cases of the parser's tests.
#pragma once

#include <string>
#include <string_view>

#include "Cpp_Dialect.h"
#include "Cpp_Nodes.h"
#include "Trn_ParseMessage.h"

namespace Cpp {

struct ParsedText {
    explicit ParsedText(std::string_view source, Dialect dialect = Dialect::classic, Language language = Language::cpp);

    // The children of the root without positions: `DataDecl{Type'int' Id'x'} Expr'y;'`. A class name stands without
    // its `Node`, a text between single quotes, what else a node holds between square brackets.
    std::string shape() { return shape_; }
    // As `shape`, with the first and last position behind each class name.
    std::string shapeWithPositions() { return positions_; }
    // `2@1:10` for a coded report, `'text'@1:10` for one with its own text.
    std::string reports();

    RootNode root;
    Trn::ParseMessageList messages;

private:
    std::string shape_;
    std::string positions_;
};

}  // namespace Cpp
