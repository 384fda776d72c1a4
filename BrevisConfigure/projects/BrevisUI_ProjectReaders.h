// One function for each format of project and workspace files. Each takes the text of the file, already turned into
// UTF-8, and throws a ProjectError with the line for a text that isn't of the format. Files that are named needn't
// exist.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

// The files of a project, by full path. `solutionDirectory` is that of the workspace which names the project, with a
// slash at its end; empty for a project by itself.
struct ProjectInput {
    std::string path;
    std::string_view text;
    std::string solutionDirectory;
};

std::vector<std::string> readDsp(const ProjectInput& input);
// .vcxproj and .vcxitems.
std::vector<std::string> readMsBuild(const ProjectInput& input);
std::vector<std::string> readVcproj(const ProjectInput& input);
std::vector<std::string> readCompileCommands(const ProjectInput& input);

// A project as a workspace names it.
struct ProjectReference {
    int line = 0;
    std::string path;  // full
};

std::vector<ProjectReference> readDsw(const std::string& path, std::string_view text);
std::vector<ProjectReference> readSln(const std::string& path, std::string_view text);
std::vector<ProjectReference> readSlnx(const std::string& path, std::string_view text);

}  // namespace BrevisUI
