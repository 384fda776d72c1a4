// The comment markers of no-format regions that come with the program, and the macros of a scheme.
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

Cpp::MacroNames FormatterProperties::macrosOf(const Scheme& scheme) {
    using Sort = Cpp::MacroNames::Sort;
    Cpp::MacroNames macros;
    macros.add(Sort::Item, scheme.macrosStatement);
    macros.add(Sort::Item, scheme.macrosNamespaceBegin);
    macros.add(Sort::Item, scheme.macrosNamespaceEnd);
    macros.add(Sort::Loop, scheme.macrosLoop);
    macros.add(Sort::Loop, scheme.forEachMacros);
    return macros;
}

const RegionTable& regionTable() {
    // Searched from the front. The last two pairs have three braces where the others have two.
    static const RegionTable table{
        {"CV-FORMAT-OFF", "CV-FORMAT-ON"},
        {"{{AFX_DATA", "AFX_DATA}}"},
        {"{{AFX_MSG", "AFX_MSG}}"},
        {"{{AFX_MSG_MAP", "AFX_MSG_MAP}}"},
        {"{{AFX_VIRTUAL", "AFX_VIRTUAL}}"},
        {"{{AFX_DATA_INIT", "AFX_DATA_INIT}}"},
        {"{{AFX_DATA_MAP", "AFX_DATA_MAP}}"},
        {"{{AFX_FIELD", "AFX_FIELD}}"},
        {"{{AFX_FIELD_INIT", "AFX_FIELD_INIT}}"},
        {"{{AFX_EVENT", "AFX_EVENT}}"},
        {"{{AFX_EVENT_MAP", "AFX_EVENT_MAP}}"},
        {"{{{AFX_DISP", "AFX_DISP}}}"},
        {"{{{AFX_DISP_MAP", "AFX_DISP_MAP}}}"},
    };
    return table;
}

}  // namespace Brevis
