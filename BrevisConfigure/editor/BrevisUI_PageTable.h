// The thirteen pages of the scheme editor, in the order of their tabs. What tells one page from another stands here and
// in the catalogue of properties.
#pragma once

#include <cstddef>
#include <string_view>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace BrevisUI {

struct PageInfo {
    Brevis::PropertyPage page;
    std::string_view className;
    std::string_view title;  // "&&" shows one "&"
    std::string_view previewName;
    std::string_view helpTopic;
    bool isDoNotFormatHidden = false;     // its "Do not format" has no check box that a user could see
    std::string_view erasedWhenOff = "";  // a key without a control, which goes with the others
};

inline constexpr PageInfo pageTable[] = {
    {Brevis::PropertyPage::Globals, "GlobalsPage", "Global Settings", "GlobalsPreview", "Globals.htm", true},
    {Brevis::PropertyPage::Classes, "ClassesPage", "Classes, Structs and Unions", "ClassesPreview", "Classes.htm"},
    {Brevis::PropertyPage::Enums, "EnumsPage", "Enums", "EnumsPreview", "Enums.htm"},
    {Brevis::PropertyPage::Namespaces, "NamespacesPage", "Namespaces", "NamespacesPreview", "Namespaces.htm"},
    {Brevis::PropertyPage::Functions, "FunctionsPage", "Functions", "FunctionsPreview", "Functions.htm"},
    {Brevis::PropertyPage::MemberInits, "MemberInitsPage", "Member Initializer Lists", "MemberInitsPreview",
     "InitializerLists.htm"},
    {Brevis::PropertyPage::Data, "DataPage", "Variable Declarations", "DataPreview", "Variables.htm"},
    {Brevis::PropertyPage::ControlStatements, "ControlStatementsPage", "Control Statements", "ControlStatementsPreview",
     "ControlStatements.htm", false, "WS_BETWEEN_CS_CASES"},
    {Brevis::PropertyPage::Preprocessor, "PreprocessorPage", "Preprocessor Directives", "PreprocessorPreview",
     "Preprocessor.htm", true},
    {Brevis::PropertyPage::Expressions, "ExpressionsPage", "Expressions", "ExpressionsPreview", "Expressions.htm"},
    {Brevis::PropertyPage::PointersRefs, "PointersRefsPage", "Pointers && References", "PointersReferencesPreview",
     "PointersRefs.htm"},
    {Brevis::PropertyPage::Templates, "TemplatesPage", "Templates", "TemplatesPreview", "Templates.htm"},
    {Brevis::PropertyPage::LineWrapping, "LineWrappingPage", "Line Wrapping", "LineWrappingPreview", "LineWrapping.htm",
     true},
};

// The row of a page; there is none for PropertyPage::None, which gives the number of pages.
constexpr std::size_t tabOf(Brevis::PropertyPage page) {
    std::size_t tab = 0;
    while (tab < std::size(pageTable) && pageTable[tab].page != page) ++tab;
    return tab;
}

}  // namespace BrevisUI
