// Joins the upgrade to the standard streams.
#include "Console_UpgradeRun.h"

#include <sstream>

#include "Console_FormatRun.h"
#include "Console_SchemeFinder.h"
#include "Console_SchemeLibrary.h"
#include "store/BrevisUI_SchemeUpgrade.h"

namespace Console {

namespace {

void write(const Brevis::PropertySet& scheme, StandardOutput& output) {
    std::ostringstream out;
    scheme.write(out);
    output.write(out.str());
}

}  // namespace

int upgradeScheme(const std::string& pathOrName, StandardOutput& output) {
    const GivenScheme given = findGivenScheme(pathOrName);
    for (const Remark& remark : given.remarks) writeErrorLine(remark.text);
    const LoadedScheme loaded = loadScheme(given.path);
    for (const Remark& remark : loaded.remarks) writeErrorLine(remark.text);
    if (!loaded.good) return exitTrouble;
    if (BrevisUI::isOfSecondEdition(loaded.scheme)) {
        writeErrorLine("The scheme \"" + given.path + "\" is for the second edition of the rules already.");
        write(loaded.scheme, output);
        return exitGood;
    }
    const BrevisUI::SchemeUpgrade upgrade = BrevisUI::upgradeScheme(loaded.scheme);
    write(upgrade.scheme, output);
    writeErrorLine("What will differ under the second edition of the rules:");
    for (const std::string& difference : upgrade.differences) writeErrorLine("- " + difference);
    return exitGood;
}

}  // namespace Console
