// The batch commands: each finds a set of files, asks whether they are meant, and runs the file job on one after the
// other. Only the host and the source of projects are asked for anything; no toolkit is known here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "batch/BrevisUI_BatchHost.h"
#include "projects/BrevisUI_ProjectSource.h"

namespace BrevisUI {

class BatchRun {
public:
    // Both must outlive the object. `projects` is null where no projects can be read: the commands for projects and
    // workspaces then end early.
    BatchRun(BatchHost& host, ProjectSource* projects) : host_(host), projects_(projects) {}
    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    // True while a command is at work: a second one does nothing, and the window must stay open. Events that are let
    // in between two files may ask.
    bool isBusy() const { return busy_; }

    // The four commands. None throws for a file or a project that fails; they tell the host.
    void formatFiles();
    void formatProject();
    void formatWorkspace();
    void formatDirectoryTree();

private:
    // Whether a command may start: no other is at work, and there is a scheme.
    bool mayStart();
    // The path chosen in a dialog for one file; empty if it was cancelled.
    std::string chooseOne(std::string_view filter, std::string_view laterFilter);
    bool isConfirmed(std::string_view question, const std::string& path);
    // For a path with a foreign extension: whether the user wants it. If not, that is sent.
    bool isWanted(const std::string& path);
    void send(std::string_view text, int severity);
    void sendStart(std::string_view pattern, const std::string& path, const Brevis::PropertySet& scheme);

    // False once the message of the failure has been sent.
    bool readProjects(const std::string& path);
    void tellNoProject();

    void runProject(const std::string& path, const Brevis::PropertySet& scheme);
    void sweepProject(const Project& project, const Brevis::PropertySet& scheme);
    void sweepWorkspace(const Brevis::PropertySet& scheme);
    void sweepDirectory(const std::string& directory, const Brevis::PropertySet& scheme);

    BatchHost& host_;
    ProjectSource* projects_;
    bool busy_ = false;
};

// The directory of a path, without a slash at its end; a path that ends with a slash or names a directory counts whole.
std::string directoryOf(const std::string& path);

}  // namespace BrevisUI
