// One class a form.
#include "Console_Report.h"

#include <array>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>
#include <sstream>

#include "Console_WholeText.h"

namespace Console {

namespace {

using Json = nlohmann::ordered_json;

struct KindRow {
    std::string_view rule, level, description;
};
// In the order of Finding::Kind.
constexpr std::array<KindRow, 3> kinds{{
    {"layout", "warning", "The white space is not what the scheme asks for."},
    {"remark", "warning", "The file was checked, with a remark."},
    {"refused", "error", "The file cannot be formatted."},
}};

constexpr const KindRow& rowOf(const Finding& finding) { return kinds[static_cast<std::size_t>(finding.kind)]; }

// What a check prints like a compiler: `a.cpp:3:5: warning: text [layout]`.
class GccReport : public Report {
public:
    std::string file(const FileFindings& file) override {
        std::string text;
        for (const Finding& finding : file.findings) {
            text += file.name + ":";
            if (finding.region.line > 0) {
                text += std::to_string(finding.region.line) + ":" + std::to_string(finding.region.column) + ":";
            }
            text.append(" ").append(rowOf(finding).level).append(": ").append(finding.message);
            text.append(" [").append(rowOf(finding).rule).append("]\n");
        }
        return text;
    }
};

// Commands of a workflow of GitHub, which become notes beside the lines.
class GithubReport : public Report {
public:
    std::string file(const FileFindings& file) override {
        std::string text;
        for (const Finding& finding : file.findings) {
            text.append("::").append(rowOf(finding).level).append(" file=").append(escaped(file.name, true));
            text.append(placeOf(finding.region)).append(",title=corvane-format").append("::");
            text.append(escaped(finding.message, false)).append("\n");
        }
        return text;
    }

private:
    // Columns may only be told within one line.
    static std::string placeOf(const Region& region) {
        if (region.line == 0) return {};
        std::string text = ",line=" + std::to_string(region.line) + ",endLine=" + std::to_string(region.endLine);
        if (region.line != region.endLine) return text;
        return text + ",col=" + std::to_string(region.column) + ",endColumn=" + std::to_string(region.endColumn);
    }

    static std::string escaped(const std::string& text, bool isProperty) {
        const std::string_view special = isProperty ? "%\r\n:," : "%\r\n";
        std::string result;
        for (const char c : text) {
            constexpr std::string_view digits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            if (special.find(c) == std::string_view::npos) {
                result += c;
            } else {
                result.append({'%', digits[byte >> 4], digits[byte & 15]});
            }
        }
        return result;
    }
};

class CheckstyleReport : public Report {
public:
    std::string begin() override {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<checkstyle version=\"8.0\">\n";
    }
    std::string end(bool /*good*/) override { return "</checkstyle>\n"; }

    std::string file(const FileFindings& file) override {
        if (file.findings.empty()) return {};
        pugi::xml_document document;
        pugi::xml_node element = document.append_child("file");
        element.append_attribute("name") = wholeText(file.name).c_str();
        for (const Finding& finding : file.findings) {
            pugi::xml_node error = element.append_child("error");
            // A line is required.
            error.append_attribute("line") = std::to_string(std::max<std::size_t>(finding.region.line, 1)).c_str();
            if (finding.region.line > 0) {
                error.append_attribute("column") = std::to_string(finding.region.column).c_str();
            }
            error.append_attribute("severity") = std::string(rowOf(finding).level).c_str();
            error.append_attribute("message") = wholeText(finding.message).c_str();
            error.append_attribute("source") = ("corvane." + std::string(rowOf(finding).rule)).c_str();
        }
        std::ostringstream out;
        document.save(out, "  ", pugi::format_default | pugi::format_no_declaration);
        return out.str();
    }
};

// SARIF 2.1.0, https://docs.oasis-open.org/sarif/sarif/v2.1.0/. Results are written one by one, so that the report of a
// large tree needs no memory.
class SarifReport : public Report {
public:
    explicit SarifReport(std::string directory) : directory_(std::move(directory)) {}

