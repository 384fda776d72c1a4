// The attempts, and what their reports mean.
#include "run/Brevis_SourceReader.h"

#include <iterator>

#include "Cpp_Lexer.h"
#include "run/Brevis_ReadReports.h"

namespace Brevis {

bool SourceReader::read(std::string_view text, Cpp::RootNode& root, Trn::ParseMessageList& messages) {
    using enum Cpp::Dialect;
    bool isGood = reading_.dialect != DialectChoice::modern && readAs(classic, Cpp::Language::cpp, text, root);
    if (reading_.dialect != DialectChoice::classic) {
        if (reading_.language != LanguageChoice::c) isGood = isGood || readAs(modern, Cpp::Language::cpp, text, root);
        if (reading_.language != LanguageChoice::cpp) isGood = isGood || readAs(modern, Cpp::Language::c, text, root);
    }
    messages.insert(messages.end(), std::make_move_iterator(reports_.begin()), std::make_move_iterator(reports_.end()));
    return isGood;
}

bool SourceReader::readAs(Cpp::Dialect dialect, Cpp::Language language, std::string_view text, Cpp::RootNode& root) {
    dialect_ = dialect;
    language_ = language;
    Cpp::Lexer lexer(text, dialect, language);
    Cpp::Parser parser(sketches_, dialect);
    if (macros_ != nullptr) parser.know(*macros_);
    reports_.clear();
    parser.parse(lexer, root, reports_);
    return settleReports(reports_, reading_.isStrict);
}

}  // namespace Brevis
