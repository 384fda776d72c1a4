// The target of the expression formatter and the expression wrapper.
#include "Fuzz_SchemeDrawer.h"
#include "Fuzz_Targets.h"
#include "Fuzz_Trial.h"
#include "Trn_Exception.h"
#include "first/expr/Brevis_CppExprFormatter.h"
#include "first/wrap/Brevis_CppExprLineWrapper.h"
#include "scheme/Brevis_Scheme.h"

namespace Fuzz {

namespace {

Vellum::IndentStreamSettings drawSettings(Draws& draws) {
    Vellum::IndentStreamSettings settings;
    settings.convertMode = static_cast<int>(draws.below(3));
    settings.tabSize = static_cast<int>(1 + draws.below(8));
    settings.indent = std::string(draws.below(24), draws.below(2) != 0 ? '\t' : ' ');
    settings.column = static_cast<int>(draws.below(150));
    settings.keepLeadingWs = draws.below(2) != 0;
    return settings;
}

std::string runFormatter(unsigned operation, const std::string& text, const Vellum::IndentStreamSettings& settings,
                         const Brevis::Scheme& scheme) {
    Brevis::CppExprFormatter formatter(scheme);
    const Brevis::WsProperty& before = scheme.wsBeforeFnComma;
    const Brevis::WsProperty& after = scheme.wsBetweenFnParams;
    switch (operation) {
        case 0:
            return formatter.format(text, settings);
        case 1:
            return formatter.formatType(text, settings, after);
        case 2:
            return formatter.formatSeparated(text, Trn::Kind::Comma, before, after, settings);
        case 3:
            return formatter.formatAround(text, Trn::Kind::Colon, before, after, settings);
        default:
            return formatter.alignAssignments(text, settings);
    }
}

std::string runWrapper(unsigned operation, const std::string& text, const Vellum::IndentStreamSettings& settings,
                       const Brevis::Scheme& scheme, bool noExtraIndent) {
    Brevis::CppExprLineWrapper wrapper(scheme);
    switch (operation) {
        case 0:
            return wrapper.wrapExpression(text, settings, noExtraIndent);
        case 1:
            return wrapper.wrapList(text, settings, noExtraIndent);
        default:
            return wrapper.wrapForHead(text, settings);
    }
}

}  // namespace

void fuzzExpression(std::string_view data) {
    constexpr unsigned formatterOperations = 5;
    constexpr unsigned wrapperOperations = 3;
    const Input input = splitInput(data);
    ByteDraws draws(input.choices);
    const unsigned operation = draws.below(formatterOperations + wrapperOperations);
    const bool noExtraIndent = draws.below(2) != 0;
    const Vellum::IndentStreamSettings settings = drawSettings(draws);
    const Brevis::Scheme scheme = Brevis::Scheme::from(drawScheme(draws));
    try {
        const std::string result =
            operation < formatterOperations
                ? runFormatter(operation, input.text, settings, scheme)
                : runWrapper(operation - formatterOperations, input.text, settings, scheme, noExtraIndent);
        require(withoutWhiteSpace(result) == withoutWhiteSpace(input.text), "More than white space changed.");
    } catch (const Trn::Exception& exception) {
        require(isLimit(exception.message()), "Exception: " + exception.message());
    }
}

}  // namespace Fuzz
