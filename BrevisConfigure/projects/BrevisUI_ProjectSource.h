// The reading of projects and workspaces as the batch commands see it. Whoever reads them may be missing altogether.
#pragma once

#include <string>
#include <vector>

namespace BrevisUI {

struct Project {
    // The path of the project file. An entry whose name has the extension of a workspace is the workspace itself.
    std::string name;
    // Full paths, whether or not there are such files; an empty one is passed over.
    std::vector<std::string> files;

    bool operator==(const Project&) const = default;
};

// Something that could not be read while the rest could.
struct ProjectComplaint {
    int severity = 0;  // one of BrevisUI::Severity
    std::string text;

    bool operator==(const ProjectComplaint&) const = default;
};

struct ProjectList {
    std::vector<Project> projects;
    std::vector<ProjectComplaint> complaints;
};

class ProjectSource {
public:
    virtual ~ProjectSource() = default;

    virtual void setWorkspace(const std::string& path) = 0;
    // Reads the workspace. Throws a Trn::Exception that tells file and line if it can't be read at all; the list is
    // empty then.
    virtual void refresh() = 0;
    // In the order of the workspace.
    virtual const ProjectList& list() const = 0;
};

// Whether a path has the extension of a workspace file.
bool isWorkspaceFile(const std::string& path);

}  // namespace BrevisUI
