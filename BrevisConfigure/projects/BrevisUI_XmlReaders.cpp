// Reads the project formats that are XML.
#include <algorithm>
#include <cctype>
#include <filesystem>

#include "files/BrevisUI_TextLines.h"
#include "projects/BrevisUI_FileList.h"
#include "projects/BrevisUI_ProjectPaths.h"
#include "projects/BrevisUI_ProjectReaders.h"
#include "projects/BrevisUI_XmlElements.h"

namespace BrevisUI {

namespace {

bool isHexDigit(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

// %28 and its kin stand for characters with a meaning of their own.
std::string withoutPercents(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%' && at + 2 < text.size() && isHexDigit(text[at + 1]) && isHexDigit(text[at + 2])) {
            result += static_cast<char>(std::stoi(std::string(text.substr(at + 1, 2)), nullptr, 16));
            at += 2;
        } else {
            result += text[at];
        }
    }
    return result;
}

// Properties and items are read in their order, as the build does it, but with all conditions taken for true.
class MsBuildReader {
public:
    explicit MsBuildReader(const ProjectInput& input) : input_(input), paths_(input.path) { defineWellKnown(); }

    std::vector<std::string> read() {
        for (const XmlElement& element : readXml(input_.path, input_.text, "Project")) {
            if (element.parent == "PropertyGroup") {
                paths_.define(element.name, paths_.expand(element.text));
            } else if (element.name == "ClCompile" || element.name == "ClInclude") {
                addItem(element);
            }
        }
        return files_.take();
    }

private:
    void defineWellKnown() {
        const std::string& directory = paths_.directory();
        const std::string bare = directory.substr(0, directory.size() - 1);
        const std::string name = std::filesystem::path(input_.path).stem().string();
        for (const char* key : {"ProjectDir", "MSBuildThisFileDirectory"}) paths_.define(key, directory);
        for (const char* key : {"ProjectName", "MSBuildProjectName", "MSBuildThisFileName"}) paths_.define(key, name);
        paths_.define("MSBuildProjectDirectory", bare);
        paths_.define("SolutionDir", input_.solutionDirectory.empty() ? directory : input_.solutionDirectory);
    }

    void addItem(const XmlElement& element) {
        const std::string* include = element.attribute("Include");
        if (!include) return;
        const std::string* exclude = element.attribute("Exclude");
        const std::vector<std::string> excluded = exclude ? find(*exclude) : std::vector<std::string>();
        for (const std::string& path : find(*include)) {
            if (std::ranges::find(excluded, path) == excluded.end()) files_.add(path);
        }
    }

    std::vector<std::string> find(const std::string& list) const {
        std::vector<std::string> found;
        for (const std::string& piece : splitList(paths_.expand(list), ';')) {
            for (std::string& path : paths_.find(withoutPercents(piece))) found.push_back(std::move(path));
        }
        return found;
    }

    const ProjectInput& input_;
    ProjectPaths paths_;
    FileList files_;
};

}  // namespace

std::vector<std::string> readMsBuild(const ProjectInput& input) { return MsBuildReader(input).read(); }

std::vector<std::string> readVcproj(const ProjectInput& input) {
    const ProjectPaths paths(input.path);
    FileList files;
    for (const XmlElement& element : readXml(input.path, input.text, "VisualStudioProject")) {
        const std::string* path = element.attribute("RelativePath");
        if (element.name == "File" && path) files.add(paths.resolve(paths.expand(*path)));
    }
    return files.take();
}

std::vector<ProjectReference> readSlnx(const std::string& path, std::string_view text) {
    const ProjectPaths paths(path);
    std::vector<ProjectReference> projects;
    for (const XmlElement& element : readXml(path, text, "Solution")) {
        const std::string* project = element.attribute("Path");
        if (element.name == "Project" && project) projects.push_back({element.line, paths.resolve(*project)});
    }
    return projects;
}

}  // namespace BrevisUI
