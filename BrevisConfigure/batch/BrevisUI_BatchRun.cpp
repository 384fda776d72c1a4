// The four commands, each with its questions and messages in their order.
#include "batch/BrevisUI_BatchRun.h"

#include <algorithm>
#include <numeric>

#include "BrevisUI_FileJob.h"
#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Trn_Exception.h"
#include "batch/BrevisUI_BatchMessages.h"
#include "batch/BrevisUI_BatchSweep.h"
#include "batch/BrevisUI_BatchWriter.h"
#include "files/BrevisUI_ExtensionList.h"
#include "files/BrevisUI_TreeWalk.h"

namespace BrevisUI {

namespace {

class BusyFlag {
public:
    explicit BusyFlag(bool& flag) : flag_(flag) { flag_ = true; }
    ~BusyFlag() { flag_ = false; }
    BusyFlag(const BusyFlag&) = delete;
    BusyFlag& operator=(const BusyFlag&) = delete;

private:
    bool& flag_;
};

class WaitCursor {
public:
    explicit WaitCursor(BatchHost& host) : host_(host) { host_.showWaitCursor(true); }
    ~WaitCursor() { host_.showWaitCursor(false); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    BatchHost& host_;
};

// The busy state of the status bar. Whichever way a command ends, the status bar is ready afterwards.
class BusyStatus {
public:
    explicit BusyStatus(BatchHost& host) : host_(host) {}
    ~BusyStatus() { end(); }
    BusyStatus(const BusyStatus&) = delete;
    BusyStatus& operator=(const BusyStatus&) = delete;

