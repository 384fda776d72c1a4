// Our own source of projects: reads .dsp, .vcxproj, .vcxitems and .vcproj projects, .dsw, .sln and .slnx workspaces,
// and compile_commands.json.
#pragma once

#include <string>

#include "projects/BrevisUI_ProjectSource.h"

namespace BrevisUI {

// The projects of a project or workspace file, or of a directory that holds a compile_commands.json. A workspace stands
// in front of its projects as an entry without files; every project stands in the list once, and so does every file
// of a project. A project of a workspace that is missing, can't be read or is a workspace itself gives a complaint and
// no entry. Throws a ProjectError if the file itself can't be read.
ProjectList readProjects(const std::string& path);

// Whether `readProjects` has a reader of projects, not of workspaces, for a file of this name.
bool isProjectFile(const std::string& path);

class ProjectFiles : public ProjectSource {
public:
    void setWorkspace(const std::string& path) override { path_ = path; }
    void refresh() override;
    const ProjectList& list() const override { return list_; }

private:
    std::string path_;
    ProjectList list_;
};

}  // namespace BrevisUI
