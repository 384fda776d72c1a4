// The attempts, and what their reports mean.
#include "second/Brevis_GapReader.h"

#include <algorithm>
#include <iterator>

#include "Cpp_Parser.h"

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
    Cpp::Parser parser(Cpp::Parser::Sketches::LeftOut, Cpp::Dialect::modern, Cpp::Parser::Roles::Found);
    parser.know(macros_);
    parser.parse(*lexer_, root_, reports);
    constexpr auto leftAlone = static_cast<std::int32_t>(Cpp::ParseCode::LeftAlone);
    constexpr auto strayToken = static_cast<std::int32_t>(Cpp::ParseCode::StrayBehindFunction);
    std::erase_if(reports, [](const Trn::ParseMessage& report) { return report.code == strayToken; });
    const bool isUsable = std::all_of(reports.begin(), reports.end(), [&](const Trn::ParseMessage& report) {
        return report.code == leftAlone && !reading_.isStrict;
    });
    return isUsable && root_.tokens() != nullptr;
}

}  // namespace Brevis
