// Chooses the reader by the extension of the file.
#include "projects/BrevisUI_ProjectFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "files/BrevisUI_ExtensionList.h"
#include "files/BrevisUI_TextLines.h"
#include "projects/BrevisUI_FileList.h"
#include "projects/BrevisUI_ProjectError.h"
#include "projects/BrevisUI_ProjectPaths.h"
#include "projects/BrevisUI_ProjectReaders.h"

namespace BrevisUI {

namespace {

struct ProjectFormat {
    std::string_view extension;
    std::vector<std::string> (*read)(const ProjectInput& input);
};
constexpr std::array<ProjectFormat, 5> projectFormats{{
    {"dsp", readDsp},
    {"vcxproj", readMsBuild},
    {"vcxitems", readMsBuild},
    {"vcproj", readVcproj},
    {"json", readCompileCommands},
}};

struct WorkspaceFormat {
    std::string_view extension;
    std::vector<ProjectReference> (*read)(const std::string& path, std::string_view text);
};
constexpr std::array<WorkspaceFormat, 3> workspaceFormats{{
    {"dsw", readDsw},
    {"sln", readSln},
    {"slnx", readSlnx},
}};

constexpr const char* compileCommands = "compile_commands.json";

constexpr std::string_view unknownFormat = "Corvane C++ cannot read projects of this kind.";
constexpr std::string_view foreignProject = "The project \"%s\" is of a kind that Corvane C++ cannot read.";
constexpr std::string_view missingProject = "The project \"%s\" cannot be found.";
constexpr std::string_view nestedWorkspace = "The workspace \"%s\" is inside another one and will not be formatted.";

template <class Formats>
const typename Formats::value_type* formatOf(const Formats& formats, const std::string& path) {
    const auto found = std::ranges::find(formats, extensionOf(path), &Formats::value_type::extension);
    return found == formats.end() ? nullptr : &*found;
}

std::string readProjectText(const std::string& path) {
    std::string bytes;
    if (!fileExists(path)) throw ProjectError(path, "The file cannot be found.");
    if (isDirectory(path) || !readFile(path, bytes)) throw ProjectError(path, "The file cannot be read.");
    return decodeText(bytes);
}

Project readProject(const ProjectFormat& format, const std::string& path, const std::string& solutionDirectory) {
    const std::string text = readProjectText(path);
    return {path, format.read({path, text, solutionDirectory})};
}

class WorkspaceReader {
public:
    explicit WorkspaceReader(const std::string& path) : path_(path), directory_(ProjectPaths(path).directory()) {}

    ProjectList read(const WorkspaceFormat& format) {
        const std::string text = readProjectText(path_);
        list_.projects.push_back({path_, {}});
        for (const ProjectReference& reference : format.read(path_, text)) add(reference);
        return std::move(list_);
    }

private:
    void add(const ProjectReference& reference) {
        if (isKnown(reference.path)) return;
        const ProjectFormat* format = formatOf(projectFormats, reference.path);
        if (isWorkspaceFile(reference.path)) {
            complain(Severity::error, reference, fillIn(nestedWorkspace, reference.path));
        } else if (!fileExists(reference.path)) {
            complain(Severity::error, reference, fillIn(missingProject, reference.path));
        } else if (!format) {
            complain(Severity::information, reference, fillIn(foreignProject, reference.path));
        } else {
            addReadable(*format, reference.path);
        }
    }

    bool isKnown(const std::string& path) const {
        return std::ranges::find(list_.projects, path, &Project::name) != list_.projects.end();
    }

    void complain(int severity, const ProjectReference& reference, const std::string& text) {
        const std::string_view word = severity == Severity::error ? "error" : "information";
        list_.complaints.push_back({severity, projectMessage(path_, reference.line, word, text)});
    }

    void addReadable(const ProjectFormat& format, const std::string& path) {
        try {
            list_.projects.push_back(readProject(format, path, directory_));
        } catch (const ProjectError& error) {
            list_.complaints.push_back({Severity::error, error.message()});
        }
    }

    const std::string path_;
    const std::string directory_;
    ProjectList list_;
};

std::string projectFileAt(const std::string& path) {
    const std::string full = fullPath(path);
    return isDirectory(full) ? fullPath(full, compileCommands) : full;
}

}  // namespace

bool isWorkspaceFile(const std::string& path) { return formatOf(workspaceFormats, path) != nullptr; }

bool isProjectFile(const std::string& path) {
    // Any other file of this extension is likely to be something else.
    if (extensionOf(path) == "json") return std::filesystem::path(path).filename() == compileCommands;
    return formatOf(projectFormats, path) != nullptr;
}

ProjectList readProjects(const std::string& path) {
    const std::string file = projectFileAt(path);
    if (const WorkspaceFormat* format = formatOf(workspaceFormats, file)) return WorkspaceReader(file).read(*format);
    const ProjectFormat* format = formatOf(projectFormats, file);
    if (!format) throw ProjectError(file, unknownFormat);
    return {{readProject(*format, file, "")}, {}};
}

void ProjectFiles::refresh() {
    list_ = {};
    list_ = readProjects(path_);
}

}  // namespace BrevisUI
