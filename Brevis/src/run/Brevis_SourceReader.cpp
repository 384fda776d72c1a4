// The attempts, and what their reports mean.
#include "run/Brevis_SourceReader.h"

#include <algorithm>
#include <iterator>

#include "Cpp_Lexer.h"

namespace Brevis {

namespace {

// A remark on a tree that is usable as it is; any other report of the classic dialect fails the text.
constexpr auto strayTokenCode = static_cast<std::int32_t>(Cpp::ParseCode::StrayBehindFunction);
// A warning: a part of the text is copied as it stands.
constexpr auto leftAloneCode = static_cast<std::int32_t>(Cpp::ParseCode::LeftAlone);

}  // namespace

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
    reports_.clear();
    parser.parse(lexer, root, reports_);
    std::erase_if(reports_, [](const Trn::ParseMessage& report) { return report.code == strayTokenCode; });
    return std::all_of(reports_.begin(), reports_.end(), [&](const Trn::ParseMessage& report) {
        return report.code == leftAloneCode && !reading_.isStrict;
    });
}

}  // namespace Brevis
