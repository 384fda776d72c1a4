// By the codes of the reports.
#include "run/Brevis_ReadReports.h"

#include <algorithm>

#include "Cpp_ParseCodes.h"

namespace Brevis {

bool settleReports(Trn::ParseMessageList& reports, bool isStrict) {
    constexpr auto remark = static_cast<std::int32_t>(Cpp::ParseCode::StrayBehindFunction);
    constexpr auto warning = static_cast<std::int32_t>(Cpp::ParseCode::LeftAlone);
    std::erase_if(reports, [](const Trn::ParseMessage& report) { return report.code == remark; });
    return std::all_of(reports.begin(), reports.end(),
                       [&](const Trn::ParseMessage& report) { return report.code == warning && !isStrict; });
}

}  // namespace Brevis
