// Joins the search to files, threads and the standard streams.
#include "Console_InferRun.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <thread>

#include "BrevisUI_Files.h"
#include "Console_FileSelection.h"
#include "Console_FormatRun.h"
#include "Console_InferReport.h"
#include "Console_LineChoice.h"
#include "Console_OrderedWork.h"
#include "Console_ProgramMain.h"
#include "Console_ProgressLine.h"
#include "Console_SignalWatch.h"
#include "Console_SourceText.h"
#include "inference/BrevisUI_SchemeInference.h"

namespace Console {

namespace {

using BrevisUI::InferenceText;

// More than this tells no more of a style, and would not fit into the memory of every machine.
constexpr std::size_t mostTextBytes = std::size_t{64} << 20;

void complain(const std::string& text) { complainOf(inferProgram, text); }

std::vector<std::string> selectFiles(const InferOptions& options) {
    LineChoice lines(options.selection);
    return FileSelection(options.selection, lines, [](const std::string& text, int) { complain(text); }).select();
}

// Files from all over the list, if they are too many.
std::vector<InferenceText> readTexts(const std::vector<std::string>& files) {
    std::vector<InferenceText> texts;
    std::size_t bytes = 0;
    constexpr std::size_t steps = 16;
    for (std::size_t step = 0; step < steps; ++step) {
        for (std::size_t i = step; i < files.size(); i += steps) {
            if (bytes >= mostTextBytes) return texts;
            std::string complaint;
            std::optional<SourceText> source = readSourceText(files[i], complaint);
            if (!source) {
                complain(complaint);
                continue;
            }
            dropByteOrderMark(*source);
            bytes += source->text.size();
            texts.push_back({files[i], std::move(source->text), readingOf(files[i], {})});
        }
    }
    return texts;
}

// "searching [#####---------------]  25 %"
std::string progressBar(double share) {
    constexpr std::size_t width = 20, percentWidth = 3;
    std::string bar(width, '-');
    std::fill_n(bar.begin(), static_cast<std::size_t>(share * static_cast<double>(width)), '#');
    const std::string percent = std::to_string(static_cast<int>(100 * share));
    return "searching [" + bar + "] " + std::string(percentWidth - percent.size(), ' ') + percent + " %";
}

BrevisUI::InferenceHost hostOf(const InferOptions& options, ProgressLine& progress, SignalWatch& signals) {
    const unsigned jobs = options.selection.jobs;
    const std::size_t threads = jobs > 0 ? jobs : std::max(1u, std::thread::hardware_concurrency());
    BrevisUI::InferenceHost host;
    host.forEach = [threads](std::size_t count, const std::function<void(std::size_t)>& work) {
        OrderedWork<char>::Steps steps;
        steps.work = [&work](std::size_t item) {
            work(item);
            return '\0';
        };
        steps.mayBegin = [] { return true; };
        steps.weigh = [](std::size_t) { return std::uint64_t{0}; };
        steps.take = [](std::size_t, char) { return true; };
        OrderedWork<char>({.threads = threads, .items = 16 * threads}, std::move(steps)).run(count);
    };
    host.goOn = [&progress, &signals](double share) {
        progress.update(progressBar(share));
        return signals.signal() == 0;
    };
    return host;
}

bool writeScheme(const Brevis::PropertySet& scheme, const InferOptions& options, StandardOutput& output) {
    std::ostringstream text;
    scheme.write(text);
    if (options.output == standardInput) {
        output.write(text.str());
        return true;
    }
    std::ofstream file(options.output, std::ios::binary);
    file << text.str();
    if (file.flush().good()) return true;
    complain("cannot write '" + options.output + "'");
    return false;
}

}  // namespace

int inferScheme(const InferOptions& options, StandardOutput& output) {
    const bool isFile = options.output != standardInput;
    if (isFile && !options.force && BrevisUI::fileExists(options.output)) {
        complain("'" + options.output + "' is there already; --force writes over it");
        return exitTrouble;
    }
    const std::vector<InferenceText> texts = readTexts(selectFiles(options));
    if (texts.empty()) {
        complain("there is no source file");
        return exitTrouble;
    }
    BrevisUI::InferenceOptions search;
    search.edition = options.edition;
    search.agreement = options.agreement / 100.0;
    ProgressLine progress;
    SignalWatch signals(SignalWatch::Again::ExitAtOnce);
    BrevisUI::SchemeInference inference(texts, search, hostOf(options, progress, signals));
    const BrevisUI::InferenceResult result = inference.run();
    progress.erase();
    if (result.isCancelled) return SignalWatch::statusFor(signals.signal());
    if (result.refused == texts.size()) {
        complain("no file could be read as C or C++");
        return exitTrouble;
    }
    if (!writeScheme(result.scheme, options, output)) return exitTrouble;
    const std::string report = (options.show ? inferenceTable(result) : std::string()) + inferenceReport(result);
    if (isFile) {
        output.write(report);
    } else {
        output.flush();
        std::fputs(report.c_str(), stderr);
    }
    return exitGood;
}

}  // namespace Console
