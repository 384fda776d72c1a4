// The one place that makes pages.
#include "editor/BrevisUI_StylesPages.h"

namespace BrevisUI {

namespace {

template <class... Pages>
std::vector<std::unique_ptr<StylesBasePage>> make(StylesSheet& sheet) {
    std::vector<std::unique_ptr<StylesBasePage>> pages;
    (pages.push_back(std::make_unique<Pages>(sheet)), ...);
    return pages;
}

}  // namespace

std::vector<std::unique_ptr<StylesBasePage>> makePages(StylesSheet& sheet) {
    return make<GlobalsPage, ClassesPage, EnumsPage, NamespacesPage, FunctionsPage, MemberInitsPage, DataPage,
                ControlStatementsPage, PreprocessorPage, ExpressionsPage, PointersRefsPage, TemplatesPage,
                LineWrappingPage>(sheet);
}

}  // namespace BrevisUI