    void begin() {
        host_.setBusy();
        begun_ = true;
    }
    void end() {
        if (begun_) host_.setReady();
        begun_ = false;
    }

private:
    BatchHost& host_;
    bool begun_ = false;
};

std::string joinPatterns(const std::vector<std::string>& extensions) {
    std::string patterns;
    for (const std::string& extension : extensions) {
        patterns.append(patterns.empty() ? "*." : ";*.").append(extension);
    }
    return patterns;
}

int countFiles(const std::vector<Project>& projects) {
    return std::accumulate(projects.begin(), projects.end(), 0, [](int sum, const Project& project) {
        return sum + static_cast<int>(project.files.size());
    });
}

// One walk of a directory tree. It stops when the dialog is cancelled.
void walkTree(BatchSweep& sweep, const std::string& directory, const TreeWalk::FileAction& action) {
    TreeWalk::Hooks hooks;
    hooks.isCancelled = [&sweep] { return sweep.isCancelledNow(); };
    TreeWalk(sweep.extensions(), std::move(hooks)).walk(directory, action);
}

// Shows the files found in the place of the dialog's bar, which has nothing to tell yet.
int countTree(BatchHost& host, BatchSweep& sweep, const std::string& directory) {
    sweep.dialog().showBar(false);
    sweep.dialog().show(fillIn(Status::listing, directory), false);
    int count = 0;
    walkTree(sweep, directory, [&](const std::string& path) {
        host.setStatusText(fillIn(Status::adding, path));
        ++count;
    });
    sweep.dialog().showBar(true);
    return count;
}

}  // namespace

void BatchRun::formatFiles() {
    if (!mayStart()) return;
    const BusyFlag busy(busy_);
    const Brevis::FormatterProperties properties(*host_.scheme());
    const std::vector<std::string> extensions = host_.extensions();
    const ExtensionList target(extensions);
    const std::vector<std::string> paths =
        host_.chooseFiles({fillIn(Filter::sources, joinPatterns(extensions)), "", host_.lastDirectory(), true});
    if (paths.empty()) return;

    const WaitCursor waitCursor(host_);
    BusyStatus status(host_);
    BatchWriter writer(host_);
    const auto isAccepted = [&](const std::string& path) { return target.holds(path) || isWanted(path); };
    const auto end = std::ranges::find_if_not(paths, [&](const std::string& path) {
        if (!isAccepted(path)) return false;
        status.begin();
        formatFile(host_, path, properties, nullptr, &writer.writer());
        return true;
    });
    writer.finish();
    if (end == paths.end()) host_.setLastDirectory(directoryOf(paths.back()));
}

void BatchRun::formatProject() {
    if (!mayStart()) return;
    const Brevis::PropertySet scheme = *host_.scheme();
    const std::string path = chooseOne(Filter::project, Filter::laterProjects);
    if (path.empty()) return;

    const BusyFlag busy(busy_);
    const WaitCursor waitCursor(host_);
    if (!projects_) return;
    host_.clearMessages();
    if (readProjects(path)) runProject(path, scheme);
}

void BatchRun::formatWorkspace() {
    if (!mayStart()) return;
    const Brevis::PropertySet scheme = *host_.scheme();
    const std::string path = chooseOne(Filter::workspace, Filter::laterWorkspaces);
    if (path.empty() || !isConfirmed(Question::workspace, path)) return;

    const BusyFlag busy(busy_);
    BusyStatus status(host_);
    status.begin();
    const WaitCursor waitCursor(host_);
    if (!projects_) return;
    host_.clearMessages();
    if (!readProjects(path)) return;
    sweepWorkspace(scheme);
    host_.setLastDirectory(directoryOf(path));
}

void BatchRun::formatDirectoryTree() {
    if (!mayStart()) return;
    const BusyFlag busy(busy_);
    const Brevis::PropertySet scheme = *host_.scheme();
    const std::optional<std::string> directory = host_.chooseFolder(folderTitle, host_.lastDirectory());
    if (!directory) return;
    host_.clearMessages();
    if (!isConfirmed(Question::directoryTree, *directory)) return;

    const WaitCursor waitCursor(host_);
    sendStart(BatchMessage::startDirectory, *directory, scheme);
    sweepDirectory(*directory, scheme);
}

bool BatchRun::mayStart() {
    if (busy_) return false;
    if (host_.scheme()) return true;
    host_.show(BatchMessage::noScheme);
    return false;
}

std::string BatchRun::chooseOne(std::string_view filter, std::string_view laterFilter) {
    const std::vector<std::string> paths =
        host_.chooseFiles({std::string(filter), std::string(laterFilter), host_.lastDirectory(), false});
    return paths.empty() ? std::string() : paths.front();
}

bool BatchRun::isConfirmed(std::string_view question, const std::string& path) {
    return host_.ask(fillIn(question, path)) == Answer::Yes;
}

bool BatchRun::isWanted(const std::string& path) {
    if (isConfirmed(Question::unknownExtension, path)) return true;
    send(fillIn(Question::unknownExtension, path), Severity::error);
    host_.setLastDirectory(directoryOf(path));
    return false;
}

void BatchRun::send(std::string_view text, int severity) { host_.send(std::string(text), severity); }

void BatchRun::sendStart(std::string_view pattern, const std::string& path, const Brevis::PropertySet& scheme) {
    send(fillInAll(pattern, {path, scheme.name()}), Severity::information);
}

bool BatchRun::readProjects(const std::string& path) {
    try {
        projects_->setWorkspace(path);
        projects_->refresh();
    } catch (const Trn::Exception& failure) {
        host_.alert(failure.message());
        send(failure.message(), Severity::error);
        return false;
    }
    for (const ProjectComplaint& complaint : projects_->list().complaints) send(complaint.text, complaint.severity);
    return true;
}

void BatchRun::tellNoProject() {
    host_.show(BatchMessage::noProject);
    send(BatchMessage::noProject, Severity::error);
}

void BatchRun::runProject(const std::string& path, const Brevis::PropertySet& scheme) {
    if (projects_->list().projects.empty()) return tellNoProject();
    if (!isConfirmed(Question::project, path)) return;
    sendStart(BatchMessage::startProject, path, scheme);
    BusyStatus status(host_);
    status.begin();
    sweepProject(projects_->list().projects.front(), scheme);
    host_.setLastDirectory(directoryOf(path));
}

void BatchRun::sweepProject(const Project& project, const Brevis::PropertySet& scheme) {
    const int count = static_cast<int>(project.files.size());
    host_.setOverallRange(count);
    BatchSweep sweep(host_, scheme);
    sweep.setCount(count);
    sweep.formatProject(project);
    sweep.sendEnd(BatchMessage::endProject);
}

void BatchRun::sweepWorkspace(const Brevis::PropertySet& scheme) {
    const std::vector<Project>& projects = projects_->list().projects;
    const int count = countFiles(projects);
    host_.setOverallRange(count);
    BatchSweep sweep(host_, scheme);
    sweep.setCount(count);
    for (const Project& project : projects) {
        if (sweep.isCancelledNow()) return sweep.sendCancelled();
        const bool isWorkspace = isWorkspaceFile(project.name);
        sendStart(isWorkspace ? BatchMessage::startWorkspace : BatchMessage::startProject, project.name, scheme);
        if (!isWorkspace && !sweep.formatProject(project)) return;
    }
    sweep.sendEnd(BatchMessage::endWorkspace);
}

// Unlike the other commands this one takes the dialog away last.
void BatchRun::sweepDirectory(const std::string& directory, const Brevis::PropertySet& scheme) {
    BusyStatus status(host_);
    status.begin();
    BatchSweep sweep(host_, scheme);
    const int count = countTree(host_, sweep, directory);
    host_.setOverallRange(count);
    sweep.setCount(count);
    walkTree(sweep, directory, [&sweep](const std::string& path) { sweep.format(path); });
    if (sweep.dialog().isCancelled()) sweep.sendCancelled();
    sweep.sendEnd(BatchMessage::endDirectoryTree);
    host_.setLastDirectory(directoryOf(directory));
    status.end();
}

std::string directoryOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (isDirectory(path) && slash + 1 != path.size()) return path;
    if (slash == std::string::npos) return {};
    const std::size_t last = path.find_last_not_of('/', slash);
    return last == std::string::npos ? "/" : path.substr(0, last + 1);
}

}  // namespace BrevisUI
