// The pages by their names. A page is its row in the table of pages and its rows in the catalogue; only that of the
// directives has rules of its own.
#pragma once

#include <memory>
#include <vector>

#include "editor/BrevisUI_BodyBasePage.h"
#include "editor/BrevisUI_PreprocessorPage.h"

namespace BrevisUI {

template <Brevis::PropertyPage page, class Base>
class StylesPage : public Base {
public:
    explicit StylesPage(StylesSheet& sheet) : Base(sheet, pageTable[tabOf(page)]) {}
};

using GlobalsPage = StylesPage<Brevis::PropertyPage::Globals, StylesBasePage>;
using ClassesPage = StylesPage<Brevis::PropertyPage::Classes, BodyBasePage>;
using EnumsPage = StylesPage<Brevis::PropertyPage::Enums, BodyBasePage>;
using NamespacesPage = StylesPage<Brevis::PropertyPage::Namespaces, BodyBasePage>;
using FunctionsPage = StylesPage<Brevis::PropertyPage::Functions, BodyBasePage>;
using MemberInitsPage = StylesPage<Brevis::PropertyPage::MemberInits, StylesBasePage>;
using DataPage = StylesPage<Brevis::PropertyPage::Data, BodyBasePage>;
using ExpressionsPage = StylesPage<Brevis::PropertyPage::Expressions, StylesBasePage>;
using PointersRefsPage = StylesPage<Brevis::PropertyPage::PointersRefs, StylesBasePage>;
using TemplatesPage = StylesPage<Brevis::PropertyPage::Templates, StylesBasePage>;
using LineWrappingPage = StylesPage<Brevis::PropertyPage::LineWrapping, StylesBasePage>;

class ControlStatementsPage : public StylesPage<Brevis::PropertyPage::ControlStatements, BodyBasePage> {
public:
    using StylesPage::StylesPage;

    std::string_view wsAfterOpenParenKey() const { return twinOf("GLOBAL_WS_AFTER_OPEN_PAREN"); }
    std::string_view wsBeforeCloseParenKey() const { return twinOf("GLOBAL_WS_BEFORE_CLOSE_PAREN"); }
};

// All pages in the order of their tabs.
std::vector<std::unique_ptr<StylesBasePage>> makePages(StylesSheet& sheet);

}  // namespace BrevisUI
