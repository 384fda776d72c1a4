// Writes what a check has found in the form of other tools. Pure text work.
#pragma once

#include <memory>
#include <string>

#include "Console_Findings.h"
#include "Console_FormatOptions.h"

namespace Console {

// The text of a report is what these give, in the order of the calls: begin(), file() for each file, end().
class Report {
public:
    virtual ~Report() = default;

    virtual std::string begin() { return {}; }
    virtual std::string file(const FileFindings& file) = 0;
    // `good`: whether every file could be checked.
    virtual std::string end(bool /*good*/) { return {}; }
};

// Null for ReportForm::None. `directory` is the one that relative names are relative to.
std::unique_ptr<Report> makeReport(ReportForm form, const std::string& directory);

}  // namespace Console