    std::string begin() override;
    std::string file(const FileFindings& file) override;
    std::string end(bool good) override;

private:
    static Json regionOf(const Region& region);
    static Json locationOf(const std::string& name);
    static Json resultOf(const std::string& name, const Finding& finding);
    static std::string uriOf(std::string_view path);

    const std::string directory_;
    bool hasResults_ = false;
};

std::string dumped(const Json& json) { return json.dump(-1, ' ', true, Json::error_handler_t::replace); }

std::string SarifReport::uriOf(std::string_view path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string uri;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (plain.find(c) != std::string_view::npos) {
            uri += c;
        } else {
            uri.append({'%', digits[byte >> 4], digits[byte & 15]});
        }
    }
    return uri;
}

Json SarifReport::locationOf(const std::string& name) {
    if (name.starts_with('/')) return {{"uri", "file://" + uriOf(name)}};
    return {{"uri", uriOf(name)}, {"uriBaseId", "SRCROOT"}};
}

Json SarifReport::regionOf(const Region& region) {
    return {{"startLine", region.line},
            {"startColumn", region.column},
            {"endLine", region.endLine},
            {"endColumn", region.endColumn}};
}

Json SarifReport::resultOf(const std::string& name, const Finding& finding) {
    Json physical = {{"artifactLocation", locationOf(name)}};
    if (finding.region.line > 0) physical["region"] = regionOf(finding.region);
    Json result = {{"ruleId", rowOf(finding).rule},
                   {"ruleIndex", static_cast<int>(finding.kind)},
                   {"level", rowOf(finding).level},
                   {"message", {{"text", wholeText(finding.message)}}},
                   {"locations", Json::array({{{"physicalLocation", std::move(physical)}}})}};
    if (finding.replacements.empty()) return result;
    Json replacements = Json::array();
    for (const Replacement& replacement : finding.replacements) {
        replacements.push_back(
            {{"deletedRegion", regionOf(replacement.region)}, {"insertedContent", {{"text", replacement.text}}}});
    }
    const Json change = {{"artifactLocation", locationOf(name)}, {"replacements", std::move(replacements)}};
    result["fixes"] = Json::array({{{"artifactChanges", Json::array({change})}}});
    return result;
}

std::string SarifReport::begin() {
    Json rules = Json::array();
    for (const KindRow& row : kinds) {
        rules.push_back({{"id", row.rule},
                         {"shortDescription", {{"text", row.description}}},
                         {"defaultConfiguration", {{"level", row.level}}}});
    }
    const Json driver = {{"name", "corvane-format"}, {"version", CORVANE_VERSION_TEXT}, {"rules", std::move(rules)}};
    const Json root = {{"SRCROOT", {{"uri", "file://" + uriOf(directory_) + (directory_.ends_with('/') ? "" : "/")}}}};
    return "{\"$schema\":\"https://json.schemastore.org/sarif-2.1.0.json\",\"version\":\"2.1.0\",\"runs\":[{\n"
           "\"tool\":{\"driver\":" +
           dumped(driver) +
           "},\n\"columnKind\":\"unicodeCodePoints\",\n"
           "\"originalUriBaseIds\":" +
           dumped(root) + ",\n\"results\":[";
}

std::string SarifReport::file(const FileFindings& file) {
    std::string text;
    for (const Finding& finding : file.findings) {
        text += hasResults_ ? ",\n" : "\n";
        text += dumped(resultOf(file.name, finding));
        hasResults_ = true;
    }
    return text;
}

std::string SarifReport::end(bool good) {
    const Json invocation = {{"executionSuccessful", good}};
    return "\n],\n\"invocations\":[" + dumped(invocation) + "]\n}]}\n";
}

}  // namespace

std::unique_ptr<Report> makeReport(ReportForm form, const std::string& directory) {
    switch (form) {
        case ReportForm::Gcc:
            return std::make_unique<GccReport>();
        case ReportForm::Github:
            return std::make_unique<GithubReport>();
        case ReportForm::Checkstyle:
            return std::make_unique<CheckstyleReport>();
        case ReportForm::Sarif:
            return std::make_unique<SarifReport>(directory);
        default:
            return nullptr;
    }
}

}  // namespace Console
