// The six properties of a new scheme.
#include "store/BrevisUI_NewScheme.h"

#include "scheme/Brevis_PropertyCatalogue.h"

namespace BrevisUI {

Brevis::PropertySet newScheme() {
    Brevis::PropertySet scheme{std::string(newSchemeName)};
    scheme.setString("CORVANE_VERSION", std::string(Brevis::schemeVersion));
    for (const char* key : {"WS_AFTER_FN_DEFN_RETURN_TYPE", "WS_AFTER_FN_DECL_RETURN_TYPE", "WS_AFTER_DD_TYPE_ID"}) {
        scheme.setString(key, " ");
    }
    scheme.setInt("TAB_SIZE", 4);
    scheme.setInt("CONVERT_WS", 0);
    return scheme;
}

}  // namespace BrevisUI
