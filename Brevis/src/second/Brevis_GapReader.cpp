// The attempts, and what their reports mean.
#include "second/Brevis_GapReader.h"

#include <iterator>

#include "Cpp_Parser.h"
#include "run/Brevis_ReadReports.h"

namespace Brevis {

bool GapReader::read(Trn::ParseMessageList& messages) {
    Trn::ParseMessageList reports;
    const bool isGood = (reading_.language != LanguageChoice::c && readAs(Cpp::Language::cpp, reports)) ||
                        (reading_.language != LanguageChoice::cpp && readAs(Cpp::Language::c, reports));
    messages.insert(messages.end(), std::make_move_iterator(reports.begin()), std::make_move_iterator(reports.end()));
    return isGood;
}

bool GapReader::readAs(Cpp::Language language, Trn::ParseMessageList& reports) {
    reports.clear();
    lexer_.emplace(source_, Cpp::Dialect::modern, language);
    Cpp::Parser parser(Cpp::Parser::Sketches::LeftOut, Cpp::Dialect::modern, Cpp::Parser::Roles::FoundAlone);
    parser.know(macros_);
    parser.parse(*lexer_, root_, reports);
    return settleReports(reports, reading_.isStrict) && root_.tokens() != nullptr;
}

}  // namespace Brevis
